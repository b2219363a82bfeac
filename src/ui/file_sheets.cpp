#include "ui/file_sheets.h"

#include <QFileDialog>
#include <utility>

namespace ui {

namespace {

void show(QFileDialog& dialog, platform::SheetQueue& sheets, QObject& receiver, PathChosen chosen) {
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
  dialog->selectFile(question.proposedName);
  show(*dialog, sheets, receiver, std::move(chosen));
}

void askForFolder(platform::SheetQueue& sheets, QWidget& window, const QString& title, const QString& button,
                  QObject& receiver, PathChosen chosen) {
  auto* dialog = new QFileDialog(&window, title);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  dialog->setLabelText(QFileDialog::Accept, button);
  show(*dialog, sheets, receiver, std::move(chosen));
}

}  // namespace ui
