// Checking the links that lead outside, in the window of the report.
#include <QAbstractItemModel>

#include "platform/address_actions.h"
#include "platform/qt_text.h"
#include "report/report_database.h"
#include "scan_steps.h"
#include "store/site_lock.h"
#include "ui/report_window.h"

namespace window_tests {

namespace {

const QString kSheet = QStringLiteral("linkCheckSheet");

/// Keeps a scan whose start page links to these.
void keepScan(const Desk& desk, const std::vector<std::string>& outside) {
  report::ReportDatabase database(desk.stateFolder, "Shop", report::ReportDatabase::Use::write);
  database.begin({.started = 1'000, .ended = 1'012, .end = "complete", .pagesUsed = 1});
  database.add({{.address = "http://127.0.0.1:1/", .title = "Start", .status = 200}, {}});
  for (std::uint32_t i = 0; i < outside.size(); ++i)
    database.add(report::OutsideAddress{.number = i, .address = outside[i], .linkedFrom = 1});
  database.commit(false);
}

}  // namespace

class LinkCheckTest : public QObject {
  Q_OBJECT

  /// Outside of the shop, by names that are asked independently of each other.
  const SiteServer::Pages m_pages = {{"/a", {}}, {"/slow", {.status = 429}}};

  static std::vector<std::string> links(const SlowSite& site) {
    std::string slow = site.url("slow");
    slow.replace(slow.find("127.0.0.1"), 9, "localhost");
    return {site.url("a"), slow, "http://127.0.0.2:1/", "mailto:me@a.test"};
  }
  static ui::ReportWindow* reportWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* report = qobject_cast<ui::ReportWindow*>(window); report && report->isVisible())
        return report;
    }
    return nullptr;
  }
  template <typename Control>
  static Control& in(const char* name) {
    return platform::control<Control>(*reportWindow(), name);
  }
  static bool says(const char* label, const char* text) {
    return comesTrue([&] {
      return in<QLabel>(label).isVisible() && in<QLabel>(label).text().contains(QLatin1String(text));
    });
  }
  /// By the menu, up to the moment when all but one are asked.
  static bool beginCheck(const Desk& desk) {
    desk.control<QAction>("checkLinksMI").trigger();
    QDialog* sheet = sheetNamed(kSheet);
    return sheet && answer(sheet, QStringLiteral("Check")) &&
           says("linkCheckCounts", "2 of 3 asked, 1 left, 1 broken") &&
           says("linkCheckHost", "Waiting for localhost");
  }

 private slots:
  void goesOnWhereItWasStopped() {
    SlowSite site(m_pages, "/slow");
    Desk desk;
    keepScan(desk, links(site));
    desk.openShop("http://127.0.0.1:1/");
    QVERIFY(beginCheck(desk));
    QVERIFY(!desk.enabled("checkLinksMI") && desk.enabled("scanMI"));
    QVERIFY(reportWindow()->minimumSizeHint().width() <= 800);
    // Another site may come into hand meanwhile.
    QVERIFY(desk.select(kShop, Qt::ControlModifier));
    QVERIFY(says("linkCheckCounts", "The links of \"Shop\": 2 of 3"));
    QVERIFY(desk.select(kShop));
    QVERIFY(click(in<QAbstractButton>("stopCheckButton")));
    QVERIFY(says("linkCheckHint", "was stopped: 2 asked, 1 broken"));
    QVERIFY(says("linkCheckHint", "1 link was not asked yet."));
    QVERIFY(says("linkCheckHint", "only the first 4 are known"));
    QVERIFY(desk.enabled("checkLinksMI"));

    site.release();
    QVERIFY(click(in<QAbstractButton>("checkLinksButton")));
    QDialog* sheet = sheetNamed(kSheet);
    QVERIFY(sheet && sheet->findChild<QLabel*>(QStringLiteral("linkCheckText"))
                         ->text()
                         .startsWith(QLatin1String("The last check was stopped after 2 addresses.")));
    QVERIFY(answer(sheet, QStringLiteral("Go On")));
    QVERIFY(says("linkCheckHint", "Checked on "));
    QCOMPARE(site.timesAsked("HEAD /a"), 1);
    QVERIFY(desk.window().statusBar()->toolTip().endsWith(QLatin1String("1 of 3 are broken")));

    auto& table = in<QTableView>("reportOutsideTable");
    auto& search = in<QLineEdit>("reportOutsideSearch");
    const auto& open = platform::control<QAction>(table, platform::kOpenSelection);
    const std::pair<const char*, const char*> rows[] = {
        {"/a", "Fine"}, {"NOT BE CHECKED", "Could not be checked"}, {"reached", "Broken"}, {"mailto", ""}};
    for (const auto& [searched, state] : rows) {
      search.setText(QLatin1String(searched));
      QCOMPARE(table.model()->rowCount(), 1);
      QCOMPARE(table.model()->index(0, 1).data().toString(), QLatin1String(state));
      table.selectRow(0);
      QCOMPARE(open.isEnabled(), *state != '\0');
    }
  }

  void isRefusedWithoutAScanAndDuringOne() {
    Desk desk;
    desk.openShop("http://127.0.0.1:1/");
    const auto refusal = [&] {
      desk.control<QAction>("checkLinksMI").trigger();
      QMessageBox* box = message(QStringLiteral("The links cannot be checked."));
      const QString why = box == nullptr ? QString() : box->informativeText();
      return answer(box, kOk) ? why : QString();
    };
    QCOMPARE(refusal(), QStringLiteral("No complete scan of \"Shop\" is kept: scan it first."));
    QVERIFY(!in<QWidget>("checkLinksButton").isEnabled());
    keepScan(desk, {});
    const store::SiteLock scan(desk.controls, "Shop");
    QCOMPARE(refusal(), QStringLiteral("The site \"Shop\" is being scanned."));
  }

  void stopsWithItsWindowAndTheProgram() {
    const SlowSite site(m_pages, "/slow");
    for (const bool quits : {false, true}) {
      Desk desk;
      keepScan(desk, links(site));
      desk.openShop("http://127.0.0.1:1/");
      QVERIFY(beginCheck(desk));
      if (quits) {
        desk.close();
      } else {
        QVERIFY(reportWindow()->close());
        QVERIFY(comesTrue([&] { return desk.status().startsWith(QLatin1String("Stopped checking")); }));
      }
      report::ReportDatabase database(desk.stateFolder, "Shop", report::ReportDatabase::Use::read);
      QCOMPARE(database.linkChecks().size(), std::size_t{2});
      QVERIFY(database.lastCheck().isUnfinished());
    }
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::LinkCheckTest>(argc, argv);
}

#include "link_check_test.moc"
