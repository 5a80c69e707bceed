#pragma once

// What an operator may do.

#include "handover/program.h"

/// The right that a command asks for: one column of TabOperateRight each.
enum class Action
{
    Read,
    Edit,
    Delete,
    Print,
    Audit,
};

/// Whether the operator may do this in this function; a refusal has been said to the user. 系统管理员 may do
/// everything.
bool CheckOperateRight(Program& program, const QString& userName, const QString& functionName, Action action);
/// Whether this device is the one that the cloud account last signed in on; otherwise the user has been told.
bool CheckCloudLogin(Program& program);
