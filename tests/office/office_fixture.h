#pragma once

// Tests on the real LibreOffice, through the plug-in as the program loads it. They are skipped where it is missing.

#include "base/spreadsheet.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class OfficeTest : public testing::Test
{
protected:
    void SetUp() override;

    SpreadsheetHost& host() { return *m_host; }
    QString PathOf(const QString& name) const { return m_folder.filePath(name); }
    /// The sample, made into a workbook of the name's format.
    QString MakeSample(const QString& name);
    /// Makes a workbook or a text of another format out of a file, under its base name in a folder.
    static void Convert(const QString& source, const QString& format, const QString& folder);
    void WriteFile(const QString& name, const QByteArray& content);
    static QByteArray ReadFile(const QString& path);

    /// Runs a job and gives what it ends with; empty where it succeeds.
    std::optional<SpreadsheetError> ErrorOf(const SpreadsheetHost::Job& job);
    /// Reads a block of the first sheet of a file.
    std::vector<QStringList> ReadBlock(const QString& path, int row, int column, int rows, int columns);

    std::unique_ptr<SpreadsheetHost> m_host;

private:
    QTemporaryDir m_folder;
};

/// The office processes that a process has started.
std::vector<qint64> OfficesOf(qint64 parent);
/// Waits for it, a minute at most.
bool Becomes(const std::function<bool()>& condition);
bool IsRunning(qint64 process);
/// The words of a program's output.
QString OutputOf(const QString& program, const QStringList& arguments);
