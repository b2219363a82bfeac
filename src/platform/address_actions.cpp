#include "platform/address_actions.h"

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QUrl>

namespace platform {

bool isForBrowser(const QString& address) {
  const QString scheme = QUrl(address).scheme();
  return scheme == QLatin1String("http") || scheme == QLatin1String("https");
}

void openInBrowser(const QString& address) {
  if (isForBrowser(address)) QDesktopServices::openUrl(QUrl(address));
}

void addAddressActions(QAbstractItemView& list, const std::function<QStringList()>& addresses) {
  auto* copy = new QAction(QObject::tr("&Copy Address"), &list);
  copy->setObjectName(QLatin1String(kCopySelection));
  auto* open = new QAction(QObject::tr("&Open in Browser"), &list);
  open->setObjectName(QLatin1String(kOpenSelection));
  list.addActions({copy, open});
  list.setContextMenuPolicy(Qt::ActionsContextMenu);
  QObject::connect(copy, &QAction::triggered, &list, [addresses] {
    QGuiApplication::clipboard()->setText(addresses().join(QLatin1Char('\n')));
  });
  QObject::connect(open, &QAction::triggered, &list, [addresses] {
    const QStringList all = addresses();
    if (!all.isEmpty()) openInBrowser(all.first());
  });
  const auto enable = [&list, copy, open] {
    const bool any = list.selectionModel()->hasSelection();
    copy->setEnabled(any);
    open->setEnabled(any);
  };
  QObject::connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, &list, enable);
  QObject::connect(list.model(), &QAbstractItemModel::modelReset, &list, enable);
  enable();
}

QAction* addressAction(const QWidget* list, const char* name) {
  if (list == nullptr) return nullptr;
  auto* action = list->findChild<QAction*>(QLatin1String(name), Qt::FindDirectChildrenOnly);
  return action != nullptr && action->isEnabled() ? action : nullptr;
}

}  // namespace platform
