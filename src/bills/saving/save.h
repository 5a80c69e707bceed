#pragma once

// The save command.

#include "bills/saving/posting.h"

/// Checks, posts, re-aims the navigation and, if so wished, opens a blank bill. A refusal has been shown. The caller
/// asks whether the command is enabled.
Posting FSave(Program& program, BillText& bill);
