// What the view of the HTML sitemap tells of clicks, and what it shows when documents follow each other.
#include <csignal>
#include <memory>

#include "walled_view.h"

namespace window_tests {

class WebViewTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { m_walled = std::make_unique<WalledView>(); }
  void cleanupTestCase() { m_walled.reset(); }
  void capturesEveryClick() {
    const QString handlers = QStringLiteral("onclick='event.stopPropagation()' onmousedown='this.remove()'");
    const std::pair<QString, Qt::KeyboardModifier> cases[] = {
        {QStringLiteral("target=_blank"), Qt::NoModifier},
        {QStringLiteral("download"), Qt::ShiftModifier},
        {handlers, Qt::ControlModifier},
        {{}, Qt::AltModifier}};
    const QString target = QStringLiteral("HTTP://A.Test/%7Ex?a=1&amp;b=2#c---LINKID:3---");
    const QStringList click = {QStringLiteral("HTTP://A.Test/%7Ex?a=1&b=2#c---LINKID:3---"),
                               QStringLiteral("bold text")};
    for (const auto& [attributes, modifiers] : cases) {
      QVERIFY(m_walled->load(
          withText(QStringLiteral("<a href='%1' %2 style='display: block; height: 80px'><b>bold</b> text</a>")
                       .arg(target, attributes))));
      QWidget* place = m_walled->view().focusProxy();
      const auto pages = [&] { return m_walled->view().page()->findChildren<QWebEnginePage*>().size(); };
      const auto before = pages();
      QTest::mouseClick(place, Qt::LeftButton, modifiers, {60, 50});
      QVERIFY(comesTrue([&] { return !m_walled->clicks().isEmpty(); }));
      QTest::mouseClick(place, Qt::MiddleButton, modifiers, {60, 50});  // is none
      inPage(m_walled->view(), QStringLiteral("document.links[0].focus()"));
      QTest::keyClick(place, Qt::Key_Return);
      QVERIFY(comesTrue([&] { return m_walled->clicks().size() > 1; }));
      QCOMPARE(m_walled->clicks(), (QList<QStringList>{click, click}));
      QVERIFY(m_walled->isStill());
      QCOMPARE(pages(), before);
    }
  }

  void capturesClicksBeforeAnybodyListens() {
    // As soon as there is a link; the way to the program is built at the same time.
    m_walled->expectAnother();
    m_walled->view().showDocument(withText(QStringLiteral("<a href='early'>early</a>")).toStdString(), false);
    int before = static_cast<int>(m_walled->clicks().size());
    QVERIFY(comesTrue([&] {
      return inPage(m_walled->view(), QStringLiteral("{ const link = document.querySelector('a[href=early]');"
                                                     "link && link.click(); link !== null }"))
          .toBool();
    }));
    QVERIFY(comesTrue([&] { return m_walled->clicks().size() > before; }));
    QCOMPARE(m_walled->clicks().last(), (QStringList{QStringLiteral("early"), QStringLiteral("early")}));
  }

  void reloadsALostDocumentOnce() {
    QVERIFY(m_walled->load(withText({})));
    const auto endRenderer = [&] {
      m_walled->expectAnother();
      return kill(static_cast<pid_t>(m_walled->view().page()->renderProcessPid()), SIGKILL) == 0;
    };
    QVERIFY(endRenderer());
    QVERIFY(m_walled->isShown() && m_walled->isStill());
    QVERIFY(endRenderer());
    QVERIFY(m_walled->isShown());  // so that nobody waits
    QCOMPARE(m_walled->view().page()->renderProcessPid(), 0);
    QVERIFY(!m_walled->view().showStyleOf(withText({}).toStdString()));
    // Whatever is to be shown next is.
    QVERIFY(m_walled->load(withText({}), true));
    QVERIFY(m_walled->isStill());
  }

  /// Loads overtake each other, and the engine's own way for texts ends at a megabyte.
  void showsTheLastOfManyDocuments() {
    const QString large = QStringLiteral("<!--%1-->").arg(QString(3 << 20, QLatin1Char('x')));
    for (const bool sameDocument : {true, false}) {
      for (int i = 0; i < 20; ++i) {
        m_walled->expectAnother();
        const QString text = QStringLiteral("%1<i>%2</i>").arg(i == 19 ? large : QString()).arg(i);
        m_walled->view().showDocument(withText(text).toStdString(), sameDocument);
        if (i % 3 == 0) QApplication::processEvents();
      }
      QVERIFY(m_walled->isShown());
      QVERIFY(comesTrue([&] {
        return inPage(m_walled->view(), QStringLiteral("document.querySelector('i').textContent"))
                   .toString() == QLatin1String("19");
      }));
    }
  }

  void putsAStyleInPlace() {
    const std::string document = samples::document(3, samples::blocks(2));
    const auto sized = [&](const std::string& size) {
      return samples::with(document, "font-size: 1.1em", "font-size: " + size);
    };
    const auto drawn = [&](const char* size) {
      return comesTrue([&] {
        return inPage(m_walled->view(), QStringLiteral("getComputedStyle(document.links[0]).fontSize"))
                   .toString() == QLatin1String(size);
      });
    };
    QVERIFY(m_walled->load(QString::fromStdString(document)));
    QVERIFY(m_walled->view().showStyleOf(sized("2em")));
    QVERIFY(drawn("32px"));
    // What a style could end with, or a text outside of it, needs a document that is read anew.
    QVERIFY(!m_walled->view().showStyleOf(sized("3em}</style><p>")));
    QVERIFY(!m_walled->view().showStyleOf(sized("3em}</STYLE ><p>")));
    QVERIFY(!m_walled->view().showStyleOf(samples::with(document, "Page 1", "Page 9")));
    QVERIFY(!m_walled->view().showStyleOf(samples::with(document, "<title>", "<title>x")));
    QVERIFY(drawn("32px"));
  }

 private:
  std::unique_ptr<WalledView> m_walled;
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::WebViewTest>(argc, argv);
}

#include "web_view_test.moc"
