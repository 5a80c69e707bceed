#include "dialogs/window/frmCode.h"

#include "support/window.h"

#include <QTableView>
#include <QTreeView>

namespace {

class GoodsPickerWindow : public WindowOf<frmCode>
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

    void Open(const Sql& firstRows = {}) { ShowNew(*FindPickerList("TabWare"), firstRows, QString(), nullptr); }
    QTableView* List() { return Find<QTableView>("MSH"); }
    QTreeView* Tree() { return Find<QTreeView>("TreeView_Type"); }
    QString ListCode(int row) { return List()->model()->index(row, 1).data().toString(); }
    QString Picked() { return window->picked() ? window->picked()->Code + window->picked()->Name : QString("-"); }
};

TEST_F(GoodsPickerWindow, IsWorkedByKeysAlone)
{
    Open();
    EXPECT_EQ(window->windowTitle(), "选择商品");
    EXPECT_EQ(Focus(), "TxtCode");
    TypeText("A2");
    EXPECT_EQ(ListCode(0), "A200");
    Press({Qt::Key_Down});
    EXPECT_EQ(Box("TxtCode") + Box("TxtName"), "A200螺丝200");
    Press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(Picked(), "A201螺丝201");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GoodsPickerWindow, EnterInABoxTakesTheOnlyRowOrTheExactCodeAndElseLeadsToTheList)
{
    Open();
    Find<QLineEdit>("TxtZJF")->setFocus();
    TypeAndEnter({"O"}); // two rows are left
    EXPECT_EQ(Picked(), "-");
    EXPECT_EQ(Focus(), "MSH");
    EXPECT_EQ(Box("TxtCode"), "B1");
    Press({Qt::Key_Up});
    EXPECT_EQ(Focus(), "TxtCode");
    TypeAndEnter({"b2"});
    EXPECT_EQ(Picked(), "B2O'Neil");
}

TEST_F(GoodsPickerWindow, NeedsAChoiceForOk)
{
    Open();
    Click("CmdOk");
    TypeText("B");
    Click("CmdOk"); // no whole code
    Find<QLineEdit>("TxtName")->setFocus();
    TypeText("'");
    EXPECT_EQ(List()->model()->rowCount(), 2);
    Click("CmdOk"); // a filter is no choice
    EXPECT_EQ(test.Boxes(), "请选择名称！|请选择名称！|请选择名称！");
    EXPECT_TRUE(window->isVisible());
    List()->selectRow(1);
    Click("CmdOk");
    EXPECT_EQ(Picked(), "B2O'Neil");
}

TEST_F(GoodsPickerWindow, FetchesWhileScrolledAndEscLeavesWithoutAChoice)
{
    Open();
    EXPECT_EQ(List()->model()->rowCount(), 200);
    Press({Qt::Key_Down});
    Press({Qt::Key_End});
    EXPECT_EQ(List()->currentIndex().row(), 451);
    EXPECT_EQ(List()->model()->rowCount(), 452);
    EXPECT_EQ(ListCode(451), "B2");
    Press({Qt::Key_Escape});
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Picked(), "-");
}

TEST_F(GoodsPickerWindow, ANodeShowsWhatIsBelowItAndEndsAFilter)
{
    Open();
    TypeText("B");
    EXPECT_EQ(List()->model()->rowCount(), 2);
    const QModelIndex top = Tree()->model()->index(0, 0);
    QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, Tree()->visualRect(top).center());
    EXPECT_EQ(List()->model()->rowCount(), 200) << "on the node where it stood";
    for (const char* refreshed : {"B", "A"}) {
        Find<QLineEdit>("TxtCode")->setFocus();
        TypeText(refreshed);
        Click("CmdRefresh");
        EXPECT_EQ(Box("TxtCode") + ListCode(0), "A001");
    }
    Find<QLineEdit>("TxtCode")->setFocus();
    TypeText("B");
    EXPECT_TRUE(Tree()->isExpanded(top));
    Tree()->setFocus();
    Press({Qt::Key_Down});
    EXPECT_EQ(Tree()->currentIndex().data().toString(), "类A");
    EXPECT_EQ(Box("TxtCode"), "");
    EXPECT_EQ(ListCode(0), "A001") << "of the type below";
    Tree()->setCurrentIndex(top.model()->index(1, 0, top));
    EXPECT_EQ(ListCode(0), "B1");
    EXPECT_EQ(List()->model()->rowCount(), 2);

    test.Insert("TabWare", {{"Code", "B0"}, {"TypeCode", "B"}});
    Click("CmdRefresh");
    EXPECT_EQ(ListCode(0), "B0");
    EXPECT_EQ(Tree()->currentIndex().data().toString(), "类B");
}

TEST_F(GoodsPickerWindow, OpensWithTheRowsItWasAskedFor)
{
    Open(Sql("select TabWare.Code,TabWare.Name,TabWare.Spec,TabWare.Unite,TabWare.ZJF  from TabWare   where "
             "(TabWare.Name like ") +
         QString("O%") + "   or TabWare.ZJF like " + QString("O%") + " )  order by TabWare.code ");
    EXPECT_EQ(List()->model()->rowCount(), 2);
    Find<QLineEdit>("TxtCode")->insert(QString(5000, QChar(u'%')));
    EXPECT_TRUE(test.prompt.boxes.empty());
}

} // namespace
