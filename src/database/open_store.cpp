#include "database/open_store.h"

#include "database/odbc_store.h"
#include "database/sqlite_store.h"

#include <QCoreApplication>

namespace {
/// The file behind an office database's connection string: what stands between the source and the password.
QString DataSource(const QString& connectionString)
{
    const QString opening = "Data Source = ";
    const qsizetype from = connectionString.indexOf(opening) + opening.size();
    const qsizetype to = connectionString.lastIndexOf(';', connectionString.lastIndexOf("Jet OLEDB:"));
    return connectionString.mid(from, to - from).trimmed().replace('\\', '/');
}
} // namespace

std::unique_ptr<Store> OpenStore(const QString& connectionString)
{
    if (connectionString.startsWith("Provider = Microsoft.Jet.OLEDB"))
        return OpenSqliteFile(DataSource(connectionString));
    if (connectionString.startsWith("Driver="))
        return OpenServer(ReadServerSettings(QCoreApplication::applicationDirPath()), AddressOf(connectionString));
    throw StoreError{kUnspecifiedError, "不能确定数据库的类型，连接失败！"};
}
