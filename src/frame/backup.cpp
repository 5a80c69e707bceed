#include "frame/backup.h"

#include "base/program_folder.h"
#include "database/sqlite_store.h"
#include "handover/open_query.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <algorithm>

namespace {

/// What stands in front of the stamp: a folder, or the beginning of a name. The user's own may have been typed on a
/// system that parts folders by backslashes; it is not made when it is missing, the usual one is. Empty when the
/// account set did not answer.
QString BackupRoot(Program& program)
{
    const Recordset rows = OpenQuery(program, Sql("select * from TabAutoBakPath "));
    if (!rows)
        return {};
    const QString own = rows.Text("PathName").trimmed().replace('\\', '/');
    if (!own.isEmpty())
        return QDir(program.folder).absoluteFilePath(own);
    const QString usual = PathInFolder(program.folder, "DataBak");
    QDir().mkdir(usual);
    return usual + '/';
}

/// The names of the copies: each without its extension. Where two would meet, the whole name stays.
QHash<QString, QString> BackupNames(const QStringList& names)
{
    QHash<QString, QString> copies;
    for (const QString& name : names)
        copies[name] = QFileInfo(name.trimmed()).completeBaseName();
    for (bool isNew = true; isNew;) {
        isNew = false;
        QHash<QString, int> uses; // of a name, whatever its case: copies are carried to other systems
        for (const QString& copy : copies)
            ++uses[copy.toCaseFolded()];
        for (const QString& name : names) {
            if (copies[name] == name || (!copies[name].isEmpty() && uses[copies[name].toCaseFolded()] == 1))
                continue;
            copies[name] = name;
            isNew = true;
        }
    }
    return copies;
}

/// A journal of a database beside it; what it holds of committed rows comes with the database's own copy.
bool IsSideFile(const QDir& folder, const QString& name)
{
    static const QStringList endings = {"-wal", "-shm", "-journal"};
    return std::any_of(endings.begin(), endings.end(), [&](const QString& ending) {
        return name.endsWith(ending) && IsSqliteFile(folder.filePath(name.chopped(ending.size())));
    });
}

/// Why there is no copy; empty for one that is whole.
QString CopyDataFile(const QString& source, const QString& target)
{
    try {
        if (IsSqliteFile(source)) {
            CopySqliteFile(source, target);
            return {};
        }
        QFile file(source);
        return file.copy(target) ? QString() : source + "：" + file.errorString();
    } catch (const StoreError& error) {
        QFile::remove(target);
        return source + "：" + error.description;
    }
}

/// The reasons of what went wrong; none for a whole backup.
QStringList CopyDataFolder(const QDir& source, const QString& target)
{
    QStringList names;
    for (const QString& name : source.entryList(QDir::Files, QDir::Name)) {
        if (name.contains('.') && !IsSideFile(source, name))
            names << name;
    }
    const QHash<QString, QString> copies = BackupNames(names);
    QStringList reasons;
    for (const QString& name : std::as_const(names))
        reasons << CopyDataFile(source.filePath(name), PathInFolder(target, copies[name] + ".VTB"));
    reasons.removeAll({});
    return reasons;
}

/// Makes the folder of the copies; why it cannot be, or empty.
QString MakeTarget(const QString& target)
{
    const QString root = target.left(target.lastIndexOf('/'));
    if (!QFileInfo(root).isDir())
        return "备份路径不存在：" + root;
    return QDir().mkdir(target) ? QString() : "备份文件夹不能建立：" + target;
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
    const QString root = BackupRoot(program);
    const QString target = root + BackupStamp(program.clock.Now());
    if (!root.isEmpty() && QFileInfo::exists(target)) {
        program.prompt.Inform("自动生成的备份文件名已经存在，自动备份失败！");
        return;
    }
    QStringList reasons = {root.isEmpty() ? QString("备份路径不能读取") : MakeTarget(target)};
    if (reasons.first().isEmpty())
        reasons = CopyDataFolder(QDir(PathInFolder(program.folder, "Data")), target);
    if (!reasons.isEmpty())
        program.prompt.Warn("发生不可预见性错误，自动备份失败！\r\n" + reasons.join("\r\n"));
}
