// The menus' commands that have no view of their own: they bring the right one up, or go to what has the
// focus.
#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QObject>
#include <QPushButton>
#include <functional>

#include "html_editor/html_view_controller.h"
#include "platform/named_controls.h"
#include "store/shared_state.h"
#include "ui/main_view_control.h"

class QKeyEvent;

namespace app {

/// What the menus' commands work on, found when the window is made.
struct MenuControls {
  const QMainWindow& window;

  QPushButton& filterDrawerButton = platform::control<QPushButton>(window, "filterDrawerButton");
  QLineEdit& newFilterInput = platform::control<QLineEdit>(window, "newFilterInput");
  QComboBox& sitemapTypePopup = platform::control<QComboBox>(window, "sitemapTypePopup");
  QPushButton& deleteButton = platform::control<QPushButton>(window, "deleteButton");
  QAction& delHtmlLinkMI = platform::control<QAction>(window, "delHtmlLinkMI");
  QMenu& layoutMenu = platform::control<QMenu>(window, "layoutMenu");
  QAbstractItemView& siteListTable = platform::control<QAbstractItemView>(window, "siteListTable");
  QAbstractItemView& xmlTableView = platform::control<QAbstractItemView>(window, "xmlTableView");
  QAbstractItemView& badLinkTable = platform::control<QAbstractItemView>(window, "badLinkTable");
};

/// UI thread.
class MenuCommands : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive this.
  MenuCommands(QMainWindow& window, ui::MainViewControl& views, html_editor::HTMLViewController& htmlView,
               const store::SharedState& state);

 protected:
  /// Sees to it that a key of the menus works wherever the focus is, and that commands are on as long as the
  /// buttons are that they press.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void connectSitemaps();
  void connectLayouts();
  void connectFilters();
  void connectEditing();
  void connectAddresses();

  /// Calls `command` with one of these views shown: at once, or when it has been asked whether to save.
  void in(ui::View view, std::function<void()> command);
  bool showsSitemap() const;
  bool isCommandKey(const QKeyEvent& event) const;
  void enableEditing(const QWidget* focus);
  void enableLinkDeletion();
  void triggerOnFocus(const char* slot);
  void triggerOnAddress(const char* actionName);

  QMainWindow& m_window;
  ui::MainViewControl& m_views;
  html_editor::HTMLViewController& m_htmlView;
  const store::SharedState& m_state;
  MenuControls m_controls;
  QList<QAction*> m_editing;     // commands that text fields have themselves
  QList<QAction*> m_textWanted;  // those of them that make sense only where text can be typed
};

}  // namespace app
