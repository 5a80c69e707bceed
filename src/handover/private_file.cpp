#include "handover/private_file.h"

#include <QFile>
#include <fcntl.h>
#include <sys/stat.h>

bool ReplacePrivateFile(const QString& path, const QByteArray& content)
{
    QFile::remove(path);
    const QByteArray name = QFile::encodeName(path);
    const int handle =
        ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle < 0)
        return false;
    QFile file;
    if (file.open(handle, QIODevice::WriteOnly, QFile::AutoCloseHandle)) {
        const bool written = file.write(content) == content.size();
        file.close(); // a full disk may show only here
        if (written && file.error() == QFile::NoError)
            return true;
    }
    QFile::remove(path);
    return false;
}
