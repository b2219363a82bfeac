#include "export_steps.h"

#include <QStatusBar>
#include <QTimer>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"

namespace window_tests {

using platform::toQString;

std::string xmlSitemap(int pages) {
  std::string text(sitemaps::kXmlHeader);
  for (int i = 0; i < pages; ++i) text += sitemaps::xmlEntry("http://shop.test/" + std::to_string(i), "");
  return text + std::string(sitemaps::kXmlClosing);
}

std::string recordOf(int pages) {
  return "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\n<pagesUsed>" +
         std::to_string(pages) + "</pagesUsed>\n";
}

ExportDesk::ExportDesk(const std::string& record, int pages) {
  makeSite("Shop", "http://shop.test/", record);
  writeFile("Shop", "sitemap.xml", xmlSitemap(pages));
  writeFile("Shop", "badLinks.txt", "http://shop.test/a\nhttp://shop.test/b\n");
  for (const char* file : kLayoutFiles)
    writeFile("Shop", file, file + sitemaps::pageEntry("http://h/", 1, "T") + "\n");
  open();
  select(kShop);
  go("exportTBI");
}

QString ExportDesk::path(const std::string& name) const {
  return toQString((folder() / name).native());
}

std::string ExportDesk::read(const std::string& name) const {
  const platform::FileContent content = platform::readFile(folder() / name);
  return content.result.ok() ? content.text : "(missing)";
}

bool ExportDesk::nothingWritten() const {
  return platform::filesBelow(folder()).empty();
}

QString ExportDesk::status() const {
  return window().statusBar()->currentMessage();
}

QFileDialog* fileDialog() {
  const auto isUp = [] { return qobject_cast<QFileDialog*>(topSheet()) != nullptr; };
  return comesTrue(isUp) ? qobject_cast<QFileDialog*>(topSheet()) : nullptr;
}

QLineEdit& nameField(QFileDialog& dialog) {
  return platform::control<QLineEdit>(dialog, "fileNameEdit");
}

bool enterName(QFileDialog* dialog, const QString& name) {
  if (dialog == nullptr) return false;
  nameField(*dialog).setText(name);
  QTest::keyClick(&nameField(*dialog), Qt::Key_Return);
  return true;
}

bool dismiss(QDialog* dialog) {
  if (dialog == nullptr) return false;
  pressEscape(*dialog);
  return noSheetLeft();
}

void answerWhenAsked(QMessageBox::StandardButton button, bool& asked) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, qApp, [timer, button, &asked] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box->button(button) == nullptr) return;
    asked = true;
    timer->deleteLater();
    box->button(button)->click();
  });
  timer->start(10);
}

}  // namespace window_tests
