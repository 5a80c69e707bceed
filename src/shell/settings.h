#pragma once

// The few settings of the main window that belong to the machine, not to the account set. They lie where the platform
// keeps such things: the registry under HKEY_LOCAL_MACHINE, or the system's configuration with the user's own before
// it.

#include "handover/run_parameters.h"

#include <QSettings>
#include <memory>

/// The settings of one brand of the suite.
std::unique_ptr<QSettings> OpenSettings(const RunParameters& parameters);

/// The value `name` of the key `name`. A text ends at its first zero character, a number comes as decimal text;
/// anything else, and a missing value, is empty.
QString ReadSetting(const QSettings& settings, const QString& name);
/// False when the place is not writable.
bool WriteSetting(QSettings& settings, const QString& name, const QString& text);

/// "不显示" turns the start animation off.
inline const QString kFlashSetting = QStringLiteral("FlashSet");
/// Path of a picture behind the entries.
inline const QString kPictureSetting = QStringLiteral("DeskPicture");
