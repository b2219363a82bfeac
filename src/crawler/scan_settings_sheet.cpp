#include "crawler/scan_settings_sheet.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>
#include <chrono>
#include <cmath>
#include <cstddef>

#include "platform/qt_text.h"
#include "store/setting_row.h"

namespace crawler {

using platform::toQString;
using platform::toUtf8;
using platform::translated;

namespace {

constexpr int kSheetWidth = 420;

/// Wants to be as large as the form in it, and may be less high.
class FormArea : public QScrollArea {
 public:
  explicit FormArea(QWidget* form) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(form);
  }

  QSize sizeHint() const override {
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
  }
  QSize minimumSizeHint() const override { return {sizeHint().width(), fontMetrics().height()}; }
};

}  // namespace

ScanSettingsSheet::ScanSettingsSheet(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("scanSettingsSheet"));
  setWindowTitle(tr("Scan Settings"));
  setMinimumWidth(kSheetWidth);
  auto* fields = new QWidget;
  auto* form = new QFormLayout(fields);
  form->setContentsMargins({});
  for (const store::SettingField& field : store::kSiteSettings) addRow(*form, field);
  m_password = std::make_unique<PasswordRow>(*form, userNameField());
  auto* buttons = new QDialogButtonBox;  // knows the desktop's order
  buttons->addButton(tr("Save"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new FormArea(fields));
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &ScanSettingsSheet::saveAsked);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

/// The one of the name that the password belongs to.
QLineEdit& ScanSettingsSheet::userNameField() const {
  for (std::size_t i = 0; i < m_controls.size(); ++i) {
    const auto* text = std::get_if<store::Text>(&store::kSiteSettings[i].value);
    if (text != nullptr && text->member == &store::SiteSettings::httpUser)
      return *qobject_cast<QLineEdit*>(m_controls[i].widget);
  }
  qFatal("There is no field for the user's name");
}

void ScanSettingsSheet::addRow(QFormLayout& form, const store::SettingField& field) {
  Control control = std::visit([&](const auto& kind) { return makeControl(field, kind); }, field.value);
  store::addSettingRow(form, field, *control.widget);
  m_controls.push_back(std::move(control));
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::SettingField&,
                                                          const store::WholeNumber& number) {
  auto* box = new QSpinBox;
  box->setRange(number.least, number.most);
  box->setSpecialValueText(translated(number.leastMeans));
  box->setGroupSeparatorShown(true);
  box->setAccelerated(true);
  const auto member = number.member;
  return {box, [=](const store::SiteSettings& settings) { box->setValue(settings.*member); },
          [=](store::SiteSettings& settings) {
            settings.*member = box->value();
            return std::string();
          }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::SettingField&,
                                                          const store::Seconds& seconds) {
  auto* box = new QDoubleSpinBox;
  box->setDecimals(3);  // else it would round what the command line has set
  box->setRange(0, static_cast<double>(seconds.most.count()));
  box->setSingleStep(0.5);
  box->setSuffix(tr(" s"));
  box->setSpecialValueText(translated(seconds.noneMeans));
  const auto member = seconds.member;
  return {box,
          [=](const store::SiteSettings& settings) {
            box->setValue(std::chrono::duration<double>(settings.*member).count());
          },
          [=](store::SiteSettings& settings) {
            settings.*member = std::chrono::milliseconds(std::llround(box->value() * 1000));
            return std::string();
          }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::SettingField&,
                                                          const store::Choice& choice) {
  auto* box = new QComboBox;
  for (const store::Choice::Option& option : choice.options) box->addItem(translated(option.caption));
  return {box,
          [=](const store::SiteSettings& settings) {
            box->setCurrentIndex(static_cast<int>(choice.get(settings)));
          },
          [=](store::SiteSettings& settings) {
            choice.set(settings, static_cast<std::size_t>(box->currentIndex()));
            return std::string();
          }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::SettingField& field,
                                                          const store::Text& text) {
  auto* line = new QLineEdit;
  line->setPlaceholderText(translated(text.emptyMeans));
  const auto member = text.member;
  return {
      line,
      [=](const store::SiteSettings& settings) {
        line->setText(toQString(settings.*member));
        line->setCursorPosition(0);
      },
      [=, &field](store::SiteSettings& settings) { return field.setText(settings, toUtf8(line->text())); }};
}

ScanSettingsSheet::Control ScanSettingsSheet::makeControl(const store::SettingField& field,
                                                          const store::Lines& lines) {
  constexpr int kLinesShown = 3;
  auto* edit = new QPlainTextEdit;
  edit->setPlaceholderText(translated(lines.form));
  edit->setLineWrapMode(QPlainTextEdit::NoWrap);
  edit->setTabChangesFocus(true);
  edit->setFixedHeight(kLinesShown * edit->fontMetrics().lineSpacing() + 2 * edit->frameWidth() +
                       static_cast<int>(2 * edit->document()->documentMargin()));
  const auto member = lines.member;
  return {edit,
          [=](const store::SiteSettings& settings) {
            QStringList texts;
            for (const std::string& each : settings.*member) texts.append(toQString(each));
            edit->setPlainText(texts.join(QLatin1Char('\n')));
          },
          [=, &field](store::SiteSettings& settings) {
            (settings.*member).clear();
            for (const QString& each : edit->toPlainText().split(QLatin1Char('\n'))) {
              if (each.trimmed().isEmpty()) continue;
              std::string problem = field.setText(settings, toUtf8(each));
              if (!problem.empty()) return problem;
            }
            return std::string();
          }};
}

void ScanSettingsSheet::showSettings(const store::SiteSettings& settings) {
  m_shown = settings;
  for (const Control& control : m_controls) control.show(settings);
  m_password->begin();
  // Of a small screen some is left, and the form is scrolled.
  ensurePolished();
  resize(sizeHint().boundedTo(screen()->availableSize() * 0.9));
  m_controls.front().widget->setFocus();
}

QString ScanSettingsSheet::problem() const {
  for (const Control& control : m_controls) {
    store::SiteSettings typed = m_shown;
    const std::string problem = control.take(typed);
    if (!problem.empty()) return tr("%1: %2.").arg(control.widget->accessibleName(), toQString(problem));
  }
  return m_password->problem();
}

void ScanSettingsSheet::applyChanges(store::SiteSettings& settings) const {
  for (std::size_t i = 0; i < m_controls.size(); ++i) {
    store::SiteSettings changed = m_shown;
    const bool isFine = m_controls[i].take(changed).empty();
    if (isFine && changed != m_shown) m_controls[i].take(settings);
  }
}

}  // namespace crawler
