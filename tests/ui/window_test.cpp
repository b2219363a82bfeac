#include "window_test.h"

#include <QDeadlineTimer>
#include <QLocale>
#include <QTimer>
#include <QWindow>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include <xcb/xcb.h>

#include "app/language.h"
#include "html_editor/sitemap_page.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "store/site_record.h"
#include "ui/icons.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;

/// Not by Qt Test's own means, which sleep after each event: the web engine works through hundreds of them.
bool comesTrue(const std::function<bool()>& condition) {
  constexpr std::chrono::milliseconds kLook{10};
  const QDeadlineTimer deadline(kPatience);
  QTimer look;
  look.start(kLook);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

QDialog* topSheet() {
  return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

QDialog* sheetNamed(const QString& objectName) {
  const auto isUp = [&] { return topSheet() != nullptr && topSheet()->objectName() == objectName; };
  return comesTrue(isUp) ? topSheet() : nullptr;
}

QMessageBox* message(const QString& title) {
  const auto isUp = [&] {
    const auto* box = qobject_cast<QMessageBox*>(topSheet());
    return box != nullptr && box->text() == title;
  };
  return comesTrue(isUp) ? qobject_cast<QMessageBox*>(topSheet()) : nullptr;
}

bool click(QAbstractButton& button) {
  const QWidget* sheet = QApplication::activeModalWidget();
  if (!button.isVisible() || !button.isEnabled() || (sheet != nullptr && button.window() != sheet)) {
    qWarning("The button %s cannot be clicked", qPrintable(button.objectName() + button.text()));
    return false;
  }
  // The mark of a radio button or check box is at its left; what is right of its text is no part of it.
  const bool hasMark = button.inherits("QRadioButton") || button.inherits("QCheckBox");
  const QPoint middle = button.rect().center();
  QTest::mouseClick(&button, Qt::LeftButton, {}, hasMark ? QPoint(middle.y(), middle.y()) : middle);
  return true;
}

bool answer(QDialog* sheet, const QString& buttonText) {
  if (sheet == nullptr) return false;
  const QPointer<QDialog> closing = sheet;
  for (QAbstractButton* button : sheet->findChildren<QAbstractButton*>()) {
    if (button->text().remove(QLatin1Char('&')) != buttonText) continue;
    return click(*button) && comesTrue([&] { return !closing || !closing->isVisible(); });
  }
  return false;
}

namespace {

const QNativeInterface::QX11Application* x11() {
  return qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
}

std::uint32_t atomNamed(const char* name) {
  xcb_connection_t* connection = x11()->connection();
  const auto asked = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
      xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
  return reply->atom;
}

}  // namespace

bool hasTitleBars() {
  return QGuiApplication::platformName() == QLatin1String("xcb");
}

void closeByTitleBar(const QWidget& window) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = static_cast<xcb_window_t>(window.windowHandle()->winId());
  event.type = atomNamed("WM_PROTOCOLS");
  event.data.data32[0] = atomNamed("WM_DELETE_WINDOW");
  std::array<char, sizeof event> bytes{};
  std::memcpy(bytes.data(), &event, sizeof event);
  xcb_send_event(x11()->connection(), 0, event.window, XCB_EVENT_MASK_NO_EVENT, bytes.data());
  xcb_flush(x11()->connection());
}

bool dismiss(QDialog* sheet) {
  if (sheet == nullptr) return false;
  pressEscape(*sheet);
  return noSheetLeft();
}

std::string textOf(const fs::path& file) {
  const platform::FileContent content = platform::readFile(file);
  return content.result.ok() ? content.text : "(missing)";
}

Desk::Desk() : controls(m_home.path()), stateFolder(m_home.path() / "state"), reasons(stateFolder) {
  fs::create_directories(controls.homeFolderLocation());
}

Desk::~Desk() = default;

void Desk::makeSite(const std::string& name, const std::string& url, const std::string& record) const {
  writeFile(name, name + ".qzVSK", record.empty() ? store::newSiteRecord(name, url) : record);
}

void Desk::writeFile(const std::string& site, const std::string& name, const std::string& text) const {
  fs::create_directories(controls.siteFolder(site));
  // Plainly, without the syncing that makes a thousand sites slow to prepare.
  std::ofstream stream(controls.siteFolder(site) / name, std::ios::binary);
  stream << text;
  if (!stream.flush()) throw std::runtime_error("cannot write " + name);
}

void Desk::open() {
  m_window = std::make_unique<app::MainWindow>(controls, stateFolder);
  m_window->show();
  m_window->activateWindow();
  if (!QTest::qWaitForWindowActive(m_window.get(), kPatience)) {
    throw std::runtime_error("the window does not come up");
  }
}

void Desk::openShop(const std::string& url, const std::string& record) {
  makeSite("Shop", url, record);
  open();
  select(kShop);
}

bool Desk::areAll(bool enabled, std::initializer_list<const char*> names) const {
  for (const char* name : names)
    if (this->enabled(name) != enabled) return false;
  return true;
}

QAction& Desk::viewAction(int view) const {
  constexpr const char* kActions[] = {"scanTBI",   "htmlTBI",   "htmlEditTBI", "xmlTBI",
                                      "exportTBI", "uploadTBI", "brokenMI"};
  return control<QAction>(kActions[view - 1]);
}

bool Desk::commandsAre(bool on) const {
  return areAll(on, {"addMI", "editMI", "deleteMI", "scanMI", "ignoreRobotsMI", "neverMenuItem",
                     "siteListTable", "siteSearch", "scanSiteButton", "addSiteButton"});
}

QStringList Desk::listedSites() const {
  const QAbstractItemModel& model = *control<QTableView>("siteListTable").model();
  QStringList sites;
  for (int row = 0; row < model.rowCount(); ++row) sites.append(model.index(row, 0).data().toString());
  return sites;
}

bool Desk::select(const QString& site, Qt::KeyboardModifiers modifiers) const {
  auto& table = control<QTableView>("siteListTable");
  const auto row = static_cast<int>(listedSites().indexOf(site));
  if (row < 0 || topSheet() != nullptr) return false;
  const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, place);
  return true;
}

bool Desk::nothingSelected() const {
  for (const char* name :
       {"siteName", "siteURL", "totalLinksFound", "linksScanned", "pagesFound", "brokenLinks"})
    if (!label(name).isEmpty()) return false;
  return !control<QTableView>("siteListTable").selectionModel()->hasSelection() &&
         m_window->state().qzvskCurSite.empty() && m_window->windowTitle() == QLatin1String("Veskel2");
}

int runTests(int argc, char** argv, const std::function<std::unique_ptr<QObject>()>& make) {
  const support::TempFolder home;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // It needs what the places where tests run do not give: name spaces of the user's own.
  qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  qputenv("LC_ALL", "C.UTF-8");  // what the system says of failures is compared
  qputenv("HOME", home.path().c_str());
  qputenv("XDG_STATE_HOME", (home.path() / "state").c_str());
  qputenv("DBUS_SESSION_BUS_ADDRESS", "");  // whoever tests keeps his secrets
  html_editor::prepareWebEngine();
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  app::speakLanguageOf(QLocale());
  ui::loadIcons();
  const std::unique_ptr<QObject> tests = make();
  return QTest::qExec(tests.get(), argc, argv);
}

}  // namespace window_tests
