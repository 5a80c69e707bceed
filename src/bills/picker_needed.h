#pragma once

// A choice that only the user can make. A rule that meets one answers with it; the window opens the picker and hands
// the choice back.

#include "database/sql.h"

#include <QString>

struct PickerNeeded
{
    const char* table; // TabWare and TabStuff are picked in frmCode, TabWarehouseType and TabAttribute in the tree
    QString title;
    Sql query;          // of a list the rows shown first; of a tree its condition (" where ..."), empty for all
    QString typed = {}; // that the picker is narrowed to; empty for nothing
    QString note = {};  // why it opens, for the status line
};
