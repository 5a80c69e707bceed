#include "office_fixture.h"

#include <QFile>
#include <csignal>

namespace {

/// A screen of the test's own.
class UserWindows : public OfficeTest
{
protected:
    void SetUp() override
    {
        OfficeTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        m_screen.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"});
        if (!m_screen.waitForReadyRead())
            GTEST_SKIP() << "Xvfb is not installed";
        qputenv("DISPLAY", ":" + m_screen.readAllStandardOutput().trimmed());
        qunsetenv("WAYLAND_DISPLAY");
    }

    void TearDown() override
    {
        m_host.reset();
        m_screen.kill();
        m_screen.waitForFinished();
    }

    /// The windows with this caption and their processes.
    static QStringList WindowsNamed(const QString& caption)
    {
        return OutputOf("xdotool", {"search", "--onlyvisible", "--name", caption}).split('\n', Qt::SkipEmptyParts);
    }

    static qint64 ProcessOf(const QString& window)
    {
        return OutputOf("xdotool", {"getwindowpid", window}).toLongLong();
    }

    QProcess m_screen;
};

} // namespace

TEST_F(UserWindows, ANewWorkbookIsShownUnderItsCaptionAndOutlivesTheProgram)
{
    const QString sample = MakeSample("sample.xls");
    host().HandOver(sample, "输出....", true);
    QFile::remove(sample);
    m_host.reset();

    QStringList windows;
    ASSERT_TRUE(Becomes([&] { return !(windows = WindowsNamed("^输出\\.\\.\\.\\.$")).isEmpty(); }));
    EXPECT_EQ(windows.size(), 1);
    const qint64 office = ProcessOf(windows.front());
    EXPECT_TRUE(IsRunning(office));
    const auto ends = [&] {
        OutputOf("xdotool", {"windowfocus", windows.front(), "key", "ctrl+q"}); // a window just shown misses a key
        return !IsRunning(office);
    };
    if (!Becomes(ends)) {
        ADD_FAILURE() << "the office did not end with its window";
        kill(pid_t(office), SIGKILL);
    }
}

TEST_F(UserWindows, AFileIsOpenedItself)
{
    const QString sample = MakeSample("模版.xlsx");
    host().HandOver(sample, {}, false);
    const QStringList windows = WindowsNamed("模版.xlsx");
    ASSERT_EQ(windows.size(), 1);
    EXPECT_TRUE(QFile::exists(PathOf(".~lock.模版.xlsx#")));
    kill(pid_t(ProcessOf(windows.front())), SIGTERM);
}

TEST_F(UserWindows, WithoutAScreenItIsRefused)
{
    const QString sample = MakeSample("sample.xls");
    qunsetenv("DISPLAY");
    try {
        host().HandOver(sample, {}, true);
        FAIL() << "shown without a screen";
    } catch (const SpreadsheetError& error) {
        EXPECT_EQ(error.kind, SpreadsheetError::Kind::NoDisplay);
    }
}
