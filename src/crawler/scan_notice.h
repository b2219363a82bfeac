// What the last scan has to tell beside its counts, above the list of its links.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTextEdit>
#include <string>

#include "platform/named_controls.h"
#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace crawler {

/// One paragraph a notice, and where browsers would reach more pages a button that has the site's links
/// followed as they do. UI thread.
class ScanNotice : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the notice.
  ScanNotice(QMainWindow& mainWindow, platform::SheetQueue& sheets, const store::GlobalControls& controls,
             const store::StateFolder& stateFolder);

  void add(const QString& text);
  /// Says that browser rules may find more of this site.
  void offerBrowserRules(const std::string& siteName);
  void clear();

  /// Shows all of it, the offer as the site's settings are now.
  void refresh();

 signals:
  void report(const QString& sentence);

 private:
  void followLinksAsBrowsersDo();

  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  QTextEdit& m_text;
  QPushButton& m_button;
  QPushButton& m_scanButton;
  QStringList m_texts;
  std::string m_offeredTo;  // the site's name; empty where nothing is offered
};

}  // namespace crawler
