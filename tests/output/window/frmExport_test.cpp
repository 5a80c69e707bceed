#include "bills/ware_window.h"
#include "support/memory_workbook.h"

#include <QProgressBar>

namespace {

struct ExportTest : WareManageTest
{
    MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);

    void Export() { Trigger("FExcle_PT"); }
};

TEST_F(ExportTest, WhatIsInSightGoesOut)
{
    OpenLoss();
    Export();
    ASSERT_EQ(office.handedOver.size(), 1U);
    EXPECT_EQ(office.handedOver.front().book.front().Texts(),
              std::vector<QStringList>({{"", "商品编号", "商品名称", "规格", "属性", "单位", "数量", "备注"},
                                        {"", "A001", "螺丝", "M8", "", "箱", "1.00", ""},
                                        {"", "", "", "", "", "", "", ""}}));
    EXPECT_FALSE(QApplication::activeModalWidget()) << "the workbook is in front now";
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_F(ExportTest, AFailureIsSaidAndCanBeTriedAgain)
{
    OpenLoss();
    office.failures["HandOver"] = {SpreadsheetError::Kind::NoDisplay, "no display"};
    InDialog([&](QWidget& dialog) {
        const auto key = [&](const char* name) { return dialog.findChild<QAbstractButton*>(name); };
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return key("cmdExcel")->isEnabled() && !test.prompt.boxes.empty(); }, kPatience));
        EXPECT_EQ(dialog.windowTitle() + key("cmdExcel")->text() + key("cmdWord")->text() + key("cmdQuit")->text(),
                  "数据导出输出到Excel...输出到Word...退出(&Q)");
        EXPECT_FALSE(key("cmdWord")->isEnabled() || key("cmdHtml")->isEnabled());
        office.failures.clear();
        office.whileRunning = [&] { EXPECT_FALSE(key("cmdExcel")->isEnabled()); };
        key("cmdExcel")->click();
        EXPECT_EQ(dialog.findChild<QProgressBar*>("prg")->value(), 100);
        EXPECT_FALSE(dialog.isVisible());
    });
    Export();
    EXPECT_EQ(test.Boxes(), "no display");
    EXPECT_EQ(office.handedOver.size(), 1U);
    EXPECT_EQ(dialogs, 1);
}

TEST_F(ExportTest, EscapeEndsTheCopyingAndThenLeaves)
{
    OpenLoss();
    office.whileRunning = [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); };
    InDialog([&](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return office.calls["Run"] == 1; }, kPatience));
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    Export();
    EXPECT_TRUE(test.prompt.boxes.empty() && office.handedOver.empty());
}

TEST_F(ExportTest, TheRightToPrintIsAskedFor)
{
    OpenLoss();
    test.program.parameters.UserName = "nobody";
    Export();
    EXPECT_EQ(test.Boxes(), "没有操作权限！");
    test.Insert("TabOperateRight", {{"UserName", "nobody"}, {"FunctionName", "盘点报损"}, {"AllowPrint", 1}});
    Export();
    EXPECT_EQ(office.handedOver.size(), 1U);
}

} // namespace
