#include "ui/linking_export.h"

#include "platform/files.h"
#include "platform/qt_text.h"
#include "report/report_csv.h"
#include "report/report_json.h"
#include "report/site_report.h"
#include "ui/file_sheets.h"

namespace ui {

using platform::toQString;

void LinkingExport::begin(Format format, const QString& folder) {
  const bool asJson = format == Format::json;
  askWhereToSave(
      m_sheets, m_mainWindow,
      {tr("Export Broken Links"),
       asJson ? QStringLiteral("brokenLinks.json") : QStringLiteral("brokenLinks.csv"),
       asJson ? tr("JSON (*.json)") : tr("Table (*.csv)"),
       asJson ? QStringLiteral("json") : QStringLiteral("csv"), folder},
      *this, [this, format, site = m_state.qzvskCurSite](const QString& path) { save(site, format, path); });
}

void LinkingExport::save(const std::string& siteName, Format format, const QString& path) {
  m_work.ask([this, siteName, format, path]() -> BackgroundRead::Show {
    const auto [read, siteReport] = report::readSiteReport(m_stateFolder, siteName, {});
    const platform::FileResult saved =
        !read.ok() ? read
                   : platform::replaceFile(platform::toUtf8(path), format == Format::json
                                                                       ? report::brokenJson(siteReport)
                                                                       : report::brokenCsv(siteReport));
    return [this, path, saved] {
      if (saved.ok()) {
        emit report(tr("Saved %1").arg(path));
      } else {
        m_sheets.alert(tr("The file could not be saved."),
                       tr("Could not write %1: %2").arg(path, toQString(saved.error)));
      }
    };
  });
}

}  // namespace ui
