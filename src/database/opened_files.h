#pragma once

// The files of a database on the disk, as their owner can delete, move or replace them while they are open: SQLite
// itself would go on in the ones that are gone.

#include <QString>
#include <sqlite3.h>
#include <sys/types.h>
#include <vector>

class OpenedFiles
{
public:
    /// @param database  one that has been read from, so that its log is open as well
    explicit OpenedFiles(sqlite3* database);
    /// The path of one that is no longer there, or is another file now; empty while all are in place.
    QString Missing() const;

private:
    struct SideFile
    {
        QByteArray path;
        dev_t device;
        ino_t number;
    };

    sqlite3* m_database;
    std::vector<SideFile> m_sideFiles; // the log and its index
};

/// Whether a log lies beside a database that nobody has open: whoever wrote it did not come to its end. Asked before
/// the first statement, which would take the log in.
bool WasLeftOpen(sqlite3* database);
/// The size of the database and its log in bytes.
qint64 SizeOnDisk(sqlite3* database);
