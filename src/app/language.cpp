#include "app/language.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <limits>

#include "platform/phrases.h"
#include "platform/qt_text.h"

namespace app {

namespace {

using platform::toUtf8;

/// What the engine says, out of the same files as the window's texts.
class WindowLanguage : public platform::Language {
 public:
  std::string text(const char* english, const char* several, std::int64_t count) const override {
    if (several == nullptr) return toUtf8(QCoreApplication::translate("Phrases", english));
    const auto most = std::int64_t{std::numeric_limits<int>::max()};
    return toUtf8(
        QCoreApplication::translate("Phrases", english, several, static_cast<int>(std::min(count, most))));
  }

  std::string number(std::int64_t number) const override {
    return toUtf8(QLocale().toString(static_cast<qlonglong>(number)));
  }
  std::string number(double number, int places) const override {
    return toUtf8(QLocale().toString(number, 'f', places));
  }
  std::string date(std::int64_t secondsSince1970) const override {
    return toUtf8(
        QLocale().toString(QDateTime::fromSecsSinceEpoch(secondsSince1970).date(), QLocale::ShortFormat));
  }
  std::string dateAndTime(std::int64_t secondsSince1970) const override {
    return toUtf8(QLocale().toString(QDateTime::fromSecsSinceEpoch(secondsSince1970), QLocale::ShortFormat));
  }
};

const WindowLanguage kWindowLanguage;

/// The language of the translation that was found; empty when there is none.
QString install(const QLocale& locale, const QString& name, const QString& folder) {
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (!translator->load(locale, name, QStringLiteral("_"), folder)) {
    delete translator;
    return {};
  }
  QCoreApplication::installTranslator(translator);
  return translator->language();
}

}  // namespace

void speakLanguageOf(const QLocale& locale) {
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  if (QLocale().language() == QLocale::C) QLocale::setDefault(english);
  const QString ours = QStringLiteral("veskel");
  const QString folder = QStringLiteral(":/i18n");
  install(english, ours, folder);  // its plurals, for whatever is not translated
  const QString language = install(locale, ours, folder);
  // A window half of whose texts are in one language and half in another helps nobody.
  if (!language.isEmpty())
    install(QLocale(language), QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  platform::Phrases::speak(kWindowLanguage);
}

}  // namespace app
