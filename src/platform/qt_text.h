// The one place where text crosses between Qt and the rest of the program.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/phrases.h"

namespace platform {

inline QString toQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string toUtf8(const QString& text) {
  return text.toStdString();
}

/// A text of the engine that was marked for translation, in the user's language.
inline QString translated(std::string_view marked) {
  return toQString(Phrases::tr(marked));
}

/// A text that may be long, as a sheet shows it: without its middle, which tells least of an address.
inline QString shortened(const QString& text) {
  constexpr qsizetype kEnd = 60;
  if (text.size() <= 2 * kEnd) return text;
  return text.left(kEnd) + QStringLiteral("\u2026") + text.right(kEnd);
}

}  // namespace platform
