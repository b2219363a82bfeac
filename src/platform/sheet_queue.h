// Sheets: dialogs that belong to a window and hold it back until they are answered, one at a time.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>

namespace platform {

/// The sheets of one window. A sheet asked for while another is up follows half a second after that one has
/// closed, so that the user sees one go before the next comes. While one is up the window is off, for
/// whatever works it. Nothing here blocks. UI thread only.
class SheetQueue : public QObject {
  Q_OBJECT

 public:
  explicit SheetQueue(QWidget& window);

  /// Puts a sheet up that its caller owns, at once unless another is up. When it closes, by whatever means,
  /// the next one follows.
  void show(QDialog& sheet);

  /// Takes a sheet down, or out of the queue if it was not up yet.
  void close(QDialog& sheet);

  /// A message with the button "OK".
  void tell(const QString& title, const QString& message);

  /// The same, of something that has just happened.
  void alert(const QString& title, const QString& message = {});

  /// A question. `answered` is called once: with true for the default button, with false for the other one or
  /// when the sheet is dismissed. The default button is on offer to the Return key, the other to Escape.
  void ask(const QString& title, const QString& message, const QString& defaultButton,
           const QString& otherButton, std::function<void(bool)> answered);

  /// A question with several answers, the default one first. `answered` is called once, with the number of
  /// the button. `escape` is the number of the one that Escape stands for; with none the sheet cannot be
  /// dismissed, since every answer there is does something.
  static constexpr int kNoEscape = -1;
  void choose(const QString& title, const QString& message, const QStringList& buttons, int escape,
              std::function<void(int)> answered);

  /// Whether a sheet is up or about to come up.
  bool busy() const { return m_current != nullptr || !m_waiting.empty(); }

 signals:
  /// A sheet has come up.
  void opened(QDialog& sheet);
  /// Something happened of which an alert tells.
  void alerted(const QString& title);

 private:
  void showAfterOthers(QDialog& sheet);
  void open(QDialog& sheet);
  void closed();
  void uncover();
  void openNext();

  QWidget& m_window;
  QPointer<QDialog> m_current;
  std::deque<QPointer<QDialog>> m_waiting;
  QTimer m_followUp;
  bool m_covering = false;
};

}  // namespace platform
