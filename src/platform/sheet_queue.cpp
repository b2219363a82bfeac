#include "platform/sheet_queue.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/window_cover.h"

namespace platform {

namespace {

constexpr std::chrono::milliseconds kFollowUpDelay{500};

/// Keeps a sheet from being closed but by its buttons.
class NoEscape : public QObject {
 public:
  explicit NoEscape(QObject* sheet) : QObject(sheet) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Close && event->spontaneous()) {
      event->ignore();
      return true;
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel))
      return true;
    return QObject::eventFilter(watched, event);
  }
};

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
  emit alerted(title);
  tell(title, message);
}

void SheetQueue::tell(const QString& title, const QString& message) {
  auto* box =
      new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Veskel"), title, QMessageBox::Ok, &m_window);
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(message);
  box->setAttribute(Qt::WA_DeleteOnClose);
  showAfterOthers(*box);
}

void SheetQueue::ask(const QString& title, const QString& message, const QString& defaultButton,
                     const QString& otherButton, std::function<void(bool)> answered) {
  choose(title, message, {defaultButton, otherButton}, 1,
         [answered = std::move(answered)](int number) { answered(number == 0); });
}

void SheetQueue::choose(const QString& title, const QString& message, const QStringList& buttons, int escape,
                        std::function<void(int)> answered) {
  auto* box =
      new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Veskel"), title, QMessageBox::NoButton, &m_window);
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(message);
  box->setAttribute(Qt::WA_DeleteOnClose);
  QList<QAbstractButton*> answers;
  for (const QString& text : buttons) {
    QPushButton* button =
        box->addButton(text, answers.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
    if (answers.isEmpty()) box->setDefaultButton(button);
    answers.append(button);
  }
  // Left to itself the box would find a button for Escape.
  if (escape == kNoEscape) {
    box->setWindowFlag(Qt::WindowCloseButtonHint, false);
    box->installEventFilter(new NoEscape(box));
  } else {
    box->setEscapeButton(answers.at(escape));
  }
  connect(box, &QDialog::finished, this, [this, box, answers, escape, answered = std::move(answered)] {
    uncover();  // the answer may want to move the focus
    const auto number = static_cast<int>(answers.indexOf(box->clickedButton()));
    if (number >= 0 || escape != kNoEscape) answered(number >= 0 ? number : escape);
  });
  showAfterOthers(*box);
}

void SheetQueue::open(QDialog& sheet) {
  m_current = &sheet;
  if (!std::exchange(m_covering, true)) WindowCover::of(m_window).add();
  connect(&sheet, &QDialog::finished, this, &SheetQueue::closed, Qt::SingleShotConnection);
  sheet.setWindowModality(Qt::WindowModal);
  sheet.open();
  // A sheet beside another one is not given the keys by every desktop. Nothing is taken from other programs.
  if (QGuiApplication::applicationState() == Qt::ApplicationActive) sheet.activateWindow();
  emit opened(sheet);
}

void SheetQueue::closed() {
  m_current = nullptr;
  uncover();
  m_followUp.start();
}

void SheetQueue::uncover() {
  if (std::exchange(m_covering, false)) WindowCover::of(m_window).remove();
}

void SheetQueue::openNext() {
  while (m_current == nullptr && !m_waiting.empty()) {
    const QPointer<QDialog> next = m_waiting.front();
    m_waiting.pop_front();
    if (next) open(*next);
  }
}

}  // namespace platform
