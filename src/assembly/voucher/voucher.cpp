#include "assembly/voucher/voucher.h"

#include "assembly/voucher/voucher_rows.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "data/numbering.h"
#include "data/periods.h"
#include "data/rights.h"
#include "handover/launcher.h"
#include "handover/open_query.h"

namespace {

/// What the settings say of a voucher's head.
struct Wanted
{
    VoucherBooks books;
    std::array<qint64, 3> affixes{};
    QString type;
};

Sql SettingsOf(const char* columns, const QString& bill)
{
    return Sql("select ") + columns + " from TabJXCAccount where JXCTabName=" + bill;
}

Recordset VoucherOf(Program& program, const char* select, const QString& billCode)
{
    return OpenQuery(program, Sql(select) + " from TabWarrant Where JXCBillCode=" + billCode + " ");
}

bool Refuse(Program& program, const QString& text)
{
    Inform(program, text);
    return false;
}

/// The rest of what is said of a good that is not there.
const QString kNoStockAccount = QStringLiteral(
    "的商品在商品信息设置中没有设置 会计凭证中对应存货科目 ，请先从商品信息录入中设置好后再保存单据。"
    "如果您不需要本单据自动生\"成其对应的会计凭证，那么请点本界面菜单  文件/自动生成会计凭证科目对应设置，"
    "在弹出的界面上把 需要自动生成会计凭证 前的勾取掉，并点保存后再保存本单据！");

bool CheckFeeAccounts(Program& program, const PieceMode& mode)
{
    for (const QString& item : {mode.feeCreditItem, mode.feeDebitItem}) {
        const Recordset account = OpenQuery(program, SettingsOf("AccountCode", mode.bill) + " and Item=" + item + " ");
        if (account.Text("AccountCode").trimmed().isEmpty())
            return Refuse(program,
                          "商品组装(或拆卸)时，组装(或拆卸)费用在会计账务中必须生成与之对应的会计科目，但您没有设置，"
                          "请先点击本界面菜单  文件/自动生成会计凭证对应科目设置  ，设置好每项对应的会计科目编号后"
                          "再保存本单据！");
    }
    return true;
}

bool HasGood(Program& program, const QString& code)
{
    return !OpenQuery(program, Sql("select AccountantCode from TabWare where Code=") + code + " ").isEmpty();
}

/// Every good is there; one without an account passes.
bool CheckGoodsAccounts(Program& program, const GroupPieceText& bill)
{
    const int codeColumn = ColumnIndex(*bill.kind, u"商品编号");
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        const QString code = bill.MSH.Cell(row, codeColumn).trimmed();
        if (!code.isEmpty() && !HasGood(program, code))
            return Refuse(program, "商品组装(或拆卸)清单列表中第 " + QString::number(row) + " 行，商品编号为 " + code +
                                       " " + kNoStockAccount);
    }
    const QString product = bill.TxtWareCode.trimmed();
    return HasGood(program, product) || Refuse(program, "商品编号为 " + product + " 商品名称为 " +
                                                            bill.TxtWareName.trimmed() + "  " + kNoStockAccount);
}

bool CheckNotPosted(Program& program, const GroupPieceText& bill)
{
    const Recordset voucher = VoucherOf(program, "select State", bill.TxtBillCode.trimmed());
    if (voucher.Text("State").trimmed() != u"已登账")
        return true;
    return Refuse(program, "当前单据对应的会计凭证已登账，禁止修改！如果确需修改，请先操作反登账，之后再修改本单据！");
}

/// The accounting period of a bill's day; one that the settings do not form is said.
std::optional<AccountingPeriod> PeriodOfBill(Program& program, const QDate& day)
{
    const std::optional<AccountingPeriod> period = AccountingPeriodOf(program, day);
    if (period)
        return period;
    const UnformedPeriod wrong = UnformedPeriodOf(program, day);
    Inform(program, "会计期间设置（TabAccountAreaSet）中 " + QString::number(wrong.month) + " 月的结账日为 " +
                        wrong.closingDay + "，" + QString::number(wrong.year) + " 年 " + QString::number(wrong.month) +
                        " 月没有这一天，不能确定会计期，将跳过自动生成会计凭证！");
    return {};
}

/// The last closed accounting month lies on or after the bill's; then no voucher may change, which is said.
bool IsMonthClosed(Program& program, const AccountingPeriod& period)
{
    Sql query("select top 1 DateeY,DateeM from TabWriteAccountant   where  State='已结账' ");
    query += program.parameters.IsAccess ? "  order by  cint(DateeY) desc,cint(DateeM) desc"
                                         : "  order by  convert(int,DateeY) desc,convert(int,DateeM) desc";
    const Recordset closed = OpenQuery(program, query);
    if (closed.isEmpty())
        return false;
    const int closedYear = static_cast<int>(closed.Number("DateeY"));
    const int closedMonth = static_cast<int>(closed.Number("DateeM"));
    if (period.year > closedYear || (period.year == closedYear && period.month > closedMonth))
        return false;
    Inform(program, "最后一次会计期末结转为 " + closed.Text("DateeY") + " 年 " + closed.Text("DateeM") +
                        " 月，本凭证录入日期有误！（不应小于最后一次结转会计期），将跳过自动生成会计凭证！");
    return true;
}

/// Draws a number in a book of the voucher.
void EnterBook(Program& program, Wanted& wanted, int book, const AccountingPeriod& period)
{
    const size_t index = static_cast<size_t>(book) - 1;
    wanted.books.isIn[index] = 1;
    wanted.books.numbers[index] = NextVoucherNumber(program, period.start, period.end, book);
    wanted.affixes[index] = 1;
}

/// Books, numbers and type by the settings; without any, the main book. Unset where the bill wants no voucher.
std::optional<Wanted> ReadWanted(Program& program, const QString& bill, const AccountingPeriod& period)
{
    Wanted wanted;
    const Recordset settings = OpenQuery(program, SettingsOf("*", bill));
    if (settings.isEmpty()) {
        const Recordset main = OpenQuery(program, Sql("select Code from TabAccountantNameSet where Main=1 "));
        const qint64 code = main.Integer("Code");
        EnterBook(program, wanted, code == 2 || code == 3 ? static_cast<int>(code) : 1, period);
        return wanted;
    }
    if (settings.Integer("IsWarrant") == 0)
        return {};
    for (int book = 1; book <= 3; ++book) {
        if (settings.Integer("AccountBook" + QString::number(book)) == 1)
            EnterBook(program, wanted, book, period);
    }
    wanted.type = settings.Text("WarrantType").trimmed();
    return wanted;
}

struct VoucherType
{
    QString name;
    QString word;
};

VoucherType TypeOf(Program& program, const QString& name)
{
    const Recordset type = OpenQuery(program, Sql("select * from TabWarrantTypeSet where Name=") + name + " ");
    const QString word = type.Text("Zi").trimmed();
    return {name.isEmpty() ? "记账凭证" : name, word.isEmpty() ? "记" : word};
}

struct VoucherHead
{
    QString billCode;
    QString bill;
    QDate day;
    QString year;
    QString month;
    double total; // the fee on top of a money that may hold it already: so it stands in the books
};

/// The stored voucher gets everything anew but its code and its numbers.
Sql UpdateVoucher(Program& program, const VoucherHead& head, const Wanted& wanted, const VoucherType& type)
{
    Sql sql = Sql("update TabWarrant set Datee=") + head.day + ", DateeY=" + head.year + ", DateeM=" + head.month;
    for (int book = 1; book <= 3; ++book) {
        const QString digit = QString::number(book);
        const size_t index = static_cast<size_t>(book) - 1;
        sql += Sql(", ") + Name("AffixNum" + digit) + "=" + wanted.affixes[index];
        sql += Sql(", ") + Name("AccountBook" + digit) + "=" + wanted.books.isIn[index];
    }
    return sql + ", BillType=" + head.bill + ", WriteWarrant=" + program.parameters.UserName +
           ", Auditing='', RecordAccountant='', ZG='', State='未审核', SumDebtor=" + head.total +
           ", SumLender=" + head.total + ", Type=" + type.name + ", ZD=" + type.word +
           ", IsLoss=0  where JXCBillCode=" + head.billCode;
}

Sql InsertVoucher(Program& program, const QString& code, const VoucherHead& head, const Wanted& wanted,
                  const VoucherType& type)
{
    const VoucherBooks& books = wanted.books;
    return InsertInto(Name("TabWarrant"), {code,
                                           head.day,
                                           head.year,
                                           head.month,
                                           books.numbers[0],
                                           wanted.affixes[0],
                                           program.parameters.UserName,
                                           QString(),
                                           QString(),
                                           head.bill,
                                           QString("未审核"),
                                           head.total,
                                           head.total,
                                           head.billCode,
                                           books.numbers[1],
                                           wanted.affixes[1],
                                           books.numbers[2],
                                           wanted.affixes[2],
                                           books.isIn[0],
                                           books.isIn[1],
                                           books.isIn[2],
                                           type.name,
                                           QString(),
                                           type.word,
                                           qint64(0)});
}

bool AllNumbersDrawn(const VoucherBooks& books)
{
    for (size_t book = 0; book < books.isIn.size(); ++book) {
        if (books.isIn[book] == 1 && books.numbers[book] == 0)
            return false;
    }
    return true;
}

/// The voucher's head, stored; what its rows share with it comes back. Unset where it could not be: its code may be
/// that of another voucher then, and its rows would go there.
std::optional<Voucher> WriteVoucherHead(Program& program, const VoucherHead& head, const Wanted& wanted)
{
    const VoucherType type = TypeOf(program, wanted.type);
    Voucher voucher = {{}, head.day, head.year, head.month, wanted.books, type.name};
    const Recordset existing = VoucherOf(program, "select Code", head.billCode);
    if (!existing)
        return {};
    if (existing.isEmpty()) {
        voucher.code = NextBillCode(program, "PZD", "TabWarrant");
        if (voucher.code.isEmpty() || !AllNumbersDrawn(wanted.books) ||
            !OpenQuery(program, InsertVoucher(program, voucher.code, head, wanted, type)))
            return {};
        return voucher;
    }
    voucher.code = existing.Text("Code");
    if (voucher.code.trimmed().isEmpty())
        return {};
    const Recordset kept = OpenQuery(program, Sql("select * from TabWarrant where Code=") + voucher.code + " ");
    for (int book = 1; book <= 3; ++book)
        voucher.books.numbers[static_cast<size_t>(book) - 1] = kept.Integer("WarrantNum" + QString::number(book));
    OpenQuery(program, UpdateVoucher(program, head, wanted, type));
    return voucher;
}

/// The accounting program lists a month once it has a row.
void WriteMonth(Program& program, const VoucherHead& head)
{
    const Recordset month = OpenQuery(program, Sql("select State from TabWriteAccountant where  DateeY=") + head.year +
                                                   "  and DateeM=" + head.month + " ");
    if (month && month.isEmpty())
        OpenQuery(program, InsertInto(Name("TabWriteAccountant"), {head.year, head.month, QString("未审核")}));
}

} // namespace

std::optional<bool> CheckWarrantSettings(Program& program, const GroupPieceText& bill)
{
    const double fee = CellNumber(bill.TxtFee);
    const Currency total = Currency::FromDouble(CellNumber(bill.TxtTotalMoney) + fee);
    if (program.parameters.IsJXC || total == Currency())
        return false;
    const PieceMode& mode = ModeOf(bill);
    const Recordset settings = OpenQuery(program, SettingsOf("IsWarrant", mode.bill));
    if (!settings.isEmpty() && settings.Integer("IsWarrant") == 0)
        return false;
    if (fee != 0 && !CheckFeeAccounts(program, mode))
        return {};
    if (!CheckGoodsAccounts(program, bill) || !CheckNotPosted(program, bill))
        return {};
    return true;
}

void WriteBillWarrant(Program& program, const GroupPieceText& bill, const QString& billCode)
{
    const Name headTable(bill.kind->headTable);
    const Recordset stored =
        OpenQuery(program, Sql("select * from ") + headTable + " where Code=" + billCode.trimmed());
    const std::optional<QDate> day = stored.Day("Datee");
    // A refused save comes here with the bill of another user, who may have voided it.
    if (!day || stored.Text("State").trimmed() == u"作废")
        return;
    const std::optional<AccountingPeriod> period = PeriodOfBill(program, *day);
    if (!period || IsMonthClosed(program, *period))
        return;
    if (const std::optional<Wanted> wanted = ReadWanted(program, bill.kind->bill, *period)) {
        const VoucherHead head = {stored.Text("Code"),
                                  bill.kind->bill,
                                  *day,
                                  QString::number(period->year),
                                  QString::number(period->month),
                                  stored.Number("Fee") + stored.Number("SumMoney")};
        const std::optional<Voucher> voucher = WriteVoucherHead(program, head, *wanted);
        if (!voucher)
            return;
        WriteWarrantRows(program, bill, head.billCode, *voucher);
        WriteMonth(program, head);
    }
    OpenQuery(program, Sql("update ") + headTable + " set Report='已生成会计凭证'  where Code=" + stored.Text("Code"));
}

void DeleteBillWarrant(Program& program, const QString& billCode)
{
    if (billCode.trimmed().isEmpty()) // a voucher without a bill is the books' own
        return;
    const QString code =
        OpenQuery(program, Sql("select Code from TabWarrant where JXCBillCode=") + billCode).Text("Code");
    if (code.trimmed().isEmpty())
        return;
    OpenQuery(program, Sql("delete from TabWarrantInf where BillCode=") + code);
    OpenQuery(program, Sql("delete from TabWarrant where Code=") + code);
}

bool SeeBillWarrant(Program& program, const BillText& bill, bool byMenu)
{
    if (byMenu && !CheckOperateRight(program, program.parameters.UserName, "凭证录入", Action::Read))
        return false;
    const auto refuse = [&program](const QString& text) {
        program.prompt.Inform(text);
        return false;
    };
    const QString billCode = bill.TxtBillCode.trimmed();
    if (billCode.isEmpty())
        return refuse("单据编号不存在，不能查看凭证！");
    if (program.parameters.IsJXC)
        return refuse("本账套是进销存与财务分离账套，不允许查看凭证！");
    const Recordset voucher = VoucherOf(program, "select Code", billCode);
    if (!voucher)
        return false;
    if (voucher.isEmpty())
        return refuse("本单据没有对应的凭证！");
    return LaunchFunction(program, "查看会计凭证", {"查看会计凭证", voucher.Text("Code")});
}
