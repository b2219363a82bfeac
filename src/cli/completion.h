// What a shell may offer while a command line of the program is typed. The shells' own scripts ask for it
// with "veskel-cli complete -- WORD...", and so know as much as the program does.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct Candidate {
  std::string text;         // the whole word, unquoted
  std::string description;  // one line, may be empty
};

enum class OfferedFiles { none, files, folders };

struct Completions {
  std::vector<Candidate> candidates = {};  // all begin with what is typed already
  OfferedFiles files = OfferedFiles::none;
};

using ListSites = std::function<std::vector<std::string>()>;

/// What may stand in place of the last of `words`, the one being typed and possibly empty. The program's own
/// name is not among them. `listSites` is called at most once, and only where a site's name may stand.
///
/// Everything is read from `app`: commands and options that are hidden are not offered; the type name of a
/// value tells its form: "yes|no" are the words to choose from, "FILE" and "FOLDER" are paths, and NAME as
/// the name of an argument is a site.
Completions completionsOf(const CLI::App& app, std::vector<std::string> words, const ListSites& listSites);

/// A line for each candidate: its text, a tab, its description; and "\tfiles" or "\tfolders" where paths may
/// stand. Candidates that a line or a terminal would not bear are left out.
std::string completionLines(const Completions& completions);

/// Prints the lines for `words`, with the user's sites. Changes nothing on the disk, and is silent about
/// whatever is wrong there. Returns the exit code.
int printCompletions(const CLI::App& app, std::vector<std::string> words);

}  // namespace cli
