#include "html_editor/style_controls_view.h"

#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QSignalBlocker>

#include "platform/enable_unless.h"
#include "platform/named_controls.h"
#include "platform/qt_text.h"

namespace html_editor {

using platform::toQString;

namespace {

template <typename Control>
Control& find(const QObject& window, EntryClass entries, const char* name) {
  const QByteArray prefix = entries == EntryClass::pageTitle ? "pt" : "pl";
  return platform::control<Control>(window, (prefix + name).constData());
}

template <typename Texts>
void fill(QComboBox& popup, const Texts& texts) {
  for (const std::string_view text : texts) {
    popup.addItem(toQString(text));
    popup.setItemData(popup.count() - 1, toQString(text), Qt::ToolTipRole);
  }
}

void select(QComboBox& popup, const std::optional<std::string>& text) {
  const QSignalBlocker quiet(popup);
  const QString title = toQString(text.value_or(std::string()));
  // First of all: a pop-up without such a text cannot have nothing selected.
  popup.setPlaceholderText(title.isEmpty() ? QStringLiteral(" ") : title);
  popup.setCurrentIndex(popup.findText(title, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

}  // namespace

QColor toQColor(const Colour& colour) {
  return QColor::fromRgbF(static_cast<float>(colour.red), static_cast<float>(colour.green),
                          static_cast<float>(colour.blue));
}

Colour fromQColor(const QColor& colour) {
  // By whole numbers: the parts of a QColor have less precision than the digits need when they are truncated.
  return {colour.red() / 255.0, colour.green() / 255.0, colour.blue() / 255.0};
}

StyleControlsView::StyleControlsView(const QObject& window, EntryClass entryClass)
    : entries(entryClass),
      tabView(find<QWidget>(window, entryClass, "TabView")),
      styleLayout(find<QGridLayout>(window, entryClass, "StyleLayout")),
      fontFace(find<QComboBox>(window, entryClass, "FontFace")),
      fontSize(find<QComboBox>(window, entryClass, "FontSize")),
      boldButton(find<QCheckBox>(window, entryClass, "BoldButton")),
      italicButton(find<QCheckBox>(window, entryClass, "ItalicButton")),
      colourField(find<QLineEdit>(window, entryClass, "ColourField")),
      colourwell(find<QPushButton>(window, entryClass, "Colourwell")),
      underlineMatrix(find<QWidget>(window, entryClass, "UnderlineMatrix")) {
  fill(fontFace, fontFaceArray);
  fill(fontSize, fontSizeArray);
  const auto add = [&](const char* name, Underline mode) {
    underlineGroup.addButton(&find<QRadioButton>(window, entryClass, name), static_cast<int>(mode));
  };
  add("UnderlineOnHover", Underline::onHover);
  add("UnderlineNone", Underline::none);
  add("UnderlineAll", Underline::all);
  setColour({});
}

void StyleControlsView::show(std::string_view document) {
  const EntryStyle style = readStyle(document, entries);
  colourField.setText(toQString(style.colour.value_or(std::string())));
  if (const auto colour = setHEXValue(style.colour.value_or(std::string()))) setColour(*colour);
  select(fontFace, style.family);
  select(fontSize, style.size);
  const QSignalBlocker quietBold(boldButton);
  const QSignalBlocker quietItalic(italicButton);
  const QSignalBlocker quietUnderline(underlineGroup);
  boldButton.setChecked(style.bold);
  italicButton.setChecked(style.italic);
  if (const auto mode = readUnderline(document, entries)) {
    underlineGroup.button(static_cast<int>(*mode))->setChecked(true);
  }
}

void StyleControlsView::setEnabled(const QString& whyNot) {
  for (QWidget* each : std::initializer_list<QWidget*>{&fontSize, &colourwell, &colourField, &fontFace,
                                                       &underlineMatrix, &boldButton, &italicButton}) {
    platform::enableUnless(*each, whyNot);
  }
}

std::vector<QWidget*> StyleControlsView::tabOrder() const {
  std::vector<QWidget*> order = {&fontFace, &fontSize, &boldButton, &italicButton, &colourField, &colourwell};
  for (QAbstractButton* each : underlineGroup.buttons()) order.push_back(each);
  return order;
}

void StyleControlsView::setColour(const Colour& colour) {
  m_colour = colour;
  const QSize size = colourwell.iconSize() * 2;
  QPixmap patch(size);
  patch.fill(toQColor(colour));
  QPainter painter(&patch);
  painter.setPen(colourwell.palette().color(QPalette::Mid));
  painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
  colourwell.setIcon(QIcon(patch));
  colourwell.setAccessibleDescription(toQString(getHEXValue(colour)));
}

}  // namespace html_editor
