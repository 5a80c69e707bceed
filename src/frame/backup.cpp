#include "frame/backup.h"

#include "base/program_folder.h"
#include "database/sqlite_store.h"
#include "handover/open_query.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace {

QString BackupRoot(Program& program)
{
    const QString root = OpenQuery(program, Sql("select * from TabAutoBakPath ")).Text("PathName").trimmed();
    return root.isEmpty() ? PathInFolder(program.folder, "DataBak") + '/' : root;
}

/// The last four characters go, whatever the extension is.
QString BackupName(const QString& name)
{
    const QString trimmed = name.trimmed();
    return trimmed.left(std::max<qsizetype>(0, trimmed.size() - 4)) + ".VTB";
}

bool IsSqliteFile(const QString& path)
{
    static const QByteArray mark("SQLite format 3", 16);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(mark.size()) == mark;
}

/// A journal of a database beside it; what it holds of committed rows comes with the database's own copy.
bool IsSideFile(const QDir& folder, const QString& name)
{
    static const QStringList endings = {"-wal", "-shm", "-journal"};
    return std::any_of(endings.begin(), endings.end(), [&](const QString& ending) {
        return name.endsWith(ending) && IsSqliteFile(folder.filePath(name.chopped(ending.size())));
    });
}

bool CopyDataFile(const QString& source, const QString& target)
{
    QFile::remove(target); // two names may differ in their extension alone: the later one stays
    if (!IsSqliteFile(source))
        return QFile::copy(source, target);
    try {
        CopySqliteFile(source, target);
        return true;
    } catch (const StoreError&) {
        QFile::remove(target);
        return false;
    }
}

} // namespace

QString BackupStamp(const Moment& moment)
{
    const int seconds = moment.millisecondOfDay / 1000;
    return QString("%1-%2-%3-%4%5%6")
        .arg(moment.day.year())
        .arg(moment.day.month())
        .arg(moment.day.day())
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60)
        .arg(seconds % 60);
}

void BackUpDataFolder(Program& program)
{
    const QString target = BackupRoot(program) + BackupStamp(program.clock.Now());
    if (QFileInfo::exists(target)) {
        program.prompt.Inform("自动生成的备份文件名已经存在，自动备份失败！");
        return;
    }
    bool whole = QDir().mkdir(target);
    const QDir source(PathInFolder(program.folder, "Data"));
    const QStringList names = whole ? source.entryList(QDir::Files, QDir::Name) : QStringList();
    for (const QString& name : names) {
        if (!name.contains('.') || IsSideFile(source, name))
            continue;
        const QString copy = PathInFolder(target, BackupName(name));
        whole = CopyDataFile(source.filePath(name), copy) && whole;
    }
    if (!whole)
        program.prompt.Warn("发生不可预见性错误，自动备份失败！");
}
