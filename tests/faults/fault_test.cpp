#include "fault_test.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "sitemaps/xml_format.h"
#include "support/waiting.h"

namespace faults {

namespace fs = std::filesystem;

namespace {

/// $1: where to mount, $2: options, $3: what to copy in, $4: what of it to make read-only.
constexpr const char* kHolderScript = R"(
mount -t tmpfs -o "$2" tmpfs "$1" || exit
[ -z "$3" ] || cp -a "$3/." "$1" || exit
[ -z "$4" ] || { mount --bind "$1/$4" "$1/$4" && mount -o remount,bind,ro "$1/$4"; } || exit
echo $$
exec sleep 600)";

std::string page(const std::string& title, const std::vector<std::string>& links) {
  std::string text = "<html><head><title>" + title + "</title></head><body>";
  for (const std::string& link : links) text += "<a href=\"" + link + "\">To " + link + "</a>\n";
  return text + "</body></html>";
}

}  // namespace

Snapshot snapshotOf(const fs::path& folder) {
  Snapshot snapshot;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    snapshot[name] = entry.is_directory() ? "(folder)" : platform::readFile(entry.path()).text;
  }
  return snapshot;
}

bool isLeftover(const std::string& file) {
  return fs::path(file).filename().string().starts_with(".veskel-");
}

Snapshot withoutLeftovers(Snapshot snapshot) {
  std::erase_if(snapshot, [](const auto& file) { return isLeftover(file.first); });
  return snapshot;
}

support::SiteServer::Pages manyPages(int count) {
  const auto name = [count](int number) { return "page" + std::to_string(number % count) + ".html"; };
  support::SiteServer::Pages pages;
  for (int number = 0; number < count; ++number) {
    std::vector<std::string> links;
    for (const int step : {1, 2, 3, 7, 11, 31}) links.push_back(name(number + step));
    if (number % 10 == 0) links.push_back("broken" + std::to_string(number) + ".html");
    const std::string title =
        "Page " + std::to_string(number) + std::string(static_cast<std::size_t>(number % 40), 'x');
    const std::string target = number == 0 ? "/" : "/" + name(number);
    pages[target] = {.body = page(title, links), .lastModified = "Mon, 02 Mar 2020 10:00:00 GMT"};
  }
  return pages;
}

bool endsBehindACell(const std::string& file, const std::string& text, const std::string& whole) {
  if (text == whole) return true;
  if (!whole.starts_with(text)) return false;
  if (file == sitemaps::kXmlSitemapFile) return text == sitemaps::kXmlHeader || text.ends_with("\n\t</url>");
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    if (layout.fileName != file) continue;
    if (text == sitemaps::documentOpening(layout.columns)) return true;
    if (layout.columns == 1) return text.ends_with("\n<div class=\"clearer\">&nbsp;</div>");
    return text.ends_with("\n\t\t</td>\n\t\t<td>") || text.ends_with("\n\t\t</td>\n\t</tr>");
  }
  return false;
}

MountedFolder::MountedFolder(const std::string& options, const fs::path& content,
                             const std::string& readOnly) {
  Arguments arguments = {"unshare", "--mount"};
  if (geteuid() != 0) arguments.push_back("--map-root-user");
  arguments.insert(arguments.end(), {"sh", "-c", kHolderScript, "sh", m_place.path().string(), options,
                                     content.string(), readOnly});
  m_holder.emplace("/usr/bin/env", arguments);
  // The script says its process number once it is done, and ends with a complaint when it cannot.
  support::comesTrue([&] { return m_holder->output().ends_with('\n') || !m_holder->errors().empty(); });
  std::string process = m_holder->output();
  if (!process.ends_with('\n')) {
    m_problem = m_holder->errors();
    return;
  }
  process.pop_back();
  m_path = "/proc/" + process + "/root" + m_place.path().string();
}

support::ProgramOptions FaultTest::options() const {
  return {.environment = {{"HOME", m_home}, {"XDG_STATE_HOME", ownHome.path() / "state"}}};
}

support::ProgramResult FaultTest::run(const Arguments& arguments) const {
  return support::runProgram(VESKEL_CLI, arguments, options());
}

support::ProgramResult FaultTest::runUnder(Arguments launcher, const Arguments& arguments) const {
  launcher.push_back(VESKEL_CLI);
  launcher.insert(launcher.end(), arguments.begin(), arguments.end());
  return support::runProgram("/usr/bin/env", launcher, options());
}

void FaultTest::prepare(const Arguments& arguments, int expectedCode) const {
  const auto result = run(arguments);
  ASSERT_EQ(result.exitCode, expectedCode) << result.errors;
}

}  // namespace faults
