#include "assembly/saving/assembly_validation.h"
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

using AssemblyValidationTest = PieceScreen;

TEST_F(AssemblyValidationTest, TheFirstMissingPieceOfTheHeadIsSaid)
{
    const QString noLeaf = "名称不正确（原因：名称不存在或不是处于最末级），请重新选择！";
    const struct
    {
        QString GroupPieceText::*text;
        const char* value;
        QString refusal; // %1 is what the mode does
    } cases[] = {
        {&GroupPieceText::TxtWarehouseNameF, "", "发出仓库不能为空！"},
        {&GroupPieceText::TxtWarehouseCodeF, "1", "发出仓库" + noLeaf},
        {&GroupPieceText::TxtWarehouseNameS, "", "收存仓库不能为空！"},
        {&GroupPieceText::TxtWarehouseCodeS, "9", "收存仓库" + noLeaf},
        {&GroupPieceText::TxtWareName, " ", "%1商品名不能为空！"},
        {&GroupPieceText::TxtAmount, "0", "%1数量不能为空！"},
        {&GroupPieceText::TxtAmount, "", "%1数量不能为空！"},
    };
    for (const bool assembles : {true, false}) {
        for (const auto& c : cases) {
            OpenWith(assembles);
            bill.*c.text = c.value;
            EXPECT_EQ(Save(), QStringList(QString(c.refusal).replace("%1", assembles ? "组装" : "拆卸")));
            EXPECT_EQ(bill.TxtBillCode, "");
        }
    }
}

TEST_F(AssemblyValidationTest, RightDayCurrencyAndAttachedDates)
{
    OpenWith(true);
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
    OpenWith(true, {{"数量", "1000"}});
    EXPECT_EQ(Save(), QStringList(kPassed));
    test.Insert("TabSysSet", {{"IsZero", 0}});
    OpenWith(true, {{"数量", "5"}}, "B001");
    EXPECT_EQ(Save(), QStringList(kPassed));
    // Five of them are gone now: below zero.
    OpenWith(true, {}, "B001");
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
    OpenWith(false, {}, "B001");
    bill.TxtCost.clear();
    EXPECT_EQ(Save(), QStringList("允许零成本吗？"));
    test.prompt.answers = {true};
    EXPECT_EQ(Save(), QStringList({"允许零成本吗？", kPassed}));
    OpenWith(false, {}, "B001");
    bill.TxtCost = "0";
    EXPECT_EQ(Save(), QStringList(kPassed));
}

TEST_F(AssemblyValidationTest, FiguresBeyondMoneyAreRefused)
{
    OpenWith(false, {}, "B001");
    const std::pair<const char*, const char*> costs[] = {{"1e15", "单件成本 "}, {"1e12", "合计金额"}};
    for (const auto& [cost, word] : costs) {
        TypeAndLeave("TxtCost", cost);
        EXPECT_EQ(Save(), QStringList(QString(word) + "超出系统所能保存的范围，请修改后再保存！"));
    }
    OpenWith(true, {{"成本价", "1e12"}}, "B001");
    EXPECT_EQ(test.Boxes(), "第 1 行 金额 超出系统所能保存的范围，请修改后再保存！");
}

TEST_F(AssemblyValidationTest, NameAndCodeOfTheProductAreOfOneGood)
{
    OpenWith(true);
    const auto save = [this](const char* name) {
        bill.TxtWareName = name;
        ForgetProduct(bill);
        return Save().join('|');
    };
    EXPECT_EQ(save("x"), "商品名称不存在，请重新选择！");
    test.Insert("TabWare", {{"Code", "P002"}, {"Name", "套装"}});
    EXPECT_EQ(save("套装"), "商品名称不存在，请重新选择！") << "there are two";
    test.Run(Sql("update TabWare set Name='新装' where Code='P001'"));
    EXPECT_EQ(save("新装"), kPassed);
    EXPECT_EQ(Rows("select WareCode,WareName,Amount from TabWareGroup"), QStringList("P001|新装|1"));
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
        for (const char* good : {"P001", "A001"}) {
            if (table == "TabWarehouseTurn")
                test.Insert(table, {{"OnlyCode", "U1"}, {"WareCode", good}});
            else if (!table.isEmpty())
                test.Insert(table, {{"OnlyCode", "U1"},
                                    {"WareCode", good},
                                    {"State", c.state},
                                    {table.endsWith("Inf") ? "BillCode" : "Code", good}});
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
        if (!table.isEmpty())
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
    Open(false);
    NewBill(test.program, bill);
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
    ChooseProduct(test.program, bill, "B001");
    EXPECT_EQ(bill.unitChoices, QStringList("件"));
    ChooseProduct(test.program, bill, "none");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("商品名称不存在，请重新选择！"));

    // A price is typed as it stands; another unit asks for it anew.
    AddLine("A001", {});
    Type(1, "成本价", "3.456");
    EXPECT_EQ(Cell(1, "成本价"), "3.456");
    EXPECT_EQ(EditorOfCell(bill), CellEditor::Text);
    bill.MSH.currentColumn = 5;
    ChooseUnit(test.program, bill, "个");
    EXPECT_EQ(Cell(1, "成本价"), "10.00");
}

} // namespace
