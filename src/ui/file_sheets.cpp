#include "ui/file_sheets.h"

#include <QFileDialog>
#include <QFileInfo>
#include <utility>

namespace ui {

namespace {

void show(QFileDialog& dialog, const QString& folder, platform::SheetQueue& sheets, QObject& receiver,
          PathChosen chosen) {
  if (!folder.isEmpty() && QFileInfo(folder).isDir()) dialog.setDirectory(folder);
  dialog.setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(&dialog, &QDialog::finished, &receiver, [&dialog, chosen = std::move(chosen)](int answer) {
    const QStringList paths = dialog.selectedFiles();
    if (answer == QDialog::Accepted && !paths.isEmpty()) chosen(paths.first());
  });
  sheets.show(dialog);
}

}  // namespace

void askWhereToSave(platform::SheetQueue& sheets, QWidget& window, const SaveQuestion& question,
                    QObject& receiver, PathChosen chosen) {
  auto* dialog = new QFileDialog(&window, question.title);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setNameFilter(question.fileTypes);
  dialog->setDefaultSuffix(question.extension);
  show(*dialog, question.folder, sheets, receiver, std::move(chosen));
  dialog->selectFile(question.proposedName);
}

void askForFolder(platform::SheetQueue& sheets, QWidget& window, const FolderQuestion& question,
                  QObject& receiver, PathChosen chosen) {
  auto* dialog = new QFileDialog(&window, question.title);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  dialog->setLabelText(QFileDialog::Accept, question.button);
  show(*dialog, question.folder, sheets, receiver, std::move(chosen));
}

}  // namespace ui
