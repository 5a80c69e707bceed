#include "dialogs/grid_format.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {
GridFormat ThreeColumns()
{
    GridFormat format;
    format.columns = {{"", 300, {}, {}}, {"商品编号", 1500, {}, {}}, {"O'Neil", 0, {}, {}}};
    format.columns[1].head.align = 4;
    format.columns[1].content = {7, "黑体", 10.5F, true, false, true, 0x0000ff};
    return format;
}

QString StoredRow(TestProgram& test, int row)
{
    const Recordset rs = test.Run(Sql("select * from TabPrintMSHSet order by TabName,ColOrder"));
    QStringList texts;
    for (size_t column = 0; column < rs.columns().size(); ++column)
        texts += TextOf(rs.at(row, static_cast<int>(column)));
    return texts.join('|');
}
} // namespace

TEST(GridFormat, IsStoredByPositionAndReadBack)
{
    TestProgram test;
    const QString key = LayoutKeyOf(" 同价调拨单 ");
    EXPECT_TRUE(ReadGridFormat(test.program, key).empty());
    ASSERT_TRUE(SaveGridFormat(test.program, "别的界面", ThreeColumns()));
    ASSERT_TRUE(SaveGridFormat(test.program, key, ThreeColumns()));
    ASSERT_TRUE(SaveGridFormat(test.program, key, ThreeColumns())); // replaces
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"保存成功！", "保存成功！", "保存成功！"}));
    EXPECT_EQ(test.Run(Sql("select * from TabPrintMSHSet")).size(), 6);
    EXPECT_EQ(StoredRow(test, 1), "别的界面|1|1500|商品编号|4|宋体|9|否|否|否|0|7|黑体|10.5|是|否|是|255");

    const std::vector<ColumnFormat> read = ReadGridFormat(test.program, key);
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].width, 300);
    EXPECT_EQ(read[1].content.align, 7);
    EXPECT_EQ(read[2].elseName, "O'Neil");
    EXPECT_EQ(read[2].width, 0);

    test.prompt.answers = {false, true};
    EXPECT_FALSE(DeleteGridFormat(test.program, key));
    EXPECT_EQ(ReadGridFormat(test.program, key).size(), 3u);
    EXPECT_TRUE(DeleteGridFormat(test.program, key));
    EXPECT_TRUE(ReadGridFormat(test.program, key).empty());
    EXPECT_EQ(ReadGridFormat(test.program, "别的界面").size(), 3u);
    EXPECT_EQ(test.prompt.TakeTexts().last(), "删除成功！");
}

TEST(GridFormat, OfCaptionsAloneStoresContentsAsTheyLook)
{
    TestProgram test;
    GridFormat format = ThreeColumns();
    format.rows = 1;
    ASSERT_TRUE(SaveGridFormat(test.program, "列表界面", format));
    EXPECT_EQ(StoredRow(test, 1), "列表界面|1|1500|商品编号|4|宋体|9|否|否|否|0|4|宋体|9|否|否|否|0");
}

TEST(GridFormat, StaysAsItWasWhenItCannotBeSaved)
{
    TestProgram test;
    EXPECT_FALSE(SaveGridFormat(test.program, "", ThreeColumns()));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("被设置的界面名称不能确定，保存失败！请退出后重新设置。"));

    ASSERT_TRUE(SaveGridFormat(test.program, "界面", ThreeColumns()));
    test.Run(Sql("create trigger full before insert on TabPrintMSHSet when new.ColOrder=2 "
                 "begin select raise(abort,'full'); end"));
    test.prompt.TakeTexts();
    EXPECT_FALSE(SaveGridFormat(test.program, "界面", ThreeColumns()));
    EXPECT_EQ(ReadGridFormat(test.program, "界面").size(), 3u);
    const QStringList boxes = test.prompt.TakeTexts();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("full"));
}

TEST(GridFormat, NeedsTheRight)
{
    TestProgram test;
    test.program.parameters.UserName = "张三";
    EXPECT_FALSE(MayFormatGrids(test.program));
    EXPECT_FALSE(DeleteGridFormat(test.program, "界面"));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"没有操作权限！", "没有操作权限！"}));
}

TEST(GridFormat, WidthsGoBetweenTwipsAndMillimetres)
{
    EXPECT_EQ(MillimetresText(1500), "26.46");
    EXPECT_EQ(MillimetresText(300), "5.29");
    EXPECT_EQ(MillimetresText(0), "0");
    EXPECT_EQ(TwipsOf("26.46"), 1500);
    EXPECT_EQ(TwipsOf(""), 0);
    EXPECT_EQ(TwipsOf("."), 0);
    EXPECT_EQ(TwipsOf("99999999999999999999"), TwipsOf("2000"));
    const int read[] = {1, 1, 1, 4, 4, 4, 7, 7, 7, 9, 9};
    for (int stored = 0; stored <= 10; ++stored)
        EXPECT_EQ(AlignmentOf(stored), read[stored]) << stored;
    EXPECT_EQ(AlignmentOf(-1), 9);
}
