#include "crawler/page_record.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "platform/page_encoding.h"
#include "store/text_lines.h"

namespace crawler {

namespace {

using store::takeField;

// What is true of an anchor, as one letter from "@" on; and of a page.
constexpr int kLetters = '@';
constexpr int kHasHref = 1;
constexpr int kIsListed = 2;
constexpr int kIsFollowed = 4;
constexpr int kIsPage = 1;
constexpr int kHasContent = 2;
constexpr int kIsIndexed = 4;

char letterOf(int flags) {
  return static_cast<char>(kLetters + flags);
}

int flagsOf(std::string_view field) {
  return field.empty() ? 0 : field.front() - kLetters;
}

std::string_view labelOf(const platform::Encoding* encoding) {
  if (encoding == nullptr) return {};
  const std::string_view labels = encoding->labels.substr(1);
  return labels.substr(0, labels.find(' '));
}

void add(std::string& line, std::string_view field) {
  line += '\t';
  store::appendEscapedField(line, field);
}

void addOptional(std::string& line, const std::optional<std::string>& field) {
  line += field ? "\t=" : "\t-";
  if (field) store::appendEscapedField(line, *field);
}

std::optional<std::string> takeOptional(std::string_view& line) {
  std::string field = takeField(line);
  if (!field.starts_with('=')) return {};
  return field.substr(1);
}

template <typename Number>
bool takeNumber(std::string_view& line, Number& number) {
  const std::string field = takeField(line);
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  return error == std::errc() && end == field.data() + field.size();
}

char letterOf(const Anchor& anchor) {
  return letterOf((anchor.href ? kHasHref : 0) | (anchor.isListed ? kIsListed : 0) |
                  (anchor.isFollowed ? kIsFollowed : 0));
}

/// For texts that are their own escaped form, as nearly all are: their room is known beforehand.
void addPlainAnchors(std::string& line, const PageContents& contents) {
  constexpr std::size_t kBetween = 3;  // two tabs and the letter
  const std::size_t end = line.size();
  line.resize(end + contents.textBytes + kBetween * contents.anchors.size());
  auto at = line.begin() + static_cast<std::ptrdiff_t>(end);
  const auto put = [&](std::string_view text) { at = std::copy(text.begin(), text.end(), at); };
  for (const Anchor& anchor : contents.anchors) {
    *at++ = '\t';
    *at++ = letterOf(anchor);
    put(anchor.href.value_or(""));
    *at++ = '\t';
    put(anchor.title);
  }
}

void addAnchors(std::string& line, const PageContents& contents) {
  if (store::isPlainField({contents.text.get(), contents.textBytes})) return addPlainAnchors(line, contents);
  for (const Anchor& anchor : contents.anchors) {
    line += '\t';
    line += letterOf(anchor);
    store::appendEscapedField(line, anchor.href.value_or(""));
    add(line, anchor.title);
  }
}

void takeAnchors(std::string_view line, PageContents& contents) {
  AnchorCollection anchors;
  while (!line.empty()) {
    const std::string field = takeField(line);
    const std::string title = takeField(line);
    const int flags = flagsOf(field);
    Anchor anchor{
        .title = title, .isListed = (flags & kIsListed) != 0, .isFollowed = (flags & kIsFollowed) != 0};
    if ((flags & kHasHref) != 0) anchor.href = std::string_view(field).substr(1);
    anchors.add(anchor);
  }
  anchors.moveTo(contents);
}

}  // namespace

void appendRecordLine(std::string& text, std::string_view url, const FetchedPage& page,
                      const std::optional<std::string>& date) {
  const PageContents& contents = page.contents;
  store::appendEscapedField(text, url);
  add(text, std::to_string(page.status));
  add(text, std::to_string(page.fingerprint));
  add(text, std::to_string(page.bytes));
  add(text, std::to_string(page.time.count()));
  text += '\t';
  text += letterOf((page.isPage ? kIsPage : 0) | (page.hasContent ? kHasContent : 0) |
                   (contents.isIndexed ? kIsIndexed : 0));
  add(text, page.redirectedTo);
  add(text, page.mime);
  add(text, page.lastModified);
  addOptional(text, date);
  add(text, labelOf(contents.encoding));
  addOptional(text, contents.base);
  addOptional(text, contents.canonical);
  add(text, contents.title);
  addAnchors(text, contents);
  // Told from a line that was cut off between two anchors.
  text += "\t.\n";
}

std::optional<PageRecord> readRecordLine(std::string_view line, std::string_view url) {
  constexpr std::string_view kEnd = "\t.";
  if (!line.ends_with(kEnd)) return {};
  line.remove_suffix(kEnd.size());
  if (takeField(line) != url) return {};
  PageRecord record;
  FetchedPage& page = record.page;
  std::chrono::milliseconds::rep time = 0;
  if (!takeNumber(line, page.status) || !takeNumber(line, page.fingerprint) ||
      !takeNumber(line, page.bytes) || !takeNumber(line, time)) {
    return {};
  }
  page.time = std::chrono::milliseconds(time);
  const int flags = flagsOf(takeField(line));
  page.isPage = (flags & kIsPage) != 0;
  page.hasContent = (flags & kHasContent) != 0;
  page.contents.isIndexed = (flags & kIsIndexed) != 0;
  page.redirectedTo = takeField(line);
  page.mime = takeField(line);
  page.lastModified = takeField(line);
  record.date = takeOptional(line);
  page.contents.encoding = platform::encodingLabelled(takeField(line));
  page.contents.base = takeOptional(line);
  page.contents.canonical = takeOptional(line);
  page.contents.title = takeField(line);
  takeAnchors(line, page.contents);
  return record;
}

}  // namespace crawler
