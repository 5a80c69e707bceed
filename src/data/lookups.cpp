#include "data/lookups.h"

#include "handover/open_query.h"

#include <algorithm>

namespace {
/// No tree is deeper; a row that is its own ancestor must not keep the program.
constexpr int kMostLevels = 64;

/// Names from the root down, joined by ">"; unset where the tree has no such row.
std::optional<QString> PathOfNames(Program& program, const char* table, const QString& code)
{
    const auto row = [&](const QString& key) {
        return OpenQuery(program, Sql("select * from ") + table + " where Code=" + key);
    };
    Recordset current = row(code);
    if (current.isEmpty())
        return std::nullopt;
    QString path = current.Text("Name");
    for (int level = 0; level < kMostLevels && current.Text("ParentCode").trimmed() != "0"; ++level) {
        current = row(current.Text("ParentCode"));
        if (current.isEmpty())
            break;
        path.prepend(current.Text("Name") + ">");
    }
    return path;
}

struct AccountCheck
{
    const char* kind;
    const char* column;
};

constexpr AccountCheck kAccountChecks[] = {
    {"往来核算", "WLHS"},
    {"部门核算", "BMHS"},
    {"个人核算", "GRHS"},
    {"自定义", "ZDYHS"},
};

const char* CheckColumnOf(const QString& kind)
{
    for (const AccountCheck& check : kAccountChecks)
        if (kind == QString(check.kind))
            return check.column;
    return nullptr;
}
} // namespace

std::optional<TreeTypeCode> CheckLastLevel(Program& program, const QString& key, const char* table, KeyKind kind)
{
    if (key.isEmpty())
        return std::nullopt;
    const Recordset rs =
        OpenQuery(program, Sql("select * from ") + table + (kind == KeyKind::Name ? " where Name=" : " where Code=") +
                               key.trimmed());
    if (rs.isEmpty())
        return std::nullopt;
    const TreeTypeCode found{rs.Text("Code"), rs.Text("Name")};
    const Recordset children = OpenQuery(program, Sql("select * from ") + table + " where ParentCode=" + found.Code);
    // A test that could not be made proves no leaf.
    if (!children || !children.isEmpty())
        return std::nullopt;
    return found;
}

QString GetTreePathText(Program& program, const char* table, const QString& code)
{
    if (*table == '\0' || code.trimmed().isEmpty())
        return code;
    return PathOfNames(program, table, code).value_or(code);
}

QString PathHead(const QString& text)
{
    const QString trimmed = text.trimmed();
    const qsizetype end = trimmed.indexOf('>');
    return end < 0 ? QString() : trimmed.left(end);
}

QString PathTail(const QString& text)
{
    const QString trimmed = text.trimmed();
    const qsizetype start = trimmed.lastIndexOf('>');
    return start < 0 ? QString() : trimmed.mid(start + 1);
}

QString AttributeCell(Program& program, const QString& attributeCode)
{
    const QString code = attributeCode.trimmed();
    return code.isEmpty() ? QString() : code + ">" + GetTreePathText(program, "TabAttribute", code);
}

QString GetAccountPathName(Program& program, const QString& code, bool withCode)
{
    const std::optional<QString> path = PathOfNames(program, "TabAccountantType", code);
    if (!path)
        return {};
    return withCode ? code + ">" + *path : *path;
}

QString GetAccountName(Program& program, const QString& code)
{
    return OpenQuery(program, Sql("select Name from TabAccountantType where Code =") + code + " ").Text("Name");
}

QString GetAccountCheckValue(Program& program, const QString& checkKind, const QString& accountCode,
                             const QString& value)
{
    const char* const column = CheckColumnOf(checkKind.trimmed());
    if (!column)
        return {};
    const Recordset rs =
        OpenQuery(program, Sql("select ") + column + " as HS from TabAccountantType where Code=" + accountCode + " ");
    return rs.Number("HS") == 1 ? value.trimmed() : QString();
}

Currency SumQueryAmount(Program& program, const Sql& sql)
{
    return sql.isEmpty() ? Currency() : OpenQuery(program, sql).Money("sumJE");
}

QString GetBaseCurrencyName(Program& program)
{
    return OpenQuery(program, Sql("select Name from TabMoneyType where IsBWB=") + QString("是") + " ").Text("Name");
}

float GetBaseCurrencyRate(Program& program)
{
    const Recordset rs = OpenQuery(program, Sql("select Rate from TabMoneyType where IsBWB=") + QString("是") + " ");
    return static_cast<float>(rs.Number("Rate"));
}

float GetUnitRatio(Program& program, const QString& wareCode, const QString& unitName)
{
    const Recordset rs =
        OpenQuery(program, Sql("select Unite,SecondUnite, UniteRelation from TabWare where Code=") + wareCode + " ");
    const double relation = rs.Number("UniteRelation");
    if (relation <= 0 || rs.Text("SecondUnite").trimmed() != unitName.trimmed())
        return 1;
    return static_cast<float>(1 / relation);
}

QStringList TemplateNames(Program& program, const QString& tabType)
{
    const Recordset rs = OpenQuery(program, Sql("select TabName from TabExcelTable where TabType= ") + tabType + " " +
                                                " order by  OrderBy,TabName ");
    QStringList names;
    for (int row = 0; row < rs.size(); ++row)
        names += rs.Text("TabName", row);
    return names;
}

int FindExcelColumn(const QStringList& titles, const QString& caption)
{
    const QString wanted = caption.trimmed();
    const int last = std::min(kExcelColumns, static_cast<int>(titles.size()));
    for (int column = 1; column <= last && !wanted.isEmpty(); ++column) {
        if (titles[column - 1].trimmed() == wanted)
            return column;
    }
    return kNoExcelColumn;
}
