#include "office_fixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>
#include <csignal>
#include <thread>
#include <unistd.h>

namespace {

using Kind = SpreadsheetError::Kind;

class OfficeProcesses : public OfficeTest
{
protected:
    qint64 Office() const
    {
        const std::vector<qint64> offices = OfficesOf(getpid());
        EXPECT_EQ(offices.size(), 1u);
        return offices.empty() ? 0 : offices.front();
    }

    /// Writes without end.
    static void WorkOn(SpreadsheetApplication& application)
    {
        const auto workbook = application.Create();
        const auto sheet = workbook->SheetAt(0);
        while (true)
            sheet->Write(1, 1, SheetRows(2000, std::vector<SheetCell>(19, 1.5)));
    }

    void ExpectWorks()
    {
        const auto error =
            ErrorOf([](SpreadsheetApplication& application) { const auto sheet = application.Create()->SheetAt(0); });
        EXPECT_FALSE(error) << error->description.toStdString();
    }
};

/// What the offices have in their folders for temporary files.
QStringList TemporaryFiles()
{
    QStringList files;
    const QDir pool(OFFICE_TEST_FOLDER "/warehouse/office");
    for (const QString& profile : pool.entryList({"jobs*"}, QDir::Dirs))
        files += QDir(pool.filePath(profile + "/tmp")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    return files;
}

void StartClient(QProcess& client, const QStringList& arguments = {})
{
    client.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    client.start(OFFICE_CLIENT, arguments);
}

} // namespace

TEST_F(OfficeProcesses, OneOfficeServesAllJobsAndEndsWithTheHost)
{
    const qint64 office = Office();
    ExpectWorks();
    EXPECT_EQ(Office(), office);
    m_host.reset();
    EXPECT_FALSE(IsRunning(office));
    EXPECT_EQ(TemporaryFiles(), QStringList());
}

TEST_F(OfficeProcesses, KilledBetweenJobs)
{
    const qint64 office = Office();
    kill(pid_t(office), SIGKILL);
    ExpectWorks();
    EXPECT_NE(Office(), office);
}

TEST_F(OfficeProcesses, KilledInAJob)
{
    const qint64 office = Office();
    const auto error = ErrorOf([&](SpreadsheetApplication& application) {
        const auto workbook = application.Create();
        kill(pid_t(office), SIGKILL);
        for (int row = 1; row < 1000; ++row)
            workbook->SheetAt(0)->Write(row, 1, {{QString("x")}});
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, Kind::Stopped);
    ExpectWorks();
    m_host.reset();
    EXPECT_EQ(TemporaryFiles(), QStringList());
}

TEST_F(OfficeProcesses, OneThatHangsIsEnded)
{
    const qint64 office = Office();
    kill(pid_t(office), SIGSTOP);
    const auto error = ErrorOf([](SpreadsheetApplication& application) { application.Create(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, Kind::Stopped);
    ExpectWorks();

    const qint64 next = Office();
    kill(pid_t(next), SIGSTOP);
    m_host.reset();
    EXPECT_FALSE(IsRunning(office));
    EXPECT_FALSE(IsRunning(next));
}

TEST_F(OfficeProcesses, AWriteToAnEndedOfficeDoesNotEndTheProgram)
{
    ExpectWorks();
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    EXPECT_EQ(write(ends[1], "x", 1), -1);
    close(ends[1]);
}

TEST_F(OfficeProcesses, CancelledInAJob)
{
    const qint64 office = Office();
    QTimer::singleShot(200, qApp, [&] { host().Cancel(); });
    const auto error = ErrorOf(WorkOn);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, Kind::Cancelled);
    EXPECT_TRUE(Becomes([&] { return !IsRunning(office); }));
    ExpectWorks();
    host().Cancel(); // none runs
    ExpectWorks();
}

TEST_F(OfficeProcesses, CancelledWhileItStarts)
{
    kill(pid_t(Office()), SIGKILL);
    QTimer::singleShot(0, qApp, [&] { host().Cancel(); });
    const auto error = ErrorOf([](SpreadsheetApplication&) { ADD_FAILURE() << "it started all the same"; });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, Kind::Cancelled);
    ExpectWorks();
}

TEST_F(OfficeProcesses, ASecondJobIsRefusedWhileOneRuns)
{
    std::optional<SpreadsheetError> second;
    bool painted = false;
    QTimer::singleShot(0, qApp, [&] {
        painted = true; // events are handled while the job runs
        second = ErrorOf([](SpreadsheetApplication&) {});
    });
    EXPECT_FALSE(ErrorOf([&](SpreadsheetApplication&) { EXPECT_TRUE(Becomes([&] { return second.has_value(); })); }));
    EXPECT_TRUE(painted);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->kind, Kind::Busy);
}

TEST_F(OfficeProcesses, WhatAJobThrowsReachesTheCaller)
{
    EXPECT_THROW(host().Run([](SpreadsheetApplication&) { throw std::out_of_range("mine"); }), std::out_of_range);
    ExpectWorks();
}

TEST_F(OfficeProcesses, ProgramsThatAreKilledLeaveNothingBehind)
{
    QProcess clients[2];
    for (QProcess& client : clients)
        StartClient(client);
    for (QProcess& client : clients) {
        ASSERT_TRUE(client.waitForReadyRead(30000));
        const std::vector<qint64> offices = OfficesOf(client.processId());
        ASSERT_EQ(offices.size(), 1u);
        client.kill();
        client.waitForFinished();
        EXPECT_TRUE(Becomes([&] { return !IsRunning(offices.front()); }));
    }
    EXPECT_NE(TemporaryFiles(), QStringList());

    QProcess next; // one program tidies up for both
    StartClient(next, {PathOf("after.xls")});
    EXPECT_TRUE(next.waitForFinished() && next.exitCode() == 0);
    EXPECT_EQ(ReadBlock(PathOf("after.xls"), 200, 1, 2, 2), (std::vector<QStringList>{{"001", "1.5"}, {"", ""}}));
    m_host.reset();
    EXPECT_EQ(TemporaryFiles(), QStringList());
}

TEST_F(OfficeProcesses, ProgramsDoNotDisturbEachOther)
{
    QProcess clients[3];
    for (QProcess& client : clients)
        StartClient(client, {PathOf(QString("client%1.xlsx").arg(&client - clients))});
    for (QProcess& client : clients)
        EXPECT_TRUE(client.waitForFinished(60000) && client.exitCode() == 0);
    for (const char* name : {"client0.xlsx", "client1.xlsx", "client2.xlsx"})
        EXPECT_EQ(ReadBlock(PathOf(name), 200, 1, 1, 2), (std::vector<QStringList>{{"001", "1.5"}}));
}

TEST_F(OfficeProcesses, AnOfficeOfTheUsersOwnIsLeftAlone)
{
    QProcess own;
    own.start(OFFICE_PROGRAM_FOLDER "/soffice.bin",
              {"-env:UserInstallation=file://" + PathOf("own"), "--headless", "--invisible"});
    ASSERT_TRUE(own.waitForStarted());
    ExpectWorks();
    host().Run([](SpreadsheetApplication& application) { application.Create(); });
    m_host.reset();
    const bool ended = own.waitForFinished(500);
    EXPECT_TRUE(!ended || own.exitCode() == 81) << "a new profile may ask for a second start";
    own.kill();
    own.waitForFinished();
}
