#include "output/working_copy.h"

#include <QDir>
#include <QFile>

namespace {

constexpr auto kLock = ".lock";

QString PdfOf(const QString& copy)
{
    return copy + ".pdf";
}

void Remove(const QString& copy)
{
    QFile::remove(copy);
    QFile::remove(PdfOf(copy));
}

} // namespace

WorkingCopy::WorkingCopy(const QString& path) : m_path(path), m_lock(path + kLock)
{
    m_lock.setStaleLockTime(0); // however long a preview stays open
    m_lock.tryLock();
    Remove(m_path);
}

WorkingCopy::~WorkingCopy()
{
    if (m_isOwn)
        Remove(m_path);
}

bool WorkingCopy::Fill(const QString& templatePath)
{
    return QFile::copy(templatePath, m_path);
}

QString WorkingCopy::pdf() const
{
    return PdfOf(m_path);
}

void RemoveLeftCopies(const QString& folder)
{
    const QDir files(folder);
    for (const QString& name : files.entryList({QString("*") + kLock}, QDir::Files)) {
        const QString path = files.filePath(name);
        QLockFile lock(path);
        lock.setStaleLockTime(0);
        // Only the lock of a program that has ended can be taken.
        if (lock.tryLock())
            Remove(path.chopped(QString(kLock).size()));
    }
}
