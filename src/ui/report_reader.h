// What is kept of the scans of the site in hand, for all that shows it.
#pragma once

#include <QObject>
#include <QString>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "report/changes.h"
#include "report/latest_report.h"
#include "store/state_folder.h"
#include "ui/background_read.h"

namespace ui {

/// Links to one target.
using LinkingPages = std::shared_ptr<const std::vector<report::LinkingPage>>;

/// What the pages of two scans differ in. Its parts point into both of them.
struct ComparedScans {
  std::shared_ptr<const report::LatestReport> now;
  report::ScanContents before = {};
  report::Changes changes = {};
};

/// Reads off the UI thread, and only what somebody wants to see: the report first, as it has to be there
/// soon, and then the links to its broken addresses and the changes. UI thread.
class ReportReader : public QObject {
  Q_OBJECT

 public:
  /// `state` is borrowed.
  explicit ReportReader(const store::StateFolder& state) : m_state(state) {}

  /// Another site is in hand; none for an empty name. What was read of the last one goes.
  void follow(const QString& siteName);
  /// A scan of the site has ended: what was read is read anew.
  void readAnew();

  /// Reads the report unless it is there or on its way.
  void want();

  /// Null until it was read.
  const std::shared_ptr<const report::LatestReport>& report() const { return m_report; }
  /// Null until they were compared; there may be no scan to compare with.
  const std::shared_ptr<const ComparedScans>& compared() const { return m_compared; }

  /// Has linksRead() tell who links to the target, at once where that is known.
  void wantLinks(const report::Target& target);
  /// Null while that is not known.
  LinkingPages linksTo(const report::Target& target) const;

 signals:
  /// report() is another one, or null.
  void reportChanged();
  void scansCompared();
  void linksRead();

 private:
  using Links = std::map<report::Target, LinkingPages>;

  void take(std::shared_ptr<const report::LatestReport> report, int turn);
  void readLinks(std::set<report::Target> targets);
  void compareScans();

  const store::StateFolder& m_state;
  std::string m_siteName;
  std::shared_ptr<const report::LatestReport> m_report;
  std::shared_ptr<const ComparedScans> m_compared;
  Links m_links;
  int m_turn = 0;  // what was asked for in an earlier one is of no use any more
  bool m_wanted = false;
  BackgroundRead m_reports;  // last, since their threads use the rest
  BackgroundRead m_linkReads;
  BackgroundRead m_comparisons;
};

}  // namespace ui
