// What the views look like: one interface file each, put into the pages of the main window's frame.
#pragma once

#include <QMainWindow>

namespace ui {

/// Makes the controls of all views and of the filter drawer, under the names by which they are found.
void fillViews(const QMainWindow& frame);

}  // namespace ui
