// Links of the HTML sitemap, clicked, edited and deleted.
#include <optional>

#include "html_steps.h"
#include "platform/files.h"

namespace window_tests {

using samples::link;
using samples::page;
using samples::with;

namespace {

const QString kTitleBlank =
    QStringLiteral("The title field cannot be left blank, please enter a title for this page.");
const QString kDeleteLink = QStringLiteral("Delete Link");
const QString kSaveFirst = QStringLiteral(
    "Changes have been made to this sitemap, would you like to save the changes you have made before "
    "deleting this link?");
const QString kAskAboutLink = QStringLiteral("Link 2");

std::string without(const std::string& document, const std::string& entry) {
  return with(document, "\n\t\t\t" + entry, "");
}

const std::string kLink2 = link(22, "http://a.test/2/link", "Link 2");
const std::string kPage2 = page(20, "http://a.test/2", "Page 2");

}  // namespace

class HtmlLinksTest : public QObject {
  Q_OBJECT

 private slots:
  void selectsWhatIsClicked() {
    HtmlDesk desk;
    desk.openAt(2);
    QVERIFY(desk.nothingIsSelected());
    QVERIFY(desk.clickLink(kAskAboutLink));
    QCOMPARE(desk.text("linkEditInput"), QStringLiteral("http://a.test/2/link"));
    QVERIFY(desk.enabled("deleteButton") && desk.enabled("titleEditInput") && desk.enabled("linkEditInput"));
    // The other button of the mouse selects too, and offers what can be done.
    const QVariantList place =
        desk.inPage(QStringLiteral("{ const box = document.links[4].getBoundingClientRect();"
                                   "[box.x + box.width / 2, box.y + box.height / 2] }"))
            .toList();
    QTest::mouseClick(desk.webView().focusProxy(), Qt::RightButton, {},
                      QPoint(place.value(0).toInt(), place.value(1).toInt()));
    const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    QVERIFY(comesTrue([&] { return menu() != nullptr; }));
    QCOMPARE(desk.text("titleEditInput"), QStringLiteral("Page 3"));
    QVERIFY(
        desk.inPageComesTrue(QStringLiteral("Array.from(document.links).filter(each => each.style.outline)"
                                            ".map(each => each.textContent).join() === 'Page 3'")));
    menu()->actions().first()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://a.test/3"));
    menu()->close();
    desk.webView().setFocus();
    QTest::keyClick(desk.webView().focusProxy(), Qt::Key_Delete);
    QVERIFY(answer(message(kDeleteQuestion), kCancel));
    QVERIFY(desk.isClean());
  }

  /// Title and address are one edit.
  void edits() {
    HtmlDesk desk;
    desk.openAt(2);
    QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Single Column, All Links")));
    QVERIFY(desk.shown());
    const std::string before = desk.document();
    std::string expected = with(before, kLink2, link(22, "http://a.test/2/link", "A &amp; B"));
    const auto isSaved = [&] {
      return desk.shown() && desk.onDisk("sitemap1c.html") == expected && desk.document() == expected &&
             desk.isClean() && desk.nothingIsSelected() && topSheet() == nullptr;
    };
    QVERIFY(desk.clickLink(kAskAboutLink));
    QVERIFY(desk.type("titleEditInput", QStringLiteral("A & B")));
    QVERIFY(isSaved());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links[3].textContent === 'A & B'")));
    // With the style that was not saved yet, and by going on to another control.
    QVERIFY(desk.edit());
    const std::string unsaved = desk.document();
    QVERIFY(desk.clickLink(QStringLiteral("A & B")));
    const auto typeBehind = [&](const char* name, const char* text) {
      desk.field(name).setFocus();
      QTest::keyClick(&desk.field(name), Qt::Key_End);
      QTest::keyClicks(&desk.field(name), QLatin1String(text));
    };
    typeBehind("titleEditInput", "?");
    typeBehind("linkEditInput", "/?a=1&b=$1");
    desk.control<QPushButton>("deleteButton").setFocus();
    QCOMPARE(desk.document(), unsaved);  // to delete a link that was changed is to delete it
    desk.control<QComboBox>("sitemapTypePopup").setFocus();
    expected = edited(with(before, kLink2, link(22, "http://a.test/2/link/?a=1&b=$1", "A &amp; B?")));
    QVERIFY(isSaved());
    QVERIFY(desk.othersAreUntouched("sitemap1c.html"));
    // What was begun is dropped when the view is left.
    QVERIFY(desk.clickLink(QStringLiteral("Link 3")));
    typeBehind("titleEditInput", "half");
    desk.go(3);
    QCOMPARE(desk.onDisk("sitemap1c.html"), expected);
    QVERIFY(desk.isClean());
  }

  void offersToDeleteWhenAFieldIsBlank() {
    HtmlDesk desk;
    desk.openAt(2);
    std::string expected = desk.document();
    // A question that follows the wrong button comes up in the next round.
    const QString deleteThis = QStringLiteral("Delete This Link");
    for (const auto& [number, button] :
         {std::pair(2, deleteThis), std::pair(3, kOk), std::pair(4, deleteThis)}) {
      const std::string label = "Link " + std::to_string(number);
      QVERIFY(desk.clickLink(QString::fromStdString(label)));
      QVERIFY(desk.type("titleEditInput", {}));
      QVERIFY(desk.nothingIsSelected());
      QVERIFY(answer(message(kTitleBlank), button));
      if (button != kOk) {
        QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
        const std::string url = "http://a.test/" + std::to_string(number) + "/link";
        expected = without(expected, link(10 * number + 2, url, label));
      }
      QVERIFY(desk.shown() && noSheetLeft());
      QCOMPARE(desk.onDisk(), expected);
    }
  }

  void deletes() {
    HtmlDesk desk;
    // The search for the next heading goes up to the count of the record.
    desk.writeFile("Shop", "Shop.qzVSK",
                   with(desk.record("Shop"), "<totalLinks>0</totalLinks>", "<totalLinks>43</totalLinks>"));
    desk.openAt(2);
    const std::string before = desk.document();
    QVERIFY(desk.clickLink(QStringLiteral("Page 2")));
    QVERIFY(desk.click("deleteButton"));
    QMessageBox* sheet = message(kDeleteQuestion);
    QVERIFY(sheet);
    QVERIFY(sheet->informativeText().startsWith(QLatin1String("Page 2\nhttp://a.test/2\n")));
    QVERIFY(dismiss(sheet));
    QCOMPARE(desk.onDisk(), before);
    QVERIFY(desk.click("deleteButton"));  // it is still selected
    QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
    QVERIFY(desk.shown() && noSheetLeft());
    // The first link of the page takes its place.
    QCOMPARE(desk.onDisk(),
             with(without(before, kPage2), kLink2, page(22, "http://a.test/2/link", "Link 2")));
    QCOMPARE(desk.document(), desk.onDisk());
    QVERIFY(desk.othersAreUntouched());
    QVERIFY(desk.isClean() && desk.nothingIsSelected());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 11")));
  }

  void asksBeforeDeletingFromAnUnsavedDocument() {
    struct Case {
      const char* name;
      QString button;
      bool deletes;
      bool writable = true;
    };
    const Case cases[] = {{"saved", kSaveChanges, true},
                          {"discarded", kDiscardChanges, true},
                          {"cancelled", QStringLiteral("Cancel Deletion"), false},
                          {"cannot be saved", kSaveChanges, false, false}};
    for (const Case& c : cases) {
      HtmlDesk desk;
      desk.openAt(2);
      const std::string before = desk.document();
      QVERIFY(desk.edit());
      QVERIFY(desk.clickLink(kAskAboutLink));
      std::optional<platform::FolderLock> obstacle;
      if (!c.writable) obstacle.emplace(desk.controls.siteFolder("Shop"));
      QVERIFY(desk.click("deleteButton"));
      QVERIFY2(answer(message(kSaveFirst), c.button), c.name);
      if (!c.writable) QVERIFY(answer(sheetNamed({}), kOk));
      QVERIFY(noSheetLeft());
      const std::string start = c.button == kDiscardChanges ? before : edited(before);
      const std::string expected = c.deletes ? without(start, kLink2) : before;
      QVERIFY2(comesTrue([&] { return desk.onDisk() == expected; }), c.name);
      QVERIFY(topSheet() == nullptr);  // that was the question
      QCOMPARE(desk.document(), c.deletes ? expected : start);
      QVERIFY(desk.isClean() == c.deletes);
    }
  }

  /// Between the answer and the deletion half a second goes by, in which the user is free.
  void deletesNoOtherLinkThanTheOneAskedAbout() {
    HtmlDesk desk;
    desk.openAt(2);
    QVERIFY(desk.edit());
    const std::string unsaved = desk.document();
    QVERIFY(desk.clickLink(kAskAboutLink));
    QVERIFY(desk.click("deleteButton"));
    QVERIFY(answer(message(kSaveFirst), kSaveChanges));
    desk.inPage(QStringLiteral("document.links[7].click()"));
    QVERIFY(comesTrue([&] { return desk.onDisk() == without(unsaved, kLink2); }));
    // And when the document is no longer there, nothing happens to the one that is.
    QVERIFY(desk.shown());
    QVERIFY(desk.edit());
    QVERIFY(desk.clickLink(QStringLiteral("Link 3")));
    QVERIFY(desk.click("deleteButton"));
    QVERIFY(answer(message(kSaveFirst), kDiscardChanges));
    QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
    // A sheet that follows another one keeps the same distance, so by now it would have happened.
    QVERIFY(desk.type("ptColourField", QStringLiteral("#ABC")));
    for (int i = 0; i < 2; ++i) QVERIFY(answer(sheetNamed({}), kOk));
    QCOMPARE(desk.onDisk(), without(unsaved, kLink2));
    QVERIFY(desk.othersAreUntouched());
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlLinksTest>(argc, argv);
}

#include "html_links_test.moc"
