#pragma once

// The printing system of the machine.

#include "handover/program.h"

/// Hands the pages of a PDF to the default printer under a title. False when they were not taken, which has been said.
/// Windows are painted meanwhile.
bool PrintPdf(Program& program, const QString& path, const QString& title);
