#include "dialogs/code_tree.h"
#include "dialogs/picker_lists.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

void AddNodes(TestProgram& test, const char* table, std::initializer_list<const char*> codes)
{
    for (const QString code : codes)
        test.Insert(
            table,
            {{"Code", code}, {"Name", "名" + code}, {"ParentCode", code.size() > 2 ? code.chopped(2) : QString("0")}});
}

QStringList Column(const Recordset& rs, const char* name)
{
    QStringList texts;
    for (int row = 0; row < rs.size(); ++row)
        texts += rs.Text(name, row);
    return texts;
}

class Goods : public testing::Test
{
protected:
    Goods()
    {
        const QString goods[][3] = {{"A1", "螺丝", "LS"}, {"A2", "O'Neil", "ON"}, {"B1", "A级%螺母", "ALM"}};
        for (const auto& [code, name, mnemonic] : goods)
            test.Insert("TabWare", {{"Code", code}, {"Name", name}, {"ZJF", mnemonic}, {"TypeCode", code.left(1)}});
    }
    QStringList Codes(const Sql& sql) { return Column(test.Run(sql), "Code"); }

    TestProgram test;
    const PickerList& list = *FindPickerList("TabWare");
};

} // namespace

TEST_F(Goods, AreFilteredOneBoxAtATime)
{
    const struct
    {
        ListFilter filter;
        QString text;
        QStringList codes;
    } cases[] = {
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
    for (const auto& each : cases)
        EXPECT_EQ(Codes(RowsFiltered(list, each.filter, each.text)), each.codes) << each.text.left(20).toStdString();
    EXPECT_EQ(test.prompt.boxes.size(), 0u);
}

TEST_F(Goods, OfANodeAreThoseWhoseTypeBeginsWithIts)
{
    test.Insert("TabWare", {{"Code", "C1"}, {"TypeCode", "A01"}});
    EXPECT_EQ(Codes(RowsOfNode(list, "A")), QStringList({"A1", "A2", "C1"}));
    EXPECT_EQ(Codes(RowsOfNode(list, "A01")), QStringList("C1"));
    EXPECT_EQ(Codes(RowsOfNode(list, "")).size(), 4);
}

TEST_F(Goods, ArePickedByTheirCode)
{
    const std::optional<PickedRow> picked = PickRecord(test.program, list, "A2");
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->Name, "O'Neil");
    EXPECT_FALSE(PickRecord(test.program, list, ""));
    EXPECT_FALSE(PickRecord(test.program, list, "A"));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"请选择名称！", "请选择名称！"}));
}

TEST(PickerLists, EveryTableAnswersItsStatements)
{
    TestProgram test;
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
    const QStringList boxes = test.prompt.TakeTexts();
    EXPECT_EQ(boxes.size(), 6);
    EXPECT_EQ(boxes.count("基础管理程序不存在，请确定您程序安装是否完整！"), 6);
    EXPECT_FALSE(FindPickerList("TabAttribute"));
    EXPECT_FALSE(FindPickerTree("TabWare"));
}

TEST(PickerTrees, AreLimited)
{
    TestProgram test;
    AddNodes(test, "TabAttribute", {"01", "0101", "02"});
    for (const auto& [code, used] : {std::pair("1001", 0), {"100201", 0}, {"100202", 1}, {"1405", 0}})
        test.Insert("TabAccountantType", {{"Code", code}, {"FC", used}});

    const auto codes = [&](const char* table, const TreeLimit& limit) {
        return Column(test.Run(NodesOf(*FindPickerTree(table), limit)), "Code");
    };
    const Sql group = Sql(" where Code like ") + QString("01%") + " ";
    EXPECT_EQ(codes("TabAttribute", {.codes = group}), QStringList({"01", "0101"}));
    EXPECT_EQ(codes("TabAccountantType", {}), QStringList({"1001", "100201", "1405"}));
    EXPECT_EQ(codes("TabAccountantType", {.cashAndBank = true}), QStringList({"1001", "100201"}));
    EXPECT_EQ(codes("TabAccountantType", {.codes = Sql(" where Code like '14%' ")}), QStringList("1405"));
}

TEST(PickerTrees, RefuseNothingTheTopAndBranches)
{
    TestProgram test;
    AddNodes(test, "TabWarehouseType", {"01", "0101"});
    const PickerTree& tree = *FindPickerTree("TabWarehouseType");
    const auto pick = [&](const std::optional<QString>& code, bool leafOnly) {
        const std::optional<PickedRow> picked = PickNode(test.program, tree, {.leafOnly = leafOnly}, code);
        return picked ? picked->Name : test.prompt.TakeTexts().join('|');
    };
    EXPECT_EQ(pick(std::nullopt, false), "请选择名称！");
    EXPECT_EQ(pick("", false), "不允许选择根目录！");
    EXPECT_EQ(pick("01", false), "名01");
    EXPECT_EQ(pick("01", true), "请选取末级代码！");
    EXPECT_EQ(pick("0101", true), "名0101");
    EXPECT_EQ(pick("09", false), "请选择名称！");
}

TEST(CodeTree, ShowsEveryRowOnceWhateverItsParent)
{
    TestProgram test;
    AddNodes(test, "TabAttribute", {"02", "01", "0101", "0301"}); // 0301 lacks its parent
    test.Insert("TabAttribute", {{"Code", "X"}, {"Name", "X"}, {"ParentCode", "Y"}});
    test.Insert("TabAttribute", {{"Code", "Y"}, {"Name", "Y"}, {"ParentCode", "X"}});
    test.Insert("TabAttribute", {{"Code", "Z"}, {"Name", "Z"}, {"ParentCode", "Z"}});
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
