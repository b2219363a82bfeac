#include "ui/split_export.h"

#include <exception>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/qt_text.h"
#include "ui/file_sheets.h"

namespace ui {

using platform::toQString;
using platform::toUtf8;

SplitExport::SplitExport(QMainWindow& mainWindow, platform::SheetQueue& sheets, ExportSheet& progressSheet)
    : m_mainWindow(mainWindow), m_sheets(sheets), m_progressSheet(progressSheet) {}

void SplitExport::begin(Request request) {
  if (request.startUrl.empty()) {
    m_sheets.alert(tr("The site has no address."), tr("The index of a split sitemap needs it."));
    return;
  }
  auto work = std::make_shared<Request>(std::move(request));
  askForFolder(m_sheets, m_mainWindow, {tr("Export Sitemaps To"), tr("Export Here"), work->folder}, *this,
               [this, work](const QString& folder) {
                 work->folder = folder;
                 start(work, Existing::ask);
               });
}

void SplitExport::start(std::shared_ptr<const Request> work, Existing existing) {
  m_progressSheet.showBusy();
  m_sheets.show(m_progressSheet);
  m_worker = std::jthread([this, work = std::move(work), existing] {
    Outcome outcome;
    try {
      outcome = write(*work, existing);
    } catch (const std::exception& failure) {  // no memory
      outcome.problem.result = {platform::FileStatus::failed, failure.what()};
      outcome.problem.path = toUtf8(work->folder);
    }
    QMetaObject::invokeMethod(
        this, [this, work, outcome] { ended(work, outcome); }, Qt::QueuedConnection);
  });
}

SplitExport::Outcome SplitExport::write(const Request& work, Existing existing) {
  const sitemaps::SplitSitemap sitemap(work.sitemap);
  if (sitemap.partCount() == 0) return {.holdsNoPages = true};
  const std::filesystem::path folder = toUtf8(work.folder);
  const std::vector<std::string> names = sitemaps::splitFileNames(sitemap.partCount(), work.compression);
  for (const std::string& name : names) {
    if (existing == Existing::ask && platform::somethingAt(folder / name))
      return {.existing = toQString(name)};
  }
  sitemaps::SplitResult result = sitemaps::writeSplit(sitemap, work.startUrl, work.compression, folder);
  if (!result.result.ok()) return {.problem = std::move(result)};
  return {.written = names.size()};
}

void SplitExport::ended(const std::shared_ptr<const Request>& work, const Outcome& outcome) {
  m_sheets.close(m_progressSheet);
  if (outcome.written > 0) {
    emit report(tr("Saved %Ln file(s) in %1", nullptr, static_cast<int>(outcome.written)).arg(work->folder));
  } else if (outcome.holdsNoPages) {
    m_sheets.alert(tr("The sitemap holds no pages."));
  } else if (!outcome.existing.isEmpty()) {
    m_sheets.ask(tr("The folder holds an earlier export."),
                 tr("%1 and the other files of this export would be replaced.").arg(outcome.existing),
                 tr("Replace"), tr("Cancel"), [this, work](bool replace) {
                   if (replace) start(work, Existing::replace);
                 });
  } else {
    m_sheets.alert(tr("The sitemap could not be saved."), tr("Could not write %1: %2")
                                                              .arg(toQString(outcome.problem.path.native()),
                                                                   toQString(outcome.problem.result.error)));
  }
}

}  // namespace ui
