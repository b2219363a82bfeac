// A label that shortens what does not fit, and tells the whole in its tooltip.
#pragma once

#include <QLabel>

namespace ui {

/// text() stays whole; only the picture is shortened, in the middle for addresses and at the end for names.
class ElidedLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)

 public:
  using QLabel::QLabel;

  Qt::TextElideMode elideMode() const { return m_elideMode; }
  void setElideMode(Qt::TextElideMode mode);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString shownText() const;

  Qt::TextElideMode m_elideMode = Qt::ElideRight;
};

}  // namespace ui
