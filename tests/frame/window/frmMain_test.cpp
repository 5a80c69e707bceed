#include "frame/window/frmMain.h"

#include "bills/window/frmWareManage.h"
#include "support/window.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QTreeWidget>

namespace {

class MainWindowTest : public WindowOf<frmMain>
{
protected:
    void Open(QStringView mode = kModuleRunMode)
    {
        test.program.leave = [this] { ++ends; };
        ShowNew(mode);
        window->resize(1200, 690);
    }
    void DoubleClickNode(const QString& text)
    {
        auto* const tree = Find<QTreeWidget>("TreeView");
        const QList<QTreeWidgetItem*> nodes = tree->findItems(text, Qt::MatchExactly);
        ASSERT_FALSE(nodes.isEmpty()) << text.toStdString();
        tree->scrollToItem(nodes.front());
        const QPoint place = tree->visualItemRect(nodes.front()).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
    }
    /// Leaves by the key Cmd7 and presses a key of frmExit, after a look at its switch for a backup.
    void Leave(const char* key, const std::function<void(QCheckBox& backup)>& look = {})
    {
        AnswerExit(key, look);
        Click("Cmd7");
    }
    void AnswerExit(const char* key, const std::function<void(QCheckBox& backup)>& look = {})
    {
        InDialog([key, look](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName() + dialog.windowTitle(), "frmExit退出吗？");
            if (look)
                look(*dialog.findChild<QCheckBox*>("ChBackup"));
            dialog.findChild<QAbstractButton*>(key)->click();
        });
    }
    static frmWareManage* BillWindowOnScreen()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const bill = qobject_cast<frmWareManage*>(widget); bill && bill->isVisible())
                return bill;
        return nullptr;
    }

    int ends = 0; // how often the process would have ended
};

TEST_F(MainWindowTest, ShowsOperatorVersionAndAccountSet)
{
    const auto panels = [this] {
        QStringList texts;
        for (const QLabel* const panel : Find<QWidget>("StatusBar1")->findChildren<QLabel*>())
            texts << panel->text().trimmed();
        return texts;
    };
    test.program.parameters.VisionNum = "V10.0版";
    Open();
    EXPECT_EQ(panels(), QStringList({"【当前操作用户】 系统管理员", "【当前版本号为】 V10.0版(Access)",
                                     "【当前账套为】 测试账套"}));
    EXPECT_FALSE(Shown("LabVision"));

    test.program.parameters.CloudAccount = "cloud";
    test.program.parameters.CloudAccount2 = "1";
    Open();
    EXPECT_EQ(Text("LabVision"), "当前版本号：V10.0版(Access)(云端版)");
    EXPECT_TRUE(Shown("LabVision"));
    EXPECT_EQ(panels()[1], "【当前版本号为】 V10.0版(Access)    云端版");
}

TEST_F(MainWindowTest, AnEntryOpensItsBillWindowUnlessTheRightIsMissing)
{
    Open();
    QTest::keyClick(window.get(), Qt::Key_4, Qt::AltModifier);
    EXPECT_EQ(Find<QAbstractButton>("PicFunction2")->text(), "盘点报损");
    QTest::keyClick(Find<QWidget>("PicFunction2"), Qt::Key_Return);
    std::unique_ptr<frmWareManage> bill(BillWindowOnScreen());
    ASSERT_TRUE(bill);
    EXPECT_EQ(bill->bill().LabBillName, "盘点报损单");
    EXPECT_EQ(test.Boxes(), "");
    bill.reset();

    test.program.parameters.UserName = "王芳";
    Click("Cmd3");
    Click("LabItemName0");
    EXPECT_EQ(test.Boxes(), "没有操作权限！");
    EXPECT_FALSE(BillWindowOnScreen());
}

TEST_F(MainWindowTest, ArrowKeysMoveOverTheTiles)
{
    Open();
    Click("Cmd6");
    EXPECT_EQ(Focus(), "PicFunction0");
    for (const auto& [key, tile] :
         {std::pair(Qt::Key_Right, "PicFunction1"), {Qt::Key_Down, "PicFunction4"}, {Qt::Key_Down, "PicFunction4"}}) {
        Press({key});
        EXPECT_EQ(Focus(), tile);
    }
}

TEST_F(MainWindowTest, TheTreeAndTheMenuRunWhatWasClicked)
{
    Open();
    Click("Cmd3");
    DoubleClickNode(kTreeSeparator);
    EXPECT_EQ(test.Boxes(), "");
    DoubleClickNode("折卸入库汇总表");
    EXPECT_EQ(test.Boxes(), "传递操作功能参数出错，请重新操作！");
    DoubleClickNode("业务单据查询");
    EXPECT_EQ(test.Boxes(), "查询管理程序不存在，请确定您程序安装是否完整！");

    Find<QTreeWidget>("TreeView")->setFocus();
    Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(test.program.parameters.OperateType, "仓库日结");
    EXPECT_EQ(test.Boxes(), "系统维护程序不存在，请确定您程序安装是否完整！");

    Trigger("SLookMac");
    Trigger("SModifyUser");
    EXPECT_EQ(test.Boxes(),
              "系统维护程序不存在，请确定您程序安装是否完整！|启动程序不存在，请确定您程序安装是否完整！");
    EXPECT_EQ(ends, 0);
}

TEST_F(MainWindowTest, LeavingAsksAndMakesABackupUnlessItIsTakenBack)
{
    const QDir backups(test.program.folder + "/DataBak");
    ASSERT_TRUE(backups.mkpath("."));
    Open();
    Leave("CmdExit", [](QCheckBox& backup) { EXPECT_TRUE(backup.isChecked()); });
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(ends, 0);
    Leave("CmdOk", [](QCheckBox& backup) { backup.setChecked(false); });
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(backups.isEmpty());
    Leave("CmdOk");
    EXPECT_EQ(ends, 2);
    EXPECT_EQ(backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList("2023-2-8-9300"));

    test.program.parameters.DatabaseType = "SQL";
    Leave("CmdOk", [](QCheckBox& backup) { EXPECT_FALSE(backup.isVisible()) << "not of a database server"; });
    EXPECT_EQ(ends, 3);
    EXPECT_EQ(test.Boxes(), "");
}

TEST_F(MainWindowTest, ClosingByTheFrameAsksAndClosesWhateverTheAnswer)
{
    test.Run(Sql("select * from TabWare"));
    ASSERT_EQ(test.program.gConnection.State(), 1);
    Open();
    AnswerExit("CmdExit");
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(test.program.gConnection.State(), 0);
    EXPECT_EQ(ends, 0);
}

TEST_F(MainWindowTest, WorkThatIsNotStoredIsAskedAboutBeforeAnythingCloses)
{
    Open();
    bool mayLeave = false;
    int asked = 0;
    test.program.mayLeave = [&] {
        ++asked;
        return mayLeave;
    };
    Click("Cmd7");
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(asked, 2);
    mayLeave = true;
    Leave("CmdOk", [](QCheckBox& backup) { backup.setChecked(false); });
    EXPECT_EQ(std::pair(asked, ends), std::pair(3, 1));
}

TEST_F(MainWindowTest, AModuleSoldAloneHasNoMenusAndLeavesAtOnce)
{
    Open(kStandAloneMode);
    EXPECT_FALSE(Find<QMenu>("MenuSystem")->menuAction()->isVisible());
    EXPECT_EQ(Find<QAbstractButton>("Cmd1")->text(), "仓库管理");
    Click("Cmd4");
    EXPECT_EQ(ends, 1);
}

} // namespace
