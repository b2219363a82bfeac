#include "ui/link_check_panel.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

#include "platform/enable_unless.h"
#include "platform/qt_text.h"
#include "report/figures.h"
#include "report/outside_rows.h"

namespace ui {

using platform::toQString;
using report::CheckEnd;
using report::CheckProgress;

namespace {

QString numeral(std::size_t number) {
  return QLocale().toString(static_cast<qulonglong>(number));
}

QString hintText(const report::LatestReport& report) {
  if (report.outside.empty() && !report.lastCheck.isKnown()) return {};
  QString text = toQString(checkText(report.lastCheck, report.outside));
  if (!report.now.hasAllOutside) {
    text += LinkCheckPanel::tr(" The pages link to so many addresses that only the first %1 are known.")
                .arg(numeral(report.now.outside.size()));
  }
  return text;
}

QString countsText(const CheckProgress& progress) {
  if (progress.all == 0 && progress.pages == 0) return LinkCheckPanel::tr("Beginning...");
  if (progress.all == 0)
    return LinkCheckPanel::tr("Looking for images, styles and scripts: %1 of %2 pages read")
        .arg(numeral(progress.pagesRead), numeral(progress.pages));
  return LinkCheckPanel::tr("%1 of %2 asked, %3 left, %4 broken")
      .arg(numeral(progress.asked.all()), numeral(progress.all), numeral(progress.left()),
           numeral(progress.asked.of(report::LinkState::broken)));
}

}  // namespace

LinkCheckPanel::LinkCheckPanel(LinkCheckController& check, platform::SheetQueue& sheets, QWidget& window)
    : m_check(check),
      m_sheets(sheets),
      m_sheet(new LinkCheckSheet(&window)),
      m_told(new QWidget),
      m_hint(new QLabel),
      m_begin(new QPushButton(tr("Check Outside L&inks..."))),
      m_running(new QWidget),
      m_counts(new QLabel),
      m_bar(new QProgressBar),
      m_host(new ElidedLabel),
      m_stop(new QPushButton(tr("S&top"))) {
  buildLayout();
  connect(m_begin, &QPushButton::clicked, &check, &LinkCheckController::plan);
  connect(m_stop, &QPushButton::clicked, &check, &LinkCheckController::stop);
  connect(m_sheet, &LinkCheckSheet::agreed, this,
          [this](bool resources, bool again) { m_check.start(m_sheet->siteName(), resources, again); });
  connect(&check, &LinkCheckController::planned, this, &LinkCheckPanel::showPlan);
  connect(&check, &LinkCheckController::changed, this, &LinkCheckPanel::offer);
  connect(&check, &LinkCheckController::progressed, this, &LinkCheckPanel::showProgress);
  connect(&check, &LinkCheckController::ended, this, &LinkCheckPanel::tellEnd);
  offer();
}

void LinkCheckPanel::buildLayout() {
  m_hint->setObjectName(QStringLiteral("linkCheckHint"));
  m_hint->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_hint->setWordWrap(true);
  m_begin->setObjectName(QStringLiteral("checkLinksButton"));
  m_counts->setObjectName(QStringLiteral("linkCheckCounts"));
  m_bar->setObjectName(QStringLiteral("linkCheckBar"));
  m_bar->setAccessibleName(tr("Progress of the check"));
  m_bar->setTextVisible(false);
  m_host->setObjectName(QStringLiteral("linkCheckHost"));
  m_host->setElideMode(Qt::ElideMiddle);
  m_stop->setObjectName(QStringLiteral("stopCheckButton"));
  for (QLabel* label : {m_hint, m_counts, static_cast<QLabel*>(m_host)}) label->setTextFormat(Qt::PlainText);
  auto* told = new QHBoxLayout(m_told);
  told->setContentsMargins(0, 0, 0, 0);
  told->addWidget(m_hint, 1);
  told->addWidget(m_begin, 0, Qt::AlignTop);
  auto* running = new QGridLayout(m_running);
  running->setContentsMargins(0, 0, 0, 0);
  running->addWidget(m_counts, 0, 0);
  running->addWidget(m_host, 0, 1);
  running->addWidget(m_bar, 1, 0, 1, 2);
  running->addWidget(m_stop, 1, 2);
  running->setColumnStretch(1, 1);
  running->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_told);
  layout->addWidget(m_running);
}

void LinkCheckPanel::showReport(const report::LatestReport* report) {
  m_hasScan = report != nullptr && report->hasScan();
  m_siteName = report != nullptr ? report->siteName : std::string();
  m_hint->setText(m_hasScan ? hintText(*report) : QString());
  offer();
}

void LinkCheckPanel::offer() {
  const bool isRunning = m_check.isRunning();
  const bool hadFocus = m_begin->hasFocus() || m_stop->hasFocus();
  QString whyNot = m_check.whyNot();
  if (whyNot.isEmpty() && !m_hasScan) whyNot = tr("Scan the site first: no complete scan of it is kept");
  m_running->setVisible(isRunning);
  m_told->setHidden(isRunning && m_check.siteName() == m_siteName);
  platform::enableUnless(*m_begin, whyNot);
  platform::enableUnless(*m_stop, m_check.isStopping() ? tr("The check is being stopped") : QString());
  if (hadFocus) (isRunning ? m_stop : m_begin)->setFocus();
  if (isRunning) showProgress();
}

void LinkCheckPanel::showPlan(const std::string& siteName, const report::CheckPlan& plan) {
  if (!window()->isVisible()) return;
  if (plan.end != CheckEnd::complete)
    return m_sheets.alert(tr("The links cannot be checked."),
                          toQString(whyNotChecked(plan.end, plan.file, siteName)));
  m_sheet->showPlan(siteName, plan);
  m_sheets.show(*m_sheet);
}

void LinkCheckPanel::showProgress() {
  const CheckProgress& progress = m_check.progress();
  const bool readsPages = progress.all == 0;
  m_bar->setMaximum(static_cast<int>(readsPages ? progress.pages : progress.all));
  m_bar->setValue(static_cast<int>(readsPages ? progress.pagesRead : progress.asked.all()));
  QString counts = m_check.isStopping() ? tr("Stopping...") : countsText(progress);
  if (m_check.siteName() != m_siteName)
    counts = tr("The links of \"%1\": %2").arg(toQString(m_check.siteName()), counts);
  m_counts->setText(counts);
  const bool isWaiting = !m_check.isStopping() && progress.left() > 0;
  m_host->setText(isWaiting ? tr("Waiting for %1").arg(toQString(progress.waitsFor)) : QString());
}

void LinkCheckPanel::tellEnd(const QString& siteName, const report::CheckResult& result) {
  if (!window()->isVisible()) return;
  QApplication::alert(window());  // it takes its time, and its user does something else meanwhile
  if (const std::string why = whyNotChecked(result.end, result.file, platform::toUtf8(siteName));
      !why.empty())
    m_sheets.alert(tr("The links could not be checked."), toQString(why));
}

}  // namespace ui
