// A paragraph that is as high as its text needs in the width it gets.
#pragma once

#include <QTextEdit>

namespace ui {

/// Unlike a label it breaks words that are too long, as addresses are: one could widen the window beyond the
/// screen. Its text is plain, and can be selected.
class WrappedText : public QTextEdit {
  Q_OBJECT

 public:
  explicit WrappedText(QWidget* parent = nullptr);

  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace ui
