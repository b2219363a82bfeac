// What of a window is off while a sheet is up.
#pragma once

#include <QActionGroup>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace platform {

/// A sheet keeps mouse and keys from its window, but not a screen reader, which works the controls of all
/// windows directly: so the controls are off. One for each window, whoever puts sheets over it. UI thread.
class WindowCover : public QObject {
  Q_OBJECT

 public:
  /// The cover of a window, made when it is first asked for; the window owns it.
  static WindowCover& of(QWidget& window);

  /// Commands that are no controls inside the window: menu items, shortcuts. Borrowed.
  void setCommands(const QList<QActionGroup*>& commands) { m_commands = commands; }

  /// As often as add() was called, remove() has to be called before the window can be used again. The focus
  /// is then where it was.
  void add();
  void remove();

 private:
  explicit WindowCover(QWidget& window);

  void enable(bool enabled);

  QWidget& m_window;
  QList<QActionGroup*> m_commands;
  QList<QPointer<QWidget>> m_covered;
  QPointer<QWidget> m_focus;
  int m_sheets = 0;
};

}  // namespace platform
