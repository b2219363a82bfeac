// The seven views of the main window, and the rule by which they take turns.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "ui/main_view_controls.h"

namespace ui {

/// Numbers of the views, the same for all that switch them.
enum View { scanView = 1, htmlView, htmlEditorView, xmlView, exportView, uploadView, brokenLinksView };

/// Owns the switch of views and what belongs to no other controller: site picker, upload text.
/// UI thread.
class MainViewControl : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  MainViewControl(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                  const store::GlobalControls& controls, store::SharedState& state);

  /// Called before a view makes way, so that unsaved changes can be offered for saving. None by default.
  void setCheckSave(std::function<void()> checkSave) { m_checkSave = std::move(checkSave); }

  void changeCurrentView(int number) { m_state.qzvskCurrentView = number; }
  int returnCurrentView() const { return m_state.qzvskCurrentView; }

  /// The view of a number; null outside 1 to 7.
  QWidget* mainViewsList(int number) const;

  void scanTBIAction();
  void htmlTBIAction();
  void htmlEditTBIAction();
  void xmlTBIAction();
  void exportTBIAction();
  void uploadTBIAction();

  /// Enters the export view by another way than the toolbar: with the sites listed so far, which are looked
  /// for anew afterwards. Nothing in the window does so.
  void exportReload();

  void showBrokenLinks();

  /// Rebuilds the list of sites that have an XML sitemap.
  void populateSitePicker();
  const QStringList& sitePickerPopUpArray() const { return m_sitePickerPopUpArray; }

  /// Opens the support page. Its address is set when the program is built.
  void reportProblem() const;

 signals:
  /// A view has come up, also when it was asked for while it was up already.
  void viewShown(int number);

 private:
  enum class AbandonEdits { yes, no };

  void connectActions();
  void switchTo(int number, AbandonEdits abandon);
  void switchToSitemap(View view);
  void clearLinkEdits();
  void enableExports();
  void show(int number);
  bool needsSite(const QString& message);
  void closeFilterDrawer();
  void markCurrentView();

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  store::SharedState& m_state;
  MainViewControls m_view;
  std::function<void()> m_checkSave;
  QStringList m_sitePickerPopUpArray;
  QString m_sitemapLine;    // of the upload view
  QString m_versionString;  // of the operating system, empty where unknown; for diagnostics, nothing reads it
};

}  // namespace ui
