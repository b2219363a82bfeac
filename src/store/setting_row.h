// How a setting of a site looks in a sheet.
#pragma once

#include <QFormLayout>
#include <QWidget>

#include "store/site_settings.h"

namespace store {

/// Puts `control` into a row of the form with the setting's caption, and its help in small letters below. The
/// control gets the setting's key as its object name.
void addSettingRow(QFormLayout& form, const SettingField& field, QWidget& control);

}  // namespace store
