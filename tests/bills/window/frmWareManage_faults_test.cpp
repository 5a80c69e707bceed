#include "bills/ware_window.h"

#include <QClipboard>
#include <QFile>
#include <QScrollBar>
#include <QTableView>

namespace {

struct WareManageFaults : WareManageTest
{
    /// A new loss report, up to the first cell of the grid.
    void OpenBlankLoss()
    {
        OpenNew("盘点报损");
        TypeAndEnter({"101", "", "", ""});
    }
    void Paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        Press({Qt::Key_V}, Qt::ControlModifier);
    }
};

TEST_F(WareManageFaults, CellsOfASpreadsheetArePastedByKey)
{
    OpenBlankLoss();
    Paste("A001\t\t\t\t\t3\t第一\r\nB001\t\t\t\t\t4\t第二\r\n");
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "M8", "", "箱", "3.00", "第一"}));
    EXPECT_EQ(Line(2), QStringList({"B001", "O'Neil", "", "", "件", "4.00", "第二"}));
    EXPECT_EQ(Focus(), "Text2");
    ClickCell(2, 6);
    Paste("1,005.5\n");
    Press({Qt::Key_Escape});
    Paste("7");
    EXPECT_EQ(Line(2)[5], "7.00") << "on the grid itself";
}

TEST_F(WareManageFaults, TabsAndLineBreaksNeverBreakABox)
{
    OpenNew("盘点报损");
    TypeAndEnter({"101", ""});
    Paste("one\ttwo\r\nthree\n");
    EXPECT_EQ(Box("TxtMemo"), "one two three");
    TypeAndEnter({"", ""});
    Paste("A001\r\n");
    EXPECT_EQ(Line(1)[0], "A001");
    Press({Qt::Key_Return});
    EXPECT_EQ(Line(1)[1], "螺丝");
    ClickCell(1, 18);
    QApplication::clipboard()->setText("from\tthe\nmenu");
    Find<QLineEdit>("Text2")->paste();
    EXPECT_EQ(Line(1)[6], "from the menu");
}

TEST_F(WareManageFaults, WhatCannotBeSavedIsSaidAndShownAndStays)
{
    OpenLoss();
    ClickCell(1, 6);
    TypeAndEnter({"x"});
    EXPECT_EQ(SaveByKey().size(), 1) << "a quantity of nothing";
    EXPECT_EQ(Count("TabCheckLose"), 0);
    ClickCell(1, 6);
    TypeText("2");
    ClickCell(2, 2);
    TypeText("X9"); // no good
    Press({Qt::Key_Escape, Qt::Key_Up});
    EXPECT_EQ(SaveByKey().size(), 1);
    EXPECT_EQ(At(), std::pair(2, 1));
    EXPECT_EQ(Focus(), "Text2");

    test.Run(Sql("delete from TabWare where Code='A001'"));
    EXPECT_EQ(SaveByKey().size(), 1);
    EXPECT_EQ(At().first, 1);
    EXPECT_EQ(Line(1)[5], "2.00");
    EXPECT_EQ(Count("TabCheckLose"), 0);
}

TEST_F(WareManageFaults, ALongRemarkIsSavedWhole)
{
    OpenLoss();
    ClickCell(1, 18);
    Paste(QString("备注").repeated(2500));
    EXPECT_EQ(SaveByKey(), QStringList("保存成功！"));
    EXPECT_EQ(test.Run(Sql("select Remark from TabCheckLoseInf")).Text("Remark").size(), 5000);
}

TEST_F(WareManageFaults, ACodeOfHundredsOfGoodsIsListedPageByPage)
{
    {
        SaveUnit unit(test.program);
        for (int number = 0; number < 900; ++number)
            test.Insert("TabWare", {{"Code", "M" + QString::number(1000 + number)}, {"Name", "many"}, {"Unite", "件"}});
        ASSERT_TRUE(unit.Commit());
    }
    OpenBlankLoss();
    TypeText("M1");
    auto* const list = Find<QTableView>("MSHSelect");
    EXPECT_GT(list->model()->rowCount(), 10);
    EXPECT_LT(list->model()->rowCount(), 900);
    EXPECT_FALSE(list->horizontalScrollBar()->isVisible());
    Press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(Line(1)[0], "M1001");
}

TEST_F(WareManageFaults, ALostDatabaseLosesNothingOnTheScreen)
{
    OpenLoss();
    test.program.gConnection.Close();
    const QString away = test.databasePath() + ".away";
    ASSERT_TRUE(QFile::rename(test.databasePath(), away));
    const QStringList boxes = SaveByKey();
    EXPECT_FALSE(boxes.empty() || boxes.contains("保存成功！"));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Line(1)[1], "螺丝");

    test.program.gConnection.Close();
    QFile::remove(test.databasePath());
    ASSERT_TRUE(QFile::rename(away, test.databasePath()));
    EXPECT_EQ(SaveByKey(), QStringList("保存成功！"));
    EXPECT_EQ(Count("TabCheckLoseInf"), 1);
}

} // namespace
