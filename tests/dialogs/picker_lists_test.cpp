#include "dialogs/picker_lists.h"

#include "dialogs/code_tree.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

struct PickersTest : testing::Test
{
    TestProgram test;

    void AddNodes(const char* table, std::initializer_list<std::pair<const char*, const char*>> nodes)
    {
        for (const auto& [code, parent] : nodes)
            test.Insert(table, {{"Code", code}, {"Name", QString("名") + code}, {"ParentCode", parent}});
    }
    QStringList Codes(const Sql& sql)
    {
        const Recordset rs = test.Run(sql);
        QStringList codes;
        for (int row = 0; row < rs.size(); ++row)
            codes += rs.Text("Code", row);
        return codes;
    }
};

TEST_F(PickersTest, GoodsAreFilteredOneBoxAtATime)
{
    for (const auto& [code, name, mnemonic] :
         {std::tuple("A1", "螺丝", "LS"), {"A2", "O'Neil", "ON"}, {"B1", "A级%螺母", "ALM"}})
        test.Insert("TabWare", {{"Code", code}, {"Name", name}, {"ZJF", mnemonic}});
    const std::tuple<ListFilter, QString, QStringList> cases[] = {
        {ListFilter::Code, "A", {"A1", "A2"}}, // only from the start, so not B1 for its name
        {ListFilter::Code, "1", {}},
        {ListFilter::Name, "螺", {"A1", "B1"}},
        {ListFilter::Name, "", {"A1", "A2", "B1"}},
        {ListFilter::Name, "'", {"A2"}},
        {ListFilter::Name, "级%母", {"B1"}}, // a typed % stands for anything
        {ListFilter::ZJF, "lm", {"B1"}},
        {ListFilter::ZJF, "' or '1'='1", {}},
        {ListFilter::Name, QString(5000, u'螺'), {}},
    };
    for (const auto& [filter, text, codes] : cases)
        EXPECT_EQ(Codes(RowsFiltered(*FindPickerList("TabWare"), filter, text)), codes) << text.left(20).toStdString();
    EXPECT_EQ(test.prompt.boxes.size(), 0u);
}

TEST_F(PickersTest, EveryTableAnswersItsStatements)
{
    for (const QString table : {"TabWare", "TabClient", "TabProvide", "TabStuff"}) {
        const PickerList* const list = FindPickerList(table);
        ASSERT_TRUE(list) << table.toStdString();
        test.Run(TreeOf(*list));
        EXPECT_EQ(test.Run(RowsOfNode(*list, "01")).columns().size() + 1, size_t(list->columns.size()));
        AddRecord(test.program, *list);
    }
    for (const QString table : {"TabWarehouseType", "TabAccountantType", "TabAttribute"}) {
        const PickerTree* const tree = FindPickerTree(table);
        ASSERT_TRUE(tree) << table.toStdString();
        for (const TreeLimit& limit : {TreeLimit{}, TreeLimit{.codes = Sql(" where Code like '01%' ")}})
            test.Run(NodesOf(*tree, limit));
        if (!tree->addFunction.isEmpty())
            AddNode(test.program, *tree);
    }
    // Each of them knows its way to the sibling: it is missed, not unheard of.
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList(6, "基础管理程序不存在，请确定您程序安装是否完整！"));
    EXPECT_FALSE(FindPickerList("TabAttribute"));
    EXPECT_FALSE(FindPickerTree("TabWare"));
}

TEST_F(PickersTest, TreesAreLimited)
{
    AddNodes("TabAttribute", {{"01", "0"}, {"0101", "01"}, {"02", "0"}});
    for (const auto& [code, used] : {std::pair("1001", 0), {"100201", 0}, {"100202", 1}, {"1405", 0}})
        test.Insert("TabAccountantType", {{"Code", code}, {"FC", used}});
    const Sql group = Sql(" where Code like ") + QString("01%") + " ";
    const std::tuple<const char*, TreeLimit, QStringList> cases[] = {
        {"TabAttribute", {.codes = group}, {"01", "0101"}},
        {"TabAccountantType", {}, {"1001", "100201", "1405"}},
        {"TabAccountantType", {.cashAndBank = true}, {"1001", "100201"}},
        {"TabAccountantType", {.codes = Sql(" where Code like '14%' ")}, {"1405"}},
    };
    for (const auto& [table, limit, codes] : cases)
        EXPECT_EQ(Codes(NodesOf(*FindPickerTree(table), limit)), codes);
}

TEST_F(PickersTest, ATreeShowsEveryRowOnceWhateverItsParent)
{
    AddNodes("TabAttribute", {{"02", "0"},
                              {"01", "0"},
                              {"0101", "01"},
                              {"0301", "03"}, // which is not there
                              {"X", "Y"},
                              {"Y", "X"},
                              {"Z", "Z"}});
    CodeTree tree("属性列表");
    tree.Show(test.Run(Sql("select * from TabAttribute order by Code")));

    QStringList seen;
    const std::function<void(const QModelIndex&, const QString&)> walk = [&](const QModelIndex& at,
                                                                             const QString& path) {
        for (int row = 0; row < tree.rowCount(at); ++row) {
            const QModelIndex child = tree.index(row, 0, at);
            EXPECT_EQ(child.parent(), at);
            seen += path + tree.CodeOf(child);
            walk(child, path + tree.CodeOf(child) + "/");
        }
    };
    walk(tree.top(), "");
    EXPECT_EQ(seen, QStringList({"01", "01/0101", "02", "0301", "X", "X/Y", "Z"}));
    EXPECT_EQ(tree.top().data().toString(), "属性列表");
    EXPECT_EQ(tree.CodeOf(tree.Find("0101")), "0101");
    EXPECT_EQ(tree.CodeOf(tree.Find("nowhere")), "");
}

} // namespace
