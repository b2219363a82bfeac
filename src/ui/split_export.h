// The export of an XML sitemap as several files with an index, for sites that are too large for one.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>

#include "platform/sheet_queue.h"
#include "sitemaps/site_export.h"
#include "ui/export_sheet.h"

namespace ui {

/// Asks for a folder, and before it replaces files in it; shares out and writes on a worker of its own,
/// behind the progress sheet. UI thread.
class SplitExport : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive this object.
  SplitExport(QMainWindow& mainWindow, platform::SheetQueue& sheets, ExportSheet& progressSheet);

  struct Request {
    std::string sitemap;   // made fit for an export
    std::string startUrl;  // where the site starts
    sitemaps::Compression compression = sitemaps::Compression::none;
    QString folder;  // where the question for one begins
  };
  void begin(Request request);

 signals:
  void report(const QString& sentence);

 private:
  enum class Existing { ask, replace };
  /// How it went: one of the four.
  struct Outcome {
    std::size_t written = 0;  // files; 0 when nothing was written
    bool holdsNoPages = false;
    QString existing = {};  // a file that would be replaced
    sitemaps::SplitResult problem = {};
  };

  void start(std::shared_ptr<const Request> work, Existing existing);
  static Outcome write(const Request& work, Existing existing);
  void ended(const std::shared_ptr<const Request>& work, const Outcome& outcome);

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  ExportSheet& m_progressSheet;
  std::jthread m_worker;  // last, so that it is over before the rest goes
};

}  // namespace ui
