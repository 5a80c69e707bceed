#include "account_set.h"

#include "database/sqlite_store.h"
#include "hand_written.h"
#include "handover/open_query.h"
#include "making/generate.h"

#include <QFileInfo>

namespace {

constexpr qint64 kLines = 1'000'000;
constexpr int kGoods = 20'000; // unless WAREHOUSE_BENCH_GOODS says otherwise
constexpr size_t kMedianGoods = 64;

RunParameters Parameters()
{
    RunParameters parameters;
    parameters.DatabaseType = "Access";
    parameters.IsAccess = true;
    parameters.IsJXC = true;
    parameters.UserName = "系统管理员";
    parameters.OperateDate = DayText(kToday);
    parameters.OperateType = "同价调拨";
    return parameters;
}

std::vector<BenchGood> RankGoods()
{
    HandWritten set(BenchSet());
    std::vector<BenchGood> goods;
    for (sqlite3_stmt* const row = set.Statement(kGoodsByTrade); sqlite3_step(row) == SQLITE_ROW;)
        goods.push_back({QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, 0))),
                         QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, 1)))});
    return goods;
}

} // namespace

QString BenchSet()
{
    const QString path = qEnvironmentVariable("WAREHOUSE_BENCH_SET", BENCH_FOLDER "/set.db");
    if (QFileInfo(path).isFile())
        return path;
    PrintErrorLine("making " + path);
    bool isSet = false;
    const int goods = qEnvironmentVariableIntValue("WAREHOUSE_BENCH_GOODS", &isSet);
    GenerateAccountSet(path, {.lines = kLines, .goods = isSet ? goods : kGoods});
    return path;
}

QString CopyOfBenchSet(const QString& name)
{
    const QString path = QString(BENCH_FOLDER "/%1.db").arg(name);
    for (const char* const side : {"", "-wal", "-shm"})
        QFile::remove(path + side);
    CopySqliteFile(BenchSet(), path);
    return path;
}

const std::vector<BenchGood>& GoodsByTrade()
{
    static const std::vector<BenchGood> goods = RankGoods();
    return goods;
}

std::vector<BenchGood> MedianGoods()
{
    const std::vector<BenchGood>& goods = GoodsByTrade();
    const auto first = goods.begin() + std::ptrdiff_t(goods.size() - kMedianGoods) / 2;
    return {first, first + kMedianGoods};
}

Moment LastDayClock::Now()
{
    return {kToday, SystemClock().Now().millisecondOfDay};
}

BenchProgram::BenchProgram(const QString& path)
    : program(QFileInfo(path).absolutePath(), Parameters(), prompt, clock,
              [path](const QString&) { return OpenSqliteFile(path); })
{}

void RemoveBill(Program& program, const QString& headTable, const QString& code)
{
    OpenQuery(program, Sql("delete from ") + Name(headTable) + " where Code=" + code);
    OpenQuery(program, Sql("delete from ") + Name(headTable + "Inf") + " where BillCode=" + code);
}
