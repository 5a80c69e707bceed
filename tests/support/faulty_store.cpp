#include "support/faulty_store.h"

namespace {

class FaultyStore : public Store
{
public:
    FaultyStore(Fault& fault, std::unique_ptr<Store> store) : m_fault(fault), m_store(std::move(store)) {}

    Recordset Run(const Sql& sql) override
    {
        Strike(QString::fromStdString(sql.shape()));
        return m_store->Run(sql);
    }
    void BeginUnit() override
    {
        Strike("begin");
        m_store->BeginUnit();
    }
    void CommitUnit() override
    {
        if (m_fault.kind == FaultKind::Unheard && m_fault.statements + 1 == m_fault.at)
            m_store->CommitUnit();
        Strike("commit");
        m_store->CommitUnit();
    }
    void RollbackUnit() override { m_store->RollbackUnit(); }
    bool isLost() const override
    {
        return !m_store && (m_fault.kind == FaultKind::Lost || m_fault.kind == FaultKind::Unheard);
    }
    bool inUnit() const override { return m_store && m_store->inUnit(); }

private:
    void Strike(const QString& words)
    {
        if (!m_store)
            throw ProcessDied();
        if (++m_fault.statements != m_fault.at || m_fault.kind == FaultKind::None)
            return;
        m_fault.struck = words;
        if (m_fault.kind == FaultKind::Death) {
            m_store.reset();
            throw ProcessDied();
        }
        if (m_fault.kind == FaultKind::FullDisk && m_store->inUnit())
            m_store->RollbackUnit();
        if (m_fault.kind == FaultKind::Lost || m_fault.kind == FaultKind::Unheard)
            m_store.reset();
        throw StoreError{13, "struck"};
    }

    Fault& m_fault;
    std::unique_ptr<Store> m_store; // none once the process has died
};

} // namespace

StoreOpener FaultyOpener(Fault& fault, StoreOpener open)
{
    return [&fault, open = std::move(open)](const QString& connectionString) {
        return std::make_unique<FaultyStore>(fault, open(connectionString));
    };
}
