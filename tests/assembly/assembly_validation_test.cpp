#include "assembly/assembly_validation.h"
#include "piece_screen.h"

namespace {

const QString kPassed = "保存成功！";
const QString kDateEnd = "\r\n请输入完整的日期格式（YYYY-MM-DD）后再保存！";
const QString kNotThere =
    "输入的  唯一码  在系统中不存在，不能输入系统中不存在的唯一码！\r\n请修改保证其在系统中存在后再保存！";
const QString kLeft = "输入的  唯一码  在系统中曾经出过库，不允许同一 唯一码 重复出库！\r\n"
                      "请修改保证其在系统中存在并未出过库后再保存！";
const QString kThere =
    "输入的  唯一码  在系统中已经存在，不能重复输入唯一码！\r\n请修改保证其在系统中的唯一性后再保存！";

struct AssemblyValidationTest : PieceScreen
{
    void OpenWithLine(bool assembles)
    {
        Open(assembles);
        AddLine("A001", {});
        if (assembles)
            return;
        TypeAndLeave("TxtCost", "10");
    }
};

TEST_F(AssemblyValidationTest, TheFirstMissingPieceOfTheHeadIsSaid)
{
    const struct
    {
        QString GroupPieceText::*text;
        const char* value;
        const char* assembly;
        const char* disassembly;
    } cases[] = {
        {&GroupPieceText::TxtWarehouseNameF, "", "发出仓库不能为空！", "发出仓库不能为空！"},
        {&GroupPieceText::TxtWarehouseCodeF, "1",
         "发出仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！",
         "发出仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"},
        {&GroupPieceText::TxtWarehouseNameS, "", "收存仓库不能为空！", "收存仓库不能为空！"},
        {&GroupPieceText::TxtWarehouseCodeS, "9",
         "收存仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！",
         "收存仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"},
        {&GroupPieceText::TxtWareName, " ", "组装商品名不能为空！", "拆卸商品名不能为空！"},
        {&GroupPieceText::TxtAmount, "0", "组装数量不能为空！", "拆卸数量不能为空！"},
        {&GroupPieceText::TxtAmount, "", "组装数量不能为空！", "拆卸数量不能为空！"},
    };
    for (const bool assembles : {true, false}) {
        for (const auto& c : cases) {
            OpenWithLine(assembles);
            bill.*c.text = c.value;
            EXPECT_EQ(Save(), QStringList(assembles ? c.assembly : c.disassembly));
            EXPECT_EQ(bill.TxtBillCode, "");
        }
    }
}

TEST_F(AssemblyValidationTest, RightDayCurrencyAndAttachedDates)
{
    OpenWithLine(true);
    bill.TxtSCDate = "2023-02-30";
    EXPECT_EQ(Save(), QStringList("附属信息中输入的 生产日期 输入格式不正确！" + kDateEnd));
    bill.TxtSCDate = "2023-2-3";
    bill.TxtYXDate = "soon";
    EXPECT_EQ(Save(), QStringList("附属信息中输入的 有效日期 输入格式不正确！" + kDateEnd));
    bill.TxtYXDate.clear();
    test.program.parameters.IsLotMoney = true;
    EXPECT_EQ(Save(), QStringList("请选择币种！"));
    test.program.parameters.IsLotMoney = false;
    test.Insert("TabTurn", {{"Datee", QDate(2023, 2, 8)}});
    EXPECT_EQ(Save(), QStringList("今天已结转，禁止当前操作！"));
    test.program.parameters.UserName = "小李";
    EXPECT_EQ(Save(), QStringList("没有操作权限！"));
}

TEST_F(AssemblyValidationTest, AnAssemblyTestsItsUnitsAndADisassemblyItsQuantityTwice)
{
    // No settings, or stock below zero allowed: no test.
    OpenWithLine(true);
    Type(1, "数量", "1000");
    EXPECT_EQ(Save(), QStringList(kPassed));
    test.Insert("TabSysSet", {{"IsZero", 0}});
    Open(true);
    AddLine("B001", {{"数量", "5"}});
    EXPECT_EQ(Save(), QStringList(kPassed));
    // Five of them are gone now: below zero.
    Open(true);
    AddLine("B001", {});
    EXPECT_EQ(Save(), QStringList({"库存数量不足！截至 2023-02-08 时，主仓 中库存量为-5，因此最多只能开出 0，请调整！",
                                   "请检查列表中第  1 行！"}));

    test.Insert("TabWarehouseTurn", {{"Num", 1}, {"WareCode", "P001"}, {"WarehouseCode", "101"}, {"Amount", 5.0}});
    Open(false, "3");
    AddLine("B001", {{"成本价", "0"}});
    TypeAndLeave("TxtCost", "0");
    EXPECT_EQ(Save(), QStringList(kPassed));
    // Rewritten, its own three count twice.
    EXPECT_EQ(Save(), QStringList({"库存数量不足！截至 2023-02-08 时，主仓 中库存量为-1，因此最多只能开出 0，请调整！",
                                   "请检查拆卸数量！"}));
}

TEST_F(AssemblyValidationTest, AnEmptyCostIsAskedForAndZeroIsNot)
{
    Open(false);
    AddLine("B001", {});
    bill.TxtCost.clear();
    EXPECT_EQ(Save(), QStringList("允许零成本吗？"));
    test.prompt.answers = {true};
    EXPECT_EQ(Save(), QStringList({"允许零成本吗？", kPassed}));
    Open(false);
    AddLine("B001", {});
    bill.TxtCost = "0";
    EXPECT_EQ(Save(), QStringList(kPassed));
}

TEST_F(AssemblyValidationTest, FiguresBeyondMoneyAreRefused)
{
    Open(false);
    AddLine("B001", {});
    TypeAndLeave("TxtCost", "1000000000000000");
    EXPECT_EQ(Save(), QStringList("合计金额超出系统所能保存的范围，请修改后再保存！"));
    Open(true);
    AddLine("B001", {{"成本价", "1000000000000000"}});
    EXPECT_EQ(Save(), QStringList("第 1 行 金额 超出系统所能保存的范围，请修改后再保存！"));
}

/// Where one piece stands, and what the four tests say of it. 1 there already, 2 not there, 3 left before, 0 nothing.
struct PieceCase
{
    const char* table;
    const char* state;
    int assemblyHead, assemblyLine, disassemblyHead, disassemblyLine;
};
const PieceCase kPieces[] = {
    {"", "", 0, 2, 2, 0},
    {"TabInBillInf", "正常", 1, 0, 0, 1},
    {"TabInBillInf", "作废", 0, 2, 2, 0},
    {"TabInCancleBillInf", "正常", 1, 2, 2, 1},
    {"TabOutCancleBillInf", "正常", 1, 0, 0, 1},
    {"TabElseInBillInf", "正常", 1, 0, 0, 1},
    {"TabWareGroup", "正常", 1, 0, 0, 1},
    {"TabWarePieceInf", "正常", 1, 0, 0, 1},
    {"TabCheckOverInf", "正常", 1, 0, 0, 1},
    {"TabCheckOverInf", "作废", 0, 0, 2, 1},
    {"TabWarehouseTurn", "", 1, 0, 0, 1},
    {"TabOutBillInf", "正常", 1, 2, 2, 1},
    {"TabWareGroupInf", "正常", 1, 2, 2, 1},
    {"TabWarePiece", "正常", 1, 2, 2, 1},
};

TEST_F(AssemblyValidationTest, ThePieceCodeIsTestedByWhichWayThePieceGoes)
{
    const QString wrong[] = {"", kThere, kNotThere, kLeft};
    const auto expected = [&](const QString& where, int number) {
        return number == 0 ? QStringList() : QStringList(where + wrong[number]);
    };
    for (const PieceCase& c : kPieces) {
        SCOPED_TRACE(std::string(c.table) + c.state);
        const QByteArray table = c.table;
        const bool isHead = table == "TabWareGroup" || table == "TabWarePiece";
        for (const char* good : {"P001", "A001"}) {
            const Field piece = {"OnlyCode", "U1"};
            if (table == "TabWarehouseTurn")
                test.Insert(c.table, {piece, {"WareCode", good}});
            else if (!table.isEmpty())
                test.Insert(c.table,
                            {piece, {"WareCode", good}, {"State", c.state}, {isHead ? "Code" : "BillCode", good}});
        }
        for (const bool assembles : {true, false}) {
            Open(assembles);
            bill.TxtOnlyCode = "U1";
            CheckBillLines(test.program, bill);
            EXPECT_EQ(test.prompt.TakeTexts(), expected("附属信息中", assembles ? c.assemblyHead : c.disassemblyHead));
            bill.TxtOnlyCode.clear();
            AddLine("A001", {{"唯一码", "U1"}});
            CheckBillLines(test.program, bill);
            EXPECT_EQ(test.prompt.TakeTexts(), expected("第 1 行", assembles ? c.assemblyLine : c.disassemblyLine));
        }
        if (*c.table != '\0')
            test.Run(Sql("delete from ") + c.table + " where OnlyCode='U1'");
    }
}

TEST_F(AssemblyValidationTest, ABillsOwnRowsDoNotStandInItsWay)
{
    test.Insert("TabInBillInf", {{"OnlyCode", "U2"}, {"WareCode", "A001"}, {"State", "正常"}});
    Open(true);
    bill.TxtOnlyCode = "U1";
    AddLine("A001", {{"唯一码", "U2"}});
    EXPECT_EQ(Save(), QStringList(kPassed));
    EXPECT_TRUE(CheckBillLines(test.program, bill));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList());
}

TEST_F(AssemblyValidationTest, ChoosingTheProductAndItsLines)
{
    test.program.parameters.OperateType = "商品拆卸";
    bill = {};
    LoadGroupPiece(test.program, bill);
    frm_Initialize(test.program, bill, false);
    EXPECT_FALSE(ProductPicker(test.program, bill));
    EXPECT_FALSE(WarehousePrecheck(test.program, bill));
    bill.TxtWarehouseNameF = "主";
    EXPECT_FALSE(LookUpWarehouse(test.program, bill, WarehouseField::F));
    EXPECT_EQ(bill.TxtWarehouseCodeF, "101");
    EXPECT_FALSE(WarehousePrecheck(test.program, bill));
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"请先选择发出仓库名称！", "请先选择发出仓库名称！", "请先确定数量！"}));

    bill.TxtWareName = "无";
    EXPECT_TRUE(LookUpProduct(test.program, bill));
    EXPECT_EQ(bill.TxtWareName, "");
    bill.TxtWareName = "螺";
    EXPECT_FALSE(LookUpProduct(test.program, bill));
    EXPECT_EQ(QStringList({bill.TxtWareCode, bill.TxtWareSpec, bill.TxtUnite, bill.TxtAmount, bill.TxtCost,
                           bill.TxtTotalMoney}),
              QStringList({"A001", "M8", "箱", "1", "10.00", "10.00"}));
    EXPECT_EQ(bill.unitChoices, QStringList({"箱", "个"}));
    EXPECT_EQ(ProductAttributePicker(test.program, bill)->title, "组装或拆卸商品");
    ChooseProduct(test.program, bill, "P001");
    EXPECT_FALSE(ProductAttributePicker(test.program, bill));
    FillTxtWareName(test.program, bill, Sql("select * from TabWare where Code='none'"));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"套装 没有设置对应属性！", "商品名称不存在，请重新选择！"}));

    // A price is typed as it stands; another unit asks for it anew.
    AddLine("A001", {});
    Type(1, "成本价", "3.456");
    EXPECT_EQ(Cell(1, "成本价"), "3.456");
    EXPECT_EQ(EditorOfCell(bill), CellEditor::Text);
    bill.MSH.currentColumn = 5;
    ChooseUnit(test.program, bill, "个");
    EXPECT_EQ(Cell(1, "成本价"), "10.00");

    SwitchMode(test.program, bill, true);
    EXPECT_EQ(bill.LabBillName, "商品组装单");
    EXPECT_EQ(bill.MSH.rows(), 2);
    EXPECT_EQ(bill.TxtWareName + bill.TxtTotalMoney, "");
}

} // namespace
