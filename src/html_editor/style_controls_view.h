// The controls for the look of one class of entries: page titles, or page links.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <string>
#include <string_view>
#include <vector>

#include "html_editor/colours.h"
#include "html_editor/style.h"
#include "html_editor/underline.h"

namespace html_editor {

/// Finds the controls by their names ("ptFontSize", "plFontSize") and shows a document's style in them. UI
/// thread.
class StyleControlsView {
 public:
  /// Fills the pop-ups. The controls are below `window`, which outlives this.
  StyleControlsView(const QObject& window, EntryClass entries);

  /// Shows what `document` says, without telling anybody that something was changed. A font or size that is
  /// on no list is shown as it is, with nothing selected; the colour well and the underline mode stay when
  /// the document tells none.
  void show(std::string_view document);

  /// Disables the controls when there is a reason why not to use them, and enables them when it is empty.
  void setEnabled(const QString& whyNot);

  /// In the order in which they are read.
  std::vector<QWidget*> tabOrder() const;

  const Colour& colour() const { return m_colour; }
  void setColour(const Colour& colour);

  EntryClass entries;
  QWidget& tabView;
  QGridLayout& styleLayout;
  QComboBox& fontFace;
  QComboBox& fontSize;
  QCheckBox& boldButton;
  QCheckBox& italicButton;
  QLineEdit& colourField;
  QPushButton& colourwell;
  QWidget& underlineMatrix;
  QButtonGroup underlineGroup;  // ids are the values of Underline

 private:
  Colour m_colour;
};

QColor toQColor(const Colour& colour);
Colour fromQColor(const QColor& colour);

}  // namespace html_editor
