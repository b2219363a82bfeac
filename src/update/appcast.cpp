#include "update/appcast.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/ascii.h"
#include "platform/phrases.h"
#include "platform/xml_reader.h"
#include "update/plain_text.h"
#include "update/version.h"
#include "web/url.h"

namespace update {

namespace {

using platform::Phrases;

constexpr std::string_view kNameSpace = "http://www.andymatuschak.org/xml-namespaces/sparkle";
constexpr std::size_t kMaxNotes = 64u << 10;
constexpr std::size_t kMaxShown = 100;
constexpr std::size_t kMaxAddress = 8192;

// Depths of elements in the list.
constexpr int kRoot = 1;
constexpr int kChannel = 2;
constexpr int kItem = 3;
constexpr int kField = 4;

/// What an item says, as written.
struct Item {
  std::string version = {};
  std::string shortVersion = {};
  std::string minimumSystem = {};
  std::string channel = {};
  std::string os = {};
  std::string link = {};
  std::string description = {};
  std::string notesLink = {};
};

struct ItemField {
  std::string_view nameSpace;
  std::string_view name;
  std::string Item::*text;
};

constexpr ItemField kElements[] = {
    {kNameSpace, "version", &Item::version},
    {kNameSpace, "shortVersionString", &Item::shortVersion},
    {kNameSpace, "minimumSystemVersion", &Item::minimumSystem},
    {kNameSpace, "channel", &Item::channel},
    {kNameSpace, "releaseNotesLink", &Item::notesLink},
    {"", "link", &Item::link},
    {"", "description", &Item::description},
};
constexpr ItemField kAttributes[] = {
    {kNameSpace, "version", &Item::version},
    {kNameSpace, "shortVersionString", &Item::shortVersion},
    {kNameSpace, "minimumSystemVersion", &Item::minimumSystem},
    {kNameSpace, "os", &Item::os},
};

template <std::size_t count>
std::string Item::*fieldNamed(const ItemField (&fields)[count], const platform::XmlName& name) {
  const auto* found = std::find_if(std::begin(fields), std::end(fields), [&](const ItemField& field) {
    return field.name == name.local && field.nameSpace == name.nameSpace;
  });
  return found == std::end(fields) ? nullptr : found->text;
}

std::string httpsAddress(std::string_view text) {
  if (text.size() > kMaxAddress) return {};
  const std::optional<web::Url> url = web::parseUrl(platform::trimmed(text));
  return url && url->scheme() == web::Scheme::https ? url->href() : std::string();
}

/// The text as a version; nothing when it cannot be compared.
std::optional<std::string> versionIn(std::string_view text) {
  if (!isVersion(text)) return {};
  return std::string(platform::trimmed(text));
}

/// On one line; `other` when there is none to be shown.
std::string shownVersion(const std::string& text, const std::string& other) {
  std::string shown = textOfPlain(text, text.size());
  std::replace(shown.begin(), shown.end(), '\n', ' ');
  return shown.empty() || shown.size() > kMaxShown ? other : shown;
}

class AppcastReader : public platform::XmlHandler {
 public:
  Appcast take() {
    if (!m_isAppcast) return {.problem = Phrases::tr("It is no list of versions")};
    if (!m_fault.empty()) return {.problem = std::move(m_fault)};
    return std::move(m_appcast);
  }

  void startElement(const platform::XmlName& name,
                    const std::vector<platform::XmlAttribute>& attributes) override {
    ++m_depth;
    const auto isNamed = [&](std::string_view local) {
      return name.local == local && name.nameSpace.empty();
    };
    if (m_depth == kRoot) m_isAppcast = isNamed("rss");
    if (m_depth == kChannel) m_isInChannel = m_isAppcast && isNamed("channel");
    if (m_depth == kItem) beginItem(m_isInChannel && isNamed("item"));
    if (m_depth != kField || !m_isInItem) return;
    m_field = fieldNamed(kElements, name);
    m_text.clear();
    if (isNamed("enclosure")) readEnclosure(attributes);
  }

  void endElement() override {
    if (m_depth == kField && m_field != nullptr) {
      keepFirst(m_item.*m_field, m_text);
      m_field = nullptr;
    }
    if (m_depth == kItem && m_isInItem) endItem();
    --m_depth;
  }

  void text(std::string_view piece) override {
    if (m_field != nullptr) m_text += piece;
  }

  void documentType() override {}

  void fault(int line, std::string_view message) override {
    if (m_fault.empty()) m_fault = Phrases::tr("Line %1: %2", {std::to_string(line), message});
  }

 private:
  static void keepFirst(std::string& kept, std::string& text) {
    if (platform::trimmed(kept).empty()) kept = std::move(text);
  }

  void beginItem(bool isItem) {
    m_isInItem = isItem;
    m_item = m_enclosed = {};
    m_isForUs = m_isForOthers = false;
  }

  void readEnclosure(const std::vector<platform::XmlAttribute>& attributes) {
    Item enclosed;
    for (const platform::XmlAttribute& attribute : attributes) {
      if (const auto field = fieldNamed(kAttributes, attribute.name)) enclosed.*field = attribute.value;
    }
    const bool isOurs = enclosed.os.empty() || platform::lowerAscii(enclosed.os) == "linux";
    if (isOurs && !m_isForUs) m_enclosed = std::move(enclosed);
    (isOurs ? m_isForUs : m_isForOthers) = true;
  }

  void endItem() {
    m_isInItem = false;
    if (m_isForOthers && !m_isForUs) return;
    for (const ItemField& field : kAttributes) keepFirst(m_item.*field.text, m_enclosed.*field.text);
    const std::optional<std::string> version = versionIn(m_item.version);
    const std::optional<std::string> shown = versionIn(m_item.shortVersion);
    if ((!version && !shown) || !platform::trimmed(m_item.channel).empty()) return;
    const std::string& compared = version ? *version : *shown;
    m_appcast.releases.push_back({.version = compared,
                                  .shownVersion = shownVersion(m_item.shortVersion, compared),
                                  .minimumSystem = versionIn(m_item.minimumSystem).value_or(""),
                                  .page = httpsAddress(m_item.link),
                                  .notes = textOfHtml(m_item.description, kMaxNotes),
                                  .notesAddress = httpsAddress(m_item.notesLink)});
  }

  Appcast m_appcast;
  std::string m_fault;
  int m_depth = 0;
  bool m_isAppcast = false;
  bool m_isInChannel = false;
  // Of the item that is being read:
  bool m_isInItem = false;
  Item m_item;
  Item m_enclosed;  // what the first enclosure for this system says
  bool m_isForUs = false;
  bool m_isForOthers = false;
  std::string Item::*m_field = nullptr;  // the element that is being read, and
  std::string m_text;                    // its text
};

}  // namespace

Appcast parseAppcast(std::string_view utf8) {
  AppcastReader reader;
  platform::readXml(utf8, reader);
  return reader.take();
}

}  // namespace update
