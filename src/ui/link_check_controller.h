// "Check Outside Links": the check that runs beside the windows.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <mutex>
#include <thread>

#include "crawler/scan_controller.h"
#include "crawler/site_password.h"
#include "report/site_link_check.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/state_folder.h"
#include "ui/background_read.h"

namespace ui {

/// What it works with; all borrowed.
struct LinkCheckServices {
  const store::GlobalControls& controls;
  const store::StateFolder& stateFolder;
  const store::SharedState& state;
  const crawler::ScanController& scan;
  crawler::PasswordKeeper& passwords;
};

/// Runs one check at a time, on a thread of its own. Another site may come into hand meanwhile. UI thread.
class LinkCheckController : public QObject, private report::CheckObserver {
  Q_OBJECT

 public:
  explicit LinkCheckController(const LinkCheckServices& services);
  /// Stops a check that runs and waits for its end.
  ~LinkCheckController() override;

  bool isRunning() const { return !m_siteName.empty(); }
  bool isStopping() const { return m_isStopping; }
  /// Whose links are checked; empty when none are.
  const std::string& siteName() const { return m_siteName; }
  const report::CheckProgress& progress() const { return m_shown; }

  /// Why no check of the site in hand can begin; empty when one can, as far as is known without reading.
  QString whyNot() const;

  /// Reads what a check of the site in hand would do, for planned().
  void plan();
  void start(const std::string& siteName, bool resources, bool again);
  void stop();

  /// Another site is in hand, or a scan has begun or ended.
  void refresh();

 signals:
  void planned(const std::string& siteName, const report::CheckPlan& plan);
  /// A check has begun, stops or has ended, or whyNot() is another one.
  void changed();
  /// Some ten times a second.
  void progressed();
  void ended(const QString& siteName, const report::CheckResult& result);
  void report(const QString& sentence);

 private:
  void checkProgressed(const report::CheckProgress& progress) override;  // on the check's threads
  void showProgress();
  void finish(const report::CheckResult& result);

  LinkCheckServices m_services;
  std::string m_siteName;
  bool m_isStopping = false;
  report::CheckProgress m_shown;
  QTimer m_look;
  std::mutex m_mutex;
  report::CheckProgress m_latest;  // guarded by m_mutex
  BackgroundRead m_plans;
  std::jthread m_worker;  // last, since it uses the rest
};

}  // namespace ui
