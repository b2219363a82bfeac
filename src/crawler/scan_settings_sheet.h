// The sheet "Scan Settings": how the site in hand is scanned.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "crawler/password_row.h"
#include "store/site_settings.h"

class QFormLayout;

namespace crawler {

/// A control for each row of the table of settings, one for the password, "Save" and "Cancel". Whoever shows
/// it takes it down.
class ScanSettingsSheet : public QDialog {
  Q_OBJECT

 public:
  explicit ScanSettingsSheet(QWidget* parent);

  void showSettings(const store::SiteSettings& settings);

  PasswordRow& password() { return *m_password; }

  /// What is wrong with what the user has typed, a sentence; empty when it may be saved.
  QString problem() const;

  /// Sets in `settings` what the user has changed since showSettings(), and leaves the rest as it is.
  void applyChanges(store::SiteSettings& settings) const;

 signals:
  void saveAsked();

 private:
  struct Control {
    QWidget* widget;
    std::function<void(const store::SiteSettings&)> show;
    std::function<std::string(store::SiteSettings&)> take;  // gives what is wrong, as SettingField::setText()
  };

  Control makeControl(const store::SettingField& field, const store::WholeNumber& number);
  Control makeControl(const store::SettingField& field, const store::Seconds& seconds);
  Control makeControl(const store::SettingField& field, const store::Choice& choice);
  Control makeControl(const store::SettingField& field, const store::Text& text);
  Control makeControl(const store::SettingField& field, const store::Lines& lines);
  QLineEdit& userNameField() const;
  void addRow(QFormLayout& form, const store::SettingField& field);

  std::vector<Control> m_controls;  // in the order of the table
  std::unique_ptr<PasswordRow> m_password;
  store::SiteSettings m_shown;
};

}  // namespace crawler
