#pragma once

// The folder of the executable, where the hand-over files and the siblings lie.

#include <QString>

/// The path of a file in a folder, with one separator between them: a drive root of three characters ("C:\") brings
/// its own.
QString PathInFolder(const QString& folder, const QString& fileName);
