#pragma once

// Files that the account set keeps in TabExcelTable, by name.

#include "handover/program.h"

/// Writes the file kept under a name to a path, in place of what is there. A stored file without a byte leaves no file
/// at the path and counts as written. False for an unknown name, which has been said and leaves the path as it was,
/// and when writing failed.
bool SaveTableFileToDisk(Program& program, const QString& fileName, const QString& tabName);
