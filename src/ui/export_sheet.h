// The sheet that is up while a document is made ready for its export.
#pragma once

#include <QDialog>
#include <cstdint>

class QProgressBar;

namespace ui {

/// A sentence and a bar. It takes itself down for nobody: whoever put it up closes it when the work is done.
class ExportSheet : public QDialog {
  Q_OBJECT

 public:
  explicit ExportSheet(QWidget* parent);

  /// How far the work is.
  void showProgress(std::int64_t current, std::int64_t maximum);
  /// For work whose end is not known.
  void showBusy();

  void reject() override {}  // Escape

 private:
  QProgressBar* m_bar;
};

}  // namespace ui
