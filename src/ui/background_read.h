// Reading on another thread, one thing after the other.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <thread>

namespace ui {

/// Of what is asked for while something is read, the last one follows, and the rest is passed over. UI
/// thread.
class BackgroundRead : public QObject {
  Q_OBJECT

 public:
  /// Called on another thread; what it gives back is called on the UI thread when it is done. Borrows nothing
  /// that may go before this does.
  using Show = std::function<void()>;
  using Read = std::function<Show()>;

  explicit BackgroundRead(QObject* parent = nullptr) : QObject(parent) {}

  void ask(Read read);

 private:
  void start(Read read);
  void done(const Show& show);

  std::optional<Read> m_next;
  bool m_reading = false;
  std::jthread m_worker;  // last, so that it is over before the rest goes
};

}  // namespace ui
