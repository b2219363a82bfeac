// How long the HTML sitemap takes on large documents: to open, to restyle, to edit, to scroll.
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QWebEngineScript>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>

#include "app/main_window.h"
#include "heartbeat.h"
#include "html_editor/sitemap_page.h"
#include "html_editor/sitemap_web_view.h"
#include "platform/files.h"
#include "platform/named_controls.h"
#include "sitemaps/html_format.h"
#include "store/add_edit_delete_sites.h"
#include "ui/icons.h"

namespace {

using html_editor::SitemapWebView;
using platform::control;

constexpr int kLinksOnAPage = 9;
constexpr int kSteps = 60;  // of scrolling
constexpr std::size_t kEdits = 7;
constexpr const char* kSite = "Large";

/// Three columns, all links.
std::string document(int entries) {
  constexpr int kColumns = 3;
  std::string text = sitemaps::documentOpening(kColumns);
  int cellsInRow = 0;
  for (int number = 0; number < entries;) {
    const std::string url = "http://www.example.test/folder/page" + std::to_string(number) + ".html";
    std::string block = sitemaps::pageEntry(url, number, "The title of page " + std::to_string(number));
    ++number;
    for (int i = 0; i < kLinksOnAPage; ++i, ++number) {
      sitemaps::appendLinkEntry(block, url + "#" + std::to_string(i), number,
                                "A link of an ordinary length, number " + std::to_string(number));
    }
    const sitemaps::Cell cell = sitemaps::wrapCell(block, kColumns, cellsInRow);
    text += cell.text;
    cellsInRow = cell.cellsInRow;
  }
  return text.append(sitemaps::documentClosing(kColumns, cellsInRow));
}

template <typename Condition>
void waitFor(const Condition& condition) {
  while (!condition()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QVariant inPage(QWebEngineView& view, const QString& script) {
  std::optional<QVariant> answer;
  view.page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                             [&](const QVariant& value) { answer = value; });
  waitFor([&] { return answer.has_value(); });
  return *answer;
}

double median(std::array<double, kEdits> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

class Viewer {
 public:
  explicit Viewer(app::MainWindow& window) : m_window(window) {}

  void open() {
    QElapsedTimer timer;
    timer.start();
    const Heartbeat heartbeat;
    control<QAction>(m_window, "htmlTBI").trigger();
    const bool busy = isBusy();
    waitFor([this] { return !isBusy(); });
    std::printf("  opened after %.0f ms, busy meanwhile: %s, the window was held up for at most %.0f ms\n",
                milliseconds(timer), busy ? "yes" : "no", heartbeat.longestMilliseconds());
  }

  void restyle() {
    std::array<double, kEdits> text{};
    std::array<double, kEdits> shown{};
    for (std::size_t i = 0; i < kEdits; ++i) {
      QElapsedTimer timer;
      timer.start();
      control<QCheckBox>(m_window, "ptItalicButton").click();
      text[i] = milliseconds(timer);
      inPage(view(), QStringLiteral("document.body.offsetHeight"));
      shown[i] = milliseconds(timer);
    }
    std::printf("  style edit: in the text after %.1f ms, laid out after %.0f ms\n", median(text),
                median(shown));
  }

  void scroll() {
    inPage(view(), QStringLiteral("{ let step = 0; const start = performance.now();"
                                  "  const next = () => { scrollTo(0, step * 2000);"
                                  "    if (++step < %1) requestAnimationFrame(next);"
                                  "    else document.body.dataset.took = performance.now() - start; };"
                                  "  requestAnimationFrame(next); }")
                       .arg(kSteps));
    QVariant took;
    waitFor([&] { return (took = inPage(view(), QStringLiteral("document.body.dataset.took"))).isValid(); });
    std::printf("  scrolling: %.1f ms a step\n", took.toDouble() / kSteps);
  }

  void editALink() {
    auto& title = control<QLineEdit>(m_window, "titleEditInput");
    inPage(view(), QStringLiteral("document.links[document.links.length / 2].click()"));
    waitFor([&] { return title.isEnabled(); });
    title.setText(QStringLiteral("Another title"));
    title.setModified(true);
    QElapsedTimer timer;
    timer.start();
    const Heartbeat heartbeat;
    emit title.returnPressed();
    const double saved = milliseconds(timer);
    waitFor([this] { return !isBusy(); });
    std::printf("  link edit: saved after %.0f ms, shown after %.0f ms\n", saved, milliseconds(timer));
  }

 private:
  SitemapWebView& view() const { return control<SitemapWebView>(m_window, "scanWebView"); }
  bool isBusy() const { return !control<QProgressBar>(m_window, "sitemapBusy").isHidden(); }

  app::MainWindow& m_window;
};

}  // namespace

int main(int argc, char** argv) {
  html_editor::prepareWebEngine();
  QApplication application(argc, argv);
  ui::loadIcons();
  const QTemporaryDir home;
  const store::GlobalControls controls(home.path().toStdString());
  const store::StateFolder stateFolder(home.filePath(QStringLiteral("state")).toStdString());
  if (!store::checkNeededFoldersExist(controls).ok()) return 1;
  static_cast<void>(
      store::AddEditDeleteSites(controls, stateFolder).createNewSite(kSite, "http://www.example.test/"));
  app::MainWindow window(controls, stateFolder);
  window.show();
  control<QTableView>(window, "siteListTable").selectRow(0);
  QTimer wake;  // so that waiting looks now and then
  wake.start(1);
  // The first time the engine starts, too.
  for (const int entries : {100, 10'000, 50'000}) {
    const std::string text = document(entries);
    if (!platform::replaceFile(controls.siteFolder(kSite) / "sitemap3c.html", text).ok()) return 1;
    std::printf("%d entries, %.1f MB\n", entries, static_cast<double>(text.size()) / 1e6);
    control<QAction>(window, "scanTBI").trigger();
    Viewer viewer(window);
    viewer.open();
    viewer.restyle();
    viewer.scroll();
    viewer.editALink();
  }
  return 0;
}
