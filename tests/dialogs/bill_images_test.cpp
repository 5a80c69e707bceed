#include "dialogs/bill_images.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(BillImages, OpenForASavedBillOnly)
{
    TestProgram test;
    test.Insert("TabWareGroup", {{"Code", "ZZD202302080001"}});
    const struct
    {
        const char* code;
        const char* bill;
        const char* box;
    } cases[] = {
        {"ZZD202302080001", "没有这种单", "不能确定单据对应的表名，图文管理失败！"},
        {"", "商品组装单", "尚未保存数据，请先保存数据后重新操作图文功能！"},
        {"ZZD202302080001", "商品拆卸单", "尚未保存数据，请先保存数据后重新操作图文功能！"},
        {" ZZD202302080001 ", "商品组装单", "图片管理程序不存在，请确定您程序安装是否完整！"},
    };
    for (const auto& each : cases) {
        OpenBillImages(test.program, each.code, each.bill);
        EXPECT_EQ(test.prompt.TakeTexts(), QStringList(each.box));
    }
    const std::optional<QStringList> handedOver = ReadClearLines(test.program.folder);
    ASSERT_TRUE(handedOver);
    EXPECT_EQ(handedOver->filter("商品组装单图片").size(), 1);
    EXPECT_EQ(handedOver->filter("ZZD202302080001").size(), 1);
}

TEST(BillImages, AreDeletedWithTheirBillAlone)
{
    TestProgram test;
    for (const auto& [code, type] :
         {std::pair("X1", "商品组装单图片"), {"X1", "商品拆卸单图片"}, {"X2", "商品组装单图片"}})
        test.Insert("TabImg", {{"BillCode", code}, {"Type", type}});
    DeleteBillImages(test.program, "X1", "商品组装单");
    const Recordset left = test.Run(Sql("select * from TabImg order by BillCode"));
    ASSERT_EQ(left.size(), 2);
    EXPECT_EQ(left.Text("Type", 0), "商品拆卸单图片");
    EXPECT_EQ(left.Text("BillCode", 1), "X2");
}
