#include "dialogs/frmWarehouseSelect.h"

#include "support/test_program.h"

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

class TreePickerWindow : public testing::Test
{
protected:
    TreePickerWindow()
    {
        for (const auto& [code, parent] : {std::pair("01", "0"), {"0101", "01"}, {"02", "0"}})
            test.Insert("TabWarehouseType", {{"Code", code}, {"Name", QString("仓") + code}, {"ParentCode", parent}});
    }
    void Open(const char* table)
    {
        window.emplace(test.program, *FindPickerTree(table), TreeLimit{}, QString(), nullptr);
        window->show();
        QApplication::setActiveWindow(&*window);
    }
    QTreeView& Tree() { return *window->findChild<QTreeView*>("TreeView"); }
    QAction* Command(const char* name) { return window->findChild<QAction*>(name); }

    TestProgram test;
    std::optional<frmWarehouseSelect> window;
};

} // namespace

TEST_F(TreePickerWindow, TakesANodeByKeys)
{
    Open("TabWarehouseType");
    EXPECT_EQ(window->windowTitle(), "选择仓库");
    Command("ToolSelect")->trigger();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_Return})
        QTest::keyClick(&Tree(), key);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"请选择名称！", "不允许选择根目录！"}));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(&Tree(), key);
    ASSERT_TRUE(window->picked());
    EXPECT_EQ(window->picked()->Code, "0101");
    EXPECT_EQ(window->picked()->Name, "仓0101");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TreePickerWindow, RefreshShowsNewNodesAndStaysWhereItWas)
{
    Open("TabWarehouseType");
    Tree().setCurrentIndex(static_cast<CodeTree*>(Tree().model())->Find("02"));
    test.Insert("TabWarehouseType", {{"Code", "0201"}, {"Name", "新仓"}, {"ParentCode", "02"}});
    Command("ToolRefresh")->trigger();
    EXPECT_EQ(Tree().currentIndex().data().toString(), "仓02");
    EXPECT_EQ(Tree().model()->rowCount(Tree().currentIndex()), 1);
    Command("FEixt")->trigger();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->picked());
}

TEST_F(TreePickerWindow, OfNoRowsIsAnEmptyTreeAndOffersOnlyWhatItCanAdd)
{
    Open("TabAttribute");
    EXPECT_EQ(Tree().model()->rowCount(Tree().model()->index(0, 0)), 0);
    EXPECT_FALSE(Command("ToolAdd"));
    Open("TabWarehouseType");
    EXPECT_TRUE(Command("ToolAdd"));
}
