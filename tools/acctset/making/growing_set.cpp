#include "making/growing_set.h"

#include "commands.h"
#include "data/schema.h"
#include "data/server_schema.h"
#include "database/odbc_store.h"
#include "database/sqlite_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr const char* kGrowing = ".new";
constexpr int kIndexSeconds = 3600; // an index of a large table takes longer than any statement of a window

QString CheckedPath(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists())
        throw Refusal{QString("\"%1\" exists already").arg(path)};
    if (QFileInfo::exists(path + kGrowing))
        throw Refusal{QString("\"%1%2\" is left from an earlier try; remove it").arg(path, kGrowing)};
    if (!file.absoluteDir().exists())
        throw Refusal{QString("there is no folder \"%1\"").arg(file.absolutePath())};
    return path;
}

struct RemovedFile
{
    QString path;

    explicit RemovedFile(QString growingPath) : path(std::move(growingPath)) {}
    ~RemovedFile() { QFile::remove(path); }
    RemovedFile(const RemovedFile&) = delete;
    RemovedFile& operator=(const RemovedFile&) = delete;
};

/// A file beside its place.
class GrowingFile : public GrowingSet
{
public:
    explicit GrowingFile(const QString& path)
        : m_path(CheckedPath(path)), m_growing(path + kGrowing), m_store(CreateSqliteFile(m_growing.path))
    {
        // Nobody reads the file before it is whole, so nothing needs to be safe while it grows.
        m_store->Run(Sql("pragma journal_mode=off"));
        m_store->Run(Sql("pragma synchronous=off"));
    }

    Store& store() override { return *m_store; }
    QStringList schema() const override { return SqliteSchema(); }
    void Finish() override
    {
        m_store.reset();
        if (!QFile::rename(m_growing.path, m_path))
            throw Refusal{QString("\"%1\" exists already").arg(m_path)};
    }

private:
    QString m_path;
    RemovedFile m_growing; // unless it has been moved
    std::unique_ptr<Store> m_store;
};

/// Runs statements in the database that every server has.
void RunBeside(const ServerPlace& place, const QStringList& statements)
{
    ServerAddress address = place.address;
    address.database = place.settings.kind == ServerKind::PostgreSql ? "postgres" : "master";
    const std::unique_ptr<Store> store = OpenServer(place.settings, address);
    for (const QString& words : statements)
        store->Run(Sql(words.toUtf8().constData()));
}

struct DroppedDatabase
{
    ServerPlace place;
    bool isWhole = false;

    explicit DroppedDatabase(ServerPlace taken) : place(std::move(taken))
    {
        place.settings.statementSeconds = kIndexSeconds;
        RunBeside(place, CreateDatabase(place.settings.kind, place.address.database));
    }
    ~DroppedDatabase()
    {
        if (isWhole)
            return;
        try {
            RunBeside(place, {DropDatabase(place.settings.kind, place.address.database)});
        } catch (const StoreError& error) {
            PrintErrorLine("acctset: the unfinished database is left behind: " + error.description);
        }
    }
    DroppedDatabase(const DroppedDatabase&) = delete;
    DroppedDatabase& operator=(const DroppedDatabase&) = delete;
};

/// A database in its place: the server refuses a second one of the name.
class GrowingDatabase : public GrowingSet
{
public:
    explicit GrowingDatabase(const ServerPlace& place)
        : m_made(place), m_store(OpenServer(m_made.place.settings, m_made.place.address))
    {}

    Store& store() override { return *m_store; }
    QStringList schema() const override { return ServerSchema(m_made.place.settings.kind); }
    void Finish() override
    {
        if (m_made.place.settings.kind == ServerKind::PostgreSql)
            m_store->Run(Sql("analyze"));
        m_made.isWhole = true;
    }

private:
    DroppedDatabase m_made; // unless it is whole
    std::unique_ptr<Store> m_store;
};

} // namespace

std::unique_ptr<GrowingSet> MakeGrowingSet(const AccountSetPlace& place)
{
    if (place.server)
        return std::make_unique<GrowingDatabase>(*place.server);
    return std::make_unique<GrowingFile>(place.path);
}
