#include "crawler/scan_sheets.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace crawler {

namespace {

constexpr int kSheetWidth = 460;

QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QPushButton* button : buttons) row->addWidget(button);
  return row;
}

}  // namespace

WaitingSheet::WaitingSheet(QWidget* parent, const char* name, const char* barName, GiveUp giveUp)
    : QDialog(parent), m_text(new QLabel), m_giveUp(giveUp) {
  setObjectName(QLatin1String(name));
  setWindowTitle(QStringLiteral("Veskel"));
  setMinimumWidth(kSheetWidth);
  m_text->setTextFormat(Qt::PlainText);
  auto* bar = new QProgressBar;
  bar->setObjectName(QLatin1String(barName));
  bar->setAccessibleName(tr("Progress"));
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_text);
  layout->addWidget(bar);
  if (giveUp == GiveUp::impossible) return;
  m_cancel = new QPushButton(tr("Cancel"));
  layout->addLayout(buttonRow({m_cancel}));
  connect(m_cancel, &QPushButton::clicked, this, &WaitingSheet::givenUp);
}

void WaitingSheet::setText(const QString& text) {
  m_text->setText(fontMetrics().elidedText(text, Qt::ElideMiddle, kSheetWidth));
  m_text->setToolTip(text);
}

void WaitingSheet::setGiveUpText(const QString& text) {
  if (m_cancel != nullptr) m_cancel->setText(text);
}

void WaitingSheet::reject() {
  if (m_giveUp == GiveUp::offered) emit givenUp();
}

ProgressSheet::ProgressSheet(QWidget* parent)
    : QDialog(parent),
      m_text(new QLabel),
      m_bar(new QProgressBar),
      m_pause(new QPushButton(tr("&Pause"))),
      m_cancel(new QPushButton(tr("Cancel"))) {
  setObjectName(QStringLiteral("scanCustomAlertPanel"));
  setWindowTitle(tr("Scanning"));
  setMinimumWidth(kSheetWidth);
  m_text->setObjectName(QStringLiteral("caText"));
  m_text->setTextFormat(Qt::PlainText);
  m_bar->setObjectName(QStringLiteral("scanProgressBar"));
  m_bar->setAccessibleName(tr("Progress"));
  m_bar->setTextVisible(false);
  m_pause->setObjectName(QStringLiteral("pauseScanButton"));
  m_pause->setAutoDefault(false);
  m_cancel->setObjectName(QStringLiteral("cancelScanButton"));
  auto* grid = new QGridLayout;
  m_pagesLeft = addCounter(tr("Pages left"), "caPagesLeft", grid, 0);
  m_pagesScanned = addCounter(tr("Pages scanned"), "caPagesScanned", grid, 1);
  m_brokenLinks = addCounter(tr("Broken links"), "caBrokenLinks", grid, 2);
  m_linksFound = addCounter(tr("Links found"), "tlsf", grid, 3);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_text);
  layout->addWidget(m_bar);
  layout->addLayout(grid);
  layout->addLayout(buttonRow({m_pause, m_cancel}));
  connect(m_cancel, &QPushButton::clicked, this, &ProgressSheet::cancelled);
  connect(m_pause, &QPushButton::clicked, this, [this] {
    setPaused(!m_isPaused);
    emit paused(m_isPaused);
  });
  reset();
}

QLabel* ProgressSheet::addCounter(const QString& caption, const char* name, QGridLayout* grid, int column) {
  auto* label = new QLabel(caption);
  auto* value = new QLabel;
  value->setObjectName(QLatin1String(name));
  label->setBuddy(value);
  for (QLabel* each : {label, value}) each->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(label, 0, column);
  grid->addWidget(value, 1, column);
  return value;
}

void ProgressSheet::showProgress(const ScanProgress& progress, const QString& text) {
  const QLocale locale;
  m_pagesLeft->setText(locale.toString(progress.pagesLeft()));
  m_pagesScanned->setText(locale.toString(progress.pagesScanned));
  m_brokenLinks->setText(locale.toString(progress.brokenLinks));
  m_linksFound->setText(locale.toString(progress.linksFound));
  m_bar->setMaximum(progress.barMaximum());
  m_bar->setValue(progress.barValue());
  showText(text);
}

void ProgressSheet::showText(const QString& text) {
  m_last = text;
  const QString shown = m_isPaused ? tr("Paused") : text;
  m_text->setText(fontMetrics().elidedText(shown, Qt::ElideMiddle,
                                           contentsRect().width() - 2 * layout()->contentsMargins().left()));
  m_text->setToolTip(shown);
}

void ProgressSheet::setPaused(bool isPaused) {
  m_isPaused = isPaused;
  m_pause->setText(isPaused ? tr("&Resume") : tr("&Pause"));
  showText(m_last);
}

void ProgressSheet::reset() {
  setPaused(false);
  showProgress({}, {});
}

void ProgressSheet::reject() {
  emit cancelled();
}

}  // namespace crawler
