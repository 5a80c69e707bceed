#include "data/numbering.h"

#include "base/number_text.h"
#include "handover/open_query.h"

namespace {
/// Where the prefix of three letters and the eight digits of the day end in a stored code.
constexpr int kDayStart = 3;
constexpr int kSequenceStart = 11;
constexpr int kSequenceWidth = 4;
} // namespace

QString NextBillCode(Program& program, const QString& prefix, const char* table)
{
    const QString today = program.clock.Now().day.toString(u"yyyyMMdd");
    const Recordset rs = OpenQuery(program, Sql("select max(Code) as Codee from ") + table + " " + " where Code like " +
                                                (prefix.trimmed() + today + "%") + " ");
    if (!rs)
        return {};
    const QString last = rs.Text("Codee").trimmed();
    double sequence = 1;
    if (last.mid(kDayStart, kSequenceStart - kDayStart) == today)
        sequence = Val(QStringView(last).mid(kSequenceStart)) + 1;
    return prefix + today + QString::number(sequence, 'f', 0).rightJustified(kSequenceWidth, '0');
}

int NextVoucherNumber(Program& program, const QDate& start, const QDate& end, int book)
{
    const QString digit = QString::number(book);
    const Recordset rs = OpenQuery(program, Sql("select Max(") + Name("WarrantNum" + digit) +
                                                ") as WarrantNumm from TabWarrant " + " where Datee>=" + start +
                                                "  and  Datee<=" + end + " and " + Name("AccountBook" + digit) + "=1 ");
    return rs ? static_cast<int>(rs.Integer("WarrantNumm")) + 1 : 0;
}
