#include "crawler/filter_controller.h"

#include <QHeaderView>
#include <algorithm>

#include "platform/qt_text.h"
#include "store/filters_file.h"

namespace crawler {

using platform::toQString;

FilterController::FilterController(const QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                   const store::GlobalControls& controls, store::SharedState& state)
    : m_sheets(sheets), m_controls(controls), m_state(state), m_drawer{mainWindow} {
  m_drawer.filterTable.setModel(&m_model);
  m_drawer.filterTable.horizontalHeader()->hide();
  m_drawer.filterTable.horizontalHeader()->setStretchLastSection(true);
  m_drawer.filterTable.verticalHeader()->hide();
  QAction& remove = m_drawer.deleteFilterMI;
  remove.setShortcut(QKeySequence::Delete);  // elsewhere it deletes something else
  remove.setShortcutContext(Qt::WidgetShortcut);
  m_drawer.filterTable.addAction(&remove);
  m_drawer.filterTable.setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(&remove, &QAction::triggered, this, &FilterController::deleteFilter);
  const auto enable = [this, &remove] {
    remove.setEnabled(m_drawer.filterTable.selectionModel()->hasSelection());
  };
  connect(m_drawer.filterTable.selectionModel(), &QItemSelectionModel::selectionChanged, this, enable);
  connect(&m_model, &QAbstractItemModel::modelReset, this, enable);
  connect(&m_drawer.addFilterButton, &QPushButton::clicked, this, &FilterController::addFilterCommand);
  connect(&m_drawer.delFilterButton, &QPushButton::clicked, this, &FilterController::deleteFilter);
  connect(&m_drawer.newFilterInput, &QLineEdit::returnPressed, this, &FilterController::addFilterCommand);
}

void FilterController::loadFilterFile() {
  const std::string& site = m_state.qzvskCurSite;
  store::Filters filters;
  if (!site.empty()) filters = store::loadFilterFile(m_controls, site);
  if (!filters.result.ok()) {
    emit report(tr("Could not read the filters: %1").arg(toQString(filters.result.error)));
  }
  m_state.qzvskFiltersArray = std::move(filters.entries);
  reloadFilterTable();
}

void FilterController::reloadFilterTable() {
  QStringList rows;
  for (const std::string& filter : m_state.qzvskFiltersArray) rows.append(toQString(filter));
  m_model.setStringList(rows);
}

void FilterController::addFilterCommand() {
  const std::string text = platform::toUtf8(m_drawer.newFilterInput.text());
  if (text.empty()) {
    m_sheets.alert(tr("Cannot Add Filter"), tr("There is nothing to add!"));
  } else {
    const platform::FileResult added = store::addFilter(m_controls, m_state.qzvskCurSite, text);
    // What was typed stays in the field when it could not be saved.
    if (!added.ok()) return tellFailure(tr("The filter could not be saved."), added);
    m_drawer.newFilterInput.clear();
  }
  loadFilterFile();
}

void FilterController::leaveOut(const QStringList& addresses) {
  QStringList added;
  const store::Filters changed = store::changeFilters(m_controls, m_state.qzvskCurSite, [&](auto& filters) {
    for (const QString& address : addresses) {
      const std::string text = platform::toUtf8(address);
      if (text.empty() || std::find(filters.begin(), filters.end(), text) != filters.end()) continue;
      filters.push_back(text);
      added.append(address);
    }
    return !added.isEmpty();
  });
  if (!changed.result.ok()) return tellFailure(tr("The filter could not be saved."), changed.result);
  loadFilterFile();
  if (added.isEmpty()) {
    emit report(tr("There is a filter for that already. The next scan leaves it out."));
  } else if (added.size() == 1) {
    emit report(tr("Added the filter %1. The next scan leaves out what has that in its address.")
                    .arg(platform::shortened(added.first())));
  } else {
    emit report(tr("Added %Ln filters. The next scan leaves out what has one of them in its address.",
                   nullptr, static_cast<int>(added.size())));
  }
}

void FilterController::deleteFilter() {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : m_drawer.filterTable.selectionModel()->selectedRows())
    rows.push_back(static_cast<std::size_t>(index.row()));
  // Another program may have changed them since they were shown.
  const store::Filters changed = store::changeFilters(m_controls, m_state.qzvskCurSite, [&](auto& filters) {
    filters = store::withoutFilters(filters, m_state.qzvskFiltersArray, rows);
    return true;
  });
  if (!changed.result.ok()) tellFailure(tr("The filters could not be saved."), changed.result);
  loadFilterFile();
}

void FilterController::tellFailure(const QString& what, const platform::FileResult& result) {
  m_sheets.alert(what, toQString(result.error));
}

}  // namespace crawler
