#include "ui/report_tab.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLocale>
#include <QMenu>
#include <QSet>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "ui/report_table.h"

namespace ui {

ReportTab::ReportTab(const Names& names, std::vector<ReportColumn> columns,
                     std::vector<ReportColumn> detailColumns)
    : m_rows(std::move(columns)),
      m_details(std::move(detailColumns)),
      m_search(new QLineEdit),
      m_chooserLabel(new QLabel(tr("Sho&w"))),
      m_chooser(new QComboBox),
      m_count(new QLabel),
      m_table(new QTableView(this)),
      m_narrowedHint(tr("Nothing was found.")),
      m_detailText(new QLabel),
      m_detailTable(new QTableView(this)) {
  setUpReportTable(*m_table, m_rows);
  m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
  m_table->setObjectName(names.object + QStringLiteral("Table"));
  m_table->setAccessibleName(names.table);
  m_hint = new EmptyHint(*m_table);

  auto* split = new QSplitter(Qt::Vertical);
  split->setChildrenCollapsible(false);
  split->addWidget(m_table);
  split->addWidget(makeDetails(names));
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 2);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(makeTop(names));
  layout->addWidget(split, 1);
  QWidget::setTabOrder(m_search, m_chooser);
  QWidget::setTabOrder(m_chooser, m_table);
  QWidget::setTabOrder(m_table, m_detailTable);

  connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
    m_rows.search(text);
    emit narrowed();
  });
  connect(m_chooser, &QComboBox::currentIndexChanged, this, [this](int choice) {
    if (choice < 0) return;
    m_rows.choose(m_choices[static_cast<std::size_t>(choice)].second);
    emit narrowed();
  });
  connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ReportTab::rowSelected);
  connect(&m_rows, &QAbstractItemModel::modelAboutToBeReset, this, &ReportTab::rememberSelection);
  connect(&m_rows, &QAbstractItemModel::modelReset, this, [this] {
    countRows();
    restoreSelection();
    emit rowSelected();
  });
  countRows();
}

QWidget* ReportTab::makeTop(const Names& names) {
  auto* top = new QWidget;
  auto* layout = new QHBoxLayout(top);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(tr("&Search"));
  label->setBuddy(m_search);
  m_search->setObjectName(names.object + QStringLiteral("Search"));
  m_search->setClearButtonEnabled(true);
  m_chooserLabel->setBuddy(m_chooser);
  m_chooser->setObjectName(names.object + QStringLiteral("Chooser"));
  m_chooserLabel->hide();
  m_chooser->hide();
  layout->addWidget(label);
  layout->addWidget(m_search, 1);
  layout->addWidget(m_chooserLabel);
  layout->addWidget(m_chooser);
  layout->addWidget(m_count);
  return top;
}

QWidget* ReportTab::makeDetails(const Names& names) {
  auto* below = new QWidget;
  auto* layout = new QVBoxLayout(below);
  layout->setContentsMargins(0, 0, 0, 0);
  m_detailText->setObjectName(names.object + QStringLiteral("DetailText"));
  m_detailText->setTextFormat(Qt::PlainText);
  m_detailText->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_detailText->setWordWrap(true);
  setUpReportTable(*m_detailTable, m_details);
  m_detailTable->setObjectName(names.object + QStringLiteral("Details"));
  m_detailTable->setAccessibleName(names.details);
  m_detailHint = new EmptyHint(*m_detailTable);
  layout->addWidget(m_detailText);
  layout->addWidget(m_detailTable, 1);
  using TableOf = std::pair<QTableView*, ReportModel*>;
  for (const auto& [table, model] :
       std::initializer_list<TableOf>{{m_table, &m_rows}, {m_detailTable, &m_details}}) {
    if (model->addressColumn() < 0) continue;
    connect(&addRowAction(*table, tr("Show in &Pages")), &QAction::triggered, this,
            [this, table = table, model = model] {
              const QStringList addresses = selectedAddresses(*table, *model);
              if (!addresses.isEmpty()) emit pageWanted(addresses.first());
            });
  }
  return below;
}

void ReportTab::setHead(QWidget* head) {
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, head);
  for (QWidget* each : head->findChildren<QWidget*>()) {
    if ((each->focusPolicy() & Qt::TabFocus) != 0) QWidget::setTabOrder(each, m_search);
  }
}

void ReportTab::setChoices(const std::vector<RowChoice>& choices) {
  const int former = m_chooser->currentIndex();
  {
    const QSignalBlocker quiet(m_chooser);
    m_choices = choices;
    m_chooser->clear();
    for (const auto& [text, rows] : choices) m_chooser->addItem(text);
    m_chooser->setVisible(choices.size() > 1);
    m_chooserLabel->setVisible(choices.size() > 1);
    // What somebody works through stays chosen when the site was scanned once more.
    m_chooser->setCurrentIndex(former < m_chooser->count() ? std::max(0, former) : 0);
  }
  m_rows.choose(m_choices[static_cast<std::size_t>(m_chooser->currentIndex())].second);
}

void ReportTab::offerColumns() {
  auto* button = new QToolButton;
  button->setObjectName(QStringLiteral("columnsButton"));
  button->setText(tr("Colu&mns"));
  button->setPopupMode(QToolButton::InstantPopup);
  button->setFocusPolicy(Qt::TabFocus);
  auto* menu = new QMenu(button);
  button->setMenu(menu);
  QHeaderView* header = m_table->horizontalHeader();
  for (int i = 0; i < m_rows.columnCount(); ++i) {
    if (i == m_rows.addressColumn()) continue;  // without it nobody knows what a row is about
    QAction* action = menu->addAction(m_rows.columns()[static_cast<std::size_t>(i)].heading);
    action->setCheckable(true);
    connect(action, &QAction::toggled, header, [header, i](bool on) { header->setSectionHidden(i, !on); });
    const auto mark = [action, header, i] { action->setChecked(!header->isSectionHidden(i)); };
    connect(menu, &QMenu::aboutToShow, action, mark);
  }
  m_chooser->parentWidget()->layout()->addWidget(button);
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, menu,
          [header, menu](const QPoint& place) { menu->popup(header->mapToGlobal(place)); });
}

void ReportTab::setHint(const QString& sentence) {
  m_emptyHint = sentence;
  showHint();
}

void ReportTab::setNarrowedHint(const QString& sentence) {
  m_narrowedHint = sentence;
  showHint();
}

void ReportTab::showHint() {
  m_hint->setText(m_rows.count() == 0 ? m_emptyHint : m_narrowedHint);
}

void ReportTab::setDetailText(const QString& sentence) {
  m_detailText->setText(sentence);
  m_detailText->setVisible(!sentence.isEmpty());
}

void ReportTab::focusSearch() {
  m_search->setFocus();
  m_search->selectAll();
}

std::optional<std::size_t> ReportTab::selectedRow() const {
  const QModelIndexList selected = m_table->selectionModel()->selectedRows();
  if (selected.isEmpty()) return {};
  return m_rows.rowAt(selected.first().row());
}

void ReportTab::select(std::size_t row) {
  if (m_rows.placeOf(row) < 0) {
    m_search->clear();
    m_chooser->setCurrentIndex(0);
  }
  const QModelIndex index = m_rows.index(m_rows.placeOf(row), 0);
  m_table->setCurrentIndex(index);
  m_table->selectRow(index.row());
  m_table->scrollTo(index, QAbstractItemView::PositionAtCenter);
  m_table->setFocus();
}

void ReportTab::rememberSelection() {
  if (m_rows.rowCount() > 0) m_selected = selectedAddresses(*m_table, m_rows);
}

void ReportTab::restoreSelection() {
  if (m_selected.isEmpty()) return;
  const QSet<QString> wanted(m_selected.begin(), m_selected.end());
  const int column = std::max(0, m_rows.addressColumn());
  const QSignalBlocker quiet(this);
  QItemSelection selection;
  for (int place = 0; place < m_rows.rowCount(); ++place) {
    if (!wanted.contains(m_rows.textAt(m_rows.rowAt(place), column))) continue;
    selection.select(m_rows.index(place, 0), m_rows.index(place, m_rows.columnCount() - 1));
  }
  if (selection.isEmpty()) return;
  const QModelIndex first = selection.first().topLeft();
  m_table->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  m_table->scrollTo(first);
}

/// How many there are in all is told by the tab.
void ReportTab::countRows() {
  const auto numeral = [](auto number) { return QLocale().toString(static_cast<qulonglong>(number)); };
  const auto shown = static_cast<std::size_t>(m_rows.rowCount());
  m_count->setText(tr("%1 of %2").arg(numeral(shown), numeral(m_rows.count())));
  m_count->setHidden(shown == m_rows.count());
  showHint();
}

}  // namespace ui
