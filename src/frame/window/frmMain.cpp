#include "frame/window/frmMain.h"

#include "assembly/window/frmGroupPiece.h"
#include "bills/window/frmWareManage.h"
#include "frame/window/frmExit.h"
#include "frame/window/frmMain_banner.h"
#include "frame/window/frmMain_desk.h"
#include "frame/window/frmMain_entries.h"
#include "frame/window/frmMain_icons.h"
#include "frame/window/frmMain_navigation.h"
#include "shell/settings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

struct MenuCommand
{
    const char* name;
    const char* word; // empty for a line
};

constexpr MenuCommand kSystemMenu[] = {
    {"SSelectDataBase", "更换账套"},
    {"SModifyUser", "更换操作员"},
    {"", ""},
    {"SUserSet", "操作用户设置"},
    {"SRightSet", "用户权限设置"},
    {"SIPSet", "IP地址授权"},
    {"SLookMac", "查看本机MAC值"},
    {"", ""},
    {"SBackup", "备份数据库"},
    {"SRestore", "恢复数据库"},
    {"SAutoBakPath", "设置自动备份路径"},
    {"", ""},
    {"SBaseDataIn", "基础数据导入"},
    {"SBaseDataOut", "基础数据导出"},
    {"SClearData", "清除历史数据"},
    {"", ""},
    {"MenuExit", "退出"},
};

constexpr QSize kOpeningSize(1200, 690);

} // namespace

frmMain::frmMain(Program& program, QStringView moduleRunMode)
    : m_program(program), m_moduleRunMode(moduleRunMode), m_brand(BrandOf(program.parameters.SoftType))
{
    setObjectName("frmMain");
    setWindowTitle("仓库管理");
    setWindowIcon(FunctionBadge("仓库管理", 64));
    const auto settings = OpenSettings(m_program.parameters);
    m_flash = ReadSetting(*settings, kFlashSetting) != "不显示";
    BuildMenus();
    BuildCentre();
    BuildStatusBar();
    m_desk->SetPicture(ReadSetting(*settings, kPictureSetting));
    resize(kOpeningSize);
    ShowCategory("基础管理");
}

void frmMain::BuildMenus()
{
    QMenu* const system = menuBar()->addMenu("系统(&S)");
    system->setObjectName("MenuSystem");
    for (const MenuCommand& command : kSystemMenu) {
        const QString word = command.word;
        if (word.isEmpty()) {
            system->addSeparator();
            continue;
        }
        QAction* const action = system->addAction(word);
        action->setObjectName(command.name);
        connect(action, &QAction::triggered, this, [this, word] { RunFunction(word); });
    }
    QMenu* const about = menuBar()->addMenu("关于(&A)");
    about->setObjectName("MenuAbout");
    connect(about->addAction("版本信息"), &QAction::triggered, this,
            [this] { m_program.prompt.Inform("仓库管理\n\n当前版本号：" + VersionText()); });

    const bool shown = m_moduleRunMode != kStandAloneMode;
    menuBar()->setVisible(shown);
    system->menuAction()->setVisible(shown);
    about->menuAction()->setVisible(shown);
}

void frmMain::BuildCentre()
{
    auto* const centre = new QWidget(this);
    m_navigation = new Navigation(CategoryCaptions(m_moduleRunMode), m_brand, centre);
    connect(m_navigation, &Navigation::CategoryChosen, this, &frmMain::ShowCategory);
    connect(m_navigation, &Navigation::NodeRun, this, &frmMain::RunFunction);
    m_desk = new Desk(m_brand, centre);
    connect(m_desk, &Desk::Chosen, this, &frmMain::RunFunction);
    auto* const bottom = new Banner(Banner::Part::Bottom, m_brand, centre);
    bottom->setObjectName("Img_Bottom");

    auto* const middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(m_navigation);
    middle->addWidget(m_desk, 1);
    auto* const rows = new QVBoxLayout(centre);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(MakeTop(centre));
    rows->addLayout(middle, 1);
    rows->addWidget(bottom);
    setCentralWidget(centre);
}

QLayout* frmMain::MakeTop(QWidget* parent)
{
    m_top = new Banner(Banner::Part::Top, m_brand, parent);
    m_top->setObjectName("Img_Top");
    m_top->SetTitle("仓库管理", "调拨 · 调价 · 盘点 · 组装拆卸");
    m_top2 = new Banner(Banner::Part::Top2, m_brand, parent);
    m_top2->setObjectName("Img_Top2");

    auto* const version = new QLabel(m_top);
    version->setObjectName("LabVision");
    version->setStyleSheet("color:#ffffff;");
    version->setVisible(IsCloud());
    version->setText("当前版本号：" + VersionText() + "(云端版)");
    auto* const corner = new QVBoxLayout(m_top);
    corner->addStretch();
    corner->addWidget(version, 0, Qt::AlignRight);

    auto* const top = new QHBoxLayout;
    top->setSpacing(0);
    top->addWidget(m_top, 1);
    top->addWidget(m_top2);
    return top;
}

void frmMain::BuildStatusBar()
{
    const RunParameters& parameters = m_program.parameters;
    statusBar()->setObjectName("StatusBar1");
    for (const QString& text : {"    【当前操作用户】 " + parameters.UserName,
                                "    【当前版本号为】 " + VersionText() + (IsCloud() ? "    云端版" : ""),
                                "    【当前账套为】 " + parameters.ConDataRemark}) {
        auto* const panel = new QLabel(text, this);
        panel->setTextFormat(Qt::PlainText);
        statusBar()->addWidget(panel);
    }
}

QString frmMain::VersionText() const
{
    return m_program.parameters.VisionNum + "(" + m_program.parameters.DatabaseType + ")";
}

bool frmMain::IsCloud() const
{
    const RunParameters& parameters = m_program.parameters;
    return !parameters.CloudAccount.trimmed().isEmpty() && !parameters.CloudAccount2.trimmed().isEmpty();
}

void frmMain::ShowCategory(const QString& caption)
{
    const FunctionCategory* const category = FindCategory(caption);
    if (!category) {
        RunFunction(caption);
        return;
    }
    m_navigation->Open(caption, category->tree);
    m_desk->ShowEntries(*category);
}

bool frmMain::RunFunction(const QString& word)
{
    switch (::RunFunction(m_program, word, m_moduleRunMode)) {
    case WindowStep::OpenBill:
        OpenBill();
        return false;
    case WindowStep::OpenAssembly:
        OpenAssembly();
        return false;
    case WindowStep::AskExit:
    case WindowStep::EndProcess:
        return m_program.mayLeave() && Leave();
    case WindowStep::None:
        break;
    }
    return false;
}

/// False where the user has taken the way back.
bool frmMain::Leave()
{
    const bool asks = m_moduleRunMode != kStandAloneMode;
    if (asks && frmExit(m_program, this).exec() != QDialog::Accepted)
        return false;
    m_program.leave();
    return true;
}

void frmMain::OpenBill()
{
    auto* const window = new frmWareManage(m_program);
    window->show();
    window->frm_Initialize(false);
}

void frmMain::OpenAssembly()
{
    auto* const window = new frmGroupPiece(m_program);
    window->show();
    window->frm_Initialize(false, true);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (!m_program.mayLeave())
        return event->ignore();
    event->accept(); // also after the way back: the frame's close goes on
    if (Leave())
        return;
    if (m_program.gConnection.State() == 1)
        m_program.gConnection.Close();
}

void frmMain::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!std::exchange(m_flash, false))
        return;
    m_top->Play();
    m_top2->Play();
}

void frmMain::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction("更换背景图片...", this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, "选择背景图片", {}, "图片 (*.png *.jpg *.jpeg *.bmp *.gif)");
        if (!path.isEmpty())
            KeepPicture(path);
    });
    menu.addAction("清除背景图片", this, [this] { KeepPicture({}); });
    menu.exec(event->globalPos());
}

void frmMain::KeepPicture(const QString& path)
{
    m_desk->SetPicture(path);
    const auto settings = OpenSettings(m_program.parameters);
    if (!WriteSetting(*settings, kPictureSetting, path))
        m_program.prompt.Inform("背景图片设置未能保存！");
}
