// The cells of the table: those that are typed in, and those that pop a menu up.
#pragma once

#include <QStyledItemDelegate>

namespace xml_editor {

/// Edits a text. An editor that is left as it was changes nothing, not even where its value would be refused.
class TextCell : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};

/// A value chosen from a menu: shows an arrow, and asks for the menu when that is clicked, or the cell is
/// double-clicked.
class PopUpCell : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 signals:
  void menuWanted(const QModelIndex& index);
};

}  // namespace xml_editor
