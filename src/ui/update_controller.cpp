#include "ui/update_controller.h"

#include <exception>
#include <utility>

#include "platform/qt_text.h"
#include "ui/update_sheet.h"

namespace ui {

using platform::toQString;
using update::CheckEnd;

UpdateController::UpdateController(QWidget& window, platform::SheetQueue& sheets,
                                   update::CheckRequest request, MakeClient makeClient)
    : m_window(window),
      m_sheets(sheets),
      m_request(std::move(request)),
      m_makeClient(std::move(makeClient)),
      m_waiting(&window, "updateProgressSheet", "updateProgressBar", crawler::WaitingSheet::GiveUp::offered) {
  m_waiting.setText(tr("Checking for updates..."));
  m_waiting.setGiveUpText(tr("&Stop"));
  connect(&m_waiting, &crawler::WaitingSheet::givenUp, this, &UpdateController::stop);
}

UpdateController::~UpdateController() = default;

void UpdateController::check() {
  if (std::exchange(m_isChecking, true)) return;
  m_sheets.show(m_waiting);
  m_worker = std::jthread([this](const std::stop_token& stop) {
    update::CheckResult result;
    try {
      result = update::checkForUpdate(*m_makeClient(), m_request, stop);
    } catch (const std::exception& error) {
      result = {.end = CheckEnd::notReached, .problem = error.what()};
    }
    QMetaObject::invokeMethod(
        this, [this, result] { finish(result); }, Qt::QueuedConnection);
  });
}

void UpdateController::stop() {
  m_waiting.setText(tr("Stopping..."));
  m_worker.request_stop();
}

void UpdateController::finish(const update::CheckResult& result) {
  m_worker.join();
  m_isChecking = false;
  m_sheets.close(m_waiting);
  m_waiting.setText(tr("Checking for updates..."));
  const update::CheckText text = update::textOf(result, m_request);
  switch (result.end) {
    case CheckEnd::stopped:
      emit report(tr("The check for updates was stopped"));
      break;
    case CheckEnd::newer:
      emit report(toQString(text.title));
      m_sheets.show(*new UpdateSheet(&m_window, text, result));
      break;
    default:
      m_sheets.alert(toQString(text.title), toQString(text.message));
  }
}

}  // namespace ui
