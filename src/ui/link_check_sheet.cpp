#include "ui/link_check_sheet.h"

#include <QDialogButtonBox>
#include <QStyle>
#include <QVBoxLayout>

#include "platform/enable_unless.h"
#include "platform/qt_text.h"
#include "report/figures.h"

namespace ui {

using platform::toQString;

namespace {

constexpr int kSheetWidth = 460;

QString addresses(std::size_t number) {
  return LinkCheckSheet::tr("%Ln address(es)", nullptr, static_cast<int>(number));
}

QString planText(const std::string& siteName, const report::CheckPlan& plan) {
  const QString site = toQString(siteName);
  const QString links = addresses(plan.links);
  if (plan.last.isUnfinished())
    return LinkCheckSheet::
        tr("The last check was stopped after %1. \"%2\" links to %3 outside of it: each is asked once, and "
           "each host at most once a second.")
            .arg(addresses(plan.asked), site, links);
  return plan.links == 0 ? LinkCheckSheet::tr("\"%1\" links to no web address outside of it.").arg(site)
                         : LinkCheckSheet::tr(
                               "\"%1\" links to %2 outside of it: each is asked once whether it is still "
                               "there, and each host at most once a second.")
                               .arg(site, links);
}

}  // namespace

LinkCheckSheet::LinkCheckSheet(QWidget* parent)
    : QDialog(parent),
      m_text(new QLabel),
      m_resources(new QCheckBox(tr("Also check the &images, styles and scripts of its pages"))),
      m_resourcesHint(new QLabel),
      m_goOn(new QPushButton(tr("&Go On"))),
      m_begin(new QPushButton) {
  setObjectName(QStringLiteral("linkCheckSheet"));
  setWindowTitle(tr("Check Outside Links"));
  setMinimumWidth(kSheetWidth);
  m_text->setObjectName(QStringLiteral("linkCheckText"));
  m_resources->setObjectName(QStringLiteral("checkResourcesBox"));
  m_goOn->setObjectName(QStringLiteral("goOnButton"));
  m_begin->setObjectName(QStringLiteral("beginCheckButton"));
  for (QLabel* label : {m_text, m_resourcesHint}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  const int indent =
      style()->pixelMetric(QStyle::PM_IndicatorWidth) + style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
  m_resourcesHint->setContentsMargins(indent, 0, 0, 0);
  auto* buttons = new QDialogButtonBox;  // knows the desktop's order
  buttons->addButton(m_goOn, QDialogButtonBox::AcceptRole);
  buttons->addButton(m_begin, QDialogButtonBox::AcceptRole);
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_text);
  layout->addSpacing(fontMetrics().height() / 2);
  layout->addWidget(m_resources);
  layout->addWidget(m_resourcesHint);
  layout->addSpacing(fontMetrics().height() / 2);
  layout->addStretch();
  layout->addWidget(buttons);
  connect(m_goOn, &QPushButton::clicked, this, [this] { answer(false); });
  connect(m_begin, &QPushButton::clicked, this, [this] { answer(true); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_resources, &QCheckBox::toggled, this, &LinkCheckSheet::enableButtons);
}

void LinkCheckSheet::showPlan(const std::string& siteName, const report::CheckPlan& plan) {
  m_siteName = siteName;
  m_hasLinks = plan.links > 0;
  m_text->setText(planText(siteName, plan));
  m_resources->setChecked(false);
  m_resourcesHint->setText(
      tr("To find them, %Ln page(s) of the site are read once more.", nullptr, static_cast<int>(plan.pages)));
  const bool goesOn = plan.last.isUnfinished();
  m_goOn->setVisible(goesOn);
  m_begin->setText(goesOn ? tr("&Begin Anew") : tr("&Check"));
  QPushButton* usual = goesOn ? m_goOn : m_begin;
  for (QPushButton* button : {m_goOn, m_begin}) {
    button->setAutoDefault(button == usual);
    button->setDefault(button == usual);
  }
  enableButtons();
  usual->setFocus();
  adjustSize();
}

void LinkCheckSheet::enableButtons() {
  const QString whyNot = m_hasLinks || m_resources->isChecked() ? QString() : tr("There is nothing to ask");
  for (QPushButton* button : {m_goOn, m_begin}) platform::enableUnless(*button, whyNot);
}

void LinkCheckSheet::answer(bool again) {
  accept();
  emit agreed(m_resources->isChecked(), again);
}

}  // namespace ui
