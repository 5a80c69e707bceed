#include "data/bill_kinds.h"

#include "data/schema.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(BillKinds, TablesOfEveryKindExist)
{
    ASSERT_EQ(BillKinds().size(), 7u);
    for (const BillKind& kind : BillKinds()) {
        EXPECT_NE(FindTable(kind.headTable), nullptr) << kind.headTable;
        EXPECT_EQ(QString(kind.lineTable), QString(kind.headTable) + "Inf");
        EXPECT_EQ(kind.bill, kind.operation + "单");
        EXPECT_EQ(KindOfBill(" " + kind.bill + " "), &kind);
        EXPECT_EQ(KindOfOperation(kind.operation), &kind);
        EXPECT_EQ(KindOfHeadTable(kind.headTable), &kind);
        EXPECT_EQ(HeadTableOfBill(kind.bill), QString(kind.headTable));
    }
    EXPECT_EQ(KindOfBill("销售出库单"), nullptr);
}

TEST(BillKinds, ColumnsStandAtTheirPlaces)
{
    const std::tuple<const char*, const char*, int, int> places[] = {
        {"同价调拨单", "数量", 6, 1000},  {"同价调拨单", "成本价", 7, 0},       {"同价调拨单", "备注", 18, 1500},
        {"异价调拨单", "单价", 7, 1000},  {"异价调拨单", "金额", 9, 1000},      {"异价调拨单", "唯一码", 15, 0},
        {"商品调价单", "数量", 0, 300},   {"商品调价单", "调价金额", 6, 1500},  {"商品调价单", "备注", 16, 1500},
        {"盘点报溢单", "单价", 0, 300},   {"盘点报溢单", "自定义字段3", 17, 0}, {"商品组装单", "成本价", 7, 1000},
        {"商品拆卸单", "备注", 18, 1500},
    };
    for (const auto& [bill, caption, position, width] : places) {
        const BillKind* const kind = KindOfBill(bill);
        ASSERT_NE(kind, nullptr);
        EXPECT_EQ(ColumnIndex(*kind, QString(caption)), position) << bill << caption;
        EXPECT_EQ(kind->columns[position].width, width) << bill << caption;
    }
    EXPECT_EQ(KindOfBill("商品调价单")->columns.size(), 17u);
    EXPECT_EQ(KindOfBill("异价调拨单")->columns.size(), 20u);
}

TEST(BillKinds, BillsOfTheSiblingsLeadToTheirTables)
{
    EXPECT_EQ(HeadTableOfBill(" 购买入库单"), "TabInBill");
    EXPECT_EQ(HeadTableOfBill("费用抵冲(供应商)"), "TabSustain");
    EXPECT_EQ(HeadTableOfBill("会计凭证"), "TabWarrant");
    EXPECT_EQ(HeadTableOfBill("同价调拨"), "");
    EXPECT_EQ(HeadTableOfBill(""), "");
}
