#pragma once

// The copy of the account sets that is made when the operator leaves: every file of the program's Data folder into a
// new folder named by the moment.

#include "handover/program.h"

/// The name of a backup's folder: "2023-1-7-9512" is the 7th of January 2023, 9:51:2 or 9:5:12.
QString BackupStamp(const Moment& moment);

/// Copies the files of Data to a new folder under the root of TabAutoBakPath, which must exist, or under DataBak beside
/// the program. Database files are copied with all that is committed, also while they are in use. A failure has been
/// said to the user with its reason; what was copied nevertheless stays.
void BackUpDataFolder(Program& program);
