// The figures of made-up account sets: stock never runs out, and snapshots say what the bills add up to. That the costs
// on their lines are those that the engine answers, check_test.cpp sees.

#include "acctset/books.h"

#include "data/schema.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

/// Walks all movements and compares every close on its way; the heaps that ran below nothing.
QStringList Shortfalls(Store& store, const QStringList& closes)
{
    QStringList shortfalls;
    std::map<Place, Heap> heaps = OpeningOf(store);
    qsizetype closed = 0;
    const auto compare = [&](const QString& close) {
        std::map<Place, Heap> snapshot = SnapshotOf(store, close);
        for (const auto& [place, heap] : heaps) {
            EXPECT_NEAR(heap.amount, snapshot[place].amount, 0.005) << std::get<0>(place).toStdString();
            EXPECT_NEAR(heap.money, snapshot[place].money, 0.005) << std::get<0>(place).toStdString();
        }
    };
    for (const Movement& movement : MovementsOf(store)) {
        while (closed < closes.size() && movement.day > closes[closed])
            compare(closes[closed++]);
        Heap& heap = heaps[movement.place];
        heap += movement.change;
        if (heap.amount < -1e-9)
            shortfalls += movement.moment + ' ' + std::get<0>(movement.place);
    }
    EXPECT_EQ(closed, closes.size());
    return shortfalls;
}

qint64 CountOf(Store& store, const QString& table)
{
    return store.Run(Sql("select count(*) as n from ") + Name(table)).Integer("n");
}

} // namespace

TEST(Demo, ComesOutTheSameEveryTime)
{
    const QTemporaryDir folder;
    const QString again = folder.filePath("again.db");
    ASSERT_EQ(RunAcctset({"create", again, "--demo"}).exitCode, 0);
    const auto first = OpenSqliteFile(DemoFile());
    const auto second = OpenSqliteFile(again);
    for (const SchemaTable& table : Schema()) {
        const Sql all = Sql("select * from ") + Name(table.name);
        const Recordset one = first->Run(all);
        const Recordset other = second->Run(all);
        ASSERT_EQ(one.size(), other.size()) << table.name.toStdString();
        for (int row = 0; row < one.size(); ++row)
            for (int column = 0; column < int(table.columns.size()); ++column)
                ASSERT_EQ(one.at(row, column), other.at(row, column)) << table.name.toStdString() << row;
    }
}

TEST(Demo, HoldsEveryKindOfBillAndMasterData)
{
    const auto store = OpenSqliteFile(DemoFile());
    for (const char* head : {"TabInBill", "TabInCancleBill", "TabElseInBill", "TabOutBill", "TabOutCancleBill",
                             "TabElseOutBill", "TabSamePriceMove", "TabDiffPriceMove", "TabChangePrice", "TabCheckLose",
                             "TabCheckOver", "TabWareGroup", "TabWarePiece"}) {
        EXPECT_GE(CountOf(*store, head), 5) << head;
        EXPECT_GE(CountOf(*store, QString(head) + "Inf"), CountOf(*store, head)) << head;
    }
    EXPECT_NEAR(CountOf(*store, "TabWare"), 300, 20);
    EXPECT_EQ(CountOf(*store, "TabTurn"), 1);
    EXPECT_EQ(store->Run(Sql("select distinct CostStyle from TabWare")).size(), 3);
    for (const char* table : {"TabWarehouseType", "TabWareType", "TabAttribute", "TabStuff", "TabClient", "TabProvide",
                              "TabMoneyType", "TabOutInType", "TabDotSet", "TabOperateRight"})
        EXPECT_GE(CountOf(*store, table), 2) << table;
}

TEST(Demo, BarcodesCarryTheirCheckDigit)
{
    const auto store = OpenSqliteFile(DemoFile());
    const Recordset codes = store->Run(Sql("select TiaoXingCode from TabWare where AmountQueryYN='是'"));
    ASSERT_FALSE(codes.isEmpty());
    for (int row = 0; row < codes.size(); ++row) {
        const QString code = codes.Text("TiaoXingCode", row);
        ASSERT_EQ(code.size(), 13);
        int sum = 0;
        for (int i = 0; i < 13; ++i)
            sum += code[i].digitValue() * (i % 2 == 0 ? 1 : 3);
        EXPECT_EQ(sum % 10, 0) << code.toStdString();
    }
}

TEST(Demo, StockNeverRunsOutAndTheSnapshotIsTheWalk)
{
    EXPECT_EQ(Shortfalls(*OpenSqliteFile(DemoFile()), {"2023-06-30"}), QStringList());
}

/// Whether the two sides of a voucher agree is a matter of "acctset check".
TEST(Demo, AssembliesBalanceAndEachHasItsVoucher)
{
    const auto store = OpenSqliteFile(DemoFile());
    const Recordset off =
        store->Run(Sql("select Code from TabWareGroup where abs(SumMoney-Fee-"
                       "(select sum(Moneyy) from TabWareGroupInf where BillCode=Code))>0.0000001 union all "
                       "select Code from TabWarePiece where abs(SumMoney+Fee-"
                       "(select sum(Moneyy) from TabWarePieceInf where BillCode=Code))>0.0000001"));
    EXPECT_TRUE(off.isEmpty()) << off.Text("Code").toStdString();
    EXPECT_EQ(CountOf(*store, "TabWarrant"), CountOf(*store, "TabWareGroup") + CountOf(*store, "TabWarePiece"));
    EXPECT_TRUE(store->Run(Sql("select BillCode from TabWarrantInf group by BillCode having count(*)<3")).isEmpty());
    EXPECT_EQ(store->Run(Sql("select distinct State from TabWarrant order by State")).size(), 2);
    EXPECT_EQ(store->Run(Sql("select DateeM from TabWriteAccountant where State='已结账'")).size(), 6);
}

TEST(Generate, MakesSoManyLinesAndGoodsOfSkewedTradeWithoutShortfall)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("large.db");
    const Outcome made = RunAcctset({"generate", path, "--lines", "4000", "--goods", "300", "--seed", "7"});
    ASSERT_EQ(made.exitCode, 0) << made.error.toStdString();
    const auto store = OpenSqliteFile(path);
    qint64 lines = 0;
    for (const SchemaTable& table : Schema())
        lines += table.name.endsWith("Inf") && table.name != "TabCompanyInf" ? CountOf(*store, table.name) : 0;
    EXPECT_EQ(lines, 4000);
    EXPECT_EQ(CountOf(*store, "TabWare"), 300);
    EXPECT_EQ(Shortfalls(*store, {"2023-12-31", "2024-12-31"}), QStringList());
    const Recordset sold =
        store->Run(Sql("select count(*) as n from TabOutBillInf group by WareCode order by count(*) desc"));
    EXPECT_GT(sold.Integer("n", 0), 8 * sold.Integer("n", sold.size() / 2));
}
