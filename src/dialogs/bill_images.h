#pragma once

// Images of a saved bill. A sibling shows and keeps them; this program opens it and removes them with the bill.

#include "handover/program.h"

/// Starts the image program on a saved bill. A refusal has been said.
void OpenBillImages(Program& program, const QString& billCode, const QString& billName);
void DeleteBillImages(Program& program, const QString& billCode, const QString& billName);
