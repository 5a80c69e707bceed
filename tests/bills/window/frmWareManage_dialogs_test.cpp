#include "bills/ware_window.h"

#include <QClipboard>
#include <QHeaderView>
#include <QListWidget>
#include <QMenu>
#include <QStatusBar>
#include <QTreeWidget>

namespace {

struct WareManageDialogs : WareManageTest
{
    WareManageDialogs()
    {
        for (const auto& [code, name] : {std::pair("001", "张三"), {"002", "张四"}})
            test.Insert("TabStuff", {{"Code", code}, {"Name", name}});
    }
    static void Choose(QWidget& dialog, const char* caption)
    {
        auto* const columns = dialog.findChild<QListWidget*>("ListMSHHead");
        columns->setCurrentItem(columns->findItems(caption, Qt::MatchExactly).front());
    }
    /// Clicks a key or a switch of a dialog.
    static void ClickIn(QWidget& dialog, const char* name) { dialog.findChild<QAbstractButton*>(name)->click(); }
    int Width() { return Grid()->columnWidth(1); }
};

TEST_F(WareManageDialogs, AnAmbiguousHeadIsPickedAndTheFocusGoesOn)
{
    OpenNew("同价调拨");
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "选择仓库");
        Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    });
    TypeAndEnter({"1"});
    EXPECT_EQ(window->bill().TxtWarehouseCodeF + Box("TxtWarehouseNameF"), "101主仓");
    EXPECT_EQ(Focus(), "TxtWarehouseNameS");

    InDialog([&](QWidget&) { Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}); });
    QTest::mouseClick(Find<QToolButton>("ImgWarehouseS"), Qt::LeftButton);
    EXPECT_EQ(window->bill().TxtWarehouseCodeS + Box("TxtWarehouseNameS"), "102分仓");
    EXPECT_EQ(Focus(), "TxtSaleMan");

    InDialog([&](QWidget&) { Press({Qt::Key_Escape}); });
    TypeAndEnter({"0"});
    EXPECT_EQ(Box("TxtSaleMan"), "");
    EXPECT_EQ(Focus(), "TxtSaleMan");

    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "选择业务员");
        TypeAndEnter({"002"});
    });
    TypeAndEnter({"0"});
    EXPECT_EQ(Box("TxtSaleMan"), "张四");
    EXPECT_EQ(Focus(), "TxtMemo");
    EXPECT_EQ(dialogs, 4);
}

TEST_F(WareManageDialogs, AnUnknownTextIsSaidAndTheOneKeyPicksWhateverTheFieldHolds)
{
    OpenNew("盘点报溢");
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("TxtFilter")->text(), "仓") << "it is in a name";
        Press({Qt::Key_Return});
    });
    Write("仓");
    Press({Qt::Key_Return});
    EXPECT_EQ(window->statusBar()->currentMessage(), "没有编号或名称以“仓”开头的仓库，请选择。");
    EXPECT_EQ(Box("TxtWarehouseNameS") + Focus(), "主仓TxtSaleMan");
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("TxtName")->text(), "四");
        Press({Qt::Key_Return});
    });
    Write("四");
    Press({Qt::Key_Return});
    EXPECT_EQ(Box("TxtSaleMan"), "张四");
    EXPECT_EQ(Find<QToolButton>("ImgWarehouseS")->accessibleName(), "选择报溢仓库");

    Find<QWidget>("ImgWarehouseS")->setFocus();
    const std::pair<const char*, const char*> fields[] = {
        {"TxtSaleMan", "选择业务员"}, {"ImgWarehouseS", "选择仓库"}, {"MSH", "选择商品"}};
    for (const auto& [field, title] : fields) {
        InDialog([&](QWidget& dialog) { EXPECT_EQ(dialog.windowTitle(), title); });
        Find<QWidget>(field)->setFocus();
        Press({Qt::Key_F4});
    }
    EXPECT_EQ(dialogs, 5);
}

TEST_F(WareManageDialogs, EveryCommandStandsInAMenuWithItsKey)
{
    OpenNew("盘点报溢");
    InDialog([&](QWidget& dialog) {
        const auto* const keys = dialog.findChild<QTreeWidget*>("ListKeys");
        for (const char* key : {"Ctrl+S", "F7", "Ctrl+P", "F4", "F2"})
            EXPECT_FALSE(keys->findItems(key, Qt::MatchExactly).isEmpty()) << key;
    });
    Press({Qt::Key_F1});
    EXPECT_EQ(dialogs, 1);
    QStringList entries;
    for (const QMenu* const menu : window->findChildren<QMenu*>())
        for (const QAction* const entry : menu->actions())
            entries << entry->objectName();
    for (const BillKey& key : BillKeys())
        EXPECT_TRUE(entries.contains(key.menuEntry ? key.menuEntry : key.control) || !key.menu) << key.control;
}

TEST_F(WareManageDialogs, AnUnknownGoodIsPicked)
{
    OpenNew("商品调价");
    TypeAndEnter({"101", "", "", ""});
    InDialog([&](QWidget&) { Press({Qt::Key_Escape}); });
    TypeAndEnter({"nothing"});
    EXPECT_EQ(Line(1)[0], "nothing") << "what was typed stays";
    EXPECT_EQ(At(), std::pair(1, 1));
    EXPECT_EQ(Focus(), "Text2");

    Find<QLineEdit>("Text2")->selectAll();
    TypeText("B");
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "选择商品");
        Press({Qt::Key_Down, Qt::Key_Return});
    });
    QTest::mouseDClick(Find<QLineEdit>("Text2"), Qt::LeftButton);
    EXPECT_EQ(Line(1).mid(0, 2), QStringList({"B001", "O'Neil"}));
    EXPECT_EQ(At(), std::pair(1, 6)) << "on to the money";
    EXPECT_EQ(Focus(), "Text2");
    EXPECT_FALSE(Shown("PicSelect"));
    TypeAndEnter({"-25.5"});
    EXPECT_EQ(Text("LabTotalMoney"), "-25.50");
    EXPECT_EQ(dialogs, 2);
}

TEST_F(WareManageDialogs, AnAttributeIsPickedFromTheGroupOfTheGood)
{
    test.Insert("TabAttribute", {{"Code", "02"}, {"Name", "尺寸"}, {"ParentCode", "0"}});
    OpenTransfer();
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "选择属性");
        Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    });
    ClickCell(1, 4);
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs == 1 && At().second == 5; }, kPatience));
    EXPECT_EQ(Line(1)[3], "0102>颜色>红");
    EXPECT_EQ(Focus(), "Combol2");
}

TEST_F(WareManageDialogs, FormatsShowAtOnceAndLeaveTheLinesAlone)
{
    OpenLoss();
    InDialog([&](QWidget& dialog) {
        for (const char* column : {"规格", "成本价"}) {
            Choose(dialog, column);
            ClickIn(dialog, "ChShowCol");
        }
        auto* const caption = dialog.findChild<QLineEdit*>("TxtMSHElseName");
        caption->selectAll();
        QTest::keyClicks(caption, "P");
        EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "", "箱", "1.00", "10.00", ""}));
        ClickIn(dialog, "CmdOk");
    });
    Trigger("MMSHFormat");
    EXPECT_EQ(test.Boxes(), "保存成功！");
    EXPECT_EQ(Rows("select ColWidth,ColElseName from TabPrintMSHSet where TabName='盘点报损单界面' and ColOrder in "
                   "(3,7) order by ColOrder"),
              QStringList({"0|规格", "1500|P"}));
    test.prompt.choices = {Choice::Second};
    Press({Qt::Key_N}, Qt::ControlModifier);
    test.prompt.TakeTexts();
    EXPECT_EQ(Line(1).size(), 7) << "the saved layout comes back";

    TypeAndEnter({"101", "", "", "", "A001"});
    test.prompt.answers = {true};
    Trigger("FDeleteMSHFormat");
    EXPECT_EQ(test.Boxes(), "删除当前界面格式设置吗？|删除成功！");
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "M8", "", "箱", "1.00", ""}));
    EXPECT_EQ(dialogs, 1);
}

TEST_F(WareManageDialogs, APastedAttributeAsksNothing)
{
    OpenTransfer();
    ClickCell(1, 3);
    Press({Qt::Key_Escape});
    window->findChild<GridView*>("MSH")->MoveBy(1, 0);
    QApplication::clipboard()->setText("0102");
    InDialog([](QWidget&) {}); // of the step onto the cell
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs == 1; }, kPatience));
    Press({Qt::Key_V}, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(Line(1)[3], "0102>颜色>红");
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(WareManageDialogs, ScansBecomeLinesBehindTheirWindow)
{
    test.Run(Sql("update TabWare set TiaoXingCode='690' where Code='A001'"));
    OpenNew("同价调拨");
    Trigger("ToolPos");
    EXPECT_EQ(test.Boxes(), "请先选择发货仓库名称！");
    TypeHead();
    InDialog([&](QWidget& dialog) {
        for (const char* amount : {"1", "3"}) {
            TypeAndEnter({"690"});
            EXPECT_EQ(dialog.findChild<QLineEdit*>("TxtPrice")->text(), "10");
            TypeAndEnter({amount, "", ""});
        }
        EXPECT_EQ(Line(2), QStringList({"A001", "螺丝", "M8", "", "箱", "3.00", ""}));
    });
    Trigger("ToolPos");
    EXPECT_EQ(window->bill().LabTotalAmount, "4.00");
    EXPECT_EQ(dialogs, 1);
}

TEST_F(WareManageDialogs, SiblingsAreAskedForImagesAndAccounts)
{
    OpenLoss();
    Trigger("ToolImg");
    EXPECT_EQ(test.Boxes(), "尚未保存数据，请先保存数据后重新操作图文功能！");
    SaveByKey();
    Trigger("ToolImg");
    Trigger("FJXCAccount");
    EXPECT_EQ(test.Boxes(),
              "图片管理程序不存在，请确定您程序安装是否完整！|基础管理程序不存在，请确定您程序安装是否完整！");
    test.program.parameters.UserName = "nobody";
    for (const char* command : {"FJXCAccount", "MMSHFormat", "FDeleteMSHFormat"}) {
        Trigger(command);
        EXPECT_EQ(test.Boxes(), "没有操作权限！") << command;
    }
}

TEST_F(WareManageDialogs, AWindowComesBackAsItWasLeft)
{
    OpenNew("盘点报损");
    Grid()->horizontalHeader()->resizeSection(1, 333);
    window->resize(1000, 600);
    window->close();
    OpenNew("盘点报损");
    EXPECT_EQ(window->size(), QSize(1000, 600));
    EXPECT_NEAR(Width(), 333, 1);
    Press({Qt::Key_N}, Qt::ControlModifier);
    EXPECT_NEAR(Width(), 333, 1) << "a blank bill is laid out anew";

    test.prompt.answers = {true};
    const int drawn = Width();
    Trigger("FDeleteMSHFormat");
    EXPECT_NE(Width(), drawn);
    window->close();
}

TEST_F(WareManageDialogs, AFurtherWindowLetsTheFirstBeSeen)
{
    OpenNew("盘点报损");
    window->setGeometry(20, 30, 700, 500);
    window->close();
    OpenNew("盘点报损");
    const frmWareManage further(test.program);
    EXPECT_EQ(further.size(), window->size());
    EXPECT_GT(further.x(), window->x());
    EXPECT_GT(further.y(), window->y());
    window->close();
}

} // namespace
