#include "frame/frmMain.h"

#include "bills/frmWareManage.h"
#include "support/test_program.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

class MainWindowTest : public testing::Test
{
protected:
    void Window(QStringView mode = kModuleRunMode)
    {
        m_window = std::make_unique<frmMain>(m_test.program, mode, [this] { ++m_ends; });
        m_window->resize(1200, 690);
        m_window->show();
        m_window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    template <typename Widget>
    Widget& Find(const QString& name)
    {
        auto* const widget = m_window->findChild<Widget*>(name);
        EXPECT_TRUE(widget) << name.toStdString();
        return *widget;
    }

    void Click(const QString& name) { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }

    void DoubleClickNode(const QString& text)
    {
        auto& tree = Find<QTreeWidget>("TreeView");
        const QList<QTreeWidgetItem*> nodes = tree.findItems(text, Qt::MatchExactly);
        ASSERT_FALSE(nodes.isEmpty()) << text.toStdString();
        tree.scrollToItem(nodes.front());
        const QPoint place = tree.visualItemRect(nodes.front()).center();
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
    }

    /// Presses a key of frmExit as soon as it is up, after a look at it.
    void AnswerExit(const QString& button, const std::function<void(QDialog&)>& look = {})
    {
        QTimer::singleShot(0, qApp, [button, look] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog && dialog->objectName() == "frmExit");
            if (look)
                look(*dialog);
            dialog->findChild<QPushButton*>(button)->click();
        });
    }

    static frmWareManage* BillWindowOnScreen()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const bill = qobject_cast<frmWareManage*>(widget); bill && bill->isVisible())
                return bill;
        return nullptr;
    }

    QStringList Texts() { return m_test.prompt.TakeTexts(); }

    TestProgram m_test;
    std::unique_ptr<frmMain> m_window;
    int m_ends = 0; // how often the process would have ended
};

TEST_F(MainWindowTest, ShowsOperatorVersionAndAccountSet)
{
    m_test.program.parameters.VisionNum = "V10.0版";
    Window();
    QStringList panels;
    for (const QLabel* const panel : Find<QWidget>("StatusBar1").findChildren<QLabel*>())
        panels << panel->text();
    EXPECT_EQ(panels, QStringList({"    【当前操作用户】 系统管理员", "    【当前版本号为】 V10.0版(Access)",
                                   "    【当前账套为】 测试账套"}));
    EXPECT_FALSE(Find<QLabel>("LabVision").isVisible());

    m_test.program.parameters.CloudAccount = "cloud";
    m_test.program.parameters.CloudAccount2 = "1";
    Window();
    EXPECT_EQ(Find<QLabel>("LabVision").text(), "当前版本号：V10.0版(Access)(云端版)");
    EXPECT_TRUE(Find<QLabel>("LabVision").isVisible());
    EXPECT_EQ(Find<QWidget>("StatusBar1").findChildren<QLabel*>().at(1)->text(),
              "    【当前版本号为】 V10.0版(Access)    云端版");
}

TEST_F(MainWindowTest, AnEntryOpensItsBillWindow)
{
    Window();
    QTest::keyClick(m_window.get(), Qt::Key_4, Qt::AltModifier);
    EXPECT_EQ(Find<QAbstractButton>("PicFunction2").text(), "盘点报损");
    QTest::keyClick(&Find<QAbstractButton>("PicFunction2"), Qt::Key_Return);
    frmWareManage* const bill = BillWindowOnScreen();
    ASSERT_TRUE(bill);
    EXPECT_EQ(bill->bill().LabBillName, "盘点报损单");
    EXPECT_EQ(Texts(), QStringList());
    delete bill;
}

TEST_F(MainWindowTest, RefusesWithoutRight)
{
    m_test.program.parameters.UserName = "王芳";
    Window();
    Click("Cmd3");
    Click("LabItemName0");
    EXPECT_EQ(Texts(), QStringList("没有操作权限！"));
    EXPECT_FALSE(BillWindowOnScreen());
}

TEST_F(MainWindowTest, ArrowKeysMoveOverTheTiles)
{
    Window();
    Click("Cmd6");
    auto& first = Find<QAbstractButton>("PicFunction0");
    EXPECT_TRUE(first.hasFocus());
    QTest::keyClick(&first, Qt::Key_Right);
    EXPECT_TRUE(Find<QAbstractButton>("PicFunction1").hasFocus());
    QTest::keyClick(&Find<QAbstractButton>("PicFunction1"), Qt::Key_Down);
    EXPECT_TRUE(Find<QAbstractButton>("PicFunction4").hasFocus());
    QTest::keyClick(&Find<QAbstractButton>("PicFunction4"), Qt::Key_Down);
    EXPECT_TRUE(Find<QAbstractButton>("PicFunction4").hasFocus());
}

TEST_F(MainWindowTest, TheTreeRunsTheNodeThatWasClicked)
{
    Window();
    Click("Cmd3");
    DoubleClickNode(kTreeSeparator);
    EXPECT_EQ(Texts(), QStringList());
    DoubleClickNode("折卸入库汇总表");
    EXPECT_EQ(Texts(), QStringList("传递操作功能参数出错，请重新操作！"));
    DoubleClickNode("业务单据查询");
    EXPECT_EQ(Texts(), QStringList("查询管理程序不存在，请确定您程序安装是否完整！"));

    auto& tree = Find<QTreeWidget>("TreeView");
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Home);
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(m_test.program.parameters.OperateType, "仓库日结");
    EXPECT_EQ(Texts(), QStringList("系统维护程序不存在，请确定您程序安装是否完整！"));
}

TEST_F(MainWindowTest, MenuCommandsRunTheirWords)
{
    Window();
    m_window->findChild<QAction*>("SLookMac")->trigger();
    m_window->findChild<QAction*>("SModifyUser")->trigger();
    EXPECT_EQ(Texts(), QStringList({"系统维护程序不存在，请确定您程序安装是否完整！",
                                    "启动程序不存在，请确定您程序安装是否完整！"}));
    EXPECT_EQ(m_ends, 0);
}

TEST_F(MainWindowTest, TheWayBackFromTheExitQuestionLeavesTheWindowOpen)
{
    Window();
    AnswerExit("CmdExit", [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "退出吗？");
        EXPECT_TRUE(dialog.findChild<QCheckBox*>("ChBackup")->isChecked());
    });
    Click("Cmd7");
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(m_ends, 0);
}

TEST_F(MainWindowTest, LeavingMakesABackupUnlessItIsTakenBack)
{
    ASSERT_TRUE(QDir(m_test.program.folder).mkdir("DataBak"));
    const QDir backups(m_test.program.folder + "/DataBak");
    Window();
    AnswerExit("CmdOk", [](QDialog& dialog) { dialog.findChild<QCheckBox*>("ChBackup")->setChecked(false); });
    Click("Cmd7");
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(backups.isEmpty());
    AnswerExit("CmdOk");
    Click("Cmd7");
    EXPECT_EQ(m_ends, 2);
    EXPECT_EQ(backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList("2023-2-8-9300"));
    EXPECT_EQ(Texts(), QStringList());
}

TEST_F(MainWindowTest, ADatabaseServerIsNotBackedUp)
{
    m_test.program.parameters.DatabaseType = "SQL";
    Window();
    AnswerExit("CmdOk", [](QDialog& dialog) { EXPECT_FALSE(dialog.findChild<QCheckBox*>("ChBackup")->isVisible()); });
    Click("Cmd7");
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(Texts(), QStringList());
}

TEST_F(MainWindowTest, ClosingByTheFrameAsksAndClosesWhateverTheAnswer)
{
    m_test.Run(Sql("select * from TabWare"));
    ASSERT_EQ(m_test.program.gConnection.State(), 1);
    Window();
    AnswerExit("CmdExit");
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_test.program.gConnection.State(), 0);
    EXPECT_EQ(m_ends, 0);
}

TEST_F(MainWindowTest, AModuleSoldAloneHasNoMenusAndLeavesAtOnce)
{
    Window(kStandAloneMode);
    EXPECT_FALSE(Find<QMenu>("MenuSystem").menuAction()->isVisible());
    EXPECT_EQ(Find<QPushButton>("Cmd1").text(), "仓库管理");
    Click("Cmd4");
    EXPECT_EQ(m_ends, 1);
}

} // namespace
