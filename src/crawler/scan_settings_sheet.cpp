#include "crawler/scan_settings_sheet.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <chrono>
#include <cmath>
#include <cstddef>

#include "platform/qt_text.h"
#include "store/setting_row.h"

namespace crawler {

using platform::toQString;

namespace {

constexpr int kSheetWidth = 420;

}  // namespace

ScanSettingsSheet::ScanSettingsSheet(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("scanSettingsSheet"));
  setWindowTitle(tr("Scan Settings"));
  setMinimumWidth(kSheetWidth);
  auto* form = new QFormLayout;
  for (const store::SettingField& field : store::kSiteSettings) addRow(*form, field);
  auto* buttons = new QDialogButtonBox;  // knows the desktop's order
  buttons->addButton(tr("Save"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addStretch();
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &ScanSettingsSheet::saveAsked);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ScanSettingsSheet::addRow(QFormLayout& form, const store::SettingField& field) {
  Control control = std::visit([this](const auto& kind) { return makeControl(kind); }, field.value);
  store::addSettingRow(form, field, *control.widget);
  m_controls.push_back(std::move(control));
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::WholeNumber& number) {
  auto* box = new QSpinBox;
  box->setRange(number.least, number.most);
  box->setSpecialValueText(toQString(number.leastMeans));
  box->setGroupSeparatorShown(true);
  box->setAccelerated(true);
  const auto member = number.member;
  return {box, [=](const store::SiteSettings& settings) { box->setValue(settings.*member); },
          [=](store::SiteSettings& settings) { settings.*member = box->value(); }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::Seconds& seconds) {
  auto* box = new QDoubleSpinBox;
  box->setDecimals(3);  // else it would round what the command line has set
  box->setRange(0, static_cast<double>(seconds.most.count()));
  box->setSingleStep(0.5);
  box->setSuffix(tr(" s"));
  box->setSpecialValueText(toQString(seconds.noneMeans));
  const auto member = seconds.member;
  return {box,
          [=](const store::SiteSettings& settings) {
            box->setValue(std::chrono::duration<double>(settings.*member).count());
          },
          [=](store::SiteSettings& settings) {
            settings.*member = std::chrono::milliseconds(std::llround(box->value() * 1000));
          }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::Choice& choice) {
  auto* box = new QComboBox;
  for (const store::Choice::Option& option : choice.options) box->addItem(toQString(option.caption));
  return {box,
          [=](const store::SiteSettings& settings) {
            box->setCurrentIndex(static_cast<int>(choice.get(settings)));
          },
          [=](store::SiteSettings& settings) {
            choice.set(settings, static_cast<std::size_t>(box->currentIndex()));
          }};
}

void ScanSettingsSheet::showSettings(const store::SiteSettings& settings) {
  m_shown = settings;
  for (const Control& control : m_controls) control.show(settings);
  m_controls.front().widget->setFocus();
}

void ScanSettingsSheet::applyChanges(store::SiteSettings& settings) const {
  for (std::size_t i = 0; i < m_controls.size(); ++i) {
    store::SiteSettings changed = m_shown;
    m_controls[i].take(changed);
    if (changed != m_shown) m_controls[i].take(settings);
  }
}

}  // namespace crawler
