// acctset show: a saved bill as its rows stand in the account set.
#include "commands.h"

#include "data/bill_kinds.h"
#include "data/schema.h"
#include "handover/open_query.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString JsonText(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

/// Numbers as numbers, dates as their canonical text.
QString JsonValue(const Value& value)
{
    if (IsNull(value))
        return "null";
    const bool isNumber = std::holds_alternative<qint64>(value) || std::holds_alternative<double>(value) ||
                          std::holds_alternative<Currency>(value);
    return isNumber ? TextOf(value) : JsonText(TextOf(value));
}

/// One row, its columns in the order of the table, which the objects of the JSON classes would not keep, and in the
/// schema's spelling, which a server may not.
QString JsonRow(const QString& table, const Recordset& rows, int row)
{
    QStringList members;
    for (const SchemaColumn& column : FindTable(table)->columns)
        members << JsonText(column.name) + ":" + JsonValue(rows.at(row, column.name));
    return "{" + members.join(",") + "}";
}

QString JsonRows(const QString& table, const Recordset& rows)
{
    QStringList shown;
    for (int row = 0; row < rows.size(); ++row)
        shown << JsonRow(table, rows, row);
    return "[" + shown.join(",") + "]";
}

/// The accounting voucher of an assembly with its rows; null without one.
QString JsonVoucher(Program& program, const QString& billCode)
{
    const Recordset head = OpenQuery(program, Sql("select * from TabWarrant where JXCBillCode=") + billCode);
    if (head.isEmpty())
        return "null";
    const Recordset rows =
        OpenQuery(program, Sql("select * from TabWarrantInf where BillCode=") + head.Text("Code") + " order by Num");
    return "{\"head\":" + JsonRow("TabWarrant", head, 0) + ",\"rows\":" + JsonRows("TabWarrantInf", rows) + "}";
}

} // namespace

int ShowCommand(const QStringList& arguments)
{
    const CommandLine line("show",
                           "Prints a saved bill, its head and its lines as they are stored, that of an assembly "
                           "with its voucher.",
                           {"FILE", "BILLNAME", "CODE"}, {}, arguments);
    if (line.helpShown())
        return kDone;
    const BillKind* kind = KindOfBill(line.Word(1));
    if (!kind)
        throw WrongUse{QString("there is no bill \"%1\"").arg(line.Word(1))};

    OpenedAccountSet set(line.Word(0));
    const QString code = line.Word(2);
    const Recordset head =
        OpenQuery(set.program, Sql("select * from ") + Name(kind->headTable) + " where Code=" + code);
    const Recordset lines = OpenQuery(set.program, Sql("select * from ") + Name(kind->lineTable) +
                                                       " where BillCode=" + code + " order by Num");
    const bool isPiece = kind->lines == LineShape::Pieces;
    const QString voucher = isPiece ? ",\"voucher\":" + JsonVoucher(set.program, code) : QString();
    set.RefuseOnErrors();
    if (head.isEmpty())
        throw Refusal{QString("there is no %1 \"%2\"").arg(kind->bill, code)};
    PrintLine("{\"head\":" + JsonRow(kind->headTable, head, 0) + ",\"lines\":" + JsonRows(kind->lineTable, lines) +
              voucher + "}");
    return kDone;
}
