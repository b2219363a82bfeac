#include "ui/link_check_controller.h"

#include <chrono>
#include <exception>
#include <memory>
#include <utility>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "store/site_settings.h"

namespace ui {

using platform::toQString;
using report::CheckEnd;

namespace {

constexpr std::chrono::milliseconds kLookInterval{100};

QString endText(const QString& site, const report::CheckResult& result) {
  const report::CheckProgress& progress = result.progress;
  const auto numeral = [](std::size_t number) { return QLocale().toString(static_cast<qulonglong>(number)); };
  if (result.end == CheckEnd::stopped)
    return LinkCheckController::tr("Stopped checking the outside links of \"%1\": %2 of %3 were asked")
        .arg(site, numeral(progress.asked.all()), numeral(progress.all));
  return LinkCheckController::tr("Checked the outside links of \"%1\": %2 of %3 are broken")
      .arg(site, numeral(progress.asked.of(report::LinkState::broken)), numeral(progress.all));
}

}  // namespace

LinkCheckController::LinkCheckController(const LinkCheckServices& services) : m_services(services) {
  m_look.setInterval(kLookInterval);
  connect(&m_look, &QTimer::timeout, this, &LinkCheckController::showProgress);
}

LinkCheckController::~LinkCheckController() = default;

QString LinkCheckController::whyNot() const {
  if (m_services.state.qzvskCurSite.empty()) return tr("Select a site first");
  if (m_services.scan.isScanning()) return tr("A site is being scanned");
  if (isRunning()) return tr("The links of \"%1\" are being checked").arg(toQString(m_siteName));
  return {};
}

void LinkCheckController::plan() {
  if (!whyNot().isEmpty()) return;
  m_plans.ask([this, site = m_services.state.qzvskCurSite]() -> BackgroundRead::Show {
    const report::CheckPlan plan = report::planCheck(m_services.controls, m_services.stateFolder, site);
    return [this, site, plan] {
      if (site == m_services.state.qzvskCurSite && whyNot().isEmpty()) emit planned(site, plan);
    };
  });
}

void LinkCheckController::start(const std::string& siteName, bool resources, bool again) {
  if (!whyNot().isEmpty()) return;
  report::CheckRequest request{
      .scan = {.siteName = siteName,
               .startUrl = store::readSite(m_services.controls, siteName).details.url,
               .site = store::readSettings(m_services.stateFolder, siteName).settings},
      .resources = resources,
      .again = again};
  if (const auto key = crawler::passwordKey(request.scan.startUrl, request.scan.site)) {
    request.scan.password = std::make_shared<crawler::SitePassword>(
        [this, key = *key](const std::stop_token& stop) { return m_services.passwords.lookUp(key, stop); });
  }
  m_siteName = siteName;
  m_shown = m_latest = {};
  m_worker = std::jthread([this, request = std::move(request)](const std::stop_token& stop) {
    report::CheckResult result;
    try {
      result = report::SiteLinkCheck(m_services.controls, m_services.stateFolder, request, *this).run(stop);
    } catch (const std::exception& error) {
      result.end = CheckEnd::failed;
      result.file = {platform::FileStatus::failed, error.what()};
    }
    QMetaObject::invokeMethod(
        this, [this, result] { finish(result); }, Qt::QueuedConnection);
  });
  m_look.start();
  emit changed();
}

void LinkCheckController::stop() {
  if (!isRunning() || std::exchange(m_isStopping, true)) return;
  m_worker.request_stop();
  emit changed();
}

void LinkCheckController::refresh() {
  // What is kept of a site that was renamed or deleted has gone elsewhere.
  if (isRunning() && !platform::somethingAt(m_services.controls.siteFolder(m_siteName))) stop();
  emit changed();
}

void LinkCheckController::checkProgressed(const report::CheckProgress& progress) {
  const std::lock_guard lock(m_mutex);
  m_latest = progress;
}

void LinkCheckController::showProgress() {
  {
    const std::lock_guard lock(m_mutex);
    m_shown = m_latest;
  }
  emit progressed();
}

void LinkCheckController::finish(const report::CheckResult& result) {
  m_worker.join();
  m_look.stop();
  m_isStopping = false;
  const QString site = toQString(std::exchange(m_siteName, {}));
  emit changed();
  const bool isDone = result.end == CheckEnd::complete || result.end == CheckEnd::stopped;
  if (isDone) emit report(endText(site, result));
  emit ended(site, result);
}

}  // namespace ui
