#include "app/menu_commands.h"

#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMetaObject>
#include <array>
#include <utility>

#include "platform/address_actions.h"

namespace app {

using platform::control;

namespace {

/// What Qt's text fields do themselves, by methods of these names.
struct Editing {
  const char* action;
  const char* slot;
  bool changes;  // makes sense only where text can be typed
};

constexpr std::array<Editing, 6> kEditing = {{{"undoMI", "undo", true},
                                              {"redoMI", "redo", true},
                                              {"cutMI", "cut", true},
                                              {"copyMI", "copy", false},
                                              {"pasteMI", "paste", true},
                                              {"selectAllMI", "selectAll", false}}};

bool has(const QWidget& widget, const char* slot) {
  return widget.metaObject()->indexOfMethod((QByteArray(slot) + "()").constData()) >= 0;
}

}  // namespace

MenuCommands::MenuCommands(QMainWindow& window, ui::MainViewControl& views,
                           html_editor::HTMLViewController& htmlView, const store::SharedState& state)
    : m_window(window), m_views(views), m_htmlView(htmlView), m_state(state), m_controls{window} {
  connectSitemaps();
  connectLayouts();
  connectFilters();
  connectEditing();
  connectAddresses();
  qApp->installEventFilter(this);
}

void MenuCommands::connectSitemaps() {
  const auto presses = [this](const char* action, const char* button, ui::View view) {
    auto& pressed = control<QPushButton>(m_window, button);
    connect(&control<QAction>(m_window, action), &QAction::triggered, this,
            [this, &pressed, view] { in(view, [&pressed] { pressed.click(); }); });
  };
  presses("viewInBrowserMI", "vibButton", ui::htmlView);
  presses("delHtmlLinkMI", "deleteButton", ui::htmlView);
  presses("exportHtmlMI", "htmlExportButton", ui::exportView);
  presses("exportXmlMI", "xmlExportButton", ui::exportView);
  presses("exportBrokenTextMI", "exportBrokenAsTXTButton", ui::brokenLinksView);
  presses("exportBrokenHtmlMI", "exportBrokenAsHTMLButton", ui::brokenLinksView);
  connect(&m_views, &ui::MainViewControl::viewShown, this, &MenuCommands::enableLinkDeletion);
}

void MenuCommands::connectLayouts() {
  QMenu& menu = m_controls.layoutMenu;
  QComboBox& chooser = m_controls.sitemapTypePopup;
  auto* group = new QActionGroup(&menu);
  for (int i = 0; i < chooser.count(); ++i) {
    QAction* layout = menu.addAction(chooser.itemText(i));
    layout->setCheckable(true);
    group->addAction(layout);
    connect(layout, &QAction::triggered, this, [this, &chooser, i] {
      in(ui::htmlView, [this, &chooser, i] {
        if (!chooser.isEnabled()) return;
        chooser.setCurrentIndex(i);
        m_htmlView.changeMapType();
      });
    });
  }
  const auto mark = [group](int index) {
    if (index >= 0) group->actions().at(index)->setChecked(true);
  };
  connect(&chooser, &QComboBox::currentIndexChanged, this, mark);
  mark(chooser.currentIndex());
}

void MenuCommands::connectFilters() {
  connect(&control<QAction>(m_window, "addFilterMI"), &QAction::triggered, this, [this] {
    in(ui::scanView, [this] {
      m_controls.filterDrawerButton.setChecked(true);
      m_controls.newFilterInput.setFocus();
    });
  });
}

void MenuCommands::connectEditing() {
  for (const Editing& each : kEditing) {
    auto& action = control<QAction>(m_window, each.action);
    m_editing.append(&action);
    if (each.changes) m_textWanted.append(&action);
    connect(&action, &QAction::triggered, this, [this, &each] { triggerOnFocus(each.slot); });
  }
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget*, const QWidget* now) { enableEditing(now); });
  enableEditing(nullptr);
}

void MenuCommands::connectAddresses() {
  connect(&control<QAction>(m_window, "copyAddressMI"), &QAction::triggered, this,
          [this] { triggerOnAddress(platform::kCopySelection); });
  connect(&control<QAction>(m_window, "openAddressMI"), &QAction::triggered, this,
          [this] { triggerOnAddress(platform::kOpenSelection); });
}

void MenuCommands::in(ui::View view, std::function<void()> command) {
  if (m_views.returnCurrentView() == view || (view == ui::htmlView && showsSitemap())) return command();
  m_htmlView.checkSave([this, view, command = std::move(command)] {
    switch (view) {
      case ui::scanView:
        m_views.scanTBIAction();
        break;
      case ui::htmlView:
        m_views.htmlTBIAction();
        break;
      case ui::exportView:
        m_views.exportTBIAction();
        break;
      default:
        m_views.showBrokenLinks();
        break;
    }
    command();
  });
}

bool MenuCommands::showsSitemap() const {
  return m_state.qzvskCurrentView == ui::htmlView || m_state.qzvskCurrentView == ui::htmlEditorView;
}

bool MenuCommands::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    // Fields of text have keys of their own: on some desktops Ctrl+E goes to the end of the line.
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget != nullptr && widget->window() == &m_window && isCommandKey(*static_cast<QKeyEvent*>(event))) {
      event->ignore();
      return true;
    }
  }
  if (event->type() == QEvent::EnabledChange && watched == &m_controls.deleteButton) enableLinkDeletion();
  return QObject::eventFilter(watched, event);
}

bool MenuCommands::isCommandKey(const QKeyEvent& event) const {
  const QKeySequence key(event.keyCombination());
  for (const QAction* action : m_window.findChildren<QAction*>()) {
    if (action->shortcutContext() != Qt::WindowShortcut || !action->shortcuts().contains(key)) continue;
    return !m_editing.contains(action);
  }
  return false;
}

/// Menus and sheets that take the focus for a while change nothing.
void MenuCommands::enableEditing(const QWidget* focus) {
  if (focus != nullptr && focus->window() != &m_window) return;
  const auto* field = qobject_cast<const QLineEdit*>(focus);
  const bool typed = focus != nullptr && has(*focus, "paste") && (field == nullptr || !field->isReadOnly());
  for (QAction* action : m_textWanted) action->setEnabled(typed);
}

void MenuCommands::enableLinkDeletion() {
  const bool shown = m_views.returnCurrentView() == ui::htmlView;
  m_controls.delHtmlLinkMI.setEnabled(shown && m_controls.deleteButton.isEnabled());
}

/// Copies, selects and so on in whatever has the focus, by its own means.
void MenuCommands::triggerOnFocus(const char* slot) {
  QWidget* focus = m_window.focusWidget();
  if (focus == nullptr) return;
  const auto* sitemap = m_window.findChild<QWidget*>(QStringLiteral("scanWebView"));
  const QWidget* list = sitemap != nullptr && sitemap->isAncestorOf(focus) ? sitemap : focus;
  QAction* copy =
      qstrcmp(slot, "copy") == 0 ? platform::addressAction(list, platform::kCopySelection) : nullptr;
  if (copy != nullptr) return copy->trigger();
  if (has(*focus, slot)) QMetaObject::invokeMethod(focus, slot);
}

/// On the list that has the focus, else the one that the view is about, else the list of sites.
void MenuCommands::triggerOnAddress(const char* actionName) {
  const QWidget* list = nullptr;
  if (m_state.qzvskCurrentView == ui::xmlView) list = &m_controls.xmlTableView;
  if (m_state.qzvskCurrentView == ui::brokenLinksView) list = &m_controls.badLinkTable;
  // The web view is made when it is first needed.
  if (showsSitemap()) list = m_window.findChild<QWidget*>(QStringLiteral("scanWebView"));
  for (const QWidget* each :
       std::initializer_list<const QWidget*>{m_window.focusWidget(), list, &m_controls.siteListTable}) {
    if (QAction* action = platform::addressAction(each, actionName)) return action->trigger();
  }
}

}  // namespace app
