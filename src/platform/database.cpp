#include "platform/database.h"

#include <sqlite3.h>

namespace platform {

namespace {

constexpr int kPatience = 1'000;  // milliseconds

}  // namespace

Database::Database(const std::filesystem::path& file, Access access) {
  sqlite3* database = nullptr;
  // Also to read it may have to be written to, when a process that wrote was killed. Where it must not be,
  // the library opens it for reading alone.
  const int flags = SQLITE_OPEN_READWRITE | (access == Access::write ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(file.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  m_database.reset(database);
  note(code);
  if (access == Access::read && !somethingAt(file)) m_result.status = FileStatus::missing;
  if (ok()) sqlite3_busy_timeout(database, kPatience);
}

void Database::Close::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}

void Database::run(std::string_view sql) {
  prepare(sql).run();
}

std::int64_t Database::version() {
  Statement statement = prepare("PRAGMA user_version");
  return statement.next() ? statement.number(0) : 0;
}

void Database::note(int code) {
  if (!ok() || code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
  m_isDamaged = code == SQLITE_NOTADB || code == SQLITE_CORRUPT;
  m_result.status = code == SQLITE_BUSY ? FileStatus::busy : FileStatus::failed;
  m_result.error = m_database ? sqlite3_errmsg(m_database.get()) : sqlite3_errstr(code);
}

Statement::Statement(Database& database, std::string_view sql) : m_database(&database) {
  if (!database.ok()) return;
  sqlite3_stmt* statement = nullptr;
  note(sqlite3_prepare_v3(database.m_database.get(), sql.data(), static_cast<int>(sql.size()),
                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
  m_statement.reset(statement);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement& Statement::add(std::int64_t value) {
  if (m_database->ok()) note(sqlite3_bind_int64(m_statement.get(), ++m_added, value));
  return *this;
}

Statement& Statement::add(std::string_view text) {
  // A null pointer would mean no value.
  const char* data = text.empty() ? "" : text.data();
  if (m_database->ok()) {
    note(sqlite3_bind_text64(m_statement.get(), ++m_added, data, text.size(), SQLITE_STATIC, SQLITE_UTF8));
  }
  return *this;
}

Statement& Statement::addBytes(std::string_view bytes) {
  const char* data = bytes.empty() ? "" : bytes.data();
  if (m_database->ok()) {
    note(sqlite3_bind_blob64(m_statement.get(), ++m_added, data, bytes.size(), SQLITE_STATIC));
  }
  return *this;
}

void Statement::run() {
  while (next()) {
  }
}

bool Statement::next() {
  if (!m_database->ok()) return false;
  const int code = sqlite3_step(m_statement.get());
  if (code == SQLITE_ROW) return true;
  note(code);
  reset();
  return false;
}

std::int64_t Statement::number(int column) const {
  return sqlite3_column_int64(m_statement.get(), column);
}

std::string_view Statement::text(int column) const {
  const void* data = sqlite3_column_blob(m_statement.get(), column);
  if (data == nullptr) return {};
  return {static_cast<const char*>(data),
          static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

void Statement::note(int code) {
  m_database->note(code);
}

void Statement::reset() {
  sqlite3_reset(m_statement.get());
  m_added = 0;
}

}  // namespace platform
