#pragma once

// A workbook in a LibreOffice window of the user's own: a process with a profile of its own, which outlives the program
// and ends when the window is closed.

#include "office/call_watch.h"
#include "office/office_process.h"

/// Returns when the window shows the workbook. Throws SpreadsheetError.
/// @param isNew  the window shows an unnamed copy and the file may go when this returns
void OpenUserWindow(const LocalUno& local, CallWatch& watch, const QString& path, const QString& caption, bool isNew);
