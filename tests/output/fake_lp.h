#pragma once

// A printing system of the test's own: the first lp on the PATH keeps what it is given, or refuses.

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Where programs are looked for while it lives.
class SearchPath
{
public:
    explicit SearchPath(const QByteArray& path) { qputenv("PATH", path); }
    ~SearchPath() { qputenv("PATH", m_own); }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;

private:
    const QByteArray m_own = qgetenv("PATH");
};

/// No program is found while it lives.
struct NoPrograms : SearchPath
{
    NoPrograms() : SearchPath("/nowhere") {}
};

class FakeLp
{
public:
    /// @param refusal  what it says before it fails; none for a printer that takes everything
    explicit FakeLp(const QByteArray& refusal = {})
    {
        QFile lp(m_folder.filePath("lp"));
        EXPECT_TRUE(lp.open(QIODevice::WriteOnly));
        const QByteArray folder = m_folder.path().toUtf8();
        lp.write(refusal.isEmpty() ? "#!/bin/sh\necho \"$2\" >> " + folder + "/titles\ncp \"$3\" " + folder + "/paper\n"
                                   : "#!/bin/sh\necho '" + refusal + "' >&2\nexit 1\n");
        lp.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What came out last, and the titles of all prints.
    QString paper() const { return Read("paper"); }
    QString titles() const { return Read("titles"); }
    QString paperPath() const { return m_folder.filePath("paper"); }

private:
    QString Read(const QString& name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir m_folder;
    const SearchPath m_path{m_folder.path().toUtf8() + ":" + qgetenv("PATH")};
};
