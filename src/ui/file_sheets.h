// The platform's dialogs for files and folders, as sheets.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>

#include "platform/sheet_queue.h"

namespace ui {

/// Gets the path that was chosen; is not called when the user thinks better of it.
using PathChosen = std::function<void(const QString& path)>;

struct SaveQuestion {
  QString title;
  QString proposedName;
  QString fileTypes;  // as Qt's name filters: "Text (*.txt)"
  QString extension;  // for a name that is typed without one
  QString folder;     // where the dialog begins; where the last one ended when there is no such folder
};

/// Asks where to save. A file that exists is replaced only after the user has agreed. `receiver` outlives
/// nothing: when it goes, nobody is told.
void askWhereToSave(platform::SheetQueue& sheets, QWidget& window, const SaveQuestion& question,
                    QObject& receiver, PathChosen chosen);

struct FolderQuestion {
  QString title;
  QString button;
  QString folder;  // as in SaveQuestion
};

/// Asks for a folder, which may be made on the way.
void askForFolder(platform::SheetQueue& sheets, QWidget& window, const FolderQuestion& question,
                  QObject& receiver, PathChosen chosen);

}  // namespace ui
