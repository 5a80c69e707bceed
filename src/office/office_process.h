#pragma once

// LibreOffice as a process of the program's own: without a window, and it dies with the program.

#include "office/call_watch.h"
#include "office/office_profile.h"

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

/// Throws SpreadsheetError when LibreOffice is not installed.
void CheckInstalled();

using OfficeDesktop = com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>;

/// The component model in this process.
class LocalUno
{
public:
    LocalUno();
    ~LocalUno();
    LocalUno(const LocalUno&) = delete;
    LocalUno& operator=(const LocalUno&) = delete;

    /// LibreOffice that listens under a name; null as long as nobody answers.
    OfficeDesktop Resolve(const QString& pipeName) const;

private:
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_context;
};

/// Runs without a window. It belongs to the thread that made it and dies with it.
class OfficeProcess
{
public:
    /// Returns when it answers. Throws SpreadsheetError.
    OfficeProcess(const LocalUno& local, CallWatch& watch);
    ~OfficeProcess();
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;

    /// Asks it: one that is just being killed may still be there.
    bool Answers() const;
    const OfficeDesktop& desktop() const { return m_desktop; }
    QString temporaryFolder() const { return m_profile.temporaryFolder(); }

private:
    bool isAlive() const;
    void Start();
    void StartAgain();
    void End();

    CallWatch& m_watch;
    OfficeProfile m_profile{OfficeProfile::Use::Jobs};
    QProcess m_process;
    OfficeDesktop m_desktop;
    int m_starts = 0;
};
