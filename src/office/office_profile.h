#pragma once

// The folder in which one LibreOffice process keeps its settings and its temporary files. Two processes with one
// profile would merge into one, so there is a pool of them, each with a lock that lasts as long as its process.

#include "office/profile_settings.h"

#include <QProcess>
#include <QString>
#include <QUuid>
#include <functional>

class OfficeProfile
{
public:
    using Use = ProfileUse;

    /// Takes a free one, and removes what killed processes left in the free ones. Throws SpreadsheetError.
    explicit OfficeProfile(Use use);
    ~OfficeProfile();
    OfficeProfile(const OfficeProfile&) = delete;
    OfficeProfile& operator=(const OfficeProfile&) = delete;

    /// Removed, with all that is in it, when the profile is taken next.
    QString temporaryFolder() const;
    /// By which the process is reached: told to nobody else.
    const QString& pipeName() const { return m_pipeName; }
    /// A process with this profile, ready to start; it takes over the lock.
    /// @param beforeStart  is called in the new process
    void Prepare(QProcess& process, const QStringList& options, const std::function<void()>& beforeStart) const;
    /// Settings made anew: the process does not start with those that are there.
    void Reset();
    /// What a process leaves when it is killed.
    void RemoveLeftovers() const;

private:
    bool Furnish();

    QString m_folder;
    const QString m_pipeName = "warehouse_" + QUuid::createUuid().toString(QUuid::Id128);
    Use m_use;
    int m_lock = -1;
};
