// The sheet that tells of a newer version.
#pragma once

#include <QDialog>
#include <QString>

#include "update/update_check.h"

namespace ui {

/// The version and what is new in it, as plain text whatever the publisher has sent. Its page opens in the
/// browser.
class UpdateSheet : public QDialog {
  Q_OBJECT

 public:
  UpdateSheet(QWidget* parent, const update::CheckText& text, const update::CheckResult& result);

 private:
  void addNotes(const update::CheckResult& result);
  void addButtons(const QString& page);
};

}  // namespace ui
