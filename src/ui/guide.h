// The guide, as a page for the browser.
#pragma once

#include <QString>

namespace ui {

/// Where it lies, installed or beside what was built; empty when it is not there.
QString guideFile();

}  // namespace ui
