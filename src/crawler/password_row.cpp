#include "crawler/password_row.h"

#include <QHBoxLayout>

#include "platform/header_line.h"
#include "platform/qt_text.h"

namespace crawler {

using platform::toQString;
using platform::toUtf8;

PasswordRow::PasswordRow(QFormLayout& form, QLineEdit& userName)
    : m_userName(userName), m_password(new QLineEdit), m_remove(new QPushButton), m_place(new QLabel) {
  m_password->setObjectName(QStringLiteral("http-password"));
  m_password->setAccessibleName(tr("Password"));
  m_password->setEchoMode(QLineEdit::Password);
  m_remove->setObjectName(QStringLiteral("removePassword"));
  m_remove->setText(tr("&Remove"));
  m_remove->setAccessibleName(tr("Remove the password"));
  m_remove->setCheckable(true);
  m_remove->setAutoDefault(false);
  m_place->setObjectName(QStringLiteral("passwordPlace"));
  QFont quiet = m_place->font();
  quiet.setPointSizeF(quiet.pointSizeF() * 0.9);
  m_place->setFont(quiet);
  m_place->setWordWrap(true);  // it may quote an error
  auto* label = new QLabel(tr("Pass&word"));
  label->setBuddy(m_password);
  auto* fields = new QHBoxLayout;
  fields->addWidget(m_password);
  fields->addWidget(m_remove);
  form.addRow(label, fields);
  form.setWidget(form.rowCount(), QFormLayout::FieldRole, m_place);
  connect(m_remove, &QPushButton::toggled, this, &PasswordRow::showState);
  connect(&m_userName, &QLineEdit::textChanged, this, &PasswordRow::showState);
}

void PasswordRow::begin() {
  m_shownName = m_userName.text();
  m_isKnown = false;
  m_password->clear();
  m_remove->setChecked(false);
  m_place->setText(tr("Kept in the desktop's secret service"));
  showState();
}

void PasswordRow::showPresence(const PasswordKeeper::Presence& presence) {
  using platform::SecretOutcome;
  m_isKnown = presence.isKnown();
  const SecretOutcome outcome = presence.stored.outcome;
  const bool isKept = outcome == SecretOutcome::done || outcome == SecretOutcome::missing;
  if (!isKept) {
    m_place->setText(tr("Kept until the program ends only, as %1").arg(toQString(presence.stored.error)));
  }
  m_password->setAccessibleDescription(m_place->text());
  showState();
}

/// A password belongs to its name.
void PasswordRow::showState() {
  const bool isSet = m_isKnown && m_userName.text() == m_shownName;
  m_password->setPlaceholderText(m_remove->isChecked() ? tr("will be removed")
                                 : isSet               ? tr("set; stays as it is when this is left empty")
                                                       : tr("not set"));
  m_password->setEnabled(!m_remove->isChecked());
  m_remove->setEnabled(isSet || m_remove->isChecked());
}

std::optional<std::string> PasswordRow::typed() const {
  if (isToBeRemoved() || m_password->text().isEmpty()) return {};
  return toUtf8(m_password->text());
}

QString PasswordRow::problem() const {
  const std::optional<std::string> password = typed();
  if (!password) return {};
  if (m_userName.text().trimmed().isEmpty()) return tr("A password needs the name that it belongs to.");
  const std::string problem = platform::headerTextProblem(*password);
  return problem.empty() ? QString() : tr("Password: %1.").arg(toQString(problem));
}

}  // namespace crawler
