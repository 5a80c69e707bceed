#pragma once

// The workbooks that bills are printed with, as they stand in the folder templates, put into new account sets.

#include "making/new_account_set.h"

/// The templates that the print commands call by name, in a group of their own: no menu lists them.
void StoreFixedTemplates(NewAccountSet& accountSet);
/// Two that the demonstration's clerk made; the menus of their bills list them.
void StoreDemoTemplates(NewAccountSet& accountSet);
