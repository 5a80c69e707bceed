#include "office/user_window.h"

#include "office/uno_text.h"
#include "office/workbook_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/frame/XFrames.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

using namespace com::sun::star;
using uno::Reference;
using uno::UNO_QUERY;

namespace {

constexpr int kMostStarts = 3;
constexpr std::chrono::seconds kPatience(30); // behind it the user sees for himself what the window asks
constexpr std::chrono::milliseconds kBetweenTries(20);

const SpreadsheetError kNotOpened{SpreadsheetError::Kind::Stopped, "LibreOffice窗口没有打开，请重新操作！"};

void CheckCanShow()
{
    if (QDir(kOfficeFolder).entryList({"libvclplug_*"}).isEmpty())
        throw SpreadsheetError{SpreadsheetError::Kind::NoDisplay,
                               "安装的LibreOffice没有窗口界面，请安装软件包 libreoffice-calc 后重新操作。"};
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        throw SpreadsheetError{SpreadsheetError::Kind::NoDisplay, "没有图形显示环境，不能打开LibreOffice窗口！"};
}

/// A copy of a file as the window's own.
QString CopyFor(const OfficeProfile& profile, const QString& path, const char* suffix)
{
    const QString copy = profile.temporaryFolder() + "/new" + suffix;
    if (!QFile::copy(path, copy))
        throw kNotOpened;
    return copy;
}

pid_t StartWindow(const OfficeProfile& profile, const QStringList& options)
{
    QProcess process;
    profile.Prepare(process, options, {});
    qint64 pid = 0;
    if (!process.startDetached(&pid))
        throw kNotOpened;
    return pid_t(pid);
}

/// A process that has ended and is not reaped yet runs no program.
bool IsRunning(pid_t process)
{
    return !QFile::symLinkTarget(QString("/proc/%1/exe").arg(process)).isEmpty();
}

/// The frame that shows a workbook; null as long as none does.
Reference<frame::XFrame> ShownFrame(const OfficeDesktop& desktop)
{
    const Reference<frame::XFrames> frames = desktop->getFrames();
    for (sal_Int32 index = 0; index < frames->getCount(); ++index) {
        const Reference<frame::XFrame> frame(frames->getByIndex(index), UNO_QUERY);
        const Reference<frame::XController> controller = frame.is() ? frame->getController() : nullptr;
        if (!controller.is() || !Reference<sheet::XSpreadsheetDocument>(controller->getModel(), UNO_QUERY).is())
            continue;
        if (const Reference<awt::XWindow2> window(frame->getContainerWindow(), UNO_QUERY);
            window.is() && window->isVisible())
            return frame;
    }
    return {};
}

bool ShowCaption(const OfficeDesktop& desktop, const QString& caption)
{
    const Reference<frame::XFrame> shown = ShownFrame(desktop);
    if (const Reference<frame::XTitle> title(shown, UNO_QUERY); title.is() && !caption.isEmpty())
        title->setTitle(ToUno(caption));
    return shown.is();
}

} // namespace

void OpenUserWindow(const LocalUno& local, CallWatch& watch, const QString& path, const QString& caption, bool isNew)
{
    CheckCanShow();
    const char* const suffix = ReadWorkbookFile(path).format.suffix;
    const OfficeProfile profile(OfficeProfile::Use::Window);
    const QString file = isNew ? CopyFor(profile, path, suffix) : QFileInfo(path).absoluteFilePath();
    const QStringList options = isNew ? QStringList{"-n", file} : QStringList{file};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    OfficeDesktop desktop;
    pid_t office = 0;
    const auto followBefore = qScopeGuard([&watch, before = watch.Follow(0)] { watch.Follow(before); });
    for (int starts = 0; std::chrono::steady_clock::now() < end; std::this_thread::sleep_for(kBetweenTries)) {
        watch.ThrowIfStopped();
        if (office == 0 || !IsRunning(office)) {
            if (starts++ == kMostStarts)
                throw kNotOpened;
            desktop.clear();
            office = StartWindow(profile, options); // a new profile may ask for a second start
            watch.Follow(office);
        }
        const bool isShown = watch.Call(kNotOpened, [&] {
            if (!desktop.is())
                desktop = local.Resolve(profile.pipeName());
            return desktop.is() && ShowCaption(desktop, caption);
        });
        if (!isShown)
            continue;
        if (isNew)
            QFile::remove(file);
        return;
    }
}
