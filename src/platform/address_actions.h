// What every place that shows addresses offers: to copy them, and to open one in the browser.
#pragma once

#include <QAbstractItemView>
#include <QString>
#include <QStringList>
#include <functional>

namespace platform {

/// Names of the two actions, by which the Edit menu finds them.
inline constexpr const char* kCopySelection = "copySelection";
inline constexpr const char* kOpenSelection = "openSelection";

/// Whether an address is http or https.
bool isForBrowser(const QString& address);

/// Opens an address in the user's browser. Addresses come from strangers: what is not http or https would be
/// handed to some other program, so nothing happens to it.
void openInBrowser(const QString& address);

/// Puts the actions into the list's context menu, behind those that it has. `addresses` gives those of the
/// selected rows; where there are none the actions are off.
void addAddressActions(QAbstractItemView& list, const std::function<QStringList()>& addresses);

/// The list's action of one of these names; null when it has none or it is off.
QAction* addressAction(const QWidget* list, const char* name);

}  // namespace platform
