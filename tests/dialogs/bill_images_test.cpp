#include "dialogs/bill_images.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(BillImages, OpenForASavedBillOnly)
{
    TestProgram test;
    test.Insert("TabWareGroup", {{"Code", "ZZD202302080001"}});
    const char* const unsaved = "尚未保存数据，请先保存数据后重新操作图文功能！";
    for (const auto& [code, bill, box] :
         {std::tuple("ZZD202302080001", "没有这种单", "不能确定单据对应的表名，图文管理失败！"),
          {"", "商品组装单", unsaved},
          {"ZZD202302080001", "商品拆卸单", unsaved},
          {" ZZD202302080001 ", "商品组装单", "图片管理程序不存在，请确定您程序安装是否完整！"}}) {
        OpenBillImages(test.program, code, bill);
        EXPECT_EQ(test.Boxes(), box);
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
    EXPECT_EQ(test.Rows(Sql("select BillCode,Type from TabImg order by BillCode")),
              QStringList({"X1|商品拆卸单图片", "X2|商品组装单图片"}));
}
