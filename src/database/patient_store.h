#pragma once

// A store that is waited for only so long. A driver may wait for a silent server as long as the network lets it, and
// nothing can call it back. So its store works on a thread of its own, and is left to it once the time is over: it
// closes, and the thread ends, when the driver comes back.

#include "database/store.h"

#include <chrono>

/// What the user is told once the time is over.
inline constexpr const char* kSlowServer = "数据库服务器没有在规定时间内答复！";

struct Patience
{
    std::chrono::seconds connect;
    std::chrono::seconds statement;
};

/// Opens a store on a thread of its own. Throws StoreError, also when one is not open in time; the store throws one
/// that has not answered in time, and is lost then.
std::unique_ptr<Store> OpenPatiently(std::function<std::unique_ptr<Store>()> open, Patience patience);
