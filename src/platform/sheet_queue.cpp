#include "platform/sheet_queue.h"

#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds kFollowUpDelay{500};

}  // namespace

SheetQueue::SheetQueue(QWidget& window) : m_window(window) {
  m_followUp.setSingleShot(true);
  m_followUp.setInterval(kFollowUpDelay);
  connect(&m_followUp, &QTimer::timeout, this, &SheetQueue::openNext);
}

void SheetQueue::show(QDialog& sheet) {
  if (m_current == nullptr && m_waiting.empty()) {
    open(sheet);
  } else {
    m_waiting.emplace_back(&sheet);
  }
}

/// Messages keep their distance from a sheet that has just gone, too.
void SheetQueue::showAfterOthers(QDialog& sheet) {
  if (m_followUp.isActive()) {
    m_waiting.emplace_back(&sheet);
  } else {
    show(sheet);
  }
}

void SheetQueue::close(QDialog& sheet) {
  std::erase(m_waiting, &sheet);
  if (m_current == &sheet) sheet.done(QDialog::Rejected);
}

void SheetQueue::alert(const QString& title, const QString& message) {
  auto* box =
      new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Veskel"), title, QMessageBox::Ok, &m_window);
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(message);
  box->setAttribute(Qt::WA_DeleteOnClose);
  showAfterOthers(*box);
}

void SheetQueue::ask(const QString& title, const QString& message, const QString& defaultButton,
                     const QString& otherButton, std::function<void(bool)> answered) {
  auto* box =
      new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Veskel"), title, QMessageBox::NoButton, &m_window);
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(message);
  box->setAttribute(Qt::WA_DeleteOnClose);
  QPushButton* yes = box->addButton(defaultButton, QMessageBox::AcceptRole);
  QPushButton* no = box->addButton(otherButton, QMessageBox::RejectRole);
  box->setDefaultButton(yes);
  box->setEscapeButton(no);
  connect(box, &QDialog::finished, this,
          [box, yes, answered = std::move(answered)] { answered(box->clickedButton() == yes); });
  showAfterOthers(*box);
}

void SheetQueue::open(QDialog& sheet) {
  m_current = &sheet;
  connect(&sheet, &QDialog::finished, this, &SheetQueue::closed, Qt::SingleShotConnection);
  sheet.setWindowModality(Qt::WindowModal);
  sheet.open();
}

void SheetQueue::closed() {
  m_current = nullptr;
  m_followUp.start();
}

void SheetQueue::openNext() {
  while (m_current == nullptr && !m_waiting.empty()) {
    const QPointer<QDialog> next = m_waiting.front();
    m_waiting.pop_front();
    if (next) open(*next);
  }
}

}  // namespace platform
