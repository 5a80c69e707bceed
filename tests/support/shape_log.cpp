#include "support/shape_log.h"

#include "database/statement_mapping.h"

#include <QFile>
#include <set>

namespace {
class LoggingStore : public Store
{
public:
    LoggingStore(const QString& path, std::unique_ptr<Store> store) : m_file(path), m_store(std::move(store))
    {
        m_file.open(QIODevice::WriteOnly | QIODevice::Append);
    }

    Recordset Run(const Sql& sql) override
    {
        // What fails here is no statement of the program, but a test of how one fails.
        const Recordset rows = m_store->Run(sql);
        if (m_seen.insert(sql.shape()).second)
            m_file.write(QByteArray::fromStdString(MapForSqlServer(sql.shape())).simplified() + '\n');
        return rows;
    }
    void BeginUnit() override { m_store->BeginUnit(); }
    void CommitUnit() override { m_store->CommitUnit(); }
    void RollbackUnit() override { m_store->RollbackUnit(); }
    bool inUnit() const override { return m_store->inUnit(); }

private:
    QFile m_file;
    std::unique_ptr<Store> m_store;
    std::set<std::string> m_seen;
};
} // namespace

StoreOpener ShapeLog(const QString& path, StoreOpener open)
{
    return [path, open = std::move(open)](const QString& connectionString) -> std::unique_ptr<Store> {
        return std::make_unique<LoggingStore>(path, open(connectionString));
    };
}
