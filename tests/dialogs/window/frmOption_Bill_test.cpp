#include "dialogs/window/frmOption_Bill.h"

#include "support/window.h"

#include <QCheckBox>
#include <QListWidget>

namespace {

class FormatWindow : public WindowOf<frmOption_Bill>
{
protected:
    FormatWindow()
    {
        for (const auto& [caption, width] : {std::pair("", 300), {"数量", 1000}, {"成本价", 0}, {"数量 ", 1500}})
            grid.columns.push_back({caption, width, {}, {}});
        const GridFormat before = grid;
        ShowNew(
            before, "同价调拨单界面 ",
            [this](int column, const ColumnFormat& format) { grid.columns[column] = format; }, nullptr);
    }
    void Choose(int row) { Find<QListWidget>("ListMSHHead")->setCurrentRow(row); }
    bool IsShown() { return Find<QCheckBox>("ChShowCol")->isChecked(); }
    void Type(const char* box, const char* text)
    {
        Find<QLineEdit>(box)->selectAll();
        QTest::keyClicks(Find<QLineEdit>(box), text);
    }
    std::vector<int> Widths()
    {
        std::vector<int> widths;
        for (const ColumnFormat& column : grid.columns)
            widths.push_back(column.width);
        return widths;
    }

    GridFormat grid; // what the bill shows behind the window
};

TEST_F(FormatWindow, WidthsShowInTheGridAtOnce)
{
    Choose(2);
    EXPECT_EQ(Box("TxtMSHElseName") + Box("TxtMSHColWidth"), "成本价0");
    EXPECT_FALSE(IsShown());
    Click("ChShowCol");
    EXPECT_EQ(Box("TxtMSHColWidth"), "26.46");
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 1500, 1500}));
    Type("TxtMSHColWidth", "1-0a.5");
    EXPECT_EQ(Box("TxtMSHColWidth"), "10.5");
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 595, 1500}));
    Type("TxtMSHColWidth", "0");
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 0, 1500}));
}

TEST_F(FormatWindow, ColumnsOfOneCaptionAreEditedTogether)
{
    Choose(3);
    EXPECT_EQ(Box("TxtMSHColWidth"), "17.64"); // the first one's
    Click("OptionMSHHeadRight");
    Type("TxtMSHElseName", "Qty");
    EXPECT_EQ(grid.columns[1].elseName + grid.columns[3].elseName, "QtyQty");
    EXPECT_EQ(grid.columns[3].content.align, 7);
    EXPECT_EQ(grid.columns[2].content.align, 9);
    Choose(2);
    Choose(1); // found again under its new caption
    Type("TxtMSHColWidth", "10");
    EXPECT_EQ(Widths(), std::vector<int>({300, 567, 0, 567}));
}

TEST_F(FormatWindow, SavesWhatTheGridShows)
{
    Choose(0);
    Click("ChShowCol");
    Click("CmdOk");
    EXPECT_EQ(test.Boxes(), "保存成功！");
    const std::vector<ColumnFormat> stored = ReadGridFormat(test.program, "同价调拨单界面");
    ASSERT_EQ(stored.size(), 4u);
    EXPECT_EQ(stored[0].width, 0);
    EXPECT_EQ(stored[3].elseName, "数量 ");
    Click("CmdExit");
    EXPECT_FALSE(window->isVisible());
}

} // namespace
