// "Scan Report": what the last scan of the site in hand has met, in a window of its own.
#pragma once

#include <QString>
#include <QTabWidget>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/sheet_queue.h"
#include "store/shared_state.h"
#include "ui/link_check_controller.h"
#include "ui/link_check_panel.h"
#include "ui/report_overview.h"
#include "ui/report_reader.h"
#include "ui/report_tab.h"

namespace ui {

/// Follows the site in hand as the reader does. UI thread.
class ReportWindow : public QWidget {
  Q_OBJECT

 public:
  /// The first three are borrowed and outlive the window. Its size is remembered in the file of settings.
  ReportWindow(ReportReader& reader, LinkCheckController& check, const store::SharedState& state,
               const QString& settingsFile);

  /// Shows it, in front of others.
  void bringUp();
  /// Likewise, and asks whether the links that lead outside are to be checked.
  void checkLinks();

 protected:
  /// Stops a check, since nothing shows how far it is any more.
  void closeEvent(QCloseEvent* event) override;

 private:
  /// What is told below the table of a row in hand.
  struct Linked {
    std::optional<report::Target> target = {};  // nothing where no links are known
    std::uint32_t pages = 0;                    // that link there
    std::string standing = {};                  // a phrase; may be empty
    LinkingPages known = nullptr;               // in place of a target's
  };
  using FindLinked = std::function<Linked(std::size_t row)>;

  ReportTab* addTab(ReportTab* tab, const QString& title);
  void addLinkedTab(ReportTab* tab, const QString& title, FindLinked find);
  void buildTabs();
  void addKeys();
  void restorePlace();

  void showReport();
  void showEmpty(const QString& sentence);
  void showBroken();
  void showPages();
  void showOutside();
  void showLeftOut();
  void showExamples();
  void showChanges();
  void showLinksOf(ReportTab& tab, const FindLinked& find);
  void countOn(const ReportTab& tab, std::size_t count);
  void explainEmptyPages();
  void showPage(const QString& address);

  ReportReader& m_reader;
  LinkCheckController& m_check;
  const store::SharedState& m_state;
  const QString m_settingsFile;
  std::shared_ptr<const report::LatestReport> m_report;
  std::shared_ptr<const ComparedScans> m_compared;
  QString m_siteShown;
  std::vector<QString> m_titles;  // of the tabs, without counts

  QTabWidget* m_tabs;
  ReportOverview* m_overview;
  ReportTab* m_broken;
  ReportTab* m_changes;
  ReportTab* m_leftOut;
  ReportTab* m_pages;
  ReportTab* m_outside;
  platform::SheetQueue m_sheets;
  LinkCheckPanel* m_checkPanel;
};

}  // namespace ui
