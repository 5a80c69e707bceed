#include "office/office_profile.h"

#include "base/spreadsheet.h"
#include "office/profile_settings.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr int kMostProfiles = 64; // of each use

/// A folder of this user's own.
bool MakePrivateFolder(const QString& folder)
{
    const QFileInfo info(folder);
    return QDir().mkpath(folder) && !info.isSymLink() && info.ownerId() == getuid() &&
           QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QString PoolFolder()
{
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/warehouse/office";
    const QString elsewhere = QDir::tempPath() + QString("/warehouse-office-%1").arg(getuid());
    for (const QString& folder : {home, elsewhere})
        if (MakePrivateFolder(folder) && QFileInfo(folder).isWritable())
            return folder;
    throw SpreadsheetError{SpreadsheetError::Kind::Stopped,
                           QString("LibreOffice不能启动：不能写入文件夹“%1”！").arg(home)};
}

QByteArray FolderUrl(const QString& folder)
{
    return QUrl::fromLocalFile(folder).toEncoded(QUrl::FullyEncoded);
}

void RemoveSocket(const QString& pipeName)
{
    QFile::remove(QString("/tmp/OSL_PIPE_%1_%2").arg(getuid()).arg(pipeName));
}

/// Where LibreOffice looks whether its profile is in use: the digest's bytes are without leading zeros.
QString OwnPipeName(const QString& folder)
{
    const QString url = FolderUrl(folder);
    const QByteArrayView bytes(reinterpret_cast<const char*>(url.utf16()), url.size() * 2);
    QString name = "SingleOfficeIPC_";
    for (const char byte : QCryptographicHash::hash(bytes, QCryptographicHash::Md5))
        name += QString::number(static_cast<unsigned char>(byte), 16);
    return name;
}

QString TemporaryFolderOf(const QString& profile)
{
    return profile + "/tmp";
}

QString PipeFileOf(const QString& profile)
{
    return profile + "/pipe";
}

/// What the process that had the profile last leaves when it is killed.
void RemoveLeftoversOf(const QString& profile)
{
    QFile pipe(PipeFileOf(profile));
    if (pipe.open(QIODevice::ReadOnly))
        RemoveSocket(pipe.readAll());
    RemoveSocket(OwnPipeName(profile));
    QDir(TemporaryFolderOf(profile)).removeRecursively();
}

/// @return the lock of a profile, -1 where another process has it
int LockOf(const QString& profile, int flags)
{
    const int lock = open(QFile::encodeName(profile + ".lock").constData(), O_RDWR | O_CREAT | flags, 0600);
    if (lock >= 0 && flock(lock, LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (lock >= 0)
        close(lock);
    return -1;
}

/// Profiles that nobody has taken since their processes were killed.
void SweepFreeProfiles(const QString& pool)
{
    for (const QFileInfo& profile : QDir(pool).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const int lock = LockOf(profile.filePath(), O_CLOEXEC);
        if (lock < 0)
            continue;
        RemoveLeftoversOf(profile.filePath());
        close(lock);
    }
}

SpreadsheetError CannotStart(const QString& why)
{
    return {SpreadsheetError::Kind::Stopped, "LibreOffice不能启动：" + why};
}

} // namespace

OfficeProfile::OfficeProfile(Use use) : m_use(use)
{
    const QString pool = PoolFolder();
    SweepFreeProfiles(pool);
    // A user's window is the last process started while this is open; of the others only the office gets the lock.
    const int flags = use == Use::Window ? 0 : O_CLOEXEC;
    for (int number = 1; m_lock < 0 && number <= kMostProfiles; ++number) {
        m_folder = pool + (use == Use::Jobs ? "/jobs" : "/window") + QString::number(number);
        m_lock = LockOf(m_folder, flags);
    }
    if (m_lock < 0)
        throw CannotStart("打开的窗口太多！");
    if (!Furnish()) {
        close(m_lock);
        throw CannotStart(QString("不能写入文件夹“%1”！").arg(m_folder));
    }
}

bool OfficeProfile::Furnish()
{
    QFile pipe(PipeFileOf(m_folder));
    const bool isNew = QFileInfo(m_folder + "/user/registrymodifications.xcu").size() == 0;
    return QDir().mkpath(temporaryFolder()) && pipe.open(QIODevice::WriteOnly) &&
           pipe.write(m_pipeName.toLatin1()) == m_pipeName.size() &&
           (!isNew || WriteProfileSettings(m_folder, m_use)) && WriteFontSettings(m_folder + "/fonts.conf");
}

OfficeProfile::~OfficeProfile()
{
    close(m_lock);
}

void OfficeProfile::Prepare(QProcess& process, const QStringList& options,
                            const std::function<void()>& beforeStart) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8"); // always there; with a missing one Chinese paths fail
    environment.insert("TMPDIR", temporaryFolder());
    environment.insert("FONTCONFIG_FILE", m_folder + "/fonts.conf");
    environment.remove("SAL_USE_VCLPLUGIN");
    process.setProcessEnvironment(environment);
    QDir().mkpath(temporaryFolder()); // it has gone with a process before
    process.setProgram(kOfficeFolder + "/soffice.bin");
    process.setArguments(QStringList{"-env:UserInstallation=" + FolderUrl(m_folder),
                                     "--accept=pipe,name=" + pipeName() + ";urp;StarOffice.ComponentContext",
                                     "--norestore", "--nologo", "--nofirststartwizard", "--nolockcheck"} +
                         options);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([lock = m_lock, beforeStart] {
        fcntl(lock, F_SETFD, 0);
        if (beforeStart)
            beforeStart();
    });
}

void OfficeProfile::Reset()
{
    QDir(m_folder + "/user").removeRecursively();
    WriteProfileSettings(m_folder, m_use);
}

QString OfficeProfile::temporaryFolder() const
{
    return TemporaryFolderOf(m_folder);
}

void OfficeProfile::RemoveLeftovers() const
{
    RemoveLeftoversOf(m_folder);
}
