#include "cli/completion.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <optional>
#include <utility>

#include <CLI/CLI.hpp>

#include "cli/cli_context.h"
#include "store/site_list.h"

namespace cli {

namespace {

using Options = std::vector<const CLI::Option*>;

bool takesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

/// "[yes|no]" gives "yes" and "no"; a name alone, as FILE, gives nothing.
std::vector<std::string> choicesOf(const CLI::Option& option) {
  std::string form = option.get_type_name();
  std::erase_if(form, [](char each) { return each == '[' || each == ']'; });
  if (form.find('|') == std::string::npos) return {};
  return CLI::detail::split(form, '|');
}

std::string longName(const CLI::Option& option) {
  return option.get_lnames().empty() ? std::string() : "--" + option.get_lnames().front();
}

bool hasName(const CLI::Option& option, std::string_view word) {
  const auto& letters = option.get_snames();
  return word == longName(option) ||
         (word.size() == 2 && std::find(letters.begin(), letters.end(), word.substr(1)) != letters.end());
}

/// A command line, read up to the word that is being typed.
class TypedLine {
 public:
  TypedLine(const CLI::App& app, const std::vector<std::string>& words) : m_command(&app) {
    for (const std::string& word : words) take(word);
  }

  /// The command that the line has reached; null behind one that does not exist.
  const CLI::App* command() const { return m_command; }

  /// The option whose value comes next; null when none waits for one.
  const CLI::Option* waiting() const { return m_waiting; }

  /// The argument without a name that comes next; null when all are there.
  const CLI::Option* argument() const {
    const Options all =
        m_command->get_options([](const CLI::Option* each) { return each->get_positional(); });
    return m_arguments < all.size() ? all[m_arguments] : nullptr;
  }

  bool onlyArguments() const { return m_onlyArguments; }

  /// The options that may still be given.
  Options openOptions() const {
    return m_command->get_options([this](const CLI::Option* each) {
      const bool isUsed = std::find(m_used.begin(), m_used.end(), each) != m_used.end();
      const bool mayRepeat = each->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
      return each->nonpositional() && !longName(*each).empty() && !each->get_group().empty() &&
             (!isUsed || mayRepeat);
    });
  }

  const CLI::Option* optionNamed(std::string_view word) const {
    const Options found = m_command->get_options(
        [word](const CLI::Option* each) { return each->nonpositional() && hasName(*each, word); });
    return found.empty() ? nullptr : found.front();
  }

 private:
  void take(const std::string& word) {
    if (m_command == nullptr) return;
    const CLI::Option* waiting = std::exchange(m_waiting, nullptr);
    if (waiting != nullptr && takes(*waiting, word)) return;
    if (word == "--" && !m_onlyArguments) {
      m_onlyArguments = true;
    } else if (word.starts_with('-') && word.size() > 1 && !m_onlyArguments) {
      takeOption(word);
    } else if (!m_command->get_subcommands({}).empty()) {
      const auto found =
          m_command->get_subcommands([&](const CLI::App* each) { return each->get_name() == word; });
      m_command = found.empty() ? nullptr : found.front();
    } else {
      ++m_arguments;
    }
  }

  /// Behind a switch, whose option alone means yes, anything but its two words is something else.
  static bool takes(const CLI::Option& option, const std::string& word) {
    if (option.get_items_expected_min() > 0) return true;
    const auto choices = choicesOf(option);
    return std::find(choices.begin(), choices.end(), word) != choices.end();
  }

  void takeOption(std::string_view word) {
    const auto equals = word.find('=');
    const CLI::Option* option = optionNamed(word.substr(0, equals));
    if (option == nullptr) return;
    m_used.push_back(option);
    if (takesValue(*option) && equals == std::string_view::npos) m_waiting = option;
  }

  const CLI::App* m_command;
  const CLI::Option* m_waiting = nullptr;
  Options m_used = {};
  std::size_t m_arguments = 0;
  bool m_onlyArguments = false;
};

/// Collects what begins with `typed`.
class Offer {
 public:
  Offer(std::string typed, const ListSites& listSites) : m_typed(std::move(typed)), m_listSites(listSites) {}

  /// Commands and options.
  void word(std::string text, std::string description) {
    if (text.starts_with(m_typed)) m_result.candidates.push_back({std::move(text), std::move(description)});
  }

  /// What may stand for `option`, each behind `prefix`.
  void valuesOf(const CLI::Option& option, const std::string& prefix = {}) {
    for (const std::string& choice : choicesOf(option)) word(prefix + choice, {});
    const std::string kind = option.get_type_name();
    if (kind == "FILE") files(OfferedFiles::files);
    if (kind == "FOLDER") files(OfferedFiles::folders);
  }

  void sites() {
    for (std::string& name : m_listSites()) word(std::move(name), "site");
  }

  void files(OfferedFiles kind) { m_result.files = kind; }

  Completions take() { return std::move(m_result); }

 private:
  std::string m_typed;
  const ListSites& m_listSites;
  Completions m_result = {};
};

void offerCommands(const CLI::App& app, Offer& offer) {
  for (const CLI::App* each :
       app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); }))
    offer.word(each->get_name(), each->get_description());
}

void offerOptions(const TypedLine& line, Offer& offer) {
  for (const CLI::Option* each : line.openOptions()) offer.word(longName(*each), each->get_description());
}

void offerArgument(const CLI::Option& argument, Offer& offer) {
  for (const std::string& kind : CLI::detail::split(argument.get_name(true), '|')) {
    if (kind == "NAME") offer.sites();
    if (kind == "FILE") offer.files(OfferedFiles::files);
  }
  offer.valuesOf(argument);
}

}  // namespace

Completions completionsOf(const CLI::App& app, std::vector<std::string> words, const ListSites& listSites) {
  std::string typed;
  if (!words.empty()) {
    typed = std::move(words.back());
    words.pop_back();
  }
  const TypedLine line(app, words);
  Offer offer(typed, listSites);
  if (line.command() == nullptr) return {};
  if (const CLI::Option* option = line.waiting(); option != nullptr) {
    offer.valuesOf(*option);
    if (option->get_items_expected_min() > 0) return offer.take();
  }
  if (typed.starts_with('-') && !line.onlyArguments()) {
    const auto equals = typed.find('=');
    if (equals == std::string::npos) {
      offerOptions(line, offer);
    } else if (const CLI::Option* option = line.optionNamed(std::string_view(typed).substr(0, equals))) {
      offer.valuesOf(*option, typed.substr(0, equals + 1));
    }
  } else if (!line.command()->get_subcommands({}).empty()) {
    offerCommands(*line.command(), offer);
  } else if (const CLI::Option* argument = line.argument(); argument != nullptr) {
    offerArgument(*argument, offer);
  } else if (!line.onlyArguments()) {
    offerOptions(line, offer);
  }
  return offer.take();
}

std::string completionLines(const Completions& completions) {
  std::string lines;
  for (const Candidate& each : completions.candidates) {
    if (printable(each.text) == each.text) lines += each.text + '\t' + each.description + '\n';
  }
  if (completions.files == OfferedFiles::files) lines += "\tfiles\n";
  if (completions.files == OfferedFiles::folders) lines += "\tfolders\n";
  return lines;
}

int printCompletions(const CLI::App& app, std::vector<std::string> words) {
  const auto listSites = []() -> std::vector<std::string> {
    const auto controls = store::GlobalControls::fromEnvironment();
    if (!controls) return {};
    return store::recordedSites(*controls);
  };
  std::cout << completionLines(completionsOf(app, std::move(words), listSites)) << std::flush;
  return exitDone;
}

}  // namespace cli
