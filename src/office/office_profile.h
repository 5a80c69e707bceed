#pragma once

// The folder in which one LibreOffice process keeps its settings and its temporary files. Two processes with one
// profile would merge into one, so there is a pool of them, each with a lock that lasts as long as its process.

#include <QProcess>
#include <QString>
#include <functional>

inline const QString kOfficeFolder = LO_PROGRAM_FOLDER;

class OfficeProfile
{
public:
    enum class Use
    {
        Jobs,
        Window, // of the user: keeps what the user changes
    };

    /// Takes a free one, without what a crashed process left in it. Throws SpreadsheetError.
    explicit OfficeProfile(Use use);
    ~OfficeProfile();
    OfficeProfile(const OfficeProfile&) = delete;
    OfficeProfile& operator=(const OfficeProfile&) = delete;

    /// Removed, with all that is in it, when the profile is taken next.
    QString temporaryFolder() const { return m_folder + "/tmp"; }
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
    bool Take(const QString& name);
    bool Furnish();

    QString m_folder;
    QString m_pipeName;
    Use m_use;
    int m_lock = -1;
};
