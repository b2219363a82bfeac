// The wish to close a window that a sheet lies over.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QWidget>
#include <cstdint>

namespace platform {

/// Tells when the user closes `window` by its title bar, or from the desktop's list of windows, while a sheet
/// holds it back: Qt drops that without a word, and the window has no other way to learn of it. Seen on X11
/// only; other systems give nobody a look at it. UI thread.
class CloseRequests : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  /// `window` outlives this object.
  explicit CloseRequests(QWidget& window);
  ~CloseRequests() override;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 signals:
  void requested();

 private:
  QWidget& m_window;
  std::uint32_t m_protocols = 0;     // what X11 calls the kind of message, and
  std::uint32_t m_deleteWindow = 0;  // the message; 0 on other systems
};

}  // namespace platform
