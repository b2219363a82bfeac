// What every list of addresses offers: to copy them, and to open one in the browser.
#pragma once

#include <QAbstractItemView>
#include <QStringList>
#include <functional>

namespace ui {

/// Names of the two actions, by which the Edit menu finds them.
inline constexpr const char* kCopySelection = "copySelection";
inline constexpr const char* kOpenSelection = "openSelection";

/// Puts the actions into the list's context menu. `addresses` gives those of the selected rows; where there
/// are none the actions are off.
void addAddressActions(QAbstractItemView& list, const std::function<QStringList()>& addresses);

/// The list's action of one of these names; null when it has none or it is off.
QAction* addressAction(const QWidget* list, const char* name);

}  // namespace ui
