#include "platform/close_requests.h"

#include <QApplication>
#include <QMetaObject>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>

namespace platform {

namespace {

constexpr std::uint8_t kSentByOthers = 0x80;  // set beside the kind of an event

std::uint32_t atomNamed(xcb_connection_t* connection, const char* name) {
  const auto asked = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
      xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
  return reply ? reply->atom : 0;
}

}  // namespace

CloseRequests::CloseRequests(QWidget& window) : m_window(window) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr)
    return;  // the latter in a window system without display
  m_protocols = atomNamed(x11->connection(), "WM_PROTOCOLS");
  m_deleteWindow = atomNamed(x11->connection(), "WM_DELETE_WINDOW");
  qApp->installNativeEventFilter(this);
}

CloseRequests::~CloseRequests() {
  qApp->removeNativeEventFilter(this);
}

bool CloseRequests::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  // Without a sheet Qt closes the window by itself.
  if (eventType != "xcb_generic_event_t" || QApplication::activeModalWidget() == nullptr) return false;
  const auto* event = static_cast<const xcb_client_message_event_t*>(message);
  if ((event->response_type & ~kSentByOthers) == XCB_CLIENT_MESSAGE && event->type == m_protocols &&
      event->data.data32[0] == m_deleteWindow && event->window == m_window.winId()) {
    // Not from within the handling of the event.
    QMetaObject::invokeMethod(this, &CloseRequests::requested, Qt::QueuedConnection);
  }
  return false;
}

}  // namespace platform
