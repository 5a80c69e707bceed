#pragma once

// A printing system of the test's own: the first lp on the PATH keeps what it is given, or refuses.

#include <QCoreApplication>
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
    /// @param script  what it does instead of taking everything
    explicit FakeLp(const QByteArray& script = {})
    {
        QFile lp(m_folder.filePath("lp"));
        EXPECT_TRUE(lp.open(QIODevice::WriteOnly));
        const QByteArray folder = m_folder.path().toUtf8();
        const QByteArray takes = "echo \"$2\" >> " + folder + "/titles\ncat > " + folder + "/paper\n";
        lp.write("#!/bin/sh\n" + (script.isEmpty() ? takes : script));
        lp.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What came out last, and the titles of all prints.
    QString paper() const { return Read("paper"); }
    QString titles() const { return Read("titles"); }

    /// Whether every print has come to its end.
    static bool IsDone() { return !QCoreApplication::instance()->findChild<QObject*>("PrintJob"); }
    /// The script of one that fails with these words.
    static QByteArray Saying(const QByteArray& words) { return "echo '" + words + "' >&2\nexit 1\n"; }

private:
    QString Read(const QString& name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir m_folder;
    const SearchPath m_path{m_folder.path().toUtf8() + ":" + qgetenv("PATH")};
};
