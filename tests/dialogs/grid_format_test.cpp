#include "dialogs/grid_format.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

struct GridFormatTest : testing::Test
{
    TestProgram test;
    GridFormat format;

    GridFormatTest()
    {
        format.columns = {{"", 300, {}, {}}, {"商品编号", 1500, {}, {}}, {"O'Neil", 0, {}, {}}};
        format.columns[1].head.align = 4;
        format.columns[1].content = {7, "黑体", 10.5F, true, false, true, 0x0000ff};
    }
    size_t Columns(const char* key) { return ReadGridFormat(test.program, key).size(); }
    QString StoredRow(int row)
    {
        return test.Rows(Sql("select * from TabPrintMSHSet order by TabName,ColOrder")).value(row);
    }
};

TEST_F(GridFormatTest, IsStoredByPositionAndReadBack)
{
    const QString key = LayoutKeyOf(" 同价调拨单 ");
    EXPECT_TRUE(ReadGridFormat(test.program, key).empty());
    for (const QString& name : {QString("别的界面"), key, key}) // the second replaces the first
        ASSERT_TRUE(SaveGridFormat(test.program, name, format));
    EXPECT_EQ(test.Boxes(), "保存成功！|保存成功！|保存成功！");
    EXPECT_EQ(test.Run(Sql("select * from TabPrintMSHSet")).size(), 6);
    EXPECT_EQ(StoredRow(1), "别的界面|1|1500|商品编号|4|宋体|9|否|否|否|0|7|黑体|10.5|是|否|是|255");

    const std::vector<ColumnFormat> read = ReadGridFormat(test.program, "同价调拨单界面");
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].width, 300);
    EXPECT_EQ(read[1].content.align, 7);
    EXPECT_EQ(read[2].elseName, "O'Neil");
    EXPECT_EQ(read[2].width, 0);

    test.prompt.answers = {false, true};
    EXPECT_FALSE(DeleteGridFormat(test.program, key));
    EXPECT_EQ(Columns("同价调拨单界面"), 3u);
    EXPECT_TRUE(DeleteGridFormat(test.program, key));
    EXPECT_EQ(Columns("同价调拨单界面"), 0u);
    EXPECT_EQ(Columns("别的界面"), 3u);

    format.rows = 1; // of captions alone: contents are stored as they look
    ASSERT_TRUE(SaveGridFormat(test.program, "别的界面", format));
    EXPECT_EQ(StoredRow(1), "别的界面|1|1500|商品编号|4|宋体|9|否|否|否|0|4|宋体|9|否|否|否|0");
}

TEST_F(GridFormatTest, StaysAsItWasWhenItCannotBeSaved)
{
    EXPECT_FALSE(SaveGridFormat(test.program, "", format));
    ASSERT_TRUE(SaveGridFormat(test.program, "界面", format));
    EXPECT_EQ(test.Boxes(), "被设置的界面名称不能确定，保存失败！请退出后重新设置。|保存成功！");
    test.Run(Sql("create trigger full before insert on TabPrintMSHSet when new.ColOrder=2 "
                 "begin select raise(abort,'full'); end"));
    EXPECT_FALSE(SaveGridFormat(test.program, "界面", format));
    EXPECT_EQ(Columns("界面"), 3u);
    const QStringList boxes = test.prompt.TakeTexts();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("full"));
}

TEST(GridFormat, WidthsGoBetweenTwipsAndMillimetres)
{
    for (const auto& [twips, text] : {std::pair(1500, "26.46"), {300, "5.29"}, {0, "0"}})
        EXPECT_EQ(MillimetresText(twips), text);
    for (const auto& [text, twips] : {std::pair("26.46", 1500), {"", 0}, {".", 0}, {"99999999999999999999", 113386}})
        EXPECT_EQ(TwipsOf(text), twips) << text;
    const int read[] = {9, 1, 1, 1, 4, 4, 4, 7, 7, 7, 9, 9};
    for (int stored = -1; stored <= 10; ++stored)
        EXPECT_EQ(AlignmentOf(stored), read[stored + 1]) << stored;
}

} // namespace
