#include "ui/background_read.h"

#include <exception>
#include <utility>

namespace ui {

void BackgroundRead::ask(Read read) {
  if (m_reading) {
    m_next = std::move(read);
  } else {
    start(std::move(read));
  }
}

void BackgroundRead::start(Read read) {
  m_reading = true;
  m_worker = std::jthread([this, read = std::move(read)] {
    Show show = [] {};
    try {
      show = read();
    } catch (const std::exception&) {  // no memory: what was shown before stays
    }
    QMetaObject::invokeMethod(
        this, [this, show = std::move(show)] { done(show); }, Qt::QueuedConnection);
  });
}

void BackgroundRead::done(const Show& show) {
  m_reading = false;
  show();
  if (m_reading || !m_next) return;
  start(*std::exchange(m_next, std::nullopt));
}

}  // namespace ui
