// The one place where text crosses between Qt and the rest of the program.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace platform {

inline QString toQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string toUtf8(const QString& text) {
  return text.toStdString();
}

}  // namespace platform
