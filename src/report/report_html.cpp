#include "report/report_html.h"

#include <algorithm>
#include <ctime>
#include <initializer_list>
#include <string_view>

#include "platform/text.h"
#include "platform/uri.h"
#include "report/changes.h"
#include "report/figures.h"
#include "report/left_out_advice.h"
#include "report/outside_rows.h"
#include "report/plots.h"
#include "report/report_page.h"
#include "report/summary.h"
#include "sitemaps/html_format.h"

namespace report {

namespace {

using crawler::PageStanding;

constexpr std::size_t kLinkingPagesShown = 10;  // of one address, or with one title
constexpr std::size_t kRankedShown = 50;

std::string text(std::string_view words) {
  return sitemaps::asMarkupText(words);
}

/// A link to the address with these words; the words alone where it is none that a page may lead to.
std::string link(std::string_view address, std::string_view words) {
  if (platform::originOf(address).empty()) return text(words);
  return "<a rel=\"noreferrer\" href=\"" +
         sitemaps::withAmpersandsEscaped(sitemaps::asMarkupAddress(address)) + "\">" + text(words) + "</a>";
}

std::string link(std::string_view address) {
  return link(address, address);
}

/// A text that may turn the direction of what it stands in.
std::string isolated(std::string_view words) {
  return "<bdi>" + text(words) + "</bdi>";
}

/// A link by its name, and where it stands.
std::string linkOn(const LinkingPage& page) {
  return "\xE2\x80\x9C" + isolated(page.name) + "\xE2\x80\x9D on " + link(page.address);
}

std::string quiet(std::string_view markup) {
  return "<span class=\"quiet\">" + std::string(markup) + "</span>";
}

/// A cell for addresses and titles.
std::string wideCell(std::string_view markup) {
  return "<td class=\"wide\">" + std::string(markup) + "</td>";
}

/// Shown as a text, and sorted by the number.
std::string numberCell(std::int64_t number, std::string_view shown) {
  return "<td class=\"number\" data-n=\"" + std::to_string(number) + "\">" + text(shown) + "</td>";
}

std::string numberCell(std::int64_t number) {
  return numberCell(number, grouped(number));
}

/// A column's heading.
struct Heading {
  const char* name;
  enum { words, number } kind = words;
};

/// Puts the page together, section by section.
class Writer {
 public:
  explicit Writer(const SiteReport& report)
      : m_report(report),
        m_summary(summarise(report.now)),
        m_changes(compare(report.before, report.now)),
        m_page(pageOpening("Report of " + report.siteName)) {}

  std::string page() && {
    opening();
    overview();
    broken();
    changes();
    leftOut();
    pages();
    titles();
    ranks();
    outside();
    return std::move(m_page) + pageClosing();
  }

 private:
  void opening();
  void overview();
  void broken();
  void changes();
  void leftOut();
  void pages();
  void titles();
  void ranks();
  void outside();

  void add(std::string_view markup) { m_page.append(markup).append("\n"); }
  void section(const char* id, std::string_view title);
  /// `row` makes the cells of one item. Nothing at all for no items.
  template <typename Items, typename Row>
  void table(std::initializer_list<Heading> headings, const Items& items, std::size_t most, Row row);
  template <typename Items, typename Entry>
  void list(const Items& items, std::size_t most, Entry entry);
  void tellRest(std::size_t count, std::size_t most, std::string_view options);
  void pageTable(const char* title, const std::vector<const Page*>& pages, std::size_t most);
  void changedPages(const char* title, const std::vector<PageChange>& pages);
  std::string linkingPages(const Target& target, std::uint32_t count, std::size_t most) const;

  const SiteReport& m_report;
  Summary m_summary;
  Changes m_changes;
  std::string m_page;
};

void Writer::section(const char* id, std::string_view title) {
  add("<h2 id=\"" + std::string(id) + "\">" + std::string(title) + "</h2>");
}

void Writer::tellRest(std::size_t count, std::size_t most, std::string_view options) {
  if (count <= most) return;
  add("<p class=\"quiet\">" + grouped(most) + " of " + grouped(count) +
      " are shown. All of them: <code>veskel-cli report \"" + text(m_report.siteName) + "\" " +
      std::string(options) + "</code></p>");
}

template <typename Items, typename Row>
void Writer::table(std::initializer_list<Heading> headings, const Items& items, std::size_t most, Row row) {
  if (items.empty()) return;
  add("<div class=\"scroll\"><table class=\"sorts\"><thead><tr>");
  for (const Heading& heading : headings)
    add((heading.kind == Heading::number ? "<th class=\"number\" scope=\"col\">" : "<th scope=\"col\">") +
        std::string(heading.name) + "</th>");
  add("</tr></thead><tbody>");
  for (std::size_t i = 0; i < std::min(items.size(), most); ++i) add("<tr>" + row(items[i]) + "</tr>");
  add("</tbody></table></div>");
}

template <typename Items, typename Entry>
void Writer::list(const Items& items, std::size_t most, Entry entry) {
  if (items.empty()) return;
  add("<ul class=\"entries\">");
  for (std::size_t i = 0; i < std::min(items.size(), most); ++i) add("<li>" + entry(items[i]) + "</li>");
  add("</ul>");
}

void Writer::opening() {
  const ScanFacts& scan = m_report.now.facts;
  add("<h1>Report of " + text(m_report.siteName) + "</h1>");
  add("<p class=\"quiet\">" + link(m_report.startUrl) + ", scanned " + dateText(scan.ended) + " in " +
      durationText(scan.ended - scan.started) + "</p>");
  if (!m_report.history.empty() && !m_report.history.front().isComplete()) {
    add("<p class=\"quiet\">A later scan, of " + dateText(m_report.history.front().ended) +
        ", was not complete and is not shown.</p>");
  }
  add("<nav><a href=\"#broken\">Broken</a><a href=\"#changes\">Changes</a><a href=\"#left-out\">Left out</a>"
      "<a href=\"#pages\">Pages</a><a href=\"#titles\">Titles</a><a href=\"#ranks\">Slow and large</a>"
      "<a href=\"#outside\">Outside links</a></nav>");
}

void Writer::overview() {
  const auto figure = [&](std::int64_t number, const char* name, const char* style = "") {
    add("<li><b" + std::string(number > 0 ? style : "") + ">" + grouped(number) + "</b>" + name + "</li>");
  };
  add("<ul class=\"figures\">");
  figure(m_summary.listed, "pages in the sitemaps");
  figure(m_summary.broken, "broken", " class=\"trouble\"");
  figure(m_summary.leftOut, "visited and left out");
  figure(m_report.now.facts.links, "links");
  add("</ul>\n<div class=\"plots\">");
  add(historyPlot(m_report.history, Palette::page));
  add(barPlot(kByStatus, m_summary.byStatus, Palette::page));
  add(barPlot(kByLevel, m_summary.byLevel, Palette::page));
  add(barPlot(kByTime, m_summary.byTime, Palette::page));
  add("</div>");
}

std::string Writer::linkingPages(const Target& target, std::uint32_t count, std::size_t most) const {
  const std::vector<LinkingPage>& links = m_report.linksTo(target);
  if (links.empty()) return {};
  std::string markup = "<ul>";
  for (std::size_t i = 0; i < std::min(links.size(), most); ++i)
    markup += "<li>" + linkOn(links[i]) + "</li>";
  if (count > most)
    markup += "<li class=\"quiet\">and on " + counted(count - most, "more page", "more pages") + "</li>";
  return markup + "</ul>";
}

void Writer::broken() {
  std::vector<const Page*> pages;
  for (const Page& page : m_report.now.pages) {
    if (page.standing == PageStanding::broken) pages.push_back(&page);
  }
  section("broken", "Broken pages");
  if (pages.empty()) return add("<p>No page is broken.</p>");
  list(pages, kRowsShown, [&](const Page* page) {
    std::string markup =
        link(page->address) + "<br><span class=\"trouble\">" + text(page->brokenReason) + "</span>";
    if (!page->redirectedTo.empty()) markup += quiet(", redirected to ") + link(page->redirectedTo);
    if (page->linkedFrom == 0) return markup + quiet("; no page links there");
    return markup + linkingPages({false, page->number}, page->linkedFrom, kLinkingPagesShown);
  });
  tellRest(pages.size(), kRowsShown, "--broken --output broken.csv");
}

void Writer::changedPages(const char* title, const std::vector<PageChange>& pages) {
  if (pages.empty()) return;
  add("<h3>" + std::string(title) + " (" + grouped(pages.size()) + ")</h3>");
  list(pages, kRowsShown, [&](const PageChange& change) {
    const Page& page = change.page();
    const std::string address = link(page.address);
    if (&pages == &m_changes.renamed)
      return address + "<br>" + quiet(isolated(change.before->title) + " \xE2\x86\x92 ") +
             isolated(change.now->title);
    if (&pages == &m_changes.newlyBroken) return address + "<br>" + quiet(text(page.brokenReason));
    if (&pages == &m_changes.repaired)
      return address + "<br>" +
             quiet(change.now == nullptr ? "No page leads there any more" : text(page.title));
    return address + "<br>" + quiet(text(page.title));
  });
  tellRest(pages.size(), kRowsShown, "--output report.json");
}

void Writer::changes() {
  section("changes", "Changes");
  if (!m_changes.areKnown) return add("<p>There is no complete scan before this one to compare with.</p>");
  add("<p class=\"quiet\">Since the scan of " + dateText(m_report.before.facts.ended) + "</p>");
  add("<p>" + text(changesText(m_changes)) + "</p>");
  changedPages("Newly broken", m_changes.newlyBroken);
  changedPages("Repaired", m_changes.repaired);
  changedPages("New", m_changes.added);
  changedPages("Gone", m_changes.gone);
  changedPages("Renamed", m_changes.renamed);
}

void Writer::leftOut() {
  section("left-out", "Left out by the last scan");
  const auto& groups = m_report.leftOut.groups;
  if (groups.empty()) return add("<p>Nothing is known to have been left out.</p>");
  table({{"Links or pages", Heading::number}, {"Why"}, {"Examples"}}, groups, kRowsShown,
        [](const crawler::LeftOutGroup& group) {
          std::string why = text(group.reasonText(group.count));
          if (const auto advice = adviceFor(group.reason, Reader::commandLine); !advice.empty())
            why += "<br>" + quiet(text(advice));
          std::string examples;
          for (std::size_t i = 0; i < std::min<std::size_t>(group.examples.size(), 3); ++i) {
            const crawler::LeftOutExample& example = group.examples[i];
            examples += "<div>" + link(example.address);
            if (!example.page.empty()) examples += quiet(" on " + link(example.page));
            examples += "</div>";
          }
          return numberCell(group.count) + wideCell(why) + wideCell(examples);
        });
}

std::string standingOf(const Page& page) {
  switch (page.standing) {
    case PageStanding::listed:
      return "";
    case PageStanding::broken:
      return "Broken";
    case PageStanding::folderListing:
      return "Left out: a folder's listing";
    case PageStanding::leftOut:
      break;
  }
  if (page.leftOutBy == crawler::LinkReason::none) return "Left out";
  const std::string reason = crawler::LeftOutGroup{.reason = page.leftOutBy}.reasonText();
  constexpr std::string_view kOfPage = "that ";  // "that leads to another page"
  return "Left out: " + (reason.starts_with(kOfPage) ? "it " + reason.substr(kOfPage.size()) : reason);
}

/// Its title and its address, and why it is not in the sitemaps.
std::string nameCell(const Page& page) {
  const std::string standing = standingOf(page);
  return wideCell(link(page.address, page.title.empty() ? page.address : page.title) + "<br>" +
                  quiet(text(page.address)) + (standing.empty() ? "" : "<br>" + text(standing)));
}

void Writer::pageTable(const char* title, const std::vector<const Page*>& pages, std::size_t most) {
  if (pages.empty()) return;
  add("<h3>" + std::string(title) + "</h3>");
  table({{"Page"},
         {"Time", Heading::number},
         {"Size", Heading::number},
         {"Linked from", Heading::number},
         {"Level", Heading::number},
         {"Status", Heading::number}},
        pages, most, [](const Page* page) {
          return nameCell(*page) + numberCell(page->time.count(), timeText(page->time)) +
                 numberCell(page->bytes, sizeText(page->bytes)) + numberCell(page->linkedFrom) +
                 numberCell(page->level) + numberCell(page->status, std::to_string(page->status));
        });
}

void Writer::pages() {
  section("pages", "Pages");
  std::vector<const Page*> all;
  for (const Page& page : m_report.now.pages) all.push_back(&page);
  pageTable("All pages visited", all, kRowsShown);
  tellRest(all.size(), kRowsShown, "--output pages.csv");
  pageTable("Pages to which no link leads: the site's own sitemaps name them", m_summary.unlinked,
            kRowsShown);
  tellRest(m_summary.unlinked.size(), kRowsShown, "--output pages.csv");
}

void Writer::titles() {
  section("titles", "Titles");
  if (m_summary.sharedTitles.empty() && m_summary.untitled.empty())
    return add("<p>Every page has a title, and no two have the same.</p>");
  if (!m_summary.sharedTitles.empty()) add("<h3>Titles that several pages share</h3>");
  list(m_summary.sharedTitles, kRowsShown, [](const SharedTitle& title) {
    std::string markup =
        text(title.title) + " " + quiet("on " + grouped(title.pages.size()) + " pages") + "<ul>";
    for (std::size_t i = 0; i < std::min(title.pages.size(), kLinkingPagesShown); ++i)
      markup += "<li>" + link(title.pages[i]->address) + "</li>";
    if (title.pages.size() > kLinkingPagesShown)
      markup += "<li class=\"quiet\">and " + grouped(title.pages.size() - kLinkingPagesShown) + " more</li>";
    return markup + "</ul>";
  });
  tellRest(m_summary.sharedTitles.size(), kRowsShown, "--output pages.csv");
  if (!m_summary.untitled.empty()) add("<h3>Pages without a title</h3>");
  list(m_summary.untitled, kRowsShown, [](const Page* page) { return link(page->address); });
  tellRest(m_summary.untitled.size(), kRowsShown, "--output pages.csv");
}

void Writer::ranks() {
  section("ranks", "Slow and large pages");
  pageTable("The slowest", m_summary.slowest, kRankedShown);
  pageTable("The largest", m_summary.largest, kRankedShown);
}

void Writer::outside() {
  section("outside", "Links to other places");
  const std::vector<OutsideRow> all = outsideRows(m_report.now, m_report.checks);
  if (all.empty()) return add("<p>No page links out of the site.</p>");
  static_assert(kRowsShown <= kOutsideShown);
  const auto shown = firstOutside(all, kRowsShown);
  const auto firstLink = [&](const OutsideRow& row) {
    if (row.link == nullptr) return quiet("image, style or script of ") + link(row.check->foundOn);
    const std::vector<LinkingPage>& links = m_report.linksTo({true, row.link->number});
    return links.empty() ? std::string() : linkOn(links[0]);
  };
  if (m_report.lastCheck.isKnown()) {
    add("<p>" + text(checkText(m_report.lastCheck, all)) + "</p>");
    const std::int64_t now = std::time(nullptr);
    table({{"Pages", Heading::number}, {"Address"}, {"State"}, {"Reason"}, {"The first link"}}, shown,
          kRowsShown, [&](const OutsideRow& row) {
            return numberCell(row.linkedFrom()) + wideCell(link(row.address())) + "<td>" +
                   text(stateText(row)) + "</td>" + wideCell(text(reasonText(row, now))) +
                   wideCell(firstLink(row));
          });
  } else {
    table({{"Pages", Heading::number}, {"Address"}, {"The first link"}}, shown, kRowsShown,
          [&](const OutsideRow& row) {
            return numberCell(row.linkedFrom()) + wideCell(link(row.address())) + wideCell(firstLink(row));
          });
  }
  tellRest(all.size(), kRowsShown, "--output report.json");
  if (!m_report.now.hasAllOutside) add("<p class=\"quiet\">There are more than a scan can remember.</p>");
}

}  // namespace

std::string reportHtml(const SiteReport& report) {
  // Headers of servers hold any bytes.
  return platform::decodeUtf8(Writer(report).page());
}

}  // namespace report
