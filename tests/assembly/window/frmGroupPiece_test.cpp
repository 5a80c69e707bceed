#include "assembly/piece_screen.h"
#include "assembly/window/frmGroupPiece.h"
#include "bills/ware_window.h"
#include "support/memory_workbook.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

class GroupPieceTest : public WindowOn<PieceScreen, frmGroupPiece>
{
protected:
    void MakeWindow()
    {
        window.reset(new frmGroupPiece(test.program));
        window->setAttribute(Qt::WA_DeleteOnClose, false);
    }
    void OpenNew(const char* operation = "商品组装")
    {
        test.program.parameters.OperateType = operation;
        MakeWindow();
        Show();
        window->frm_Initialize(false, true);
    }
    void OpenSaved(const char* table, const QString& code)
    {
        MakeWindow();
        window->FillBill(table, code);
        Show();
    }
    /// Warehouses and the product, up to its quantity.
    void TypeProduct() { TypeAndEnter({"101", "102", "", "P001", "", "", ""}); }
    /// From the figures through the batch data into the grid.
    void GoToLines()
    {
        while (Focus() != "Text2")
            Press({Qt::Key_Return});
    }
    /// Acts in the list of earlier bills over the dialog that asks for one.
    void InList(std::function<void(QWidget& list)> act)
    {
        InDialog([this, act = std::move(act)](QWidget& dialog) {
            InDialog(act);
            dialog.findChild<QPushButton*>("CmdQuery")->click();
        });
        Trigger("ToolTaoYong");
    }
    QString Text(const char* label) { return Find<QLabel>(label)->text(); }
    void Trigger(const char* action) { Find<QAction>(action)->trigger(); }
};

TEST_F(GroupPieceTest, AnAssemblyIsTypedAndSavedByKeyboard)
{
    OpenNew();
    EXPECT_EQ(Focus(), "TxtWarehouseNameF");
    TypeProduct();
    EXPECT_EQ(Box("TxtWareName") + Box("TxtWareCode") + Box("TxtWareSpec"), "套装P001S");
    EXPECT_EQ(Focus(), "TxtAmount");
    TypeText("2x");
    EXPECT_EQ(Box("TxtAmount"), "2") << "only figures are taken";
    Press({Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(Focus(), "TxtFee");
    TypeText("1010");
    EXPECT_EQ(Box("TxtTotalMoney"), "1,010.00") << "follows every key";
    EXPECT_EQ(Box("TxtCost"), "505.00");
    Press({Qt::Key_Return});
    EXPECT_EQ(Box("TxtFee"), "1,010.00");
    Press({Qt::Key_Backtab});
    EXPECT_EQ(Box("TxtFee"), "1010.00") << "bare while it is edited";
    TypeAndEnter({"10"});
    EXPECT_EQ(Focus(), "TxtManufacturer");
    TypeText("F");
    GoToLines();

    TypeAndEnter({"A001"});
    ClickCell(1, 6);
    TypeAndEnter({"10"});
    EXPECT_EQ(Text("LabOperateMoney"), "100.00");
    EXPECT_EQ(Box("TxtTotalMoney") + " " + Box("TxtCost"), "110.00 55.00");
    Press({Qt::Key_S}, Qt::ControlModifier);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("保存成功！"));
    EXPECT_EQ(window->windowTitle(), "商品组装单 ZZD202302080001");
    EXPECT_EQ(Rows("select WarehouseCodeF,WarehouseCodeS,WareCode,Amount,Fee,Manufacturer from TabWareGroup"),
              QStringList("101|102|P001|2|10|F"));
    EXPECT_EQ(Rows("select WareCode,Amount from TabWareGroupInf"), QStringList("A001|10"));
}

TEST_F(GroupPieceTest, TheModeGivesTheCaptionsAndEmptiesTheBill)
{
    OpenNew();
    TypeProduct();
    EXPECT_EQ(Text("LabWareName") + Text("LabAmount") + Text("LabOperateMoneyName"),
              "组装商品名组装数量组装商品金额合计：");
    Find<QRadioButton>("OptPiece")->click(); // and stays with what is typed
    EXPECT_TRUE(Find<QRadioButton>("OptGroup")->isChecked());
    EXPECT_EQ(Box("TxtWareName"), "套装");
    test.prompt.choices = {Choice::Second};
    Find<QRadioButton>("OptPiece")->click();
    EXPECT_EQ(test.prompt.TakeTexts().size(), 2);
    EXPECT_EQ(Text("LabWareName") + Text("LabAmount") + Text("LabOperateMoneyName"),
              "拆卸商品名拆卸数量拆卸商品金额合计：");
    EXPECT_EQ(Text("LabBillName"), "商品拆卸单");
    EXPECT_EQ(Text("LabRemark"), "注意：在拆卸时，清单中的商品数量是指拆卸商品所拆分出来的其他所有商品数量。");
    EXPECT_EQ(Box("TxtWareName") + Box("TxtWarehouseNameF"), "");
    EXPECT_EQ(Focus(), "TxtWarehouseNameF");
    EXPECT_FALSE(Shown("LabTotalAmount"));
}

TEST_F(GroupPieceTest, ATypedProductIsChosenOnceItsNameIsWhole)
{
    OpenNew();
    TypeProduct();
    const auto typeAndLeave = [this](const char* name) {
        Find<QLineEdit>("TxtWareName")->setFocus();
        Find<QLineEdit>("TxtWareName")->selectAll();
        Find<QLineEdit>("TxtWareName")->insert(name);
        Press({Qt::Key_Tab});
        return Box("TxtWareName") + "|" + Box("TxtWareCode") + "|" + Box("TxtAmount");
    };
    TypeText("3");
    EXPECT_EQ(typeAndLeave("螺"), "螺|| 3");
    EXPECT_EQ(typeAndLeave("螺丝"), "螺丝|A001| 3");
    test.Insert("TabWare", {{"Code", "A000"}, {"Name", "螺丝刀"}});
    Find<QLineEdit>("TxtWareName")->setFocus();
    Press({Qt::Key_Return});
    EXPECT_EQ(Box("TxtWareCode") + "|" + Box("TxtAmount"), "A001| 3") << "nothing was typed";
}

TEST_F(GroupPieceTest, UnitsAreThoseOfTheProduct)
{
    OpenNew();
    TypeProduct();
    auto* const units = Find<QComboBox>("TxtUnite");
    ASSERT_EQ(units->count(), 2);
    EXPECT_EQ(units->currentText(), "套");
    units->setFocus();
    Press({Qt::Key_Down});
    Press({Qt::Key_Return});
    EXPECT_EQ(*HeadText(const_cast<BillText&>(window->bill()), "TxtUnite"), "盒");
    EXPECT_EQ(units->currentText(), "盒");
}

TEST_F(GroupPieceTest, ARecipeIsMultiplied)
{
    OpenNew();
    TypeProduct();
    TypeText("3");
    GoToLines();
    TypeAndEnter({"A001"});
    Find<QCheckBox>("ChAutoChen")->click();
    EXPECT_EQ(Line(1)[5], "3.00");
    EXPECT_EQ(Box("TxtTotalMoney"), "30.00");
    Find<QCheckBox>("ChAutoChen")->click();
    EXPECT_EQ(Line(1)[5], "1.00");
    Find<QCheckBox>("ChSpecJE")->click();
    EXPECT_TRUE(*HeadFlag(const_cast<BillText&>(window->bill()), "ChSpecJE"));
}

TEST_F(GroupPieceTest, CurrenciesComeBeforeTheProduct)
{
    test.program.parameters.IsLotMoney = true;
    test.Insert("TabMoneyType", {{"Name", "美元"}, {"Rate", 7.0}, {"IsBWB", "是"}});
    OpenNew();
    EXPECT_TRUE(Shown("FrameMoneyType"));
    TypeAndEnter({"101", "102", ""});
    EXPECT_EQ(Focus(), "TxtMoneyName");
    Press({Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(Focus(), "TxtWareName");
}

TEST_F(GroupPieceTest, AnUnknownProductIsPicked)
{
    OpenNew();
    auto* const product = Find<QLineEdit>("TxtWareName");
    product->setFocus();
    TypeAndEnter({"none"});
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("请先选择发出仓库名称！"));
    EXPECT_EQ(Focus() + product->text(), "TxtWareName");

    Find<QLineEdit>("TxtWarehouseNameF")->setFocus();
    TypeAndEnter({"101"});
    product->setFocus();
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "选择商品");
        TypeAndEnter({"P001"});
    });
    TypeAndEnter({"none"});
    EXPECT_EQ(product->text(), "套装");
    EXPECT_EQ(Focus(), "TxtWareSpec");

    QTest::mouseClick(Find<QToolButton>("ImgWareAttribute"), Qt::LeftButton);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("套装 没有设置对应属性！"));
    test.Run(Sql("update TabWare set AttributeCode='01' where Code='P001'"));
    InDialog([&](QWidget&) { Press({Qt::Key_End, Qt::Key_Return}); });
    QTest::mouseClick(Find<QToolButton>("ImgWareAttribute"), Qt::LeftButton);
    EXPECT_EQ(Box("TxtWareAttribute"), "0102>颜色>红");
    EXPECT_EQ(dialogs, 2);
}

TEST_F(GroupPieceTest, TheStateOfABillLocksItsKeys)
{
    const struct
    {
        const char* auditing;
        const char* state;
        int day; // the first is closed
        QString keys;
        bool isOpen;
    } cases[] = {
        {"", "正常", 8,
         "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord Print In Pos Img Before Back Exit", true},
        {"张三", "正常", 8, "Build UnAuditing Print Img Before Back Exit", false},
        {"", "作废", 8, "Build Delete Print Img Before Back Exit", false},
        {"", "正常", 1, "Build Print Img Before Back Exit", false},
    };
    test.Insert("TabTurn", {{"Datee", QDate(2023, 2, 1)}});
    for (const auto& saved : cases) {
        SCOPED_TRACE(saved.keys.toStdString());
        test.Run(Sql("delete from TabWareGroup"));
        test.Run(Sql("delete from TabWareGroupInf"));
        AddAssembly("ZZD1", QDate(2023, 2, saved.day));
        test.Run(Sql("update TabWareGroup set Auditing=") + QString(saved.auditing) + ",State=" + QString(saved.state));
        OpenSaved("TabWareGroup", "ZZD1");
        EXPECT_EQ(Keys(), saved.keys);
        EXPECT_FALSE(Find<QToolButton>("ToolTaoYong")->isEnabled());
        EXPECT_TRUE(Find<QToolButton>("ToolSeeWarrent")->isEnabled());
        EXPECT_FALSE(Find<QWidget>("OptPiece")->isEnabled());
        for (const char* control : {"TxtWareName", "TxtFee", "TxtPCode", "DTPDate", "ChAutoChen"})
            EXPECT_EQ(Find<QWidget>(control)->isEnabled(), saved.isOpen) << control;
        EXPECT_EQ(Box("TxtTotalMoney") + " " + Text("LabOperateMoney"), "110.00 100.00");
    }
    Trigger("ToolBuild");
    EXPECT_TRUE(Find<QToolButton>("ToolTaoYong")->isEnabled());
    EXPECT_TRUE(Find<QWidget>("OptPiece")->isEnabled());
    EXPECT_EQ(Box("TxtAmount") + Box("TxtTotalMoney"), "") << "a blank head shows no figures";
}

TEST_F(GroupPieceTest, AnEarlierBillIsCalledIn)
{
    AddAssembly("ZZD1", QDate(2023, 2, 3));
    AddAssembly("ZZD2", QDate(2023, 2, 4));
    OpenNew();
    TypeProduct();
    InDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "输入商品组装单编号");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("TxtWareCode")->text(), "P001");
        Press({Qt::Key_Return});
        EXPECT_TRUE(dialog.isVisible());
        TypeAndEnter({"ZZD1"});
    });
    Trigger("ToolTaoYong");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("请输入组装或拆卸单编号！"));
    EXPECT_EQ(Box("TxtBillCode"), "");
    EXPECT_EQ(Line(1).mid(0, 8), QStringList({"A001", "螺丝", "", "", "箱", "10.00", "10.00", "100.00"}));
    EXPECT_EQ(Focus(), "TxtAmount");

    Trigger("ToolBuild"); // what is not stored stays
    test.prompt.TakeTexts();
    Trigger("FTaoYong");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("套用将替换已录入的商品清单，确定继续吗？"));
    test.prompt.answers = {true};
    InDialog([&](QWidget& dialog) {
        dialog.findChild<QLineEdit*>("TxtWareName")->setText("名P001");
        dialog.findChild<QPushButton*>("CmdWare")->click();
    });
    Trigger("FTaoYong");
    EXPECT_EQ(Box("TxtWareCode"), "P001");
    EXPECT_EQ(dialogs, 2);
}

TEST_F(GroupPieceTest, TheListOfEarlierBillsIsFilteredPrintedAndTakenFrom)
{
    const MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);
    AddAssembly("ZZD1", QDate(2023, 2, 3));
    AddAssembly("ZZD2", QDate(2023, 2, 4));
    OpenNew();
    TypeProduct();
    InList([](QWidget&) {});
    EXPECT_EQ(Line(1)[0], "") << "closed without a choice";
    InList([&](QWidget& list) {
        const auto trigger = [&list](const char* action) { list.findChild<QAction*>(action)->trigger(); };
        EXPECT_EQ(list.findChild<QLabel*>("LabTabName")->text(), "商品组装单");
        const auto* const grid = list.findChild<GridView*>("MSH");
        ASSERT_EQ(grid->model()->rowCount(), 2);
        EXPECT_EQ(grid->model()->index(0, 0).data().toString(), "ZZD2") << "the newest first";
        list.findChild<QLineEdit*>("TxtDateeFrom")->setText("x");
        list.findChild<QPushButton*>("CmdQuery")->click();
        list.findChild<QLineEdit*>("TxtDateeFrom")->clear();
        list.findChild<QLineEdit*>("TxtDateeTo")->setText("2023-02-03");
        trigger("ToolFiltre");
        EXPECT_EQ(grid->model()->rowCount(), 1);
        list.findChild<QLineEdit*>("TxtBillCode")->setText("none");
        trigger("ToolFiltre");
        EXPECT_EQ(grid->model()->rowCount(), 0) << "a list has no row to type in";
        list.findChild<QLineEdit*>("TxtBillCode")->clear();
        trigger("ToolFiltre");
        trigger("FExcel");
        EXPECT_TRUE(list.isVisible());
        trigger("ToolOldBill");
        EXPECT_EQ(ReadClearLines(test.program.folder)->filter("商品组装原单查看").size(), 1);
        for (const char* print : {"ToolPrint", "FPrintSet", "PPreview", "PDirect"})
            trigger(print);
        EXPECT_EQ(test.prompt.boxes.back().text, "启动打印模块意外失败，请重新操作！");
        EXPECT_EQ(ReadClearLines(test.program.folder)->filter("直接打印").size(), 1);
        list.findChild<QWidget*>("MSH")->setFocus();
        Press({Qt::Key_Return});
        EXPECT_FALSE(list.isVisible());
    });
    EXPECT_EQ(test.prompt.TakeTexts().front(), "单据日期从不是日期型格式(YYYY-MMM-DD),请修改！");
    EXPECT_EQ(Line(1)[0], "A001");
    EXPECT_EQ(dialogs, 4);
    ASSERT_EQ(office.handedOver.size(), 1U);
    EXPECT_EQ(office.handedOver.front().book.front().Text(1, 2), "单据编号");
    EXPECT_EQ(office.handedOver.front().book.front().Text(2, 2), "ZZD1");
}

TEST_F(GroupPieceTest, LinesFromElsewhereAndVouchersAskTheirOwnQuestionsFirst)
{
    OpenNew();
    Trigger("ToolPos");
    Trigger("ToolIn");
    Trigger("ToolSeeWarrent");
    Trigger("FSeeWarrent");
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"发出仓库不能为空！", "发出仓库不能为空！", "单据编号不存在，不能查看凭证！",
                           "单据编号不存在，不能查看凭证！"}));
}

} // namespace
