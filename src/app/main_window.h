// The main window: its controls from the interface file, and the controllers that make them work.
#pragma once

#include <QMainWindow>
#include <memory>

#include "app/menu_commands.h"
#include "crawler/filter_controller.h"
#include "crawler/scan_controller.h"
#include "crawler/scan_settings_controller.h"
#include "crawler/site_password.h"
#include "html_editor/html_view_controller.h"
#include "platform/close_requests.h"
#include "platform/secret_store.h"
#include "platform/sheet_queue.h"
#include "sitemaps/script_text.h"
#include "store/add_edit_delete_sites_controller.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/state_folder.h"
#include "ui/export_controller.h"
#include "ui/main_view_control.h"
#include "ui/restore_controller.h"
#include "ui/scan_view_controller.h"
#include "xml_editor/xml_view_controller.h"

class QLabel;
class QSplitter;

namespace Ui {
class MainWindow;
}

namespace ui {
class BrokenLinksController;
class LinkCheckController;
class ReportReader;
class ReportWindow;
class UpdateController;
}  // namespace ui

namespace app {

/// Closing it ends the program.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Both are borrowed and outlive the window.
  MainWindow(const store::GlobalControls& controls, const store::StateFolder& stateFolder);
  ~MainWindow() override;

  store::SharedState& state() { return m_state; }
  ui::MainViewControl& views() { return *m_views; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void makeControllers();
  void connectMenus();
  void makeHtmlView();
  void makeReport();
  void makeLinkCheck();
  void makeUpdateCheck();
  ui::ReportWindow& reportWindow();
  void letScansBeLeft();
  void showSiteInHand();
  void holdBackUnderSheets();
  void say(const QString& sentence);
  void applyIcons();
  void restorePlace();
  void rememberPlace() const;
  void showGuide();
  void showAbout();

  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  const QString m_stateFile;  // where its size and place are remembered
  store::SharedState m_state;
  sitemaps::PassedScripts m_passedScripts;
  std::unique_ptr<Ui::MainWindow> m_ui;
  QSplitter* m_scanSplitter = nullptr;
  QLabel* m_siteInHand = nullptr;  // in the toolbar
  QLabel* m_version = nullptr;     // at the foot, beside
  QString m_said;                  // what happened last

  platform::DesktopSecretStore m_secrets;
  crawler::PasswordKeeper m_passwords{m_secrets};
  std::unique_ptr<platform::CloseRequests> m_closeRequests;
  std::unique_ptr<platform::SheetQueue> m_sheets;
  std::unique_ptr<store::AddEditDeleteSitesController> m_siteEditor;
  std::unique_ptr<crawler::FilterController> m_filters;
  std::unique_ptr<crawler::ScanSettingsController> m_scanSettings;
  std::unique_ptr<crawler::ScanController> m_scan;
  std::unique_ptr<ui::RestoreController> m_restore;
  std::unique_ptr<ui::ScanViewController> m_scanView;
  std::unique_ptr<ui::MainViewControl> m_views;
  std::unique_ptr<ui::ReportReader> m_reportReader;
  std::unique_ptr<ui::BrokenLinksController> m_brokenLinks;
  std::unique_ptr<ui::LinkCheckController> m_linkCheck;
  std::unique_ptr<ui::ReportWindow> m_report;  // once it was asked for
  std::unique_ptr<html_editor::HTMLViewController> m_htmlView;
  std::unique_ptr<xml_editor::XMLViewController> m_xmlView;
  std::unique_ptr<ui::ExportController> m_export;
  std::unique_ptr<ui::UpdateController> m_update;  // where it is known where to ask
  std::unique_ptr<MenuCommands> m_menuCommands;
};

}  // namespace app
