// A database in one file (SQLite), as something that a user's state may be kept in: whatever is wrong with
// the file ends as a result, never as an exception.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

class Database;

/// A statement that can be run again and again with other values. Goes before its database.
class Statement {
 public:
  /// Values for the "?" in order, from the first one on behind each run. The texts have to live until it is
  /// run.
  Statement& add(std::int64_t value);
  Statement& add(std::string_view text);
  Statement& addBytes(std::string_view bytes);

  /// Runs it to its end and forgets the values.
  void run();

  /// Whether there is another row. Behind the last one it can be run again.
  bool next();
  // Of the row in hand, by column from 0; views are valid until the next row:
  std::int64_t number(int column) const;
  std::string_view text(int column) const;
  std::string_view bytes(int column) const { return text(column); }

 private:
  friend class Database;
  Statement(Database& database, std::string_view sql);

  void note(int code);
  void reset();

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  Database* m_database;
  std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
  int m_added = 0;
};

/// One thread at a time. After the first failure every call does nothing, and result() says what it was.
class Database {
 public:
  enum class Access {
    read,   // the file has to exist
    write,  // it is made where it is missing
  };

  /// Waits for a second where another program writes.
  Database(const std::filesystem::path& file, Access access);

  const FileResult& result() const { return m_result; }
  bool ok() const { return m_result.ok(); }
  /// Whether the file is no database, or one that is damaged: it will not get better.
  bool isDamaged() const { return m_isDamaged; }

  void run(std::string_view sql);
  Statement prepare(std::string_view sql) { return Statement(*this, sql); }

  /// "PRAGMA user_version": 0 for a new file.
  std::int64_t version();

 private:
  friend class Statement;
  void note(int code);

  struct Close {
    void operator()(sqlite3* database) const;
  };
  std::unique_ptr<sqlite3, Close> m_database;
  FileResult m_result;
  bool m_isDamaged = false;
};

}  // namespace platform
