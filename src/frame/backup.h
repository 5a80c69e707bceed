#pragma once

// The copy of the account sets that is made when the operator leaves: every file of the program's Data folder into a
// new folder named by the moment.

#include "handover/program.h"

/// The name of a backup's folder: "2023-1-7-9512" is the 7th of January 2023, 9:51:2 or 9:5:12.
QString BackupStamp(const Moment& moment);

/// Copies the files of Data to a new folder under the root of TabAutoBakPath, or under DataBak beside the program,
/// which must exist. Database files are copied with all that is committed, also while they are in use. A failure has
/// been said to the user; what was copied until then stays.
void BackUpDataFolder(Program& program);
