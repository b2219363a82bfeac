// Why a control is off.
#pragma once

#include <QString>
#include <QWidget>

namespace platform {

/// Disables a control and gives the reason as its tool tip; enables it and gives its own one back when there
/// is none.
void enableUnless(QWidget& control, const QString& whyNot);

}  // namespace platform
