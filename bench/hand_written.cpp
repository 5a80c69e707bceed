#include "hand_written.h"

#include <QFile>

namespace {

/// What one source of stock adds for a good.
struct Source
{
    const char* table;
    const char* amount;
    const char* money;
};

constexpr Source kSources[] = {
    {"TabInBillInf", "UnionAmount", "Moneyy_Discount"},
    {"TabInCancleBillInf", "-UnionAmount", "-Moneyy_Discount"},
    {"TabElseInBillInf", "UnionAmount", "Moneyy_Discount"},
    {"TabOutBillInf", "-UnionAmount", "-UnionAmount*Cost"},
    {"TabOutCancleBillInf", "UnionAmount", "UnionAmount*Cost"},
    {"TabElseOutBillInf", "-UnionAmount", "-UnionAmount*Cost"},
    {"TabSamePriceMoveInf", "-UnionAmount", "-UnionAmount*AveragePrice"},
    {"TabSamePriceMoveInf", "UnionAmount", "UnionAmount*AveragePrice"},
    {"TabChangePriceInf", "0", "MoneyBanlance"},
    {"TabCheckLoseInf", "-UnionAmount", "-UnionAmount*AveragePrice"},
    {"TabCheckOverInf", "UnionAmount", "UnionAmount*AveragePrice"},
    {"TabWareGroupInf", "-UnionAmount", "-Moneyy"},
    {"TabWareGroup", "UnionAmount", "SumMoney"},
    {"TabWarePieceInf", "UnionAmount", "Moneyy"},
    {"TabWarePiece", "-UnionAmount", "-SumMoney"},
};

std::string ScanSources()
{
    std::string words;
    for (const Source& source : kSources)
        words += std::string(words.empty() ? "" : " union all ") + "select sum(" + source.amount + "),sum(" +
                 source.money + ") from " + source.table + " where WareCode=?1 and Datee>?2 and Datee<=?3";
    return words;
}

} // namespace

const std::string kScanSources = ScanSources();

const char* const kNewestCosts =
    "select max(Datee),AveragePrice from TabInBillInf where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),AveragePrice from TabElseInBillInf where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),AveragePrice from TabInCancleBillInf where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),lastAveragePrice from TabChangePriceInf where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),AveragePrice from TabWareGroup where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),AveragePrice from TabWarePieceInf where WareCode=?1 and Datee<=?2 "
    "union all select max(Datee),AveragePrice from TabWarehouseTurn where WareCode=?1 and Datee<=?2";

const char* const kLargestCode = "select max(Code) from TabSamePriceMove where Code>=?1 and Code<?2";

const char* const kGoodsByTrade =
    "select WareCode,WarehouseCode,max(Lines) from "
    "(select i.WareCode,b.WarehouseCode,count(*) as Lines from TabOutBillInf i join TabOutBill b on b.Code=i.BillCode "
    "where i.Datee>(select max(Datee) from TabTurn) group by 1,2) "
    "join TabWare on TabWare.Code=WareCode where AmountQueryYN<>'否' group by WareCode order by sum(Lines) "
    "desc,WareCode";

HandWritten::HandWritten(const QString& path) : m_path(path), m_database(OpenHandle(path, SQLITE_OPEN_READWRITE))
{
    Run("pragma journal_mode=WAL");
    Run("pragma synchronous=FULL");
    Run("pragma cache_size=-32768");
}

sqlite3_stmt* HandWritten::Statement(const std::string& words)
{
    SqliteStatement& statement = m_statements[words];
    if (!statement) {
        sqlite3_stmt* made = nullptr;
        if (sqlite3_prepare_v3(m_database.get(), words.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr))
            throw ErrorOf(m_database.get(), m_path);
        statement.reset(made);
    }
    sqlite3_reset(statement.get());
    return statement.get();
}

void HandWritten::Run(const std::string& words)
{
    if (sqlite3_exec(m_database.get(), words.c_str(), nullptr, nullptr, nullptr))
        throw ErrorOf(m_database.get(), m_path);
}

void BindText(sqlite3_stmt* statement, int position, const std::string& text)
{
    sqlite3_bind_text(statement, position, text.data(), int(text.size()), SQLITE_STATIC);
}
