#pragma once

// Looks a database file through for damage, on a thread and a connection of its own, beside all other work.

#include <QString>
#include <functional>
#include <future>
#include <stop_token>

class FileCheck
{
public:
    /// @param isQuick  leaves out whether tables and indexes agree
    /// @param done  called on the thread of the check at its end
    FileCheck(const QString& path, bool isQuick, const std::function<void()>& done);
    /// Ends it.
    ~FileCheck() { m_stop.request_stop(); }
    FileCheck(const FileCheck&) = delete;
    FileCheck& operator=(const FileCheck&) = delete;

    /// Waits for the end. What SQLite found wrong first, empty for a whole file.
    QString Damage() { return m_damage.get(); }

private:
    std::stop_source m_stop;
    std::future<QString> m_damage; // waits when it goes
};
