#include "office_fixture.h"

#include "output/spreadsheet_plugin.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QThread>
#include <csignal>

namespace {

/// A profile of the tests' own, kept from run to run: a new one takes a second start.
bool UseOwnProfiles()
{
    return qputenv("XDG_DATA_HOME", OFFICE_TEST_FOLDER);
}

const bool kOwnProfiles = UseOwnProfiles();

} // namespace

void OfficeTest::SetUp()
{
    ASSERT_TRUE(kOwnProfiles && m_folder.isValid());
    try {
        m_host = LoadSpreadsheet(OFFICE_FOLDER);
        m_host->Run([](SpreadsheetApplication&) {});
    } catch (const SpreadsheetError& error) {
        if (error.kind == SpreadsheetError::Kind::NotInstalled)
            GTEST_SKIP() << "LibreOffice Calc is not installed";
        FAIL() << error.description.toStdString();
    }
}

QString OfficeTest::MakeSample(const QString& name)
{
    const QString made = OFFICE_TEST_FOLDER "/sample." + QFileInfo(name).suffix(); // once for all tests
    const QString source = OFFICE_SOURCE_FOLDER "/sample.fods";
    if (QFileInfo(made).lastModified() < QFileInfo(source).lastModified())
        QFile::remove(made);
    Convert(source, QFileInfo(name).suffix(), OFFICE_TEST_FOLDER);
    EXPECT_TRUE(QFile::copy(made, PathOf(name)));
    return PathOf(name);
}

void OfficeTest::Convert(const QString& source, const QString& format, const QString& folder)
{
    const QString made = QDir(folder).filePath(QFileInfo(source).baseName() + "." + format);
    const QString profile = "-env:UserInstallation=file://" OFFICE_TEST_FOLDER "/convert";
    // A new profile ends its first start at once.
    for (int tries = 0; tries < 3 && !QFile::exists(made); ++tries)
        OutputOf("soffice.bin", {profile, "--headless", "--convert-to", format, "--outdir", folder, source});
}

void OfficeTest::WriteFile(const QString& name, const QByteArray& content)
{
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QByteArray OfficeTest::ReadFile(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

std::optional<SpreadsheetError> OfficeTest::ErrorOf(const SpreadsheetHost::Job& job)
{
    try {
        m_host->Run(job);
    } catch (const SpreadsheetError& error) {
        return error;
    }
    return {};
}

std::vector<QStringList> OfficeTest::ReadBlock(const QString& path, int row, int column, int rows, int columns)
{
    std::vector<QStringList> block;
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        block = application.Open(path)->SheetAt(0)->Read(row, column, rows, columns);
    });
    EXPECT_FALSE(error) << error->description.toStdString();
    return block;
}

std::vector<qint64> OfficesOf(qint64 parent)
{
    std::vector<qint64> offices;
    for (const QString& name : QDir("/proc").entryList(QDir::Dirs)) {
        QFile stat("/proc/" + name + "/stat");
        if (!name.front().isDigit() || !stat.open(QIODevice::ReadOnly))
            continue;
        const QString line = stat.readAll();
        const QStringList behindName = line.section(") ", 1).split(' ');
        if (line.contains("(soffice.bin)") && behindName.value(0) != "Z" && behindName.value(1).toLongLong() == parent)
            offices.push_back(name.toLongLong());
    }
    return offices;
}

bool Becomes(const std::function<bool()>& condition)
{
    for (int tries = 0; tries < 1200; ++tries) {
        if (condition())
            return true;
        QThread::msleep(50);
    }
    return false;
}

bool IsRunning(qint64 process)
{
    QFile stat(QString("/proc/%1/stat").arg(process));
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
}

QString OutputOf(const QString& program, const QStringList& arguments)
{
    const QString installed = OFFICE_PROGRAM_FOLDER "/" + program;
    QProcess process;
    process.start(QFile::exists(installed) ? installed : program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}
