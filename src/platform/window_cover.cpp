#include "platform/window_cover.h"

#include <QStatusBar>

namespace platform {

WindowCover::WindowCover(QWidget& window) : QObject(&window), m_window(window) {}

WindowCover& WindowCover::of(QWidget& window) {
  auto* cover = window.findChild<WindowCover*>(QString(), Qt::FindDirectChildrenOnly);
  return cover != nullptr ? *cover : *new WindowCover(window);
}

void WindowCover::add() {
  if (m_sheets++ > 0) return;
  m_focus = m_window.focusWidget();
  for (QObject* child : m_window.children()) {
    auto* part = qobject_cast<QWidget*>(child);
    // What happened last can be read all the time.
    if (part == nullptr || part->isWindow() || qobject_cast<QStatusBar*>(part) != nullptr) continue;
    if (part->testAttribute(Qt::WA_ForceDisabled)) continue;  // it was off before
    m_covered.append(part);
  }
  enable(false);
}

void WindowCover::remove() {
  if (--m_sheets > 0) return;
  enable(true);
  m_covered.clear();
  if (m_focus) m_focus->setFocus();
}

void WindowCover::enable(bool enabled) {
  for (QActionGroup* group : m_commands) group->setEnabled(enabled);
  for (const QPointer<QWidget>& part : m_covered) {
    if (part) part->setEnabled(enabled);
  }
}

}  // namespace platform
