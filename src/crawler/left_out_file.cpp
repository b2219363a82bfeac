#include "crawler/left_out_file.h"

#include <charconv>
#include <filesystem>
#include <optional>

#include "store/text_lines.h"

namespace crawler {

namespace {

using store::escapedField;
using store::takeField;

std::filesystem::path fileOf(const store::StateFolder& state, std::string_view siteName) {
  return state.ofSite(siteName) / "left-out.tsv";
}

std::optional<LeftOutGroup> parseGroup(std::string_view line) {
  const std::optional<LinkReason> reason = reasonNamed(takeField(line));
  if (!reason) return {};
  LeftOutGroup group{.reason = *reason, .which = takeField(line)};
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), group.count);
  if (error != std::errc() || end != line.data() + line.size() || group.count < 1) return {};
  return group;
}

}  // namespace

platform::FileResult saveLeftOut(const store::StateFolder& state, std::string_view siteName,
                                 const LeftOut& leftOut) {
  std::string text;
  for (const LeftOutGroup& group : leftOut.groups) {
    text.append(nameOf(group.reason)).append("\t").append(escapedField(group.which));
    text.append("\t").append(std::to_string(group.count)).append("\n");
    for (const LeftOutExample& example : group.examples) {
      text.append("\t").append(escapedField(example.address));
      text.append("\t").append(escapedField(example.page)).append("\n");
    }
  }
  const auto target = fileOf(state, siteName);
  if (auto made = platform::makeFolders(target.parent_path()); !made.ok()) return made;
  return platform::replaceFile(target, text);
}

LeftOut readLeftOut(const store::StateFolder& state, std::string_view siteName) {
  LeftOut leftOut;
  const auto content = platform::readFile(fileOf(state, siteName), platform::kMaxListBytes);
  bool isInGroup = false;
  for (const std::string& each : store::nonEmptyLines(content.text)) {
    std::string_view line = each;
    if (!line.starts_with('\t')) {
      std::optional<LeftOutGroup> group = parseGroup(line);
      isInGroup = group.has_value();
      if (group) leftOut.groups.push_back(*std::move(group));
    } else if (isInGroup) {
      line.remove_prefix(1);
      std::string address = takeField(line);
      leftOut.groups.back().examples.push_back({std::move(address), takeField(line)});
    }
  }
  return leftOut;
}

}  // namespace crawler
