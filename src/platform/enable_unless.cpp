#include "platform/enable_unless.h"

#include <QVariant>

namespace platform {

void enableUnless(QWidget& control, const QString& whyNot) {
  constexpr const char* kUsualToolTip = "usualToolTip";
  if (!control.property(kUsualToolTip).isValid()) control.setProperty(kUsualToolTip, control.toolTip());
  control.setEnabled(whyNot.isEmpty());
  control.setToolTip(whyNot.isEmpty() ? control.property(kUsualToolTip).toString() : whyNot);
}

}  // namespace platform
