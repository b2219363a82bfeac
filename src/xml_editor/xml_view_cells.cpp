// The table of the view, its pop-up cells and its menus.
#include <QActionGroup>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "platform/address_actions.h"
#include "platform/qt_text.h"
#include "xml_editor/cell_delegates.h"
#include "xml_editor/menu_values.h"
#include "xml_editor/xml_view_controller.h"

namespace xml_editor {

using platform::toQString;
using platform::translated;

namespace {

constexpr int kFrequencyColumn = static_cast<int>(Field::changefreq);
constexpr int kPriorityColumn = static_cast<int>(Field::priority);

bool hasMenu(const QModelIndex& cell) {
  return cell.isValid() && (cell.column() == kFrequencyColumn || cell.column() == kPriorityColumn);
}

}  // namespace

void XMLViewController::buildTable() {
  m_view.xmlTableView.setModel(&m_found);
  m_view.xmlTableView.installEventFilter(this);
  m_view.xmlTableView.setCornerButtonEnabled(false);
  QHeaderView* numbers = m_view.xmlTableView.verticalHeader();
  // One height for all, so that a long table opens as fast as a short one.
  numbers->setSectionResizeMode(QHeaderView::Fixed);
  numbers->setDefaultAlignment(Qt::AlignCenter);  // at their right end they would touch the addresses
  numbers->setHighlightSections(false);
  QHeaderView* header = m_view.xmlTableView.horizontalHeader();
  header->setHighlightSections(false);
  // A third click on a heading leads back to the order of the sitemap.
  header->setSortIndicatorClearable(true);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  m_view.xmlTableView.setSortingEnabled(true);
  header->setSectionResizeMode(static_cast<int>(Field::loc), QHeaderView::Stretch);
  const int character = m_view.xmlTableView.fontMetrics().averageCharWidth();
  numbers->setMinimumWidth(character * 4);
  const auto widen = [header, character](int column, int letters) {
    header->resizeSection(column, std::max(header->sectionSizeHint(column), character * letters));
  };
  widen(static_cast<int>(Field::lastmod), 17);
  widen(kFrequencyColumn, 22);
  widen(kPriorityColumn, 14);
  connect(m_view.xmlTableView.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &XMLViewController::enableCommands);
}

void XMLViewController::buildCells() {
  m_view.xmlTableView.setItemDelegate(new TextCell(&m_view.xmlTableView));
  const auto popUpCell = [this](const char* name, int column) {
    auto* cell = new PopUpCell(&m_view.xmlTableView);
    cell->setObjectName(QLatin1String(name));
    m_view.xmlTableView.setItemDelegateForColumn(column, cell);
    connect(cell, &PopUpCell::menuWanted, this, &XMLViewController::popUpMenu);
  };
  popUpCell("cfPopCell", kFrequencyColumn);
  popUpCell("priPopCell", kPriorityColumn);
}

void XMLViewController::buildMenus() {
  fillMenu(m_view.chFreqMenu, Field::changefreq);
  fillMenu(m_view.prMenu, Field::priority);
}

void XMLViewController::fillMenu(QMenu& menu, Field field) {
  auto* group = new QActionGroup(&menu);
  group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  const auto add = [&](const MenuValue& choice) {
    QAction* action = menu.addAction(translated(choice.title));
    action->setObjectName(toQString(choice.action));
    action->setData(toQString(choice.value));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, field, value = choice.value] {
      field == Field::changefreq ? cfMenuChangeUpdates(value) : priorityMenuChangeUpdates(value);
    });
  };
  if (field == Field::changefreq) std::for_each(kFrequencyMenu.begin(), kFrequencyMenu.end(), add);
  if (field == Field::priority) std::for_each(kPriorityMenu.begin(), kPriorityMenu.end(), add);
  connect(&menu, &QMenu::aboutToShow, this, [this, group, field] { markChosen(*group, field); });
}

void XMLViewController::buildContextMenu() {
  QAction& edit = m_view.editEntryMI;
  QAction& remove = m_view.delLinkMI;
  // These keys belong to the table alone: elsewhere they mean something else.
  edit.setShortcut(Qt::Key_F2);
  edit.setShortcutContext(Qt::WidgetShortcut);
  remove.setShortcut(QKeySequence::Delete);
  remove.setShortcutContext(Qt::WidgetShortcut);
  const auto separator = [this] {
    auto* line = new QAction(&m_view.xmlTableView);
    line->setSeparator(true);
    return line;
  };
  m_view.xmlTableView.addActions(
      {&edit, m_view.chFreqMenu.menuAction(), m_view.prMenu.menuAction(), separator()});
  platform::addAddressActions(
      m_view.xmlTableView, [this] { return selectedRow() < 0 ? QStringList() : QStringList(selectedUrl()); });
  m_view.xmlTableView.addActions({separator(), &m_view.takeOverMI, separator(), &remove});
  connect(&edit, &QAction::triggered, this, &XMLViewController::editCell);
  connect(&remove, &QAction::triggered, this, &XMLViewController::delLinkAction);
}

void XMLViewController::markChosen(QActionGroup& group, Field field) const {
  const int row = selectedRow();
  const MenuValue* chosen =
      row < 0 ? nullptr : chosenValue(m_model.sitemap().rows()[static_cast<std::size_t>(row)], field);
  for (QAction* action : group.actions()) {
    action->setChecked(chosen != nullptr && action->objectName() == toQString(chosen->action));
  }
}

void XMLViewController::editCell() {
  const QModelIndex cell = m_view.xmlTableView.currentIndex();
  if (!cell.isValid()) return;
  m_view.xmlTableView.scrollTo(cell);
  if (hasMenu(cell)) {
    popUpMenu(cell);
  } else {
    m_view.xmlTableView.edit(cell);
  }
}

void XMLViewController::popUpMenu(const QModelIndex& cell) {
  m_view.xmlTableView.setCurrentIndex(cell);
  QMenu& menu = cell.column() == kFrequencyColumn ? m_view.chFreqMenu : m_view.prMenu;
  const QRect place = m_view.xmlTableView.visualRect(cell);
  menu.popup(m_view.xmlTableView.viewport()->mapToGlobal(place.bottomLeft()));
  for (QAction* action : menu.actions()) {
    if (action->isChecked()) menu.setActiveAction(action);
  }
}

bool XMLViewController::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool opens = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
                     key->key() == Qt::Key_Space ||
                     (key->key() == Qt::Key_Down && key->modifiers().testFlag(Qt::AltModifier));
  const QModelIndex cell = m_view.xmlTableView.currentIndex();
  if (!opens || !hasMenu(cell)) return QObject::eventFilter(watched, event);
  editCell();
  return true;
}

}  // namespace xml_editor
