#pragma once

// The one connection of the process. It is made closed, opened by the first statement and again by the first one
// after a close or after the server was lost.

#include "database/open_store.h"

#include <utility>

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
        if (!m_advised)
            m_advice = m_store->advice();
    }
    void Close() { m_store.reset(); }
    /// Only while it is open.
    Store& store() { return *m_store; }
    /// What the store that was opened advises, the first time that it advises anything; else empty.
    QString TakeAdvice()
    {
        m_advised = m_advised || !m_advice.isEmpty();
        return std::exchange(m_advice, {});
    }

private:
    StoreOpener m_opener;
    std::unique_ptr<Store> m_store;
    QString m_advice;
    bool m_advised = false;
};
