#include "base/replace_file.h"

#include <QFile>

bool ReplaceFile(const QString& path, const QByteArray& content)
{
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool written = file.write(content) == content.size();
    file.close(); // a full disk may show only here
    if (written && file.error() == QFile::NoError)
        return true;
    file.remove();
    return false;
}
