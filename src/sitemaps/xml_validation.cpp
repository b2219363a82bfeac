#include "sitemaps/xml_validation.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/ascii.h"
#include "platform/phrases.h"
#include "platform/regex.h"
#include "platform/text.h"
#include "platform/uri.h"
#include "platform/xml_reader.h"
#include "sitemaps/xml_value_rules.h"

namespace sitemaps {

namespace {

using platform::Phrases;

constexpr std::string_view kNameSpace = "http://www.sitemaps.org/schemas/sitemap/0.9";
constexpr std::string_view kInstanceNameSpace = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMaxSyntaxFaults = 1000;

/// What an entry may hold, in the order in which it has to stand.
constexpr std::array<std::string_view, 4> kFields = {"loc", "lastmod", "changefreq", "priority"};
constexpr std::size_t kNoField = kFields.size();

/// How the two documents of the protocol differ.
struct Grammar {
  const char* noEntry;
  const char* tooMany;
  std::string_view root;
  std::string_view entry;
  std::size_t fieldCount;  // so many of kFields, from the first on
  std::string_view order;
};
constexpr Grammar kSitemap = {Phrases::noop("The sitemap has no entry"),
                              Phrases::noop("The sitemap has %1 entries; at most 50000 are allowed"),
                              "urlset",
                              "url",
                              4,
                              "loc, lastmod, changefreq, priority"};
constexpr Grammar kIndex = {Phrases::noop("The index has no entry"),
                            Phrases::noop("The index has %1 entries; at most 50000 are allowed"),
                            "sitemapindex",
                            "sitemap",
                            2,
                            "loc, lastmod"};

std::size_t fieldNumber(std::string_view name, std::size_t count) {
  const auto end = kFields.begin() + static_cast<std::ptrdiff_t>(count);
  const auto found = std::find(kFields.begin(), end, name);
  return found == end ? kNoField : static_cast<std::size_t>(found - kFields.begin());
}

/// An address in one form for all ways to write its scheme, host and port.
std::string addressKey(std::string_view address, const std::string& host) {
  const platform::UriParts parts = platform::splitUri(address);
  std::string key = host + (parts.path.empty() ? "/" : std::string(parts.path));
  if (parts.query) key.append("?").append(*parts.query);
  if (parts.fragment) key.append("#").append(*parts.fragment);
  return key;
}

/// Walks over the document and notes what is wrong with it.
class Validation : public platform::XmlHandler {
 public:
  Validation(const Grammar& grammar, const XmlValidationBase& base) : m_grammar(grammar), m_base(base) {
    if (!base.siteUrl.empty()) m_host = hostOf(base.siteUrl);
  }

  void checkBytes(std::string_view text, std::string_view decoded);
  std::vector<XmlFinding> takeFindings();

  void startElement(const platform::XmlName& name,
                    const std::vector<platform::XmlAttribute>& attributes) override;
  void endElement() override;
  void text(std::string_view piece) override;
  void documentType() override { note(0, "", Phrases::tr("A document type has no place in a sitemap")); }
  void fault(int line, std::string_view message) override;

 private:
  void startRoot(const platform::XmlName& name);
  void startEntry(const platform::XmlName& name);
  void startField(const platform::XmlName& name);
  void checkAttributes(const platform::XmlName& name, const std::vector<platform::XmlAttribute>& attributes);
  bool isOurs(const platform::XmlName& name);
  void endEntry();
  void endField();
  void checkLoc();
  void checkEmptyOr(std::optional<std::string> fault);
  void note(std::size_t entry, std::string_view element, std::string message);
  void noteHere(std::string_view element, std::string message) { note(m_entry, element, std::move(message)); }

  const Grammar& m_grammar;
  const XmlValidationBase& m_base;
  std::vector<XmlFinding> m_wholeDocument;
  std::vector<XmlFinding> m_findings;
  std::size_t m_syntaxFaults = 0;

  int m_depth = 0;       // of the element that is open, 1 for the root
  int m_entryDepth = 0;  // of the entry that is open, 0 for none
  int m_fieldDepth = 0;  // of the field that is open, 0 for none
  std::string m_rootNameSpace;
  std::size_t m_entry = 0;  // number of the last entry
  std::array<bool, kFields.size()> m_seen{};
  std::size_t m_field = kNoField;  // that is open
  std::string m_value;             // of it, so far
  bool m_broken = false;           // a fault of syntax lies in it, or another element
  bool m_strayText = false;        // was told for the entry

  std::optional<std::string> m_host;  // that all entries have to be on
  std::unordered_map<std::string, std::size_t> m_entryOfAddress;
};

void Validation::note(std::size_t entry, std::string_view element, std::string message) {
  (entry == 0 ? m_wholeDocument : m_findings).push_back({entry, std::string(element), std::move(message)});
}

void Validation::checkBytes(std::string_view text, std::string_view decoded) {
  if (text.size() > kMaxSitemapBytes)
    note(0, "", Phrases::tr("The file is larger than 50 MB (52,428,800 bytes)"));
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text != decoded) note(0, "", Phrases::tr("The text is not UTF-8"));
  static const platform::Regex kDeclared("^<\\?xml[^>]*\\sencoding\\s*=\\s*[\"']([^\"'>]*)[\"']");
  const auto declared = kDeclared.find(decoded.substr(0, 512));
  if (declared && platform::lowerAscii(declared->groups[0]) != "utf-8") {
    note(0, "",
         Phrases::tr("The encoding is declared as %1; it has to be UTF-8", {inQuotes(declared->groups[0])}));
  }
}

std::vector<XmlFinding> Validation::takeFindings() {
  if (m_entry == 0) note(0, m_grammar.root, Phrases::tr(m_grammar.noEntry));
  if (m_entry > kMaxSitemapEntries) {
    note(0, m_grammar.root, Phrases::tr(m_grammar.tooMany, {std::to_string(m_entry)}));
  }
  // Those of an entry are told when it ends, behind those of its fields.
  std::stable_sort(m_findings.begin(), m_findings.end(),
                   [](const XmlFinding& a, const XmlFinding& b) { return a.entry < b.entry; });
  m_wholeDocument.insert(m_wholeDocument.end(), std::make_move_iterator(m_findings.begin()),
                         std::make_move_iterator(m_findings.end()));
  return std::move(m_wholeDocument);
}

void Validation::fault(int line, std::string_view message) {
  if (m_fieldDepth != 0) m_broken = true;
  if (++m_syntaxFaults > kMaxSyntaxFaults) return;
  const std::size_t entry = m_entryDepth == 0 ? 0 : m_entry;
  note(entry, m_fieldDepth == 0 ? "" : kFields[m_field],
       Phrases::tr("Line %1: %2", {std::to_string(line), platform::decodeUtf8(std::string(message))}));
}

void Validation::startElement(const platform::XmlName& name,
                              const std::vector<platform::XmlAttribute>& attributes) {
  ++m_depth;
  if (m_depth == 1) {
    startRoot(name);
  } else if (isOurs(name) && name.local == m_grammar.entry) {
    startEntry(name);
  } else if (m_fieldDepth != 0) {
    m_broken = true;
    noteHere(kFields[m_field], Phrases::tr("The element holds another one, %1", {inQuotes(name.local)}));
    return;
  } else if (m_entryDepth != 0 && m_depth == m_entryDepth + 1) {
    startField(name);
  } else if (m_depth == 2) {
    note(0, m_grammar.root,
         Phrases::tr("An element %1 stands where only entries (%2) may stand",
                     {inQuotes(name.local), m_grammar.entry}));
  }
  checkAttributes(name, attributes);
}

/// Also of elements in the namespace of a root that has the wrong one: that is told once.
bool Validation::isOurs(const platform::XmlName& name) {
  return name.nameSpace == kNameSpace || name.nameSpace == m_rootNameSpace;
}

void Validation::startRoot(const platform::XmlName& name) {
  m_rootNameSpace = name.nameSpace;
  const std::string root(m_grammar.root);
  if (name.local != root) {
    note(0, root, Phrases::tr("The outermost element is %1 instead of %2", {inQuotes(name.local), root}));
  } else if (name.nameSpace.empty()) {
    note(0, root, Phrases::tr("The namespace is missing: xmlns=\"%1\"", {kNameSpace}));
  } else if (name.nameSpace != kNameSpace) {
    note(0, root,
         Phrases::tr("The namespace is %1 instead of \"%2\"", {inQuotes(name.nameSpace), kNameSpace}));
  }
}

/// Wherever it stands, so that entries are counted alike in a text that is not well-formed.
void Validation::startEntry(const platform::XmlName&) {
  if (m_entryDepth != 0) endEntry();
  ++m_entry;
  m_entryDepth = m_depth;
  m_fieldDepth = 0;
  m_seen = {};
  m_strayText = false;
  if (m_depth != 2) {
    noteHere(m_grammar.entry,
             Phrases::tr("The entry stands within another element than %1", {m_grammar.root}));
  }
}

void Validation::startField(const platform::XmlName& name) {
  const std::size_t field = isOurs(name) ? fieldNumber(name.local, m_grammar.fieldCount) : kNoField;
  if (field == kNoField) {
    return noteHere(
        m_grammar.entry,
        isOurs(name)
            ? Phrases::tr("An entry has no element %1", {inQuotes(name.local)})
            : Phrases::tr(
                  "The element %1 is of another namespace, %2, which the schema of sitemaps does not cover",
                  {inQuotes(name.local), inQuotes(name.nameSpace)}));
  }
  if (m_seen[field]) {
    noteHere(kFields[field], Phrases::tr("The element stands twice in its entry"));
  } else if (std::find(m_seen.begin() + static_cast<std::ptrdiff_t>(field), m_seen.end(), true) !=
             m_seen.end()) {
    noteHere(kFields[field], Phrases::tr("The element is out of order: %1", {m_grammar.order}));
  }
  m_seen[field] = true;
  m_field = field;
  m_fieldDepth = m_depth;
  m_value.clear();
  m_broken = false;
}

/// The root may say where its schema lies; the schema knows no other attribute.
void Validation::checkAttributes(const platform::XmlName& name,
                                 const std::vector<platform::XmlAttribute>& attributes) {
  if (!isOurs(name)) return;
  for (const auto& [attribute, value] : attributes) {
    if (attribute.nameSpace == kInstanceNameSpace && attribute.local == "schemaLocation") continue;
    note(m_depth == 1 ? 0 : m_entry, name.local,
         Phrases::tr("The element has an attribute %1, which is not allowed", {inQuotes(attribute.local)}));
  }
}

void Validation::text(std::string_view piece) {
  if (m_fieldDepth != 0) {
    m_value += piece;
  } else if (!m_strayText && !platform::trimmed(piece).empty() && m_depth > 0 && m_depth <= 2) {
    m_strayText = true;
    const bool inEntry = m_entryDepth != 0;
    note(inEntry ? m_entry : 0, inEntry ? m_grammar.entry : m_grammar.root,
         Phrases::tr("Text stands between the elements"));
  }
}

void Validation::endElement() {
  if (m_depth == m_fieldDepth) endField();
  if (m_depth == m_entryDepth) endEntry();
  --m_depth;
}

void Validation::endEntry() {
  if (!m_seen[0]) noteHere("loc", Phrases::tr("The entry has no address (loc)"));
  m_entryDepth = 0;
  m_fieldDepth = 0;
  m_strayText = false;
}

void Validation::endField() {
  m_fieldDepth = 0;
  if (m_broken) return;  // what was read of the value is not what the author wrote
  switch (m_field) {
    case 0:
      return checkLoc();
    case 1:
      return checkEmptyOr(lastmodFault(m_value, m_base.now, m_base.zone));
    case 2:
      return checkEmptyOr(changefreqFault(m_value));
    default:
      return checkEmptyOr(priorityFault(m_value));
  }
}

void Validation::checkEmptyOr(std::optional<std::string> fault) {
  if (platform::trimmed(m_value).empty()) {
    fault = Phrases::tr("The element is empty; it needs a value, or has to be left out");
  }
  if (fault) noteHere(kFields[m_field], std::move(*fault));
}

void Validation::checkLoc() {
  std::optional<std::string> fault = locFault(m_value);
  if (fault) return noteHere("loc", std::move(*fault));
  const std::string_view address = platform::trimmed(m_value);
  const std::optional<std::string> host = hostOf(address);
  if (!host) return;
  if (!m_host) m_host = host;
  if (*host != *m_host) {
    const char* whose = m_base.siteUrl.empty() ? Phrases::noop("%1 is not on the host of the first entry, %2")
                                               : Phrases::noop("%1 is not on the host of the site, %2");
    noteHere("loc", Phrases::tr(whose, {inQuotes(address), *m_host}));
  }
  const auto [known, isNew] = m_entryOfAddress.emplace(addressKey(address, *host), m_entry);
  if (!isNew)
    noteHere("loc", Phrases::tr("The address stands in entry %1 already", {std::to_string(known->second)}));
}

std::vector<XmlFinding> validate(std::string_view text, const Grammar& grammar,
                                 const XmlValidationBase& base) {
  const std::string decoded = platform::decodeUtf8(std::string(text));
  Validation validation(grammar, base);
  validation.checkBytes(text, decoded);
  platform::readXml(decoded, validation);
  return validation.takeFindings();
}

}  // namespace

XmlValidationBase validationBaseNow() {
  XmlValidationBase base;
  const auto now = std::chrono::system_clock::now();
  base.now = std::chrono::floor<std::chrono::seconds>(now);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  if (localtime_r(&seconds, &local) != nullptr) base.zone = std::chrono::minutes(local.tm_gmtoff / 60);
  return base;
}

std::vector<XmlFinding> validateXmlSitemap(std::string_view text, const XmlValidationBase& base) {
  return validate(text, kSitemap, base);
}

bool isSitemapIndex(std::string_view text) {
  constexpr std::size_t kLongestProlog = 64 * 1024;
  static const platform::Regex kOpening(
      "^\\x{FEFF}?(?:\\s|<\\?(?s:.*?)\\?>|<!--(?s:.*?)-->|<!DOCTYPE[^>]*>)*+"
      "<(?:[^\\s<>/:]+:)?sitemapindex[\\s/>]");
  return kOpening.find(text.substr(0, kLongestProlog)).has_value();
}

std::vector<XmlFinding> validateSitemapIndex(std::string_view text, const XmlValidationBase& base) {
  return validate(text, kIndex, base);
}

}  // namespace sitemaps
