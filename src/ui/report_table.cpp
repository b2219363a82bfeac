#include "ui/report_table.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "platform/address_actions.h"
#include "platform/named_controls.h"
#include "ui/sorted_table.h"

namespace ui {

namespace {

constexpr int kLeastAddressLetters = 24;

/// Addresses lose their middle, which tells least, and other texts their end.
class ReportDelegate : public QStyledItemDelegate {
 public:
  ReportDelegate(const ReportModel& model, QObject* parent) : QStyledItemDelegate(parent), m_model(model) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != m_model.addressColumn()) option->textElideMode = Qt::ElideRight;
  }

 private:
  const ReportModel& m_model;
};

/// Gives the addresses what the others leave. Where that is little, other texts make room down to a
/// half, until the user chooses widths.
class FittedColumns : public QObject {
 public:
  FittedColumns(QTableView& table, const ReportModel& model)
      : QObject(&table),
        m_table(table),
        m_header(*table.horizontalHeader()),
        m_model(model),
        m_wide(std::max(0, model.addressColumn())) {
    m_header.setMinimumSectionSize(4 * letter());
    for (int i = 0; i < model.columnCount(); ++i)
      m_header.setSectionHidden(i, model.columns()[static_cast<std::size_t>(i)].isHiddenAtFirst);
    fit();
    table.viewport()->installEventFilter(this);
    connect(&m_header, &QHeaderView::sectionResized, this, [this](int, int before, int now) {
      if (m_isFitting) return;
      m_isChosen = m_isChosen || (before != 0 && now != 0);  // else a column was hidden or shown
      fit();
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) fit();
    return QObject::eventFilter(watched, event);
  }

 private:
  int letter() const { return m_table.fontMetrics().averageCharWidth(); }
  int lettersOf(int column) const { return m_model.columns()[static_cast<std::size_t>(column)].letters; }
  int least(int column) const {
    return std::max(m_header.sectionSizeHint(column) + letter(), lettersOf(column) * letter() / 2);
  }
  int wanted(int column) const { return std::max(least(column), lettersOf(column) * letter()); }

  void fit() {
    m_isFitting = true;
    int leastWidth = kLeastAddressLetters * letter();
    int yielding = 0;
    for (int i = 0; i < m_model.columnCount(); ++i) {
      if (i == m_wide || m_header.isSectionHidden(i)) continue;
      leastWidth += m_isChosen ? m_header.sectionSize(i) : least(i);
      yielding += wanted(i) - least(i);
    }
    const int room = m_table.viewport()->width() - leastWidth;
    for (int i = 0; i < m_model.columnCount() && !m_isChosen; ++i) {
      if (i == m_wide || m_header.isSectionHidden(i)) continue;
      const int more = wanted(i) - least(i);
      m_header.resizeSection(
          i, least(i) + (room < yielding && yielding > 0 ? more * std::max(0, room) / yielding : more));
    }
    m_header.setSectionResizeMode(m_wide, room < 0 ? QHeaderView::Interactive : QHeaderView::Stretch);
    if (room < 0) m_header.resizeSection(m_wide, kLeastAddressLetters * letter());
    m_isFitting = false;
  }

  QTableView& m_table;
  QHeaderView& m_header;
  const ReportModel& m_model;
  const int m_wide;
  bool m_isFitting = false;
  bool m_isChosen = false;  // by the user
};

}  // namespace

void setUpReportTable(QTableView& table, ReportModel& model) {
  table.setModel(&model);
  table.setItemDelegate(new ReportDelegate(model, &table));
  sortByHeadings(table);
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setEditTriggers(QAbstractItemView::NoEditTriggers);
  table.setShowGrid(false);
  table.setAlternatingRowColors(true);
  table.setWordWrap(false);
  table.setTextElideMode(Qt::ElideMiddle);
  table.setTabKeyNavigation(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() * 3 / 2);
  table.horizontalHeader()->setHighlightSections(false);
  new FittedColumns(table, model);
  platform::addAddressActions(table, [&table, &model] { return selectedAddresses(table, model); });
  auto& copy = platform::control<QAction>(table, platform::kCopySelection);
  copy.setShortcut(QKeySequence::Copy);
  copy.setShortcutContext(Qt::WidgetShortcut);
  auto& open = platform::control<QAction>(table, platform::kOpenSelection);
  if (model.addressColumn() >= 0) {
    // Links lead to mail addresses, too. Its other handler was there first, so this one has the last word.
    const auto enable = [&table, &model, &open] {
      const QStringList addresses = selectedAddresses(table, model);
      open.setEnabled(!addresses.isEmpty() && platform::isForBrowser(addresses.first()));
    };
    QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, &open, enable);
  } else {
    copy.setText(QObject::tr("&Copy"));
    table.removeAction(&open);
  }
}

QStringList selectedAddresses(const QTableView& table, const ReportModel& model) {
  const int column = std::max(0, model.addressColumn());
  QList<int> places;
  for (const QModelIndex& index : table.selectionModel()->selectedRows(column)) places.append(index.row());
  std::sort(places.begin(), places.end());
  QStringList texts;
  for (const int place : places) texts.append(model.textAt(model.rowAt(place), column));
  return texts;
}

QAction& addRowAction(QTableView& table, const QString& text) {
  auto* action = new QAction(text, &table);
  action->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
  action->setShortcutContext(Qt::WidgetShortcut);
  table.addAction(action);
  QObject::connect(&table, &QTableView::doubleClicked, action, [action] { action->trigger(); });
  const auto enable = [&table, action] { action->setEnabled(table.selectionModel()->hasSelection()); };
  QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, action, enable);
  QObject::connect(table.model(), &QAbstractItemModel::modelReset, action, enable);
  enable();
  return *action;
}

std::vector<ReportColumn> linkingColumns() {
  return {{QObject::tr("Page"), ReportColumn::Kind::address},
          {.heading = QObject::tr("Text of the Link"), .letters = 44}};
}

void showLinks(ReportModel& model, std::shared_ptr<const std::vector<report::LinkingPage>> links) {
  const std::size_t count = links == nullptr ? 0 : links->size();
  const auto* all = links.get();
  model.setRows(
      count,
      [all](std::size_t row, int column) {
        return ReportCell{column == 0 ? (*all)[row].address : (*all)[row].name};
      },
      std::move(links));
}

}  // namespace ui
