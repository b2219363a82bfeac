// The web engine as a reference for what pages hold: a script of ours reads it there.
#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>
#include <QWebEnginePage>
#include <string>
#include <string_view>

#include "platform/qt_text.h"

namespace window_tests {

inline std::string asText(const QJsonArray& array) {
  return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

class ScriptEngine {
 public:
  /// What `function`, in JavaScript, makes of each of the inputs.
  QJsonArray map(std::string_view function, const QJsonArray& inputs) {
    const QString script = QStringLiteral("JSON.stringify(%1.map(%2))");
    QString answer;
    bool answered = false;
    m_page.runJavaScript(script.arg(platform::toQString(asText(inputs)), platform::toQString(function)),
                         [&](const QVariant& result) {
                           answer = result.toString();
                           answered = true;
                         });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(answered, 600'000); }();
    return QJsonDocument::fromJson(answer.toUtf8()).array();
  }

 private:
  QWebEnginePage m_page;  // with nothing loaded
};

}  // namespace window_tests
