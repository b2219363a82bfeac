// The window in another language than English.
#include "app/language.h"

#include <QMenuBar>

#include "platform/phrases.h"
#include "platform/qt_text.h"
#include "report/changes.h"
#include "window_test.h"

namespace window_tests {

namespace {

using platform::toQString;

QString savedFiles(int count) {
  return QCoreApplication::translate("ui::SplitExport", "Saved %Ln file(s) in %1", nullptr, count);
}

void speak(const QLocale& locale) {
  QLocale::setDefault(locale);
  app::speakLanguageOf(locale);
}

}  // namespace

class LanguageTest : public QObject {
  Q_OBJECT

 private slots:
  /// The order matters: a language stays as long as the program runs.
  void speaksEnglishWhereItKnowsNoOther() {
    speak(QLocale(QStringLiteral("is_IS")));
    QCOMPARE(savedFiles(1), QStringLiteral("Saved 1 file in %1"));
    QCOMPARE(savedFiles(12'000), QStringLiteral("Saved 12.000 files in %1"));
    QCOMPARE(toQString(platform::Phrases::tr("%n link", "%n links", 2)), QStringLiteral("2 links"));
  }

  void speaksGerman() {
    speak(QLocale(QStringLiteral("de_DE")));
    QCOMPARE(savedFiles(1), QStringLiteral("1 Datei in %1 gespeichert"));
    Desk desk;
    desk.openShop();
    QCOMPARE(desk.window().menuBar()->actions().first()->text(), QStringLiteral("&Datei"));
    QCOMPARE(desk.control<QPushButton>("scanSiteButton").text(), QStringLiteral("Website d&urchsuchen"));
    QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").itemText(0),
             QStringLiteral("Drei Spalten, alle Links"));
    // Qt's own.
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Abbrechen"));
  }

  void tellsWhatTheEngineSays() {
    report::Page page{.address = "http://a.test/%1"};
    report::Changes changes{.areKnown = true};
    changes.newlyBroken.resize(1'234, {nullptr, &page});
    QCOMPARE(toQString(report::changesText(changes)),
             QStringLiteral("0 Seiten neu, 0 verschwunden, 0 umbenannt.\n"
                            "Neu defekt: 1.234 (http://a.test/%1), repariert: 0."));
  }

  void keepsFilesEnglish() {
    Desk desk;
    desk.makeSite("Shop", "http://shop.test/");
    desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\n");
    const std::vector<store::BrokenPage> pages = {
        {"http://shop.test/gone", "0 - The server could not be reached"}};
    QVERIFY(desk.reasons.save("Shop", pages).ok());
    desk.open();
    desk.select(kShop);
    desk.go(7);
    const QAbstractItemModel& model = *desk.control<QTableView>("badLinkTable").model();
    QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("0 - Der Server war nicht zu erreichen"));
    // Of this the exports are made.
    QCOMPARE(desk.window().state().qzvskBadLinkReasonArray, std::vector<std::string>{pages[0].reason});
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::LanguageTest>(argc, argv);
}

#include "language_test.moc"
