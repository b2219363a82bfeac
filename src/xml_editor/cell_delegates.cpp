#include "xml_editor/cell_delegates.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace xml_editor {

namespace {

/// Where the arrow stands: a square at the end of the cell.
QRect arrowPlace(const QStyleOptionViewItem& option) {
  QRect place = option.rect;
  place.setLeft(place.right() + 1 - place.height());
  return QStyle::visualRect(option.direction, option.rect, place);
}

}  // namespace

QWidget* TextCell::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
  if (editor == nullptr) return nullptr;
  editor->setAccessibleName(
      index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  return editor;
}

void TextCell::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  const auto* line = qobject_cast<QLineEdit*>(editor);
  if (line != nullptr && line->text() == index.data(Qt::EditRole).toString()) return;
  QStyledItemDelegate::setModelData(editor, model, index);
}

void PopUpCell::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  QStyleOption arrow;
  arrow.palette = option.palette;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  // Styles differ in which of these an arrow takes.
  const QBrush brush = option.palette.brush(selected ? QPalette::HighlightedText : QPalette::Text);
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText}) {
    arrow.palette.setBrush(role, brush);
  }
  const QRect place = arrowPlace(option);
  const int size = place.width() / 3;
  arrow.rect = QRect(0, 0, size, size);
  arrow.rect.moveCenter(place.center());
  arrow.direction = option.direction;
  arrow.state = QStyle::State_Enabled;
  const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
  style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, option.widget);
}

QSize PopUpCell::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize text = QStyledItemDelegate::sizeHint(option, index);
  return {text.width() + text.height(), text.height()};
}

bool PopUpCell::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
  const bool clicked = event->type() == QEvent::MouseButtonRelease;
  if (clicked || event->type() == QEvent::MouseButtonDblClick) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && (!clicked || arrowPlace(option).contains(mouse->pos()))) {
      emit menuWanted(index);
      return true;
    }
  }
  return QStyledItemDelegate::editorEvent(event, model, option, index);
}

}  // namespace xml_editor
