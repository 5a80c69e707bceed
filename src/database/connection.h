#pragma once

// The one connection of the process. It is made closed, opened by the first statement and again by the first one
// after a close or after the server was lost.

#include "database/store.h"

class Connection
{
public:
    explicit Connection(StoreOpener opener = OpenStore) : m_opener(std::move(opener)) {}

    /// 1 when open, 0 when closed or lost.
    int State() const { return m_store && !m_store->isLost() ? 1 : 0; }
    /// Throws StoreError and stays closed.
    void Open(const QString& connectionString)
    {
        Close();
        m_store = m_opener(connectionString);
    }
    void Close() { m_store.reset(); }
    /// Only while it is open.
    Store& store() { return *m_store; }

private:
    StoreOpener m_opener;
    std::unique_ptr<Store> m_store;
};
