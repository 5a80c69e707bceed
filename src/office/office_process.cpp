#include "office/office_process.h"

#include "office/uno_text.h"

#include <QFileInfo>
#include <algorithm>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <csignal>
#include <rtl/bootstrap.hxx>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace com::sun::star;

namespace {

constexpr int kMostStarts = 3;
constexpr int kAsksForNewStart[] = {79, 81}; // exit codes of one that has just filled its profile
constexpr std::chrono::seconds kAskTime(5);  // an office without work answers at once
constexpr std::chrono::seconds kQuitTime(3);
constexpr std::chrono::milliseconds kBetweenTries(10);

SpreadsheetError StartFailure()
{
    return {SpreadsheetError::Kind::Stopped, "LibreOffice不能启动，请重新操作！"};
}

/// The office ends when the program ends, however that comes about.
void DieWith(pid_t program)
{
    setpgid(0, 0); // a Ctrl+C typed at the program is not for the office
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != program)
        _exit(1);
}

} // namespace

void CheckInstalled()
{
    for (const char* part : {"/soffice.bin", "/libsclo.so"})
        if (!QFileInfo::exists(kOfficeFolder + part))
            throw SpreadsheetError{
                SpreadsheetError::Kind::NotInstalled,
                "没有安装LibreOffice，不能使用Excel文件！请安装软件包 libreoffice-calc 后重新操作。"};
}

LocalUno::LocalUno()
{
    // A write to an office that has just ended would otherwise end the program with it.
    std::signal(SIGPIPE, SIG_IGN);
    // Without these types the calls end in a crash.
    const QString types = "file://" + kOfficeFolder + "/types/offapi.rdb";
    rtl::Bootstrap::set("URE_MORE_TYPES", ToUno(types));
    try {
        m_context = cppu::defaultBootstrap_InitialComponentContext();
    } catch (const uno::Exception&) {
        throw StartFailure();
    }
}

LocalUno::~LocalUno()
{
    try {
        uno::Reference<lang::XComponent>(m_context, uno::UNO_QUERY_THROW)->dispose();
    } catch (const uno::Exception&) {
        return; // it goes with the program
    }
}

OfficeDesktop LocalUno::Resolve(const QString& pipeName) const
{
    const QString url = "uno:pipe,name=" + pipeName + ";urp;StarOffice.ComponentContext";
    try {
        const auto resolver = bridge::UnoUrlResolver::create(m_context);
        const uno::Reference<uno::XComponentContext> context(resolver->resolve(ToUno(url)), uno::UNO_QUERY_THROW);
        return frame::Desktop::create(context);
    } catch (const uno::Exception&) {
        return {}; // not yet, or not any more
    }
}

OfficeProcess::OfficeProcess(const LocalUno& local, CallWatch& watch) : m_watch(watch)
{
    const auto answer = [&] {
        for (;; std::this_thread::sleep_for(kBetweenTries)) {
            if (!isAlive())
                StartAgain();
            if (const OfficeDesktop desktop = local.Resolve(m_profile.pipeName()); desktop.is())
                return desktop;
        }
    };
    try {
        Start();
        m_desktop = m_watch.Call(StartFailure(), answer);
    } catch (...) {
        End();
        throw;
    }
}

OfficeProcess::~OfficeProcess()
{
    const auto quit = [&] { m_desktop->terminate(); };
    try {
        m_watch.Call(StartFailure(), quit, kQuitTime);
        for (auto waited = kBetweenTries; isAlive() && waited < kQuitTime; waited += kBetweenTries)
            std::this_thread::sleep_for(kBetweenTries);
    } catch (const SpreadsheetError&) {
        // it is ended all the same
    }
    End();
}

bool OfficeProcess::Answers() const
{
    const auto ask = [&] { return m_desktop->getFrames().is(); };
    try {
        return isAlive() && m_watch.Call(StartFailure(), ask, kAskTime);
    } catch (const SpreadsheetError&) {
        return false;
    }
}

bool OfficeProcess::isAlive() const
{
    siginfo_t end{}; // looked at only: who reaps it has told the watch before
    return m_process.processId() > 0 &&
           waitid(P_PID, id_t(m_process.processId()), &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid == 0;
}

void OfficeProcess::Start()
{
    ++m_starts;
    m_profile.Prepare(m_process, {"--headless", "--invisible", "--nodefault"},
                      [program = getpid()] { DieWith(program); });
    m_process.start();
    if (!m_process.waitForStarted())
        throw StartFailure();
    m_watch.Follow(pid_t(m_process.processId()));
}

void OfficeProcess::StartAgain()
{
    m_watch.ThrowIfStopped();
    End();
    if (m_starts == kMostStarts)
        throw StartFailure();
    const bool asked = std::ranges::find(kAsksForNewStart, m_process.exitCode()) != std::end(kAsksForNewStart);
    if (!asked)
        m_profile.Reset();
    Start();
}

void OfficeProcess::End()
{
    m_watch.Follow(0);
    m_process.kill();
    m_process.waitForFinished();
    m_profile.RemoveLeftovers();
}
