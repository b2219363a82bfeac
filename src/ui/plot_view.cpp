#include "ui/plot_view.h"

#include <QEvent>
#include <QPainter>
#include <QXmlStreamReader>
#include <utility>

#include "platform/qt_text.h"

namespace ui {

namespace {

constexpr int kLetters = 60;  // so wide a drawing is legible without being large

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

PlotView::PlotView(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void PlotView::setDrawing(Draw drawing) {
  m_draw = std::move(drawing);
  draw();
}

void PlotView::draw() {
  if (!m_draw) return;
  const QByteArray drawing =
      QByteArray::fromStdString(m_draw(isDark(palette()) ? report::Palette::dark : report::Palette::light));
  m_renderer.load(drawing);
  QXmlStreamReader reader(drawing);
  reader.readNextStartElement();
  while (reader.readNextStartElement()) {
    if (reader.name() == QLatin1String("title")) {
      setAccessibleName(reader.readElementText());
    } else if (reader.name() == QLatin1String("desc")) {
      setAccessibleDescription(reader.readElementText());
    } else {
      reader.skipCurrentElement();
    }
  }
  updateGeometry();
  update();
}

QSize PlotView::sizeHint() const {
  const int width = kLetters * fontMetrics().averageCharWidth();
  return {width, heightForWidth(width)};
}

int PlotView::heightForWidth(int width) const {
  const QSize size = m_renderer.defaultSize();
  return size.isEmpty() ? 0 : width * size.height() / size.width();
}

void PlotView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QSizeF size = m_renderer.defaultSize();
  size.scale(this->size(), Qt::KeepAspectRatio);
  m_renderer.render(&painter, QRectF(QPointF(0, 0), size));
}

void PlotView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) draw();
}

}  // namespace ui
