#include "dialogs/picker_lists.h"

#include "handover/launcher.h"

namespace {

const QString kNothingChosen = QStringLiteral("请选择名称！");

const std::vector<PickerList>& PickerLists()
{
    static const QStringList plain = {"序号", "编号", "名称"};
    static const std::vector<PickerList> lists = {
        {"TabWare",
         "TabWareType",
         "商品分类列表",
         "选择商品",
         " select Code,Name,Spec,Unite,ZJF from TabWare ",
         "TypeCode",
         {"序号", "编号", "名称", "规格", "单位", "助记符"},
         true,
         "商品信息录入",
         "商品资料"},
        {"TabClient", "TabClientType", "往来单位分类列表", "选择往来单位", " select Code,Name from TabClient ",
         "TypeCode", plain, false, "往来单位信息录入", "往来单位资料"},
        {"TabProvide", "TabClientType", "往来单位分类列表", "选择往来单位", " select Code,Name from TabProvide ",
         "TypeCode", plain, false, "往来单位信息录入", "往来单位资料"},
        {"TabStuff", "TabDepartmentType", "人员所在部门列表", "选择业务员", " select Code,Name from TabStuff ",
         "DepartmentCode", plain, false, "员工信息录入", "员工"},
    };
    return lists;
}

const std::vector<PickerTree>& PickerTrees()
{
    static const std::vector<PickerTree> trees = {
        {"TabWarehouseType", "选择仓库", "仓库列表", "", "", "仓库资料", "仓库设置"},
        {"TabAccountantType", "选择会计科目", "会计科目列表", " where FC<>1 ", " and  FC<>1 ", "现金银行资料",
         "现金银行设置"},
        {"TabAttribute", "选择属性", "属性列表", "", "", "", ""},
    };
    return trees;
}

template <typename Row>
const Row* FindRow(const std::vector<Row>& rows, const QString& table)
{
    for (const Row& row : rows)
        if (table == QLatin1String(row.table))
            return &row;
    return nullptr;
}

struct FilterForm
{
    const char* where;
    const char* before; // of the text
};
constexpr FilterForm kFilterForms[] = {
    {"  where Code  like ", ""},
    {"  where Name  like ", "%"},
    {"  where ZJF  like ", "%"},
};

Sql InOrder(const PickerList& list, const Sql& condition)
{
    return Sql(list.select) + condition + " order by Code ";
}

} // namespace

const PickerList* FindPickerList(const QString& table)
{
    return FindRow(PickerLists(), table);
}

Sql TreeOf(const PickerList& list)
{
    return Sql("select * from ") + list.treeTable + " order by Code ";
}

Sql RowsOfNode(const PickerList& list, const QString& code)
{
    if (code.isEmpty())
        return InOrder(list, Sql());
    return InOrder(list, Sql(" where ") + list.typeColumn + " like " + (code + "%"));
}

Sql RowsFiltered(const PickerList& list, ListFilter filter, const QString& text)
{
    const FilterForm& form = kFilterForms[static_cast<size_t>(filter)];
    return InOrder(list, Sql(form.where) + (form.before + text + "%"));
}

RowOrder OrderOf(const PickerList& list)
{
    return {list.table};
}

std::optional<PickedRow> PickRecord(Program& program, const PickerList& list, const QString& code)
{
    if (!code.isEmpty()) {
        const Recordset rs = OpenQuery(program, Sql(list.select) + " where Code=" + code);
        if (!rs.isEmpty())
            return PickedRow{rs.Text("Code"), rs.Text("Name")};
    }
    program.prompt.Inform(kNothingChosen);
    return std::nullopt;
}

const PickerTree* FindPickerTree(const QString& table)
{
    return FindRow(PickerTrees(), table);
}

Sql NodesOf(const PickerTree& tree, const TreeLimit& limit)
{
    Sql nodes = Sql("select * from ") + tree.table + " ";
    if (limit.cashAndBank)
        nodes += Sql(" where (Code like ") + QString("1001%") + " or Code like " + QString("1002%") + ") ";
    else
        nodes += limit.codes;
    const bool limited = limit.cashAndBank || !limit.codes.isEmpty();
    nodes += limited ? tree.furtherCondition : tree.condition;
    if (!limit.typed.isEmpty())
        nodes += Sql(limited || *tree.condition != '\0' ? " and (Code like " : " where (Code like ") +
                 (limit.typed + "%") + " or Name like " + ("%" + limit.typed + "%") + ") ";
    return nodes + " order by Code ";
}

std::optional<PickedRow> PickNode(Program& program, const PickerTree& tree, const TreeLimit& limit,
                                  const std::optional<QString>& code)
{
    const auto refuse = [&](const QString& text) {
        program.prompt.Inform(text);
        return std::nullopt;
    };
    if (!code)
        return refuse(kNothingChosen);
    if (code->isEmpty())
        return refuse("不允许选择根目录！");
    if (limit.leafOnly &&
        !OpenQuery(program, Sql("select Code from ") + tree.table + " where ParentCode=" + *code).isEmpty())
        return refuse("请选取末级代码！");
    const Recordset rs = OpenQuery(program, Sql("select Name from ") + tree.table + " where Code=" + *code);
    if (rs.isEmpty()) // deleted by someone else since the tree was read
        return refuse(kNothingChosen);
    return PickedRow{*code, rs.Text("Name")};
}

void AddRecord(Program& program, const PickerList& list)
{
    LaunchFunction(program, list.addFunction, {list.addFunction, list.addRecord, "临时增加"});
}

void AddNode(Program& program, const PickerTree& tree)
{
    LaunchFunction(program, tree.addFunction, {tree.addFunction, tree.addRecord});
}

bool CanAddNode(const PickerTree& tree, const TreeLimit& limit)
{
    const bool isSubjects = *tree.condition != '\0';
    return !tree.addFunction.isEmpty() && (!isSubjects || limit.cashAndBank);
}
