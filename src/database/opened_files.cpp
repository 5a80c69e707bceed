#include "database/opened_files.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <optional>
#include <sys/stat.h>

namespace {

constexpr qint64 kLogHeader = 32; // bytes; a log of no more holds nothing

const char* PathOf(sqlite3* database)
{
    return sqlite3_db_filename(database, "main");
}

qint64 SizeOf(const char* path)
{
    return QFileInfo(QFile::decodeName(path)).size();
}

std::optional<struct stat> StatusOf(const QByteArray& path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 ? std::optional(status) : std::nullopt;
}

} // namespace

OpenedFiles::OpenedFiles(sqlite3* database) : m_database(database)
{
    const QByteArray path = PathOf(database);
    for (const char* ending : {"-wal", "-shm"}) {
        if (const auto status = StatusOf(path + ending))
            m_sideFiles.push_back({path + ending, status->st_dev, status->st_ino});
    }
}

QString OpenedFiles::Missing() const
{
    int hasMoved = 0;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved)
        return QFile::decodeName(PathOf(m_database));
    // SQLite answers for the database alone.
    const auto missing = std::ranges::find_if(m_sideFiles, [](const SideFile& file) {
        const auto status = StatusOf(file.path);
        return !status || status->st_dev != file.device || status->st_ino != file.number;
    });
    return missing == m_sideFiles.end() ? QString() : QFile::decodeName(missing->path);
}

bool WasLeftOpen(sqlite3* database)
{
    if (SizeOf(sqlite3_filename_wal(PathOf(database))) <= kLogHeader)
        return false;
    // Everyone who has it open shares a lock on it. Asked through SQLite: closing a handle of one's own would give up
    // the locks of the whole process.
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    const bool isAlone = file->pMethods->xLock(file, SQLITE_LOCK_SHARED) == SQLITE_OK &&
                         file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE) == SQLITE_OK;
    file->pMethods->xUnlock(file, SQLITE_LOCK_NONE);
    return isAlone;
}

qint64 SizeOnDisk(sqlite3* database)
{
    return SizeOf(PathOf(database)) + SizeOf(sqlite3_filename_wal(PathOf(database)));
}
