#include "ui/wrapped_text.h"

#include <QTextDocument>
#include <cmath>
#include <memory>

namespace ui {

WrappedText::WrappedText(QWidget* parent) : QTextEdit(parent) {
  setAcceptRichText(false);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  viewport()->setAutoFillBackground(false);
  document()->setDocumentMargin(0);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  connect(this, &QTextEdit::textChanged, this, &QWidget::updateGeometry);
}

int WrappedText::heightForWidth(int width) const {
  // Of a copy: the text that is shown keeps the width that it has.
  const std::unique_ptr<QTextDocument> text(document()->clone());
  text->setTextWidth(width);
  return static_cast<int>(std::ceil(text->size().height()));
}

QSize WrappedText::sizeHint() const {
  const int width = fontMetrics().averageCharWidth() * 40;
  return {width, heightForWidth(width)};
}

QSize WrappedText::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing()};
}

}  // namespace ui
