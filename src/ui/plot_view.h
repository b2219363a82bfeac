// A drawing in its own proportions, as wide as there is room.
#pragma once

#include <QByteArray>
#include <QSvgRenderer>
#include <QWidget>
#include <functional>
#include <string>

#include "report/plots.h"

namespace ui {

/// Tells screen readers what the drawing says of itself. UI thread.
class PlotView : public QWidget {
  Q_OBJECT

 public:
  explicit PlotView(QWidget* parent = nullptr);

  /// Makes the drawing, now and whenever the window's colours change.
  using Draw = std::function<std::string(report::Palette palette)>;
  void setDrawing(Draw draw);

  QSize sizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void draw();

  Draw m_draw;
  QSvgRenderer m_renderer;
};

}  // namespace ui
