#include "assembly/voucher/voucher_rows.h"

#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/open_query.h"

namespace {

const QString kDebit = QStringLiteral("借方");
const QString kCredit = QStringLiteral("贷方");

/// What all rows of one voucher share.
struct Rows
{
    Program& program;
    const GroupPieceText& bill;
    const QString billCode;
    const Voucher& voucher;
    const PieceMode& mode;
    const bool isReversed; // amounts are written with the other sign
    const QString moneyName;
    const double moneyRate;
    int num = 0;
};

struct Account
{
    QString code;
    QString name;
};

Recordset SettingOf(Program& program, const PieceMode& mode, const QString& item)
{
    return OpenQuery(program,
                     Sql("select * from TabJXCAccount where JXCTabName=") + mode.bill + " and Item=" + item + " ");
}

/// One sign for all rows: that of the product's item, unless the fee's debit item is there and says otherwise.
bool IsReversed(Program& program, const PieceMode& mode)
{
    QString reversed = SettingOf(program, mode, mode.moneyItem).Text("IsFuShu");
    const Recordset fee = SettingOf(program, mode, mode.feeDebitItem);
    if (!fee.isEmpty())
        reversed = fee.Text("IsFuShu");
    return reversed.trimmed() == u"是";
}

Value Reversed(const Value& money)
{
    if (const auto* const exact = std::get_if<Currency>(&money))
        return -*exact;
    return -NumberOf(money);
}

void WriteRow(const Rows& rows, const Account& account, const Value& money, const QString& direction)
{
    const Voucher& voucher = rows.voucher;
    const Value amount = rows.isReversed ? Reversed(money) : money;
    const bool isDebit = direction == kDebit;
    std::vector<Value> values = {qint64(rows.num),
                                 voucher.day,
                                 voucher.year,
                                 voucher.month,
                                 voucher.code,
                                 "第" + rows.billCode + "号" + rows.mode.bill,
                                 account.code,
                                 account.name,
                                 GetAccountPathName(rows.program, account.code, false),
                                 isDebit ? amount : Value(qint64(0)),
                                 isDebit ? Value(qint64(0)) : amount,
                                 QString("未审核")};
    for (const auto& three : {voucher.books.numbers, voucher.books.isIn})
        values.insert(values.end(), three.begin(), three.end());
    // No row is analysed by partner, department, person or an item of one's own.
    for (const Value& value : std::initializer_list<Value>{voucher.type, QString(), QString(), QString(), qint64(0),
                                                           qint64(0), QString(), rows.moneyName, rows.moneyRate})
        values.push_back(value);
    OpenQuery(rows.program, InsertInto(Name("TabWarrantInf"), values));
}

Account NamedAccount(Program& program, const QString& code)
{
    return {code, GetAccountName(program, code)};
}

void WriteProductRow(Rows& rows, double sumMoney)
{
    rows.num = 1;
    const Recordset good = OpenQuery(rows.program, Sql("select  TabWare.AccountantCode  from TabWare   where "
                                                       "TabWare.Code=") +
                                                       rows.bill.TxtWareCode.trimmed() + "  ");
    if (good.isEmpty())
        return;
    WriteRow(rows, NamedAccount(rows.program, good.Text("AccountantCode")), Currency::FromDouble(sumMoney),
             rows.mode.assembles ? kDebit : kCredit);
}

/// The bill's lines of goods with an account.
Sql LinesOfAccount(const Rows& rows, const Sql& select, const QString& account)
{
    const Name lines(rows.bill.kind->lineTable);
    return select + "  from TabWare, " + lines + "  where " + lines + ".BillCode=" + rows.billCode + "  and " + lines +
           ".WareCode=TabWare.Code  and TabWare.AccountantCode=" + account + " ";
}

/// The money of an account's lines, each rounded as money by itself.
Currency MoneyOfAccount(const Rows& rows, const QString& account)
{
    Program& program = rows.program;
    const Name lines(rows.bill.kind->lineTable);
    const Recordset nums = OpenQuery(program, LinesOfAccount(rows, Sql("select ") + lines + ".Num", account) +
                                                  " order by  " + lines + ".Num ");
    Currency money;
    for (int row = 0; row < nums.size(); ++row) {
        const Sql sum = LinesOfAccount(rows, Sql("select sum(") + lines + ".Moneyy) as sumJE ", account) + "  and " +
                        lines + ".Num=" + nums.Integer("Num", row) + " ";
        const QString shown = FormatByDigits(OpenQuery(program, sum).Number("sumJE"), program.gDot.Money_DotLen);
        money += Currency::FromDouble(CellNumber(shown));
    }
    return money;
}

/// One row for each account of the goods, in the order that the database delivers.
void WriteGoodsRows(Rows& rows)
{
    const Name lines(rows.bill.kind->lineTable);
    const Recordset accounts = OpenQuery(
        rows.program, Sql("select distinct TabWare.AccountantCode  from TabWare,  ( select WareCode from ") + lines +
                          "  where BillCode=" + rows.billCode + "  ) tmpTab  where TabWare.Code=tmpTab.WareCode ");
    for (int row = 0; row < accounts.size(); ++row) {
        const QString code = accounts.Text("AccountantCode", row);
        ++rows.num;
        WriteRow(rows, NamedAccount(rows.program, code), MoneyOfAccount(rows, code),
                 rows.mode.assembles ? kCredit : kDebit);
    }
}

/// The fee is one row, that of its credit item: the product or the goods carry its other side. The number before it
/// stays unused.
void WriteFeeRow(Rows& rows, double fee)
{
    rows.num += 2;
    const Recordset item = SettingOf(rows.program, rows.mode, rows.mode.feeCreditItem);
    const QString direction = item.Text("FX").trimmed();
    WriteRow(rows, {item.Text("AccountCode"), item.Text("AccountName")}, fee, direction == kDebit ? kDebit : kCredit);
}

} // namespace

void WriteWarrantRows(Program& program, const GroupPieceText& bill, const QString& billCode, const Voucher& voucher)
{
    const PieceMode& mode = ModeOf(bill);
    const bool isReversed = IsReversed(program, mode);
    OpenQuery(program, Sql("delete from TabWarrantInf where BillCode=") + voucher.code);
    const Recordset head =
        OpenQuery(program, Sql("select * from ") + Name(bill.kind->headTable) + " where Code=" + billCode);
    Rows rows = {program,
                 bill,
                 billCode,
                 voucher,
                 mode,
                 isReversed,
                 GetBaseCurrencyName(program),
                 static_cast<double>(GetBaseCurrencyRate(program))};
    if (head.Number("SumMoney") != 0) {
        WriteProductRow(rows, head.Number("SumMoney"));
        WriteGoodsRows(rows);
    }
    if (head.Number("Fee") != 0)
        WriteFeeRow(rows, head.Number("Fee"));
}
