#pragma once

// What stands in a new LibreOffice profile, so that nothing but the workbook shows up.

#include "office/office_profile.h"

/// False when it cannot be written.
bool WriteProfileSettings(const QString& folder, OfficeProfile::Use use);
/// The fonts of the templates, where they are missing, become installed ones of like width.
bool WriteFontSettings(const QString& path);
