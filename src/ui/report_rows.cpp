#include "ui/report_rows.h"

#include <QObject>
#include <algorithm>
#include <array>
#include <ctime>
#include <numeric>
#include <utility>

#include "platform/http_client.h"
#include "platform/qt_text.h"
#include "report/address_answer.h"

namespace ui {

using Kind = ReportColumn::Kind;
using crawler::PageStanding;
using report::LatestReport;
using report::Page;

namespace {

std::string said(const char* text) {
  return platform::toUtf8(QObject::tr(text));
}

std::string shortStanding(const Page& page) {
  switch (page.standing) {
    case PageStanding::listed:
      return said(QT_TRANSLATE_NOOP("QObject", "Yes"));
    case PageStanding::broken:
      return said(QT_TRANSLATE_NOOP("QObject", "Broken"));
    case PageStanding::leftOut:
    case PageStanding::folderListing:
      return said(QT_TRANSLATE_NOOP("QObject", "Left out"));
  }
  return {};
}

ReportCell textCell(std::string text) {
  return {.text = std::move(text)};
}

ReportCell numberCell(std::int64_t number) {
  return {.number = number};
}

/// "404 - Not Found" without its number, which has a column of its own.
std::string phraseOf(const Page& page) {
  const std::string reason = platform::reasonInLanguage(page.brokenReason);
  const std::size_t dash = reason.find(" - ");
  return dash == std::string::npos ? reason : reason.substr(dash + 3);
}

std::size_t rowOf(const LatestReport& report, const Page* page) {
  return static_cast<std::size_t>(page - report.now.pages.data());
}

std::shared_ptr<const std::vector<std::size_t>> rowsOf(const LatestReport& report,
                                                       const std::vector<const Page*>& pages) {
  auto rows = std::make_shared<std::vector<std::size_t>>();
  for (const Page* page : pages) rows->push_back(rowOf(report, page));
  return rows;
}

struct ChangeKind {
  const char* name;
  const char* plural;
  std::vector<report::PageChange> report::Changes::*pages;
};

constexpr std::array kChangeKinds = {
    ChangeKind{QT_TRANSLATE_NOOP("QObject", "Newly broken"), QT_TRANSLATE_NOOP("QObject", "Newly broken"),
               &report::Changes::newlyBroken},
    ChangeKind{QT_TRANSLATE_NOOP("QObject", "Repaired"), QT_TRANSLATE_NOOP("QObject", "Repaired"),
               &report::Changes::repaired},
    ChangeKind{QT_TRANSLATE_NOOP("QObject", "New"), QT_TRANSLATE_NOOP("QObject", "New pages"),
               &report::Changes::added},
    ChangeKind{QT_TRANSLATE_NOOP("QObject", "Gone"), QT_TRANSLATE_NOOP("QObject", "Gone pages"),
               &report::Changes::gone},
    ChangeKind{QT_TRANSLATE_NOOP("QObject", "Renamed"), QT_TRANSLATE_NOOP("QObject", "Renamed pages"),
               &report::Changes::renamed}};

/// The kind of the change in a row, and the change.
std::pair<const ChangeKind&, const report::PageChange&> kindAt(const report::Changes& changes,
                                                               std::size_t row) {
  for (const ChangeKind& kind : kChangeKinds) {
    const auto& pages = changes.*kind.pages;
    if (row < pages.size()) return {kind, pages[row]};
    row -= pages.size();
  }
  qFatal("There is no such change");
}

std::size_t changeCount(const report::Changes& changes) {
  std::size_t count = 0;
  for (const ChangeKind& kind : kChangeKinds) count += (changes.*kind.pages).size();
  return count;
}

}  // namespace

std::vector<ReportColumn> brokenColumns() {
  return {{QObject::tr("Address"), Kind::address},
          {QObject::tr("Status"), Kind::code},
          {.heading = QObject::tr("Reason"), .letters = 30},
          {QObject::tr("Linked From"), Kind::number}};
}

void showBrokenPages(ReportModel& model, std::shared_ptr<const LatestReport> report) {
  const LatestReport& all = *report;
  const auto cells = [&all](std::size_t row, int column) {
    const Page& page = *all.broken[row];
    switch (column) {
      case 0:
        return textCell(page.address);
      case 1:
        return numberCell(page.status);
      case 2:
        return textCell(phraseOf(page));
      default:
        return numberCell(page.linkedFrom);
    }
  };
  model.setRows(all.broken.size(), cells, std::move(report));
}

std::vector<ReportColumn> pageColumns() {
  return {{QObject::tr("Address"), Kind::address},
          {.heading = QObject::tr("Title"), .letters = 36},
          {QObject::tr("In the Sitemaps")},
          {QObject::tr("Status"), Kind::code, true},
          {QObject::tr("Type"), Kind::text, true, 14},
          {QObject::tr("Bytes"), Kind::number},
          {QObject::tr("Milliseconds"), Kind::number},
          {QObject::tr("Level"), Kind::number, true},
          {QObject::tr("Linked From"), Kind::number},
          {QObject::tr("Last Modified"), Kind::text, true, 34},
          {QObject::tr("Leads To"), Kind::text, true, 36}};
}

void showPages(ReportModel& model, std::shared_ptr<const LatestReport> report) {
  const LatestReport& all = *report;
  const auto cells = [&all](std::size_t row, int column) {
    const Page& page = all.now.pages[row];
    switch (column) {
      case 0:
        return textCell(page.address);
      case 1:
        return textCell(page.title);
      case 2:
        return textCell(shortStanding(page));
      case 3:
        return numberCell(page.status);
      case 4:
        return textCell(page.type);
      case 5:
        return numberCell(page.bytes);
      case 6:
        return numberCell(page.time.count());
      case 7:
        return numberCell(page.level);
      case 8:
        return numberCell(page.linkedFrom);
      case 9:
        return textCell(page.modified);
      default:
        return textCell(page.redirectedTo);
    }
  };
  model.setRows(all.now.pages.size(), cells, std::move(report));
}

std::vector<RowChoice> pageChoices(const LatestReport& report) {
  std::vector<const Page*> sharing;
  for (const report::SharedTitle& title : report.summary.sharedTitles)
    sharing.insert(sharing.end(), title.pages.begin(), title.pages.end());
  std::vector<const Page*> leftOut;
  for (const Page& page : report.now.pages) {
    if (page.standing == PageStanding::leftOut || page.standing == PageStanding::folderListing)
      leftOut.push_back(&page);
  }
  const report::Summary& summary = report.summary;
  return {{QObject::tr("All pages"), nullptr},
          {QObject::tr("Titles that several pages share"), rowsOf(report, sharing)},
          {QObject::tr("Missing titles"), rowsOf(report, summary.untitled)},
          {QObject::tr("Slowest"), rowsOf(report, summary.slowest)},
          {QObject::tr("Largest"), rowsOf(report, summary.largest)},
          {QObject::tr("No page links to it"), rowsOf(report, summary.unlinked)},
          {QObject::tr("Left out"), rowsOf(report, leftOut)}};
}

std::vector<ReportColumn> outsideColumns() {
  return {{QObject::tr("Address"), Kind::address},
          {.heading = QObject::tr("State"), .letters = 24},
          {.heading = QObject::tr("Reason"), .letters = 36},
          {QObject::tr("Linked From"), Kind::someNumber}};
}

void showOutside(ReportModel& model, std::shared_ptr<const LatestReport> report) {
  const LatestReport& all = *report;
  const auto cells = [&all, now = std::int64_t{std::time(nullptr)}](std::size_t row, int column) {
    const report::OutsideRow& outside = all.outside[row];
    switch (column) {
      case 0:
        return textCell(outside.address());
      case 1:
        return textCell(stateText(outside));
      case 2:
        return textCell(reasonText(outside, now));
      default:
        return numberCell(outside.linkedFrom());
    }
  };
  model.setRows(all.outside.size(), cells, std::move(report));
}

std::vector<RowChoice> outsideChoices(const LatestReport& report) {
  std::vector<RowChoice> choices = {{QObject::tr("All links"), nullptr}};
  if (!report.lastCheck.isKnown()) return choices;
  const auto add = [&](const QString& name, const auto& isMeant) {
    auto rows = std::make_shared<std::vector<std::size_t>>();
    for (std::size_t row = 0; row < report.outside.size(); ++row) {
      if (isMeant(report.outside[row])) rows->push_back(row);
    }
    choices.emplace_back(name, std::move(rows));
  };
  using report::LinkState;
  using report::OutsideRow;
  const std::int64_t now = std::time(nullptr);
  add(QObject::tr("Broken"), [](const OutsideRow& row) { return row.is(LinkState::broken); });
  add(QObject::tr("Moved"), [](const OutsideRow& row) { return row.is(LinkState::moved); });
  add(QObject::tr("Could not be checked"),
      [](const OutsideRow& row) { return row.is(LinkState::unchecked); });
  add(QObject::tr("Certificate ends soon"),
      [now](const OutsideRow& row) { return certificateEndsSoon(row, now); });
  add(QObject::tr("Not asked yet"), [](const OutsideRow& row) { return row.isToBeAsked(); });
  add(QObject::tr("Images, styles and scripts"), [](const OutsideRow& row) { return row.link == nullptr; });
  return choices;
}

std::vector<ReportColumn> leftOutColumns() {
  return {
      {QObject::tr("Reason")}, {QObject::tr("Pages May Be Missing")}, {QObject::tr("Count"), Kind::number}};
}

void showLeftOut(ReportModel& model, std::shared_ptr<const LatestReport> report) {
  const LatestReport& all = *report;
  const auto cells = [&all](std::size_t row, int column) {
    const crawler::LeftOutGroup& group = all.leftOut.groups[row];
    if (column == 2) return numberCell(group.count);
    if (column == 1)
      return textCell(group.mayMissPages() ? said(QT_TRANSLATE_NOOP("QObject", "Yes"))
                                           : said(QT_TRANSLATE_NOOP("QObject", "No")));
    QString reason = platform::toQString(group.reasonText(group.count));
    reason.replace(0, 1, reason.left(1).toUpper());
    return textCell(platform::toUtf8(reason));
  };
  model.setRows(all.leftOut.groups.size(), cells, std::move(report));
}

std::vector<ReportColumn> exampleColumns() {
  return {{QObject::tr("Example"), Kind::address}, {.heading = QObject::tr("Stands On"), .letters = 56}};
}

void showExamples(ReportModel& model, std::shared_ptr<const LatestReport> report, std::size_t group) {
  const std::vector<crawler::LeftOutExample>& examples = report->leftOut.groups[group].examples;
  model.setRows(
      examples.size(),
      [&examples](std::size_t row, int column) {
        return textCell(column == 0 ? examples[row].address : examples[row].page);
      },
      std::move(report));
}

std::vector<ReportColumn> changeColumns() {
  return {{.heading = QObject::tr("Change"), .letters = 16},
          {QObject::tr("Address"), Kind::address},
          {.heading = QObject::tr("Title"), .letters = 30},
          {.heading = QObject::tr("Before"), .letters = 30}};
}

void showChanges(ReportModel& model, std::shared_ptr<const ComparedScans> compared) {
  const report::Changes& changes = compared->changes;
  const auto cells = [&changes](std::size_t row, int column) {
    const auto& [kind, change] = kindAt(changes, row);
    switch (column) {
      case 0:
        return textCell(said(kind.name));
      case 1:
        return textCell(change.page().address);
      case 2:
        return textCell(change.now == nullptr ? std::string()
                        : change.now->standing == PageStanding::broken
                            ? platform::reasonInLanguage(change.now->brokenReason)
                            : change.now->title);
      default:
        return textCell(change.before == nullptr ? std::string()
                        : change.before->standing == PageStanding::broken
                            ? platform::reasonInLanguage(change.before->brokenReason)
                            : change.before->title);
    }
  };
  model.setRows(changeCount(changes), cells, std::move(compared));
}

const report::PageChange& changeAt(const report::Changes& changes, std::size_t row) {
  return kindAt(changes, row).second;
}

std::vector<RowChoice> changeChoices(const report::Changes& changes) {
  std::vector<RowChoice> choices = {{QObject::tr("All changes"), nullptr}};
  std::size_t first = 0;
  for (const ChangeKind& kind : kChangeKinds) {
    auto rows = std::make_shared<std::vector<std::size_t>>((changes.*kind.pages).size());
    std::iota(rows->begin(), rows->end(), first);
    first += rows->size();
    choices.emplace_back(QObject::tr(kind.plural), std::move(rows));
  }
  return choices;
}

}  // namespace ui
