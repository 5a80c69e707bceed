#pragma once

// Which store a connection string asks for.

#include "database/store.h"

/// The StoreOpener of the program: a file or a server. Throws StoreError.
std::unique_ptr<Store> OpenStore(const QString& connectionString);
