#include "store/setting_row.h"

#include <QLabel>

#include "platform/qt_text.h"

namespace store {

using platform::toQString;
using platform::translated;

void addSettingRow(QFormLayout& form, const SettingField& field, QWidget& control) {
  const QString caption = translated(field.caption);
  const QString help = translated(field.help);
  control.setObjectName(toQString(field.key));
  control.setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  control.setAccessibleDescription(help);
  auto* label = new QLabel(caption);
  label->setBuddy(&control);
  form.addRow(label, &control);
  auto* explanation = new QLabel(help);
  QFont quiet = explanation->font();
  quiet.setPointSizeF(quiet.pointSizeF() * 0.9);
  explanation->setFont(quiet);
  form.setWidget(form.rowCount(), QFormLayout::FieldRole, explanation);
}

}  // namespace store
