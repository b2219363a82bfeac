#include "fault_test.h"

#include <fstream>
#include <string_view>

#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "sitemaps/scanned_set.h"
#include "sitemaps/xml_format.h"

namespace faults {

namespace fs = std::filesystem;

namespace {

const std::string kFolder = "(folder)";

/// Whether `text` is what a scan has written to `file` after some whole number of pages, by the text that it
/// has in the end.
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

}  // namespace

void expectNothingLost(const Snapshot& now, const Snapshot& before, const Snapshot& after) {
  for (const auto& [file, text] : before) EXPECT_TRUE(now.contains(file)) << file;
  for (const auto& [file, text] : now) {
    SCOPED_TRACE(file);
    const auto old = before.find(file);
    const auto whole = after.find(file);
    ASSERT_NE(whole, after.end());
    EXPECT_TRUE((old != before.end() && text == old->second) ||
                endsBehindACell(fs::path(file).filename(), text, whole->second))
        << text.substr(0, 2000);
  }
}

support::ProgramResult FaultTest::runUnder(Arguments launcher, const Arguments& arguments) const {
  launcher.push_back(VESKEL_CLI);
  launcher.insert(launcher.end(), arguments.begin(), arguments.end());
  const std::string program = launcher.front();
  launcher.erase(launcher.begin());
  return support::runProgram(program, launcher, options());
}

std::vector<SystemCall> FaultTest::callsOf(const Arguments& watched, const Arguments& arguments) const {
  const fs::path trace = home.path() / "trace";
  Arguments strace = {"strace", "-f", "-y", "--seccomp-bpf", "-o", trace};
  strace.insert(strace.end(), watched.begin(), watched.end());
  runUnder(strace, arguments);
  std::vector<SystemCall> calls;
  std::map<std::string, int> counts;  // of calls of a name by a thread, as strace counts them
  std::ifstream lines(trace);
  for (std::string line; std::getline(lines, line);) {
    if (line.find("<... ") != line.npos) continue;  // the end of a call that another thread's came between
    const std::string threadAndName = line.substr(0, line.find('('));
    const int number = ++counts[threadAndName];
    if (line.find(" = -1 ") != line.npos || line.find(home.path()) == line.npos) continue;
    calls.push_back({threadAndName.substr(threadAndName.rfind(' ') + 1), number, line});
  }
  return calls;
}

support::ProgramResult FaultTest::runWith(const std::string& what, const SystemCall& call,
                                          const Arguments& watched, const Arguments& arguments) const {
  Arguments strace = {"strace", "-f", "-o", "/dev/null"};
  // There, strace loses the signal.
  if (!what.starts_with("signal=")) strace.push_back("--seccomp-bpf");
  strace.insert(strace.end(), watched.begin(), watched.end());
  strace.insert(strace.end(),
                {"-e", "inject=" + call.name + ":" + what + ":when=" + std::to_string(call.number)});
  return runUnder(strace, arguments);
}

Snapshot FaultTest::snapshot() const {
  Snapshot snapshot;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(data())) {
    const std::string name = entry.path().lexically_relative(data()).string();
    snapshot[name] = entry.is_directory() ? kFolder : platform::readFile(entry.path()).text;
  }
  return snapshot;
}

void FaultTest::restore(const Snapshot& snapshot) const {
  // Whatever the last scan left, what is written here counts as edited.
  fs::remove(state.ofSite("shop") / "scanned-documents");
  fs::remove_all(data());
  fs::create_directories(data());
  for (const auto& [name, text] : snapshot) {
    if (text == kFolder) {
      fs::create_directory(data() / name);
    } else {
      std::ofstream(data() / name) << text;
    }
  }
}

void FaultTest::makeFormerSet() const {
  const support::SiteServer server(manyPages(3));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  ASSERT_TRUE(platform::replaceFile(site() / "sitemap2c.html", "edited").ok());
  fs::remove(site() / "sitemap3c.html");
  prepare({"scan", "shop"}, 1);
}

Snapshot FaultTest::sets() const {
  Snapshot sets;
  const fs::path former = state.ofSite("shop") / "former";
  for (const std::string_view name : sitemaps::kSetFiles) {
    sets[std::string(name)] = platform::readFile(site() / name).text;
    sets["former/" + std::string(name)] = platform::readFile(former / name).text;
  }
  return sets;
}

}  // namespace faults
