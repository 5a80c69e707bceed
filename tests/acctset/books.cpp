#include "acctset/books.h"

#include "support/test_program.h"

#include <QProcess>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// Rows that move stock one way.
struct Source
{
    QString statement;
    int sign;
};

/// Columns: moment, day, good, warehouse, attribute, batch, amount, money.
QString LinesOf(const char* head, const char* warehouse, const char* money)
{
    return QString("select L.DateTimee,L.Datee,L.WareCode,H.%2,L.AttributeCode,L.PCode,L.UnionAmount,%3"
                   " from %1 H,%1Inf L where H.Code=L.BillCode and H.State='正常'")
        .arg(head, warehouse, money);
}

QString HeadsOf(const char* head, const char* warehouse)
{
    return QString("select DateTimee,Datee,WareCode,%2,AttributeCode,PCode,UnionAmount,SumMoney from %1"
                   " where State='正常'")
        .arg(head, warehouse);
}

std::vector<Source> Sources()
{
    return {
        {LinesOf("TabInBill", "WarehouseCode", "L.Moneyy_Discount"), 1},
        {LinesOf("TabInCancleBill", "WarehouseCode", "L.Moneyy_Discount"), -1},
        {LinesOf("TabElseInBill", "WarehouseCode", "L.Moneyy_Discount"), 1},
        {LinesOf("TabOutBill", "WarehouseCode", "L.UnionAmount*L.Cost"), -1},
        {LinesOf("TabOutCancleBill", "WarehouseCode", "L.UnionAmount*L.Cost"), 1},
        {LinesOf("TabElseOutBill", "WarehouseCode", "L.UnionAmount*L.Cost"), -1},
        {LinesOf("TabSamePriceMove", "WarehouseCodeF", "L.UnionAmount*L.AveragePrice"), -1},
        {LinesOf("TabSamePriceMove", "WarehouseCodeS", "L.UnionAmount*L.AveragePrice"), 1},
        {LinesOf("TabChangePrice", "WarehouseCode", "L.MoneyBanlance"), 1},
        {LinesOf("TabCheckLose", "WarehouseCode", "L.UnionAmount*L.AveragePrice"), -1},
        {LinesOf("TabCheckOver", "WarehouseCode", "L.UnionAmount*L.AveragePrice"), 1},
        {LinesOf("TabWareGroup", "WarehouseCodeF", "L.Moneyy"), -1},
        {HeadsOf("TabWareGroup", "WarehouseCodeS"), 1},
        {LinesOf("TabWarePiece", "WarehouseCodeS", "L.Moneyy"), 1},
        {HeadsOf("TabWarePiece", "WarehouseCodeF"), -1},
    };
}

/// Four columns: good, warehouse, attribute, batch.
Place PlaceOf(const Recordset& rows, int row, int first)
{
    const auto text = [&](int column) { return TextOf(rows.at(row, first + column)); };
    return {text(0), text(1), text(2), text(3)};
}

std::map<Place, Heap> TurnRows(Store& store, const Sql& condition)
{
    const Recordset rows = store.Run(
        Sql("select WareCode,WarehouseCode,AttributeCode,PCode,Amount,Cost from TabWarehouseTurn where ") + condition);
    std::map<Place, Heap> heaps;
    for (int row = 0; row < rows.size(); ++row)
        heaps[PlaceOf(rows, row, 0)] += {rows.Number("Amount", row), rows.Number("Cost", row)};
    return heaps;
}

} // namespace

Outcome RunAcctset(const QStringList& arguments)
{
    QProcess process;
    process.start(ACCTSET_PROGRAM, arguments);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

const QString& DemoFile()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString made = folder.filePath("demo.db");
        const Outcome outcome = RunAcctset({"create", made, "--demo"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error.toStdString();
        return made;
    }();
    return path;
}

QString OwnDemo(const QTemporaryDir& folder)
{
    const QString path = folder.filePath("own.db");
    CopySqliteFile(DemoFile(), path);
    return path;
}

std::vector<Movement> MovementsOf(Store& store)
{
    std::vector<Movement> movements;
    for (const auto& [statement, sign] : Sources()) {
        const Recordset rows = store.Run(Sql(statement.toUtf8().constData()));
        for (int row = 0; row < rows.size(); ++row)
            movements.push_back({TextOf(rows.at(row, 0)),
                                 TextOf(rows.at(row, 1)),
                                 PlaceOf(rows, row, 2),
                                 {sign * NumberOf(rows.at(row, 6)), sign * NumberOf(rows.at(row, 7))}});
    }
    std::ranges::sort(movements, {}, &Movement::moment);
    return movements;
}

std::map<Place, Heap> OpeningOf(Store& store)
{
    return TurnRows(store, Sql("Num=1"));
}

std::map<Place, Heap> SnapshotOf(Store& store, const QString& day)
{
    return TurnRows(store, Sql("Num<>1 and Datee=") + day);
}
