#pragma once

// A file that only its owner may read, from its first byte on.

#include <QByteArray>
#include <QString>

/// Replaces the file by a new one of this content. False on any error; no file of that name is left then.
bool ReplacePrivateFile(const QString& path, const QByteArray& content);
