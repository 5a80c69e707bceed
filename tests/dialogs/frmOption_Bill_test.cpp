#include "dialogs/frmOption_Bill.h"

#include "support/test_program.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class FormatWindow : public testing::Test
{
protected:
    FormatWindow()
    {
        for (const auto& [caption, width] : {std::pair("", 300), {"数量", 1000}, {"成本价", 0}, {"数量 ", 1500}})
            grid.columns.push_back({caption, width, {}, {}});
        const GridFormat before = grid;
        window.emplace(
            test.program, before, "同价调拨单界面 ",
            [this](int column, const ColumnFormat& format) { grid.columns[column] = format; }, nullptr);
        window->show();
        QApplication::setActiveWindow(&*window);
    }
    void Choose(int row) { window->findChild<QListWidget*>("ListMSHHead")->setCurrentRow(row); }
    QLineEdit& Box(const char* name) { return *window->findChild<QLineEdit*>(name); }
    QCheckBox& Shown() { return *window->findChild<QCheckBox*>("ChShowCol"); }
    void Type(const char* box, const char* text)
    {
        Box(box).selectAll();
        QTest::keyClicks(&Box(box), text);
    }
    std::vector<int> Widths()
    {
        std::vector<int> widths;
        for (const ColumnFormat& column : grid.columns)
            widths.push_back(column.width);
        return widths;
    }

    TestProgram test;
    GridFormat grid; // what the bill shows behind the window
    std::optional<frmOption_Bill> window;
};

} // namespace

TEST_F(FormatWindow, WidthsShowInTheGridAtOnce)
{
    Choose(2);
    EXPECT_EQ(Box("TxtMSHElseName").text(), "成本价");
    EXPECT_EQ(Box("TxtMSHColWidth").text(), "0");
    EXPECT_FALSE(Shown().isChecked());
    Shown().click();
    EXPECT_EQ(Box("TxtMSHColWidth").text(), "26.46");
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 1500, 1500}));
    Type("TxtMSHColWidth", "1-0a.5");
    EXPECT_EQ(Box("TxtMSHColWidth").text(), "10.5");
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 595, 1500}));
    Type("TxtMSHColWidth", "0");
    EXPECT_FALSE(Shown().isChecked());
    EXPECT_EQ(Widths(), std::vector<int>({300, 1000, 0, 1500}));
}

TEST_F(FormatWindow, ColumnsOfOneCaptionAreEditedTogether)
{
    Choose(3);
    EXPECT_EQ(Box("TxtMSHColWidth").text(), "17.64"); // the first one's
    window->findChild<QRadioButton*>("OptionMSHHeadRight")->click();
    Type("TxtMSHElseName", "Qty");
    EXPECT_EQ(grid.columns[1].elseName, "Qty");
    EXPECT_EQ(grid.columns[3].elseName, "Qty");
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
    Shown().click();
    window->findChild<QPushButton*>("CmdOk")->click();
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("保存成功！"));
    const std::vector<ColumnFormat> stored = ReadGridFormat(test.program, "同价调拨单界面");
    ASSERT_EQ(stored.size(), 4u);
    EXPECT_EQ(stored[0].width, 0);
    EXPECT_EQ(stored[3].elseName, "数量 ");
    window->findChild<QPushButton*>("CmdExit")->click();
    EXPECT_FALSE(window->isVisible());
}
