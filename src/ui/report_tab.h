// A tab of the report: a table with a search, and below it what belongs to the selected row.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QTableView>
#include <QWidget>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "ui/empty_hint.h"
#include "ui/report_model.h"

namespace ui {

/// A choice of rows, and what it is called; all rows without them.
using RowChoice = std::pair<QString, std::shared_ptr<const std::vector<std::size_t>>>;

/// UI thread.
class ReportTab : public QWidget {
  Q_OBJECT

 public:
  struct Names {
    QString object;   // the controls are called so, with "Table", "Search" and so on
    QString table;    // for screen readers
    QString details;  // likewise, of the table below
  };
  ReportTab(const Names& names, std::vector<ReportColumn> columns, std::vector<ReportColumn> detailColumns);

  ReportModel& rows() { return m_rows; }
  ReportModel& details() { return m_details; }
  QTableView& table() { return *m_table; }

  /// Puts something above the search, which goes to the tab.
  void setHead(QWidget* head);
  /// Offers choices beside the search, the first of which is made.
  void setChoices(const std::vector<RowChoice>& choices);
  /// Lets the user choose the columns, by a button and by the headings' menu.
  void offerColumns();

  /// Said where there are no rows, where none is left by search and choice, and above the table below.
  void setHint(const QString& sentence);
  void setNarrowedHint(const QString& sentence);
  void setDetailText(const QString& sentence);
  void setDetailHint(const QString& sentence) { m_detailHint->setText(sentence); }

  QString searched() const { return m_search->text(); }
  void setSearch(const QString& text) { m_search->setText(text); }
  void focusSearch();

  /// The row in hand; nothing when there is none.
  std::optional<std::size_t> selectedRow() const;
  /// Which rows are selected is kept by their addresses while the table is filled anew, also across being
  /// empty in between; until this is called.
  void forgetSelection() { m_selected.clear(); }
  /// Brings a row into sight and selects it, whatever is searched and chosen.
  void select(std::size_t row);

 signals:
  /// Another row is in hand, or none.
  void rowSelected();
  /// The search or the choice has changed.
  void narrowed();
  /// The user wants to see this address among the pages.
  void pageWanted(const QString& address);

 private:
  QWidget* makeTop(const Names& names);
  QWidget* makeDetails(const Names& names);
  void countRows();
  void showHint();
  void rememberSelection();
  void restoreSelection();

  ReportModel m_rows;
  ReportModel m_details;
  QLineEdit* m_search;
  QLabel* m_chooserLabel;
  QComboBox* m_chooser;
  QLabel* m_count;
  QTableView* m_table;
  EmptyHint* m_hint;
  QString m_emptyHint;
  QString m_narrowedHint;
  QLabel* m_detailText;
  QTableView* m_detailTable;
  EmptyHint* m_detailHint;
  std::vector<RowChoice> m_choices;
  QStringList m_selected;  // addresses, before the table was filled anew
};

}  // namespace ui
