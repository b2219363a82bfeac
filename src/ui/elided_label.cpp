#include "ui/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace ui {

void ElidedLabel::setElideMode(Qt::TextElideMode mode) {
  m_elideMode = mode;
  update();
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::shownText() const {
  return fontMetrics().elidedText(text(), m_elideMode, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
  // What fits is painted as any label, with its selection.
  if (shownText() == text()) return QLabel::paintEvent(event);
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(Qt::AlignVCenter | Qt::AlignLeading),
                        palette(), isEnabled(), shownText(), foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && shownText() != text()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(event);
}

}  // namespace ui
