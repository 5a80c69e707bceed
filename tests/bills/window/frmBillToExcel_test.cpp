#include "bills/ware_window.h"
#include "support/memory_workbook.h"

#include <QProgressBar>

namespace {

struct BillToExcel : WareManageTest
{
    MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);

    BillToExcel()
    {
        test.prompt.file = "book.xls";
        office.books["book.xls"] = {
            SheetOfTexts("sheet1", {{"商品编号", "数量"}, {"A001", "2"}, {"X", "1"}, {"B001", "3"}})};
    }

    /// Opens the import and acts in its window.
    void ToolIn(std::function<void(QWidget& dialog)> act)
    {
        InDialog(std::move(act));
        Trigger("ToolIn");
        EXPECT_EQ(std::exchange(dialogs, 0), 1);
    }
    static QAbstractButton* Key(QWidget& dialog, const char* name) { return dialog.findChild<QAbstractButton*>(name); }
};

TEST_F(BillToExcel, EnterImportsIntoTheGrid)
{
    OpenNew("同价调拨");
    Trigger("ToolIn");
    EXPECT_EQ(test.Boxes(), "请先选择发货仓库名称！");
    TypeHead();
    ToolIn([this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "从Excel文件中导入....");
        Press({Qt::Key_Return});
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(test.Boxes(), "选择导入数据|Microsoft Excel 工作簿 (*.XLS *.xlsx);;All Files (*.*)|共导入2 "
                            "条数据！\n以下1行没有导入：\n第3行：没有编号为“X”的商品");
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "M8", "", "箱", "2.00", ""}));
    EXPECT_EQ(Line(2), QStringList({"B001", "O'Neil", "", "", "件", "3.00", ""}));
    EXPECT_EQ(Text("LabTotalAmount") + Text("LabTotalMoney"), "5.0020.00");
    EXPECT_EQ(At(), std::pair(1, 1));
    SaveByKey();
    EXPECT_EQ(Count("TabSamePriceMoveInf"), 2) << "and is saved as if typed";
}

TEST_F(BillToExcel, EscapeAndARefusedFileLeaveTheGrid)
{
    OpenTransfer();
    const QStringList before = Line(1);
    ToolIn([this](QWidget&) { Press({Qt::Key_Escape}); });
    EXPECT_TRUE(test.prompt.boxes.empty());
    office.failures["Open"] = {SpreadsheetError::Kind::CannotOpen, "damaged"};
    const auto import = [this] {
        ToolIn([](QWidget& dialog) {
            Key(dialog, "CmdIn")->click();
            EXPECT_FALSE(dialog.isVisible());
        });
        return test.prompt.TakeTexts().mid(1).join('|');
    };
    EXPECT_EQ(import(), "damaged");
    test.prompt.file.clear();
    EXPECT_EQ(import(), "不能确定导入文件路径，请重新选择导入文件！");
    EXPECT_EQ(Line(1), before);
    EXPECT_EQ(Line(2).join(""), "");
}

TEST_F(BillToExcel, NothingClosesWhileLinesComeIn)
{
    OpenTransfer();
    ToolIn([&](QWidget& dialog) {
        office.whileRunning = [&] {
            Key(dialog, "CmdIn")->click();
            dialog.close();
            window->close();
            EXPECT_TRUE(dialog.isVisible() && window->isVisible());
        };
        Key(dialog, "CmdIn")->click();
    });
    EXPECT_EQ(office.calls["Open"], 1);
    EXPECT_TRUE(test.prompt.TakeTexts().back().startsWith("共导入2 条数据！"));
}

TEST_F(BillToExcel, TheUserEndsLongWork)
{
    OpenTransfer();
    const QStringList before = Line(1);
    ToolIn([&](QWidget& dialog) {
        office.whileRunning = [&] {
            QWidget* const progress = dialog.findChild<QWidget*>("frmProgress");
            EXPECT_FALSE(progress->isVisible()) << "short work passes without it";
            EXPECT_TRUE(QTest::qWaitFor([&] { return progress->isVisible(); }, kPatience));
            EXPECT_EQ(QApplication::activeModalWidget(), progress);
            EXPECT_EQ(progress->findChild<QProgressBar*>("prg")->maximum(), 0) << "no end in sight yet";
            Key(*progress, "CmdCancel")->click();
        };
        Key(dialog, "CmdIn")->click();
    });
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1) << "only the file was asked for";
    EXPECT_EQ(Line(1), before);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(BillToExcel, ABlankWorkbookIsThereToBeFilled)
{
    OpenTransfer();
    ToolIn([&](QWidget& dialog) {
        Key(dialog, "CmdBlank")->click();
        EXPECT_TRUE(dialog.isVisible()) << "to import it once it is filled";
        office.failures["HandOver"] = {SpreadsheetError::Kind::NoDisplay, "no display"};
        Key(dialog, "CmdBlank")->click();
        EXPECT_TRUE(Key(dialog, "CmdIn")->isEnabled());
    });
    EXPECT_EQ(test.Boxes(), "no display");
    ASSERT_EQ(office.handedOver.size(), 1U);
    MemoryBook book = office.handedOver.front().book;
    EXPECT_EQ(book.front().Texts().front().mid(0, 6),
              QStringList({"商品编号", "商品名称", "规格", "属性", "单位", "数量"}));
    EXPECT_EQ(book.front().textColumns, std::set({1, 2, 3, 4, 5, 7, 8, 9, 12, 13, 14, 15, 16})) << "no figure, no day";

    book.front().rows.push_back({QString("A001"), QString(), QString(), QString(), QString(), 4.0});
    office.books["book.xls"] = book;
    ToolIn([this](QWidget&) { Press({Qt::Key_Return}); });
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "M8", "", "箱", "4.00", ""}));
}

} // namespace
