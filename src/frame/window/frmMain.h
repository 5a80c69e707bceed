#pragma once

// The main window: the functions of the whole suite by category, as tiles, rows and a tree. A switchboard: what a word
// does is decided in frame/functions.

#include "frame/functions.h"

#include <QMainWindow>

class Banner;
class Desk;
class Navigation;
struct Brand;

class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmMain(Program& program, QStringView moduleRunMode = kModuleRunMode);

    /// Runs the function of a word and opens the window that it needs.
    /// @return true when the process is ending
    bool RunFunction(const QString& word);
    /// Shows the entries of a category; 退出 is run instead.
    void ShowCategory(const QString& caption);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void BuildMenus();
    void BuildCentre();
    QLayout* MakeTop(QWidget* parent);
    void BuildStatusBar();
    QString VersionText() const;
    bool IsCloud() const;
    bool Leave();
    void OpenBill();
    void OpenAssembly();
    /// Shows a picture behind the entries, now and from the next start on; none for an empty path.
    void KeepPicture(const QString& path);

    Program& m_program;
    const QStringView m_moduleRunMode;
    const Brand& m_brand;
    Banner* m_top = nullptr;
    Banner* m_top2 = nullptr;
    Navigation* m_navigation = nullptr;
    Desk* m_desk = nullptr;
    bool m_flash = false; // the start animation is still to come
};
