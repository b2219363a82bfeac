#include "ui/guide.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace ui {

QString guideFile() {
  const QDir programs(QCoreApplication::applicationDirPath());
  for (const char* place : {"../share/doc/veskel-cli/guide.html", "../../docs/guide.html"}) {
    const QFileInfo file(programs.filePath(QLatin1String(place)));
    if (file.isFile()) return file.canonicalFilePath();
  }
  return {};
}

}  // namespace ui
