#include "ui/empty_hint.h"

#include <QApplication>
#include <QEvent>

namespace ui {

EmptyHint::EmptyHint(QAbstractItemView& view) : QLabel(view.viewport()), m_view(view) {
  setFont(QApplication::font());  // also in lists of another
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  setForegroundRole(QPalette::PlaceholderText);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.viewport()->installEventFilter(this);
  const auto placeAnew = [this] { place(); };
  connect(view.model(), &QAbstractItemModel::modelReset, this, placeAnew);
  connect(view.model(), &QAbstractItemModel::rowsInserted, this, placeAnew);
  connect(view.model(), &QAbstractItemModel::rowsRemoved, this, placeAnew);
  place();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) place();
  return QLabel::eventFilter(watched, event);
}

void EmptyHint::place() {
  const int space = fontMetrics().height();
  setGeometry(m_view.viewport()->rect().adjusted(space, space, -space, -space));
  setVisible(m_view.model()->rowCount() == 0);
}

}  // namespace ui
