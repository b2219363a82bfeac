// The controls of the exports, found when the window is made.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>

#include "platform/named_controls.h"

namespace ui {

/// But for the boxes of the layouts, which are gathered into a group.
struct ExportControls {
  const QMainWindow& window;

  QComboBox& sitePickerPopUp = platform::control<QComboBox>(window, "sitePickerPopUp");
  QPushButton& htmlExportButton = platform::control<QPushButton>(window, "htmlExportButton");
  QPushButton& xmlExportButton = platform::control<QPushButton>(window, "xmlExportButton");
  QCheckBox& splitXmlBox = platform::control<QCheckBox>(window, "splitXmlBox");
  QCheckBox& gzipXmlBox = platform::control<QCheckBox>(window, "gzipXmlBox");
  QLineEdit& saveToInput = platform::control<QLineEdit>(window, "saveToInput");
  QPushButton& saveToButton = platform::control<QPushButton>(window, "saveToButton");

  // Of the view of broken links
  QPushButton& exportBrokenAsHTMLButton = platform::control<QPushButton>(window, "exportBrokenAsHTMLButton");
  QPushButton& exportBrokenAsTXTButton = platform::control<QPushButton>(window, "exportBrokenAsTXTButton");
};

}  // namespace ui
