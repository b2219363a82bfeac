// veskel: the desktop application.
#include <QApplication>
#include <QMessageBox>

#include "app/main_window.h"
#include "html_editor/sitemap_page.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "ui/icons.h"

namespace {

/// Says what keeps the program from starting, and gives the exit code.
int refuse(const QString& why) {
  QMessageBox::critical(nullptr, QStringLiteral("Veskel"), why);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  html_editor::prepareWebEngine();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("veskel"));
  QApplication::setApplicationVersion(QStringLiteral(VESKEL_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("veskel"));
  ui::loadIcons();
  QApplication::setWindowIcon(ui::applicationIcon());
  QApplication::setQuitOnLastWindowClosed(false);  // a window that closes during a scan may have to wait

  const auto controls = store::GlobalControls::fromEnvironment();
  const auto state = store::StateFolder::fromEnvironment();
  if (!controls || !state) {
    return refuse(QObject::tr("Your home directory is not known: set the environment variable HOME."));
  }
  if (const auto result = store::checkNeededFoldersExist(*controls); !result.ok()) {
    return refuse(QObject::tr("The data folder %1 cannot be used: %2")
                      .arg(platform::toQString(controls->homeFolderLocation().native()),
                           platform::toQString(result.error)));
  }
  const store::BrokenReasons reasons(*state);
  app::MainWindow window(*controls, reasons,
                         platform::toQString((state->location() / "window.ini").native()));
  window.show();
  return QApplication::exec();
}
