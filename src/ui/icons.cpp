#include "ui/icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// The macro has to stand outside every namespace.
static void initialiseIconResources() {
  Q_INIT_RESOURCE(icons);
}

namespace ui {

namespace {

QPixmap draw(QByteArray drawing, const QColor& colour, int size) {
  drawing.replace("currentColor", colour.name().toLatin1());
  QSvgRenderer renderer(drawing);
  QPixmap picture(size, size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter);
  return picture;
}

}  // namespace

void loadIcons() {
  initialiseIconResources();
}

QIcon applicationIcon() {
  return QIcon(QStringLiteral(":/icons/veskel.svg"));
}

QIcon namedIcon(const QString& name, const QPalette& palette) {
  if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray drawing = file.readAll();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 96}) {
    icon.addPixmap(draw(drawing, palette.color(QPalette::Active, QPalette::ButtonText), size), QIcon::Normal);
    icon.addPixmap(draw(drawing, palette.color(QPalette::Disabled, QPalette::ButtonText), size),
                   QIcon::Disabled);
  }
  return icon;
}

}  // namespace ui
