// The password in the sheet "Scan Settings".
#pragma once

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <optional>
#include <string>

#include "crawler/site_password.h"

namespace crawler {

/// A field for a new password, whether there is one, and a button to be rid of it. The password itself is
/// never shown, nor how long it is.
class PasswordRow : public QObject {
  Q_OBJECT

 public:
  /// Puts itself at the end of the form, which owns its controls. `userName` is the field with the name that
  /// the password belongs to, and is borrowed.
  PasswordRow(QFormLayout& form, QLineEdit& userName);

  /// Another site is shown, with its name, and nothing is known of its password.
  void begin();
  void showPresence(const PasswordKeeper::Presence& presence);

  /// The password that was typed; nothing when the one that is there stays.
  std::optional<std::string> typed() const;
  bool isToBeRemoved() const { return m_remove->isChecked(); }

  /// What is wrong with what was typed, a sentence; empty for nothing.
  QString problem() const;

 private:
  void showState();

  QLineEdit& m_userName;
  QLineEdit* m_password;
  QPushButton* m_remove;
  QLabel* m_place;  // where it is kept
  QString m_shownName;
  bool m_isKnown = false;
};

}  // namespace crawler
