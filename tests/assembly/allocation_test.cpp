#include "assembly/allocation.h"
#include "piece_screen.h"

namespace {

const QString kAssemblyRefused = "成本分配不正确，请重新分配！(即合计金额不等于组装费用加组装商品金额合计！)";
const QString kDisassemblyRefused = "成本分配不正确，请重新分配！(即合计金额加拆卸费用不等于拆卸商品金额合计！)";

using AllocationTest = PieceScreen;

struct WorkedCase
{
    const char* what;
    bool assembles;
    int price, amount, money; // places
    const char* pieces;
    const char* cost; // typed, of a disassembly
    const char* fee;
    std::vector<std::pair<const char*, const char*>> lines; // amount and price
    const char* lineMoney;                                  // of the first line
    const char* operateMoney;
    const char* totalMoney;
    const char* unitCost;
    bool adds; // up, exactly
};

// clang-format off
const WorkedCase kWorked[] = {
    {"the product takes lines and fee", true, 2, 2, 2, "4", "", "10", {{"5", "12"}, {"2", "20"}},
     "60.00", "100.00", "110.00", "27.50", true},
    {"middle rounding by the places of quantities", true, 4, 0, 2, "3", "", "0.5", {{"1", "10.4"}},
     "10.4000", "10.40", "10.90", "3.6667", true},
    {"half of the middle rounding goes away from zero", true, 2, 1, 2, "1", "", "0.05", {{"1", "10.2"}},
     "10.20", "10.20", "10.25", "10.30", true},
    {"the fee has four decimals in the unit cost", true, 4, 4, 2, "1", "", "0.00005", {{"1", "1"}},
     "1.0000", "1.00", "1.00", "1.0001", false},
    {"line money has the places of prices", true, 4, 2, 2, "1", "", "", {{"3", "0.3333"}, {"1", "0.0051"}},
     "0.9999", "1.01", "1.01", "1.0100", true},
    {"fewer price places round the line's money", true, 1, 2, 2, "2", "", "", {{"3", "0.35"}},
     "1.1", "1.10", "1.10", "0.6", true},
    {"groups are cleaned before they are read", true, 2, 2, 2, "2", "", "1,000", {{"1000", "1.5"}},
     "1,500.00", "1,500.00", "2,500.00", "1,250.00", true},
    {"0.1 + 0.2", true, 2, 2, 2, "1", "", "0.1", {{"1", "0.2"}}, "0.20", "0.20", "0.30", "0.30", false},
    {"a fee beyond the places of money", true, 2, 2, 2, "1", "", "0.125", {{"1", "1"}},
     "1.00", "1.00", "1.13", "1.13", false},
    {"nothing made keeps the old cost", true, 2, 2, 2, "0", "", "3", {{"1", "7"}},
     "7.00", "7.00", "10.00", "10.00", true},
    {"a disassembly that adds up", false, 2, 2, 2, "2", "100", "10", {{"1", "150"}, {"3", "20"}},
     "150.00", "210.00", "200.00", "100.00", true},
    {"a cent short", false, 2, 2, 2, "2", "100", "10", {{"1", "209.99"}},
     "209.99", "209.99", "200.00", "100.00", false},
    {"a cent more", false, 2, 2, 2, "2", "100", "10", {{"1", "210.01"}},
     "210.01", "210.01", "200.00", "100.00", false},
    {"0.1 + 0.2 taken apart", false, 2, 2, 2, "1", "0.1", "0.2", {{"1", "0.3"}},
     "0.30", "0.30", "0.10", "0.10", false},
    {"the caption is compared, not the cells", false, 3, 2, 2, "1", "1", "0", {{"1", "0.998"}, {"1", "0.004"}},
     "0.998", "1.00", "1.00", "1.000", true},
};
// clang-format on

TEST_F(AllocationTest, WorkedCases)
{
    for (const WorkedCase& c : kWorked) {
        SCOPED_TRACE(c.what);
        SetPlaces(c.price, c.amount, c.money);
        Open(c.assembles);
        for (const auto& [amount, price] : c.lines)
            AddLine("B001", {{"数量", amount}, {"成本价", price}});
        TypeHead("TxtFee", c.fee);
        TypeHead("TxtAmount", c.pieces);
        if (!c.assembles)
            TypeAndLeave("TxtCost", c.cost);
        EXPECT_EQ(Cell(1, "金额"), c.lineMoney);
        EXPECT_EQ(bill.LabTotalMoney, c.operateMoney);
        EXPECT_EQ(bill.TxtTotalMoney, c.totalMoney);
        EXPECT_EQ(bill.TxtCost, c.unitCost);
        EXPECT_EQ(CheckCostAllocation(test.program, bill), c.adds);
        const QStringList refused = {c.assembles ? kAssemblyRefused : kDisassemblyRefused};
        EXPECT_EQ(test.prompt.TakeTexts(), c.adds ? QStringList() : refused);
    }
}

TEST_F(AllocationTest, EachTriggerRecalculatesWhatHangsOnIt)
{
    Open(true, "2");
    AddLine("B001", {{"成本价", "50"}});
    EXPECT_EQ(bill.TxtCost, "25.00");
    TypeHead("TxtAmount", "5");
    EXPECT_EQ(bill.TxtCost, "10.00");
    TypeHead("TxtFee", "5.555");
    EXPECT_EQ(bill.TxtTotalMoney, "55.56");
    HeadFocusLost(test.program, bill, "TxtFee");
    EXPECT_EQ(bill.TxtFee, "5.56");

    // Typing a cost alone moves nothing; the key before it did, and leaving does, in both modes.
    TypeHead("TxtCost", "7.777");
    EXPECT_EQ(bill.TxtTotalMoney, "55.56");
    HeadKeyPressed(test.program, bill, "TxtCost");
    EXPECT_EQ(bill.TxtTotalMoney, "38.89");
    HeadFocusLost(test.program, bill, "TxtCost");
    EXPECT_EQ(bill.TxtCost, "7.78");
    EXPECT_EQ(bill.TxtTotalMoney, "38.90");
    HeadKeyPressed(test.program, bill, "TxtAmount");
    EXPECT_EQ(bill.TxtTotalMoney, "55.56");

    bill.TxtAmount = "1,250.50";
    HeadFocusGained(bill, "TxtAmount");
    EXPECT_EQ(bill.TxtAmount, "1250.50");
    HeadFocusLost(test.program, bill, "TxtAmount");
    EXPECT_EQ(bill.TxtAmount, " 1250.5");
    EXPECT_TRUE(IsFigureKey('.'));
    EXPECT_FALSE(IsFigureKey('-'));

    // Lines that arrive or leave take the head along.
    PosInBill(test.program, bill, "A001", 3, 0);
    EXPECT_EQ(Cell(2, "成本价"), "10.00");
    EXPECT_EQ(bill.TxtTotalMoney, "85.56");
    test.prompt.answers = {true};
    bill.MSH.currentRow = 2;
    DeleteGridRow(test.program, bill);
    EXPECT_EQ(bill.TxtTotalMoney, "55.56");
}

TEST_F(AllocationTest, ARecipeIsMultipliedAndDividedByTheQuantityOfTheClick)
{
    Open(true, "3");
    AddLine("B001", {{"数量", "0.335"}, {"成本价", "2"}});
    ClickAutoChen(test.program, bill, true);
    EXPECT_EQ(Cell(1, "数量"), "1.02");
    EXPECT_EQ(Cell(1, "金额"), "2.04");
    TypeHead("TxtAmount", "2");
    EXPECT_EQ(Cell(1, "数量"), "1.02");
    ClickAutoChen(test.program, bill, false);
    EXPECT_EQ(Cell(1, "数量"), "0.51");
    TypeHead("TxtAmount", "");
    ClickAutoChen(test.program, bill, true);
    EXPECT_TRUE(bill.ChAutoChen);
    EXPECT_EQ(Cell(1, "数量"), "0.51");

    // A disassembly gets the assembly's arithmetic.
    Open(false, "2");
    TypeAndLeave("TxtCost", "100");
    TypeHead("TxtFee", "1");
    AddLine("B001", {{"数量", "1"}, {"成本价", "4"}});
    ClickAutoChen(test.program, bill, true);
    EXPECT_EQ(bill.TxtTotalMoney, "9.00");
    EXPECT_EQ(bill.TxtCost, "4.50");
    // Without lines nothing happens.
    Open(false, "2");
    TypeAndLeave("TxtCost", "100");
    ClickAutoChen(test.program, bill, true);
    EXPECT_EQ(bill.TxtTotalMoney, "200.00");
}

TEST_F(AllocationTest, TheSpecMultipliesOnCommitOnly)
{
    Open(true);
    bill.ChSpecJE = true;
    AddLine("B001", {{"规格", "2*1.5*x"}, {"数量", "4"}, {"成本价", "1"}});
    EXPECT_EQ(Cell(1, "金额"), "0.00");
    const std::pair<const char*, const char*> cases[] = {{"2*1.5", "12.00"}, {"3米", "12.00"},   {"M8", "4.00"},
                                                         {"-2", "4.00"},     {"-2*-3", "24.00"}, {"", "4.00"}};
    for (const auto& [spec, money] : cases) {
        Type(1, "规格", spec);
        EXPECT_EQ(Cell(1, "金额"), money) << spec;
    }
    Type(1, "规格", "2*1.5");
    RecalcAllAmounts(test.program, bill);
    EXPECT_EQ(Cell(1, "金额"), "4.00");
    EXPECT_EQ(bill.TxtTotalMoney, "4.00");
}

} // namespace
