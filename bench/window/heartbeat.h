// How long the window's event loop is ever held up.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <algorithm>

/// The longest time in which the window did not get to handle an event.
class Heartbeat : public QObject {
 public:
  Heartbeat() {
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.start(1);
    connect(&m_timer, &QTimer::timeout, this, [this] {
      m_longest = std::max(m_longest, m_since.nsecsElapsed());
      m_since.start();
    });
    m_since.start();
  }
  double longestMilliseconds() const {
    return static_cast<double>(std::max(m_longest, m_since.nsecsElapsed())) / 1e6;
  }

 private:
  QTimer m_timer;
  QElapsedTimer m_since;
  qint64 m_longest = 0;
};
