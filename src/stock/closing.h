#pragma once

// The period closes: each leaves a snapshot of all stock, from which the engine counts on.

#include "handover/program.h"

#include <optional>

/// Day of the last close on or before a day; unset where there is none.
std::optional<QDate> LastClosing(Program& program, const QDate& asOf);
/// Day of the newest close of all.
std::optional<QDate> NewestClosing(Program& program);
