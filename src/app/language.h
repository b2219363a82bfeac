// The language of the window.
#pragma once

class QLocale;

namespace app {

/// Has the program speak one of the languages that its user understands (`locale.uiLanguages()`): its own
/// texts, those of the engine and of Qt. English where none of them is translated. To be called once, when
/// the application is there and nothing is shown yet. Numbers and dates go by the default locale; from now on
/// that is a real one, also where the system has none.
void speakLanguageOf(const QLocale& locale);

}  // namespace app
