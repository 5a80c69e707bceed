#include "dialogs/frmCode.h"

#include "support/test_program.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

class GoodsPickerWindow : public testing::Test
{
protected:
    GoodsPickerWindow()
    {
        for (const auto& [code, parent] : {std::pair("A", "0"), {"A1", "A"}, {"B", "0"}})
            test.Insert("TabWareType", {{"Code", code}, {"Name", QString("类") + code}, {"ParentCode", parent}});
        SaveUnit unit(test.program);
        for (int number = 1; number <= 450; ++number)
            test.Insert("TabWare", {{"Code", QString("A%1").arg(number, 3, 10, QChar('0'))},
                                    {"Name", "螺丝" + QString::number(number)},
                                    {"ZJF", "LS"},
                                    {"TypeCode", "A1"}});
        for (const char* code : {"B1", "B2"})
            test.Insert("TabWare", {{"Code", code}, {"Name", "O'Neil"}, {"ZJF", "ON"}, {"TypeCode", "B"}});
        EXPECT_TRUE(unit.Commit());
    }

    frmCode& Open(const Sql& firstRows = {})
    {
        window.emplace(test.program, *FindPickerList("TabWare"), firstRows, QString(), nullptr);
        window->show();
        QApplication::setActiveWindow(&*window);
        return *window;
    }
    QLineEdit& Box(const char* name) { return *window->findChild<QLineEdit*>(name); }
    QTableView& List() { return *window->findChild<QTableView*>("MSH"); }
    QTreeView& Tree() { return *window->findChild<QTreeView*>("TreeView_Type"); }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void Click(const char* button) { window->findChild<QPushButton*>(button)->click(); }
    QString ListCode(int row) { return List().model()->index(row, 1).data().toString(); }
    QString Picked() { return window->picked() ? window->picked()->Code : QString("-"); }

    TestProgram test;
    std::optional<frmCode> window;
};

} // namespace

TEST_F(GoodsPickerWindow, IsWorkedByKeysAlone)
{
    EXPECT_EQ(Open().windowTitle(), "选择商品");
    EXPECT_EQ(QApplication::focusWidget(), &Box("TxtCode"));
    Type("A2");
    EXPECT_EQ(ListCode(0), "A200");
    Press(Qt::Key_Down);
    EXPECT_EQ(Box("TxtCode").text(), "A200");
    EXPECT_EQ(Box("TxtName").text(), "螺丝200");
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Picked(), "A201");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GoodsPickerWindow, EnterInABoxTakesTheOnlyRowOrTheExactCodeAndElseLeadsToTheList)
{
    Open();
    Box("TxtZJF").setFocus();
    Type("O");
    Press(Qt::Key_Return); // two rows are left
    EXPECT_EQ(Picked(), "-");
    EXPECT_EQ(QApplication::focusWidget(), &List());
    EXPECT_EQ(Box("TxtCode").text(), "B1");
    Press(Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), &Box("TxtCode"));
    Type("b2");
    Press(Qt::Key_Return);
    EXPECT_EQ(Picked(), "B2");
}

TEST_F(GoodsPickerWindow, NeedsAChoiceForOk)
{
    Open();
    Click("CmdOk");
    Box("TxtName").setFocus();
    Type("'");
    EXPECT_EQ(List().model()->rowCount(), 2);
    Click("CmdOk"); // a filter is no choice
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"请选择名称！", "请选择名称！"}));
    EXPECT_TRUE(window->isVisible());
    List().selectRow(1);
    Click("CmdOk");
    EXPECT_EQ(Picked(), "B2");
}

TEST_F(GoodsPickerWindow, EscLeavesWithoutAChoice)
{
    Open();
    Press(Qt::Key_Down);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Picked(), "-");
}

TEST_F(GoodsPickerWindow, FetchesWhileScrolledAndHoldsNoMore)
{
    Open();
    EXPECT_EQ(List().model()->rowCount(), 200);
    Press(Qt::Key_Down);
    for (int page = 0; page < 3; ++page) {
        Press(Qt::Key_End);
        QApplication::processEvents();
    }
    EXPECT_EQ(List().model()->rowCount(), 452);
    EXPECT_EQ(ListCode(451), "B2");
}

TEST_F(GoodsPickerWindow, ANodeShowsWhatIsBelowItAndEndsAFilter)
{
    Open();
    Type("B");
    EXPECT_EQ(List().model()->rowCount(), 2);
    const QModelIndex top = Tree().model()->index(0, 0);
    EXPECT_TRUE(Tree().isExpanded(top));
    Tree().setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(Tree().currentIndex().data().toString(), "类A");
    EXPECT_EQ(Box("TxtCode").text(), "");
    EXPECT_EQ(ListCode(0), "A001");
    Tree().setCurrentIndex(top.model()->index(1, 0, top));
    EXPECT_EQ(ListCode(0), "B1");
    EXPECT_EQ(List().model()->rowCount(), 2);

    test.Insert("TabWare", {{"Code", "B0"}, {"TypeCode", "B"}});
    Click("CmdRefresh");
    EXPECT_EQ(ListCode(0), "B0");
    EXPECT_EQ(Tree().currentIndex().data().toString(), "类B");
}

TEST_F(GoodsPickerWindow, OpensWithTheRowsItWasAskedFor)
{
    Open(Sql("select TabWare.Code,TabWare.Name,TabWare.Spec,TabWare.Unite,TabWare.ZJF  from TabWare   where "
             "(TabWare.Name like ") +
         QString("O%") + "   or TabWare.ZJF like " + QString("O%") + " )  order by TabWare.code ");
    EXPECT_EQ(List().model()->rowCount(), 2);
    Box("TxtCode").insert(QString(5000, QChar(u'%')));
    EXPECT_TRUE(test.prompt.boxes.empty());
}
