#include "output/paper.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <algorithm>

namespace {

constexpr int kLongestWait = 60 * 1000; // milliseconds
constexpr int kPaintedEvery = 50;

struct Refusal
{
    const char* words; // of the printing system
    const char* text;
};
constexpr Refusal kRefusals[] = {
    {"No default destination", "没有默认打印机，不能打印！请在系统设置中添加打印机并设为默认打印机后重新操作。"},
    {"does not exist", "默认打印机不存在，不能打印！请在系统设置中重新设定默认打印机后重新操作。"},
    {"not accepting", "打印机已停止接收打印任务，不能打印！请检查打印机后重新操作。"},
    {"scheduler not responding", "打印服务没有运行，不能打印！请启动系统的打印服务(cups)后重新操作。"},
};

QString RefusalText(const QString& words)
{
    const auto known = std::ranges::find_if(
        kRefusals, [&](const Refusal& refusal) { return words.contains(QLatin1String(refusal.words)); });
    return known == std::end(kRefusals) ? "打印机没有接收打印任务：" + words : QString(known->text);
}

/// Waits for the end of a process that has been started. Keys and clicks are kept until then.
void WaitFor(QProcess& process)
{
    const QDeadlineTimer patience(kLongestWait);
    while (!process.waitForFinished(kPaintedEvery) && process.state() != QProcess::NotRunning) {
        if (patience.hasExpired())
            process.kill();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

} // namespace

bool PrintPdf(Program& program, const QString& path, const QString& title)
{
    QProcess lp;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8"); // its words are looked at
    lp.setProcessEnvironment(environment);
    lp.setProcessChannelMode(QProcess::MergedChannels);
    lp.start("lp", {"-t", title, path});
    if (!lp.waitForStarted()) {
        program.prompt.Inform("没有安装打印命令lp，不能打印！请安装软件包 cups-client 后重新操作。");
        return false;
    }
    WaitFor(lp);
    if (lp.exitStatus() == QProcess::NormalExit && lp.exitCode() == 0)
        return true;
    program.prompt.Inform(RefusalText(QString::fromUtf8(lp.readAll()).trimmed()));
    return false;
}
