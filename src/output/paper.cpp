#include "output/paper.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <utility>

namespace {

constexpr int kLastMoment = 2000; // milliseconds

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

/// Its own words are looked at.
QProcessEnvironment InEnglish()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8");
    return environment;
}

QByteArray PagesOf(const QString& pdf)
{
    QFile file(pdf);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

PrintJob::PrintJob(Program& program, const QString& pdf, const QString& title, Ended ended,
                   std::chrono::milliseconds patience)
    : QObject(QCoreApplication::instance()), m_program(program), m_ended(std::move(ended)), m_waited(patience)
{
    setObjectName("PrintJob");
    connect(&m_lp, &QProcess::finished, this, [this](int exitCode, QProcess::ExitStatus status) {
        const bool taken = status == QProcess::NormalExit && exitCode == 0;
        End(taken, taken ? QString() : Refusal());
    });
    connect(&m_lp, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            End(false, "没有安装打印命令lp，不能打印！请安装软件包 cups-client 后重新操作。");
    });
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, &m_lp, &QProcess::kill);
    // What fails at once is told like all else, when the caller is done.
    QMetaObject::invokeMethod(
        this, [this, pages = PagesOf(pdf), title] { Start(pages, title); }, Qt::QueuedConnection);
}

PrintJob::~PrintJob()
{
    m_lp.disconnect(this);
    if (m_lp.state() != QProcess::NotRunning)
        m_lp.waitForFinished(kLastMoment);
}

void PrintJob::Start(const QByteArray& pages, const QString& title)
{
    if (m_isGivenUp)
        return End(false, {});
    if (pages.isEmpty())
        return End(false, "读取打印文件失败，请重新操作！");
    m_lp.setProcessEnvironment(InEnglish());
    m_lp.setProcessChannelMode(QProcess::MergedChannels);
    m_lp.start("lp", {"-t", title});
    m_lp.write(pages);
    m_lp.closeWriteChannel();
    m_patience.start(m_waited);
}

void PrintJob::Cancel()
{
    m_isGivenUp = true;
    m_lp.kill();
}

QString PrintJob::Refusal()
{
    if (!m_patience.isActive())
        return "打印服务在" + QString::number(std::chrono::ceil<std::chrono::seconds>(m_waited).count()) +
               "秒内没有应答，没有打印！请检查打印机和系统的打印服务(cups)后重新操作。";
    const QString words = QString::fromUtf8(m_lp.readAll()).trimmed();
    if (!words.isEmpty())
        return RefusalText(words);
    return m_lp.exitStatus() == QProcess::CrashExit
               ? "打印命令lp意外终止，没有打印！请重新操作。"
               : "打印命令lp没有说明原因（返回值" + QString::number(m_lp.exitCode()) +
                     "），没有打印！请检查打印机后重新操作。";
}

void PrintJob::End(bool taken, const QString& refusal)
{
    m_patience.stop();
    if (m_ended)
        m_ended(taken);
    if (!taken && !m_isGivenUp)
        m_program.prompt.Inform(refusal);
    deleteLater();
}
