// Icons that follow the palette, so that they are seen on light and on dark windows.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace ui {

/// Makes the icons known. To be called once, before the first is asked for: a static library's resources are
/// not found by themselves.
void loadIcons();

/// The program's own icon.
QIcon applicationIcon();

/// The desktop's own icon of this freedesktop name, else ours, drawn in the palette's text colour.
QIcon namedIcon(const QString& name, const QPalette& palette);

}  // namespace ui
