#include "xml_editor/xml_table_model.h"

#include <QDate>
#include <QLocale>

#include "platform/qt_text.h"
#include "xml_editor/menu_values.h"

namespace xml_editor {

using platform::toQString;
using platform::toUtf8;
using platform::translated;

namespace {

Field fieldOf(int column) {
  return kFields[static_cast<std::size_t>(column)];
}

/// Choices by the title that the menu has for them, everything else as it stands in the file.
QString shownText(const std::string& row, Field field) {
  const bool hasMenu = field == Field::changefreq || field == Field::priority;
  const MenuValue* choice = hasMenu ? chosenValue(row, field) : nullptr;
  return choice != nullptr ? translated(choice->title) : toQString(shownValue(row, field));
}

}  // namespace

void XmlTableModel::load(const std::filesystem::path& file) {
  beginResetModel();
  m_sitemap.load(file);
  endResetModel();
}

void XmlTableModel::choose(int row, Field field, std::string_view value) {
  finish(m_sitemap.choose(static_cast<std::size_t>(row), field, value), row);
}

/// All rows are announced anew, since only afterwards is it known whether one is gone.
void XmlTableModel::remove(int row) {
  const Change change = m_sitemap.remove(static_cast<std::size_t>(row));
  if (!change.saved()) {
    emit notSaved(change);
    return;
  }
  beginResetModel();
  endResetModel();
  emit saved();
}

std::optional<int> XmlTableModel::takeOver(const sitemaps::EditedValues& values) {
  const TakenOver taken = m_sitemap.takeOver(values);
  if (!taken.change.saved()) {
    emit notSaved(taken.change);
    return {};
  }
  if (taken.count > 0) {
    emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
    emit saved();
  }
  return taken.count;
}

bool XmlTableModel::finish(const Change& change, int row) {
  if (!change.saved()) {
    emit notSaved(change);
    return false;
  }
  emit dataChanged(index(row, 0), index(row, kColumns - 1));
  emit saved();
  return true;
}

int XmlTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_sitemap.rows().size());
}

int XmlTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant XmlTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::string& row = m_sitemap.rows()[static_cast<std::size_t>(index.row())];
  const Field field = fieldOf(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return shownText(row, field);
    case Qt::EditRole:
      return toQString(shownValue(row, field));
    case Qt::ToolTipRole:
      return field == Field::loc ? QVariant(shownText(row, field)) : QVariant();
    default:
      return {};
  }
}

QVariant XmlTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    return role == Qt::DisplayRole ? QVariant(QLocale().toString(section + 1)) : QVariant();
  }
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  switch (fieldOf(section)) {
    case Field::loc:
      return tr("URL");
    case Field::lastmod:
      return tr("Last Updated");
    case Field::changefreq:
      return tr("Change Frequency");
    case Field::priority:
      return tr("Priority");
  }
  return {};
}

Qt::ItemFlags XmlTableModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
  if (!index.isValid()) return usual;
  const Field field = fieldOf(index.column());
  // The others are chosen from menus.
  return field == Field::loc || field == Field::lastmod ? usual | Qt::ItemIsEditable : usual;
}

bool XmlTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const std::string today = toUtf8(QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));
  const Change change = m_sitemap.setValue(static_cast<std::size_t>(index.row()), fieldOf(index.column()),
                                           toUtf8(value.toString()), today);
  return finish(change, index.row());
}

}  // namespace xml_editor
