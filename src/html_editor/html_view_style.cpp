// The style actions of the HTML viewer: each is a change of the document's style sheet.
#include <QColorDialog>

#include "html_editor/html_view_controller.h"
#include "platform/qt_text.h"

namespace html_editor {

using platform::toQString;
using platform::toUtf8;
using platform::translated;

void HTMLViewController::changeFontFamily(StyleControlsView& controls) {
  useStyled(withFontFamily(m_document.text(), controls.entries, toUtf8(controls.fontFace.currentText())));
}

void HTMLViewController::changeFontSize(StyleControlsView& controls) {
  useStyled(withFontSize(m_document.text(), controls.entries, toUtf8(controls.fontSize.currentText())));
}

void HTMLViewController::changeBold(StyleControlsView& controls) {
  useStyled(withBold(m_document.text(), controls.entries, controls.boldButton.isChecked()));
}

void HTMLViewController::changeItalic(StyleControlsView& controls) {
  useStyled(withItalic(m_document.text(), controls.entries, controls.italicButton.isChecked()));
}

void HTMLViewController::changePTColour(std::string_view colour) {
  changeColour(EntryClass::pageTitle, colour);
}

void HTMLViewController::changePLColour(std::string_view colour) {
  changeColour(EntryClass::pageLink, colour);
}

void HTMLViewController::changeColour(EntryClass entries, std::string_view colour) {
  useStyled(withColour(m_document.text(), entries, colour));
}

void HTMLViewController::ptColourWell(const Colour& colour) {
  m_pt.setColour(colour);
  m_pt.colourField.setText(toQString(getHEXValue(colour)));
  changePTColour(getHEXValue(colour));
}

void HTMLViewController::plColourWell(const Colour& colour) {
  m_pl.setColour(colour);
  m_pl.colourField.setText(toQString(getHEXValue(colour)));
  changePLColour(getHEXValue(colour));
}

void HTMLViewController::chooseColour(StyleControlsView& controls) {
  auto* dialog = new QColorDialog(toQColor(controls.colour()), &m_services.mainWindow);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QColorDialog::DontUseNativeDialog);  // which would not be a sheet
  connect(dialog, &QColorDialog::colorSelected, this, [this, &controls](const QColor& chosen) {
    const Colour colour = fromQColor(chosen);
    controls.entries == EntryClass::pageTitle ? ptColourWell(colour) : plColourWell(colour);
  });
  m_sheets.show(*dialog);
}

/// A colour typed for page links goes into the rule of the page titles, while the well of the links shows it:
/// so it has always been, and documents are made with it.
void HTMLViewController::applyTypedColour(StyleControlsView& controls) {
  const HexFieldAnswer answer = checkHexField(toUtf8(controls.colourField.text()));
  controls.colourField.setText(toQString(answer.text));
  for (int i = 0; i < answer.complaints; ++i) complainAboutColour(controls);
  if (answer.accepted) {
    if (answer.well) controls.setColour(*answer.well);
    changePTColour(answer.text);
  }
  saveActive();
}

void HTMLViewController::complainAboutColour(StyleControlsView& controls) {
  constexpr int kOk = 0;
  constexpr int kReset = 1;
  m_sheets.choose(translated(kHexFieldMessage), {}, {tr("OK"), tr("Reset")}, kOk, [&controls](int answer) {
    if (answer == kReset) controls.colourField.setText(toQString(getHEXValue(controls.colour())));
  });
}

void HTMLViewController::changeUnderline(StyleControlsView& controls, Underline mode) {
  useStyled(withUnderline(m_document.text(), controls.entries, mode));
}

void HTMLViewController::useStyled(std::string document) {
  m_document.restyle(std::move(document));
  if (m_scanWebView && m_scanWebView->showStyleOf(m_document.text())) {
    m_scanWebView->scrollTo(m_savedScrollPosition);  // as after a load, which other documents need for this
  } else {
    showDocument();
  }
  saveActive();
}

}  // namespace html_editor
