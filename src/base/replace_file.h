#pragma once

// Files that are written whole in place of an older one.

#include <QByteArray>
#include <QString>

/// Removes what is there and writes anew. False when that failed; nothing is left there then.
bool ReplaceFile(const QString& path, const QByteArray& content);
