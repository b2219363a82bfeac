#include "html_editor/underline.h"

#include <array>

#include "html_editor/style_rules.h"

namespace html_editor {

namespace {

using platform::Regex;

constexpr std::array<std::string_view, 4> kStates = {"active", "link", "visited", "hover"};
constexpr std::size_t kVisited = 2;
constexpr std::size_t kHover = 3;

std::string ruleStart(EntryClass entries, std::string_view state) {
  std::string text(className(entries));
  return text.append(" a:").append(state).append(" { text-decoration:");
}

/// ".vskPageTitle a:hover { text-decoration:none }"
std::string rule(EntryClass entries, std::string_view state, std::string_view decoration) {
  return "." + ruleStart(entries, state).append(decoration).append(" }");
}

/// A rule as it is searched for: up to the first " }" of its line, or up to the last one.
enum class Reach { first, last };

struct RulePattern {
  RulePattern(EntryClass entries, std::string_view state, Reach reach)
      : literal(ruleStart(entries, state)),
        pattern("." + literal + (reach == Reach::first ? ".*? }" : ".* }")) {}

  std::optional<std::string_view> findIn(std::string_view document) const {
    return findRule(document, literal, pattern);
  }

  std::string literal;
  Regex pattern;
};

using StatePatterns = std::array<RulePattern, kStates.size()>;

StatePatterns makePatterns(EntryClass entries, Reach reach) {
  return {RulePattern(entries, kStates[0], reach), RulePattern(entries, kStates[1], reach),
          RulePattern(entries, kStates[2], reach), RulePattern(entries, kStates[3], reach)};
}

const StatePatterns& patternsOf(EntryClass entries, Reach reach) {
  static const std::array<StatePatterns, 4> kPatterns = {
      makePatterns(EntryClass::pageTitle, Reach::first), makePatterns(EntryClass::pageTitle, Reach::last),
      makePatterns(EntryClass::pageLink, Reach::first), makePatterns(EntryClass::pageLink, Reach::last)};
  return kPatterns[(entries == EntryClass::pageTitle ? 0U : 2U) + (reach == Reach::first ? 0U : 1U)];
}

}  // namespace

std::optional<Underline> readUnderline(std::string_view document, EntryClass entries) {
  const StatePatterns& patterns = patternsOf(entries, Reach::first);
  const auto hover = patterns[kHover].findIn(document);
  const auto visited = patterns[kVisited].findIn(document);
  if (!hover || !visited) return std::nullopt;
  const auto says = [&](std::string_view onHover, std::string_view onVisited) {
    return *hover == rule(entries, "hover", onHover) && *visited == rule(entries, "visited", onVisited);
  };
  if (says("none", "none")) return Underline::none;
  if (says("underline", "underline")) return Underline::all;
  if (says("underline", "none")) return Underline::onHover;
  return std::nullopt;
}

std::string withUnderline(std::string_view document, EntryClass entries, Underline mode) {
  // Where a line holds more than one rule, only "all" reaches over the others: users who wrote such lines
  // know their sitemaps to come out that way.
  const StatePatterns& patterns = patternsOf(entries, mode == Underline::all ? Reach::last : Reach::first);
  std::string result(document);
  for (std::size_t i = 0; i < kStates.size(); ++i) {
    const bool underlined = mode == Underline::all || (mode == Underline::onHover && i == kHover);
    const std::string written = rule(entries, kStates[i], underlined ? "underline" : "none");
    const auto old = patterns[i].findIn(result);
    if (old && *old != written) result = platform::replaceText(result, *old, written);
  }
  return result;
}

}  // namespace html_editor
