#include "cli/completion.h"

#include <gmock/gmock.h>

#include "support/program_test.h"

namespace {

using support::Arguments;
using testing::HasSubstr;

/// The words on offer, each in angle brackets, and what else the shell is told.
std::string offered(const std::string& output) {
  std::istringstream lines(output);
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    const auto tab = line.find('\t');
    result += tab == 0 ? line.substr(1) : "<" + line.substr(0, tab) + ">";
  }
  return result;
}

class Completion : public support::ProgramTest {
 protected:
  void SetUp() override {
    for (const std::string name : {"blog", "my shop", "my \"old\" shop", "-odd", "two\nlines"})
      write(name + "/" + name + ".qzVSK", "<siteName>" + name + "</siteName>");
  }
};

TEST_F(Completion, OffersWhatMayFollow) {
  struct Case {
    const char* name;
    Arguments words;
    std::string expected;
  };
  const Case cases[] = {
      {"commands", {"s"}, "<sites><scan><show>"},
      {"the main options", {"--"}, "<--help><--version>"},
      {"a command that does not exist", {"rescan", ""}, ""},
      {"site names, with blanks, and none that a line cannot hold",
       {"scan", ""},
       "<-odd><blog><my \"old\" shop><my shop>"},
      {"begun with a blank in it", {"show", "my s"}, "<my shop>"},
      {"only options behind a dash", {"where", "-"}, "<--help>"},
      {"but a name behind two of them", {"where", "--", "-"}, "<-odd>"},
      {"options, once the arguments are there", {"sites", ""}, "<--help><--json>"},
      {"words to choose from", {"scan", "--fail-on", "n"}, "<new-broken><never>"},
      {"in the same word", {"scan", "--fail-on=n"}, "<--fail-on=new-broken><--fail-on=never>"},
      {"of a setting", {"edit", "blog", "--links", ""}, "<simple><browser>"},
      {"a switch may be followed by its words or by something else",
       {"scan", "--sitemaps", ""},
       "<yes><no><-odd><blog><my \"old\" shop><my shop>"},
      {"and has taken one", {"scan", "--sitemaps", "no", "b"}, "<blog>"},
      {"a value with no words to choose from", {"scan", "--max-pages", ""}, ""},
      {"a value is no name", {"scan", "--max-pages", "7", "b"}, "<blog>"},
      {"used options are gone", {"report", "blog", "--force", "--fo"}, "<--format>"},
      {"those that may be repeated are not", {"filters", "blog", "--add", "x", "--a"}, "<--add>"},
      {"the second argument", {"export", "blog", ""}, "<html><xml><broken>"},
      {"a file", {"export", "blog", "xml", "--output", "s"}, "files"},
      {"a folder", {"export", "blog", "xml", "--split", ""}, "folders"},
      {"a name or a file", {"validate", "b"}, "<blog>files"},
      {"free text", {"add", "new", ""}, ""},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    Arguments words = {"complete", "--"};
    words.insert(words.end(), each.words.begin(), each.words.end());
    const auto result = run(words);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(offered(result.output), each.expected);
  }
}

TEST_F(Completion, LeavesTheDiskAlone) {
  write("old/old.qzVSK", "");
  write("renamed/other.qzVSK", "<siteName>other</siteName>");
  const auto before = snapshot();
  EXPECT_THAT(run({"complete", "--", "scan", ""}).output, HasSubstr("renamed\tsite\n"));
  EXPECT_EQ(snapshot(), before);

  std::filesystem::remove_all(home.path() / "Library");
  const auto result = run({"complete", "--", "scan", ""});
  EXPECT_EQ(result.output + result.errors, "");
  EXPECT_FALSE(std::filesystem::exists(home.path() / "Library"));
}

}  // namespace
