#pragma once

// The copy of a template that one print works on, in TempFile beside the program, and the pages made of it. Both go
// when the print is over. What a program that was killed has left goes at the next print of any other.

#include <QLockFile>
#include <QString>

class WorkingCopy
{
public:
    /// @param path  where the copy is to stand; what stood there before is gone
    explicit WorkingCopy(const QString& path);
    ~WorkingCopy();
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    /// False where the file could not be written.
    bool Fill(const QString& templatePath);
    /// It is the user's from now on, and stays.
    void LeaveToUser() { m_isOwn = false; }

    const QString& path() const { return m_path; }
    /// Where its pages go.
    QString pdf() const;

private:
    QString m_path;
    QLockFile m_lock; // tells that this program still works on it
    bool m_isOwn = true;
};

/// Removes the copies and pages in a folder whose programs have ended without doing so.
void RemoveLeftCopies(const QString& folder);
