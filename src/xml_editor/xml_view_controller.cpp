#include "xml_editor/xml_view_controller.h"

#include <QLocale>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt_text.h"
#include "sitemaps/former_set.h"
#include "sitemaps/xml_format.h"
#include "store/site_list.h"
#include "xml_editor/menu_values.h"

namespace xml_editor {

using platform::toQString;
using platform::toUtf8;

namespace {

constexpr int kXmlView = 4;

QString countText(int count) {
  return QLocale().toString(count);
}

/// The column of an element, the address for every other.
int columnOf(std::string_view element) {
  for (const Field field : kFields) {
    if (element == elementName(field)) return static_cast<int>(field);
  }
  return static_cast<int>(Field::loc);
}

}  // namespace

XMLViewController::XMLViewController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                     const store::GlobalControls& controls,
                                     const store::StateFolder& stateFolder, store::SharedState& state)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_state(state),
      m_found(m_model),
      m_view{mainWindow},
      m_findings(mainWindow) {
  buildTable();
  buildCells();
  buildMenus();
  buildContextMenu();
  connectCommands();
  m_view.xmlNotice.hide();
  enableCommands();
}

void XMLViewController::connectCommands() {
  connect(&m_view.delLinkButton, &QPushButton::clicked, this, &XMLViewController::delLinkAction);
  connect(&m_view.validateXmlButton, &QPushButton::clicked, this, &XMLViewController::validate);
  connect(&m_view.xmlScanButton, &QPushButton::clicked, this, [this] {
    m_view.scanTBI.trigger();
    if (!m_state.qzvskCurSite.empty()) m_view.scanMI.trigger();
  });
  connect(&m_view.takeOverMI, &QAction::triggered, this, &XMLViewController::takeOverValues);
  connect(&m_view.validateXmlMI, &QAction::triggered, this, &XMLViewController::validate);
  connect(&m_view.xmlSearch, &QLineEdit::textChanged, this, &XMLViewController::search);
  connect(&m_view.findSiteMI, &QAction::triggered, this, [this] {
    if (m_state.qzvskCurrentView == kXmlView) m_view.xmlSearch.setFocus();
  });
  // A sheet that came up while a cell's editor is at work would take the focus from it, and be asked for
  // again.
  connect(&m_model, &XmlTableModel::notSaved, this, &XMLViewController::tell, Qt::QueuedConnection);
  connect(&m_model, &XmlTableModel::saved, this, [this] {
    m_findings.validateSoonAgain();
    showContents();
    emit report(tr("Saved %1").arg(toQString(sitemaps::kXmlSitemapFile)));
  });
  connect(&m_findings, &FindingsPanel::wanted, this, &XMLViewController::jumpTo);
}

void XMLViewController::viewTBIAction(int number) {
  if (number != kXmlView) return enableCommands();
  m_mainWindow.setWindowTitle(toQString(m_state.qzvskWinTit));
  createTableContent();
  m_view.xmlTableView.setFocus();
}

void XMLViewController::siteChanged() {
  if (m_state.qzvskCurrentView == kXmlView) createTableContent();
}

void XMLViewController::createTableContent() {
  m_findings.close();
  std::filesystem::path file;
  if (!m_state.qzvskCurSite.empty())
    file = m_controls.siteFolder(m_state.qzvskCurSite) / sitemaps::kXmlSitemapFile;
  // What was searched for in one site means nothing in the next.
  if (m_model.sitemap().file() != file) m_view.xmlSearch.clear();
  m_model.load(file);
  showContents();
  enableCommands();
}

void XMLViewController::showContents() {
  const XmlSitemap& sitemap = m_model.sitemap();
  const QString site = toQString(m_state.qzvskCurSite);
  switch (sitemap.contents()) {
    case Contents::none:
      return showEmpty(tr("Select a site to see its XML sitemap."));
    case Contents::missing:
      return showEmpty(tr("%1 has no XML sitemap yet. A scan writes it.").arg(site));
    case Contents::unreadable:
      return showEmpty(
          tr("The XML sitemap of %1 cannot be read: %2").arg(site, toQString(sitemap.readError())));
    case Contents::noEntries:
      return showEmpty(tr("The XML sitemap of %1 has no entries.").arg(site));
    case Contents::entries:
      break;
  }
  m_view.xmlArea.setCurrentWidget(&m_view.xmlTablePage);
  m_view.xmlNotice.setText(
      tr("This sitemap holds elements that Veskel does not edit. The first change drops them."));
  m_view.xmlNotice.setVisible(sitemap.otherElements());
  showCount();
}

void XMLViewController::showEmpty(const QString& why) {
  m_findings.close();
  m_view.xmlEmptyHint.setText(why);
  const bool hasSite = !m_state.qzvskCurSite.empty();
  m_view.xmlScanButton.setText(hasSite ? tr("S&can Site") : tr("Si&tes"));
  m_view.xmlScanButton.setAccessibleName(hasSite ? tr("Scan Site") : tr("Sites"));
  m_view.xmlWindowViewFolder.setVisible(hasSite);
  m_view.xmlArea.setCurrentWidget(&m_view.xmlEmptyPage);
}

void XMLViewController::showCount() {
  const int all = m_model.rowCount();
  const int found = m_found.rowCount();
  QString text = tr("%Ln entry(s)", nullptr, all);
  if (m_found.searches()) {
    text = found == 0 ? tr("Not found in %1").arg(text) : tr("%1 of %2").arg(countText(found), text);
  }
  m_view.xmlCount.setText(text);
}

/// When the search hides the selected entry none is selected.
void XMLViewController::search(const QString& text) {
  const QModelIndex selected = m_model.index(selectedRow(), m_view.xmlTableView.currentIndex().column());
  m_found.search(text);
  const QModelIndex shown = m_found.mapFromSource(selected);
  m_view.xmlTableView.setCurrentIndex(shown);
  if (shown.isValid()) m_view.xmlTableView.scrollTo(shown);
  enableCommands();
  showCount();
}

void XMLViewController::enableCommands() {
  const bool shown = m_state.qzvskCurrentView == kXmlView;
  const bool selected = shown && selectedRow() >= 0;
  for (QAction* action : m_view.xmlTableView.actions()) action->setEnabled(selected);
  m_view.delLinkButton.setEnabled(selected);
  m_view.delLinkButton.setToolTip(selected ? tr("Delete the selected entry") : tr("Select an entry first"));
  const bool hasEntries = shown && m_model.rowCount() > 0;
  m_view.validateXmlMI.setEnabled(hasEntries);
  m_view.takeOverMI.setEnabled(hasEntries && platform::somethingAt(formerSitemap()));
}

void XMLViewController::cfMenuChangeUpdates(std::string_view value) {
  if (selectedRow() >= 0) m_model.choose(selectedRow(), Field::changefreq, value);
}

void XMLViewController::priorityMenuChangeUpdates(std::string_view value) {
  if (selectedRow() >= 0) m_model.choose(selectedRow(), Field::priority, value);
}

void XMLViewController::delLinkAction() {
  if (selectedRow() < 0) return;
  m_sheets.ask(tr("Do you really want to delete the selected link?\nDeleting links cannot be undone!"),
               platform::shortened(selectedUrl()), tr("Delete Link"), tr("Cancel"), [this](bool agreed) {
                 if (agreed) deleteSelected();
               });
}

/// The entry that follows is selected then, at the same place of the window.
void XMLViewController::deleteSelected() {
  const int row = selectedRow();
  if (row < 0) return;
  const QModelIndex cell = m_view.xmlTableView.currentIndex();
  const int scrolled = m_view.xmlTableView.verticalScrollBar()->value();
  m_model.remove(row);
  m_view.xmlTableView.verticalScrollBar()->setValue(scrolled);
  const int next = std::min(cell.row(), m_found.rowCount() - 1);
  if (next >= 0) m_view.xmlTableView.setCurrentIndex(m_found.index(next, cell.column()));
  enableCommands();
}

std::filesystem::path XMLViewController::formerSitemap() const {
  return sitemaps::FormerSet(m_controls, m_stateFolder, m_state.qzvskCurSite).xmlSitemap();
}

void XMLViewController::takeOverValues() {
  const platform::FileContent former = platform::readFile(formerSitemap());
  if (!former.result.ok()) {
    m_sheets.alert(tr("The previous sitemap cannot be read."), toQString(former.result.error));
    return;
  }
  sitemaps::EditedValues values;
  values.add(former.text);
  const std::optional<int> count = m_model.takeOver(values);
  if (!count) return;
  emit report(*count == 0 ? tr("No edited values of the previous sitemap are missing in this one")
                          : tr("Took over %Ln edited value(s) of the previous sitemap", nullptr, *count));
}

void XMLViewController::validate() {
  const std::string url = store::readSite(m_controls, m_state.qzvskCurSite).details.url;
  m_findings.validate(m_model.sitemap().file(), url);
}

void XMLViewController::jumpTo(const sitemaps::XmlFinding& finding) {
  if (finding.entry == 0) return;
  selectRow(static_cast<int>(finding.entry) - 1, columnOf(finding.element));
}

void XMLViewController::tell(const Change& change) {
  if (change.status == ChangeStatus::incomplete) selectRow(static_cast<int>(change.row), 0);
  const QString message = toQString(change.message);
  if (change.question() == Question::none) return m_sheets.alert(message);
  m_sheets.ask(message, {}, tr("Show It Anew"), tr("Cancel"), [this](bool agreed) {
    if (agreed) createTableContent();
  });
}

/// By its place in the sitemap; a search that hides it ends.
void XMLViewController::selectRow(int row, int column) {
  const QModelIndex cell = m_model.index(row, column);
  if (!cell.isValid()) return;
  if (!m_found.mapFromSource(cell).isValid()) m_view.xmlSearch.clear();
  const QModelIndex shown = m_found.mapFromSource(cell);
  m_view.xmlTableView.setCurrentIndex(shown);
  m_view.xmlTableView.scrollTo(shown, QAbstractItemView::PositionAtCenter);
  m_view.xmlTableView.setFocus();
}

/// Of the sitemap, not of the table, which may show a part of it; -1 for none.
int XMLViewController::selectedRow() const {
  const QModelIndexList rows = m_view.xmlTableView.selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : m_found.mapToSource(rows.first()).row();
}

QString XMLViewController::selectedUrl() const {
  return m_model.index(selectedRow(), static_cast<int>(Field::loc)).data().toString();
}

}  // namespace xml_editor
