// veskel: the desktop application.
#include <QApplication>
#include <QLocale>
#include <QMessageBox>
#include <cstdio>
#include <exception>
#include <new>
#include <string_view>

#include "app/language.h"
#include "app/main_window.h"
#include "html_editor/sitemap_page.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "ui/icons.h"

namespace {

constexpr const char* kHelp = R"(Opens the window on your sites, to scan them and to edit their sitemaps.
Usage: veskel [OPTIONS]

Options:
  -h,--help                   Print this help message and exit
  --version                   Display program version information and exit

Exit codes:
  0    the window was closed
  1    the window could not be opened

veskel-cli works on the same sites without a window.
)";

/// Answers what needs no window system; false when the window is wanted.
bool answer(int argc, char** argv) {
  for (int index = 1; index < argc; ++index) {
    const std::string_view argument = argv[index];
    if (argument == "-h" || argument == "--help") {
      std::fputs(kHelp, stdout);
      return true;
    }
    if (argument == "--version") {
      std::puts("veskel " VESKEL_VERSION);
      return true;
    }
  }
  return false;
}

/// Says what keeps the program from starting, and gives the exit code.
int refuse(const QString& why) {
  QMessageBox::critical(nullptr, QStringLiteral("Veskel"), why);
  return 1;
}

/// A window goes on when one of its actions could not be done, however badly. What was not saved yet is still
/// there then, and can be saved once there is memory again.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
      tell(QT_TRANSLATE_NOOP("QObject", "There is not enough memory."));
    } catch (const std::exception& error) {
      tell(error.what());
    }
    return false;
  }

 private:
  void tell(const char* what) {
    std::fprintf(stderr, "veskel: %s\n", what);
    if (m_isTelling) return;
    m_isTelling = true;
    const QString sentence = QObject::tr(what);
    const auto show = [this, sentence] {
      auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Veskel"),
                                  QObject::tr("The last action could not be done: %1").arg(sentence),
                                  QMessageBox::Ok, activeWindow());
      box->setAttribute(Qt::WA_DeleteOnClose);
      connect(box, &QDialog::finished, this, [this] { m_isTelling = false; });
      box->open();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
  }

  bool m_isTelling = false;
};

int run(int argc, char** argv) {
  html_editor::prepareWebEngine();
  Application application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("veskel"));
  QApplication::setApplicationVersion(QStringLiteral(VESKEL_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("veskel"));
  app::speakLanguageOf(QLocale::system());
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
  app::MainWindow window(*controls, *state);
  window.show();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  if (answer(argc, argv)) return 0;
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "veskel: %s\n", error.what());
  }
  return 1;
}
