#pragma once

// The icons of the bill windows, drawn as lines so that they are crisp at every size and resolution.

#include <QIcon>

/// The icon of a control by its name, such as ToolSave. Empty for a name without one.
QIcon ToolbarIcon(QStringView control);
