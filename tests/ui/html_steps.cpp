#include "html_steps.h"

#include <QProgressBar>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <memory>

#include "sitemaps/html_format.h"

namespace window_tests {

namespace {

/// The document that a scan would have written.
std::string documentOf(const sitemaps::Layout& layout, const std::vector<samples::Block>& blocks) {
  if (layout.listing == sitemaps::Listing::allLinks) return samples::document(layout.columns, blocks);
  std::vector<samples::Block> pages;
  for (const samples::Block& block : blocks) pages.push_back({block.front()});
  return samples::document(layout.columns, pages);
}

}  // namespace

QVariant inPage(QWebEngineView& view, const QString& script) {
  // Shared, since the answer may come when nobody waits any longer.
  const auto answer = std::make_shared<std::pair<bool, QVariant>>(false, QVariant());
  view.page()->runJavaScript(script, QWebEngineScript::ApplicationWorld, [answer](const QVariant& value) {
    *answer = {true, value};
  });
  if (!comesTrue([&] { return answer->first; })) qWarning("The page does not answer");
  return answer->second;
}

std::string edited(const std::string& document) {
  return samples::with(document, "font-style: normal;\n\t\tcolor: #000000",
                       "font-style: italic;\n\t\tcolor: #000000");
}

HtmlDesk::HtmlDesk(const std::vector<samples::Block>& blocks) : m_blocks(blocks) {
  makeSite("Shop", "http://a.test/");
  if (!blocks.empty()) writeDocuments(blocks);
}

void HtmlDesk::writeDocuments(const std::vector<samples::Block>& blocks) const {
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    writeFile("Shop", std::string(layout.fileName), documentOf(layout, blocks));
  }
}

void HtmlDesk::openAt(int view) {
  open();
  select(kShop);
  go(view);
  if (!shown()) qWarning("The sitemap is not shown");
}

bool HtmlDesk::shown() const {
  return comesTrue([this] { return control<QProgressBar>("sitemapBusy").isHidden(); });
}

bool HtmlDesk::tellsOfChanges(bool unsaved) const {
  return window().state().qzvskNeedsSave == unsaved && enabled("saveChangesButton") == unsaved &&
         enabled("saveMI") == unsaved;
}

bool HtmlDesk::inPageComesTrue(const QString& script) const {
  return comesTrue([&] { return inPage(script).toBool(); });
}

bool HtmlDesk::choose(const char* popup, const QString& item) const {
  auto& box = control<QComboBox>(popup);
  const int index = box.findText(item);
  if (index < 0 || !box.isEnabled() || !box.isVisible() || topSheet() != nullptr) {
    qWarning("%s cannot be chosen in %s", qPrintable(item), popup);
    return false;
  }
  box.setFocus();
  box.setCurrentIndex(index);
  emit box.activated(index);
  return true;
}

bool HtmlDesk::type(const char* name, const QString& text) const {
  QLineEdit& edit = field(name);
  if (!edit.isEnabled() || !edit.isVisible() || topSheet() != nullptr) {
    qWarning("Nothing can be typed into %s", name);
    return false;
  }
  edit.setFocus();
  edit.selectAll();
  if (text.isEmpty()) QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
  QTest::keyClick(&edit, Qt::Key_Return);
  return true;
}

bool HtmlDesk::clickLink(const QString& label) const {
  const QVariant clicked = inPage(QStringLiteral("{ const link = Array.from(document.links)"
                                                 ".find(each => each.textContent.includes('%1'));"
                                                 "link && link.click(); link && link.textContent }")
                                      .arg(label));
  return !clicked.isNull() && comesTrue([&] { return text("titleEditInput") == clicked.toString(); });
}

bool HtmlDesk::nothingIsSelected() const {
  return text("titleEditInput").isEmpty() && text("linkEditInput").isEmpty() && !enabled("titleEditInput") &&
         !enabled("linkEditInput") && !enabled("deleteButton");
}

bool HtmlDesk::othersAreUntouched(const std::string& file) const {
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    const std::string name(layout.fileName);
    if (name != file && onDisk(name) != documentOf(layout, m_blocks)) return false;
  }
  return true;
}

}  // namespace window_tests
