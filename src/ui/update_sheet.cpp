#include "ui/update_sheet.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/address_actions.h"
#include "platform/qt_text.h"
#include "ui/wrapped_text.h"

namespace ui {

using platform::toQString;

namespace {

constexpr int kLetters = 64;  // in a line of the notes
constexpr int kLines = 12;

QLabel* plainLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

UpdateSheet::UpdateSheet(QWidget* parent, const update::CheckText& text, const update::CheckResult& result)
    : QDialog(parent) {
  setObjectName(QStringLiteral("updateSheet"));
  setWindowTitle(tr("Check for Updates"));
  setAttribute(Qt::WA_DeleteOnClose);
  QLabel* title = plainLabel(toQString(text.title));
  title->setObjectName(QStringLiteral("updateTitle"));
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  QLabel* message = plainLabel(toQString(text.message));
  message->setObjectName(QStringLiteral("updateMessage"));
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(title);
  rows->addWidget(message);
  rows->addSpacing(fontMetrics().height() / 2);
  addNotes(result);
  addButtons(toQString(result.release.page));
  // A screen reader says this when the sheet comes up.
  setAccessibleDescription(title->text() + QLatin1Char(' ') + message->text());
}

void UpdateSheet::addNotes(const update::CheckResult& result) {
  if (!result.notesProblem.empty()) {
    auto* why = new WrappedText;
    why->setObjectName(QStringLiteral("updateNotesProblem"));
    why->setAccessibleName(tr("Release notes"));
    why->setTabChangesFocus(true);
    why->setPlainText(tr("The release notes at %1 could not be read: %2.")
                          .arg(toQString(result.release.notesAddress), toQString(result.notesProblem)));
    layout()->addWidget(why);
  }
  if (result.release.notes.empty()) return;
  auto* notes = new QPlainTextEdit(toQString(result.release.notes));
  notes->setObjectName(QStringLiteral("updateNotes"));
  notes->setAccessibleName(tr("Release notes"));
  notes->setReadOnly(true);
  notes->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  notes->setTabChangesFocus(true);
  notes->setMinimumSize(notes->fontMetrics().averageCharWidth() * kLetters,
                        notes->fontMetrics().lineSpacing() * kLines);
  auto* caption = new QLabel(tr("&What is new:"));
  caption->setBuddy(notes);
  layout()->addWidget(caption);
  layout()->addWidget(notes);
}

void UpdateSheet::addButtons(const QString& page) {
  auto* buttons = new QDialogButtonBox;  // knows the desktop's order
  QPushButton* close = buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
  close->setAutoDefault(page.isEmpty());
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout()->addWidget(buttons);
  QPushButton* usual = close;
  if (!page.isEmpty()) {
    usual = buttons->addButton(tr("Open &Download Page"), QDialogButtonBox::AcceptRole);
    usual->setObjectName(QStringLiteral("openDownloadPageButton"));
    usual->setToolTip(page);
    connect(buttons, &QDialogButtonBox::accepted, this, [this, page] {
      accept();
      platform::openInBrowser(page);
    });
  }
  usual->setDefault(true);
  usual->setFocus();
}

}  // namespace ui
