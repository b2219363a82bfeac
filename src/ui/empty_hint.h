// A sentence in the middle of a list that has nothing to show.
#pragma once

#include <QAbstractItemView>
#include <QLabel>

namespace ui {

/// Belongs to the view, comes up when its model has no rows, and goes when it has some. The view has its
/// model already, and keeps it.
class EmptyHint : public QLabel {
  Q_OBJECT

 public:
  explicit EmptyHint(QAbstractItemView& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QAbstractItemView& m_view;
};

}  // namespace ui
