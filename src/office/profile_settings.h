#pragma once

// What stands in a new LibreOffice profile, so that nothing but the workbook shows up.

#include <QString>

inline const QString kOfficeFolder = LO_PROGRAM_FOLDER;

enum class ProfileUse
{
    Jobs,
    Window, // of the user: keeps what the user changes
};

/// False when it cannot be written.
bool WriteProfileSettings(const QString& folder, ProfileUse use);
/// The fonts of the templates, where they are missing, become installed ones of like width.
bool WriteFontSettings(const QString& path);
