// "Check for Updates": the menu's command, its sheets, and the asking on another thread.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <thread>

#include "crawler/scan_sheets.h"
#include "platform/http_client.h"
#include "platform/sheet_queue.h"
#include "update/update_check.h"

namespace ui {

/// Makes the client of one check, on the check's thread. Each has its own, so that a server learns nothing
/// from one about the next.
using MakeClient = std::function<std::unique_ptr<platform::HttpClient>()>;

/// Asks for updates when it is told to, and at no other time. UI thread.
class UpdateController : public QObject {
  Q_OBJECT

 public:
  /// Window and sheets are borrowed.
  UpdateController(QWidget& window, platform::SheetQueue& sheets, update::CheckRequest request,
                   MakeClient makeClient);

  /// Stops a check that still runs and waits for its end.
  ~UpdateController() override;

  /// Asks, while a sheet says so, and tells what came of it. Nothing while it asks already.
  void check();

 signals:
  void report(const QString& sentence);

 private:
  void stop();
  void finish(const update::CheckResult& result);

  QWidget& m_window;
  platform::SheetQueue& m_sheets;
  const update::CheckRequest m_request;
  const MakeClient m_makeClient;
  crawler::WaitingSheet m_waiting;
  bool m_isChecking = false;
  std::jthread m_worker;  // last, since it uses the rest
};

}  // namespace ui
