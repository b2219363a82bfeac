#include "ui/export_sheet.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

namespace ui {

namespace {

constexpr int kSheetWidth = 380;

int barNumber(std::int64_t number) {
  return static_cast<int>(std::clamp<std::int64_t>(number, 0, std::numeric_limits<int>::max()));
}

}  // namespace

ExportSheet::ExportSheet(QWidget* parent) : QDialog(parent), m_bar(new QProgressBar) {
  setObjectName(QStringLiteral("exportCustomPanel"));
  setWindowTitle(QStringLiteral("Veskel"));
  setMinimumWidth(kSheetWidth);
  m_bar->setObjectName(QStringLiteral("exportProgress"));
  m_bar->setAccessibleName(tr("Progress"));
  m_bar->setTextVisible(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Preparing the sitemap...")));
  layout->addWidget(m_bar);
}

void ExportSheet::showProgress(std::int64_t current, std::int64_t maximum) {
  m_bar->setRange(
      0, std::max(1, barNumber(maximum)));  // a bar without a range would say that the end is unknown
  m_bar->setValue(barNumber(current));
}

void ExportSheet::showBusy() {
  m_bar->setRange(0, 0);
}

}  // namespace ui
