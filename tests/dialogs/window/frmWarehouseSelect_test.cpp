#include "dialogs/window/frmWarehouseSelect.h"

#include "support/window.h"

#include <QTreeView>

namespace {

class TreePickerWindow : public WindowOf<frmWarehouseSelect>
{
protected:
    TreePickerWindow()
    {
        for (const auto& [code, parent] : {std::pair("01", "0"), {"0101", "01"}, {"02", "0"}})
            test.Insert("TabWarehouseType", {{"Code", code}, {"Name", QString("仓") + code}, {"ParentCode", parent}});
    }
    void Open(const char* table, const TreeLimit& limit = {})
    {
        ShowNew(*FindPickerTree(table), limit, QString(), nullptr);
    }
    QTreeView* Tree() { return Find<QTreeView>("TreeView"); }
    QString Picked() { return window->picked() ? window->picked()->Code + window->picked()->Name : QString("-"); }
};

TEST_F(TreePickerWindow, TakesANodeByKeys)
{
    Open("TabWarehouseType");
    EXPECT_EQ(window->windowTitle(), "选择仓库");
    Trigger("ToolSelect");
    Press({Qt::Key_Down, Qt::Key_Home, Qt::Key_Return});
    EXPECT_EQ(test.Boxes(), "请选择名称！|不允许选择根目录！");
    Press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(Picked(), "01仓01");
    EXPECT_FALSE(window->isVisible());

    Open("TabWarehouseType", {.leafOnly = true});
    Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(test.Boxes(), "请选取末级代码！");
    test.Run(Sql("update TabWarehouseType set Code='0102' where Code='0101'"));
    Press({Qt::Key_Return});
    EXPECT_EQ(test.Boxes(), "请选择名称！") << "it is no longer there";
    Trigger("ToolRefresh");
    Press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(Picked(), "0102仓0101");
}

TEST_F(TreePickerWindow, RefreshShowsNewNodesAndStaysWhereItWas)
{
    Open("TabWarehouseType");
    Tree()->setCurrentIndex(static_cast<CodeTree*>(Tree()->model())->Find("02"));
    test.Insert("TabWarehouseType", {{"Code", "0201"}, {"Name", "新仓"}, {"ParentCode", "02"}});
    Trigger("ToolRefresh");
    EXPECT_EQ(Tree()->currentIndex().data().toString(), "仓02");
    EXPECT_EQ(Tree()->model()->rowCount(Tree()->currentIndex()), 1);
    Trigger("FEixt");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Picked(), "-");
}

TEST_F(TreePickerWindow, OfNoRowsIsAnEmptyTreeAndOffersOnlyWhatItCanAdd)
{
    Open("TabAttribute");
    EXPECT_EQ(Tree()->model()->rowCount(Tree()->model()->index(0, 0)), 0);
    EXPECT_FALSE(window->findChild<QAction*>("ToolAdd"));
    Open("TabWarehouseType");
    EXPECT_TRUE(window->findChild<QAction*>("ToolAdd"));
}

} // namespace
