#include "ui/report_reader.h"

#include <set>
#include <utility>

#include "platform/qt_text.h"
#include "report/report_database.h"

namespace ui {

using report::LatestReport;
using report::ReportDatabase;
using report::ScanFacts;
using report::Target;

void ReportReader::follow(const QString& siteName) {
  m_siteName = platform::toUtf8(siteName);
  ++m_turn;
  m_wanted = false;
  m_links.clear();
  m_compared.reset();
  m_report.reset();
  emit reportChanged();
}

void ReportReader::readAnew() {
  ++m_turn;
  m_links.clear();
  if (std::exchange(m_wanted, false)) want();
}

void ReportReader::want() {
  if (m_siteName.empty() || std::exchange(m_wanted, true)) return;
  m_reports.ask([this, turn = m_turn, site = m_siteName]() -> BackgroundRead::Show {
    auto read = report::readLatestReport(m_state, site);
    return [this, turn, read] { take(read, turn); };
  });
}

void ReportReader::take(std::shared_ptr<const LatestReport> report, int turn) {
  if (turn != m_turn) return;
  m_report = std::move(report);
  m_compared.reset();
  emit reportChanged();
  std::set<Target> broken;
  for (const report::Page* page : m_report->broken) broken.insert({false, page->number});
  if (!broken.empty()) readLinks(std::move(broken));
  compareScans();
}

void ReportReader::wantLinks(const Target& target) {
  if (m_report == nullptr || !m_report->hasScan()) return;
  if (m_links.contains(target)) {
    emit linksRead();
  } else {
    readLinks({target});
  }
}

LinkingPages ReportReader::linksTo(const Target& target) const {
  const auto found = m_links.find(target);
  return found == m_links.end() ? nullptr : found->second;
}

void ReportReader::readLinks(std::set<Target> targets) {
  const ScanFacts scan = m_report->now.facts;
  m_linkReads.ask(
      [this, turn = m_turn, site = m_siteName, scan, targets = std::move(targets)]() -> BackgroundRead::Show {
        Links links;
        auto found = ReportDatabase(m_state, site, ReportDatabase::Use::read).linksTo(scan, targets);
        for (const Target& target : targets) {
          links[target] = std::make_shared<const std::vector<report::LinkingPage>>(std::move(found[target]));
        }
        return [this, turn, links = std::move(links)] {
          if (turn != m_turn) return;
          m_links.insert(links.begin(), links.end());
          emit linksRead();
        };
      });
}

void ReportReader::compareScans() {
  m_comparisons.ask([this, turn = m_turn, now = m_report]() -> BackgroundRead::Show {
    auto compared = std::make_shared<ComparedScans>();
    compared->now = now;
    if (now->former.id != 0) {
      compared->before =
          ReportDatabase(m_state, now->siteName, ReportDatabase::Use::read).contents(now->former);
      compared->changes = report::compare(compared->before, now->now);
    }
    return [this, turn, compared] {
      if (turn != m_turn) return;
      m_compared = compared;
      emit scansCompared();
    };
  });
}

}  // namespace ui
