#include "database/sqlite_handle.h"

#include <QFile>
#include <QFileInfo>

namespace {
struct KnownFailure
{
    int code;
    const char* text;
};

constexpr KnownFailure kKnownFailures[] = {
    {SQLITE_BUSY, "数据库正被其他程序占用，请稍后重试！"},
    {SQLITE_LOCKED, "数据库正被其他程序占用，请稍后重试！"},
    {SQLITE_FULL, "磁盘空间不足，数据没有写入！"},
    {SQLITE_IOERR, "读写数据库文件时出错！"},
    {SQLITE_READONLY, "数据库文件或其所在文件夹是只读的！"},
    {SQLITE_CANTOPEN, "数据库文件不能打开！"},
    {SQLITE_CORRUPT, "数据库文件已损坏！"},
    {SQLITE_NOTADB, "数据库文件已损坏或不是账套文件！"},
};
/// Read through SQLite: closing a handle of one's own would give up the locks of the whole process on the file.
QByteArray HeaderOf(sqlite3* database)
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    QByteArray header(32, '\0');
    file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0); // a shorter file is filled up
    return header;
}
} // namespace

SqliteHandle OpenHandle(const QString& path, int flags)
{
    sqlite3* opened = nullptr;
    // One thread uses a database: no call needs a lock.
    const int code =
        sqlite3_open_v2(QFile::encodeName(path).constData(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    SqliteHandle database(opened);
    if (code != SQLITE_OK)
        throw ErrorOf(opened, path);
    return database;
}

StoreError ErrorOf(sqlite3* database, const QString& path)
{
    const int code = sqlite3_errcode(database) & 0xff;
    const QString detail = QString::fromUtf8(sqlite3_errmsg(database));
    for (const KnownFailure& known : kKnownFailures)
        if (known.code == code)
            return {code, QString(known.text) + "\r\n" + path + "\r\n(" + detail + ")"};
    return {code, detail};
}

SqliteHandle OpenDatabase(const QString& path, int flags)
{
    if (!QFileInfo(path).isFile())
        throw StoreError{SQLITE_CANTOPEN, "账套文件不存在：" + path};
    SqliteHandle database = OpenHandle(path, flags);
    const QByteArray header = HeaderOf(database.get());
    const QByteArray jetMark = header.mid(4, 15);
    if (jetMark == "Standard Jet DB" || jetMark == "Standard ACE DB")
        throw StoreError{SQLITE_NOTADB,
                         "账套文件是旧版 Access（Jet）数据库，需要先转换为新的账套格式才能打开：" + path};
    if (!header.startsWith("SQLite format 3"))
        throw StoreError{SQLITE_NOTADB, "账套文件已损坏或不是账套文件：" + path};
    return database;
}
