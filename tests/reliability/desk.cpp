#include "reliability/desk.h"

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/piece_head.h"
#include "assembly/saving/assembly_save.h"
#include "base/number_text.h"
#include "bills/life/lifecycle.h"
#include "bills/life/recall.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_entry.h"
#include "bills/saving/save.h"
#include "data/decimals.h"
#include "support/test_program.h"

#include <QFile>

namespace {

void AddGood(TestProgram& test, const QString& code, const char* account)
{
    test.Insert("TabWare", {{"Code", code},
                            {"Name", "品" + code},
                            {"Unite", "箱"},
                            {"SecondUnite", "个"},
                            {"UniteRelation", 8.0},
                            {"CostStyle", "移动加权平均法"},
                            {"AmountQueryYN", "是"},
                            {"AccountantCode", account}});
    for (const char* warehouse : {"101", "102", "103"})
        test.Insert("TabWarehouseTurn", {{"Num", 1},
                                         {"WareCode", code},
                                         {"WarehouseCode", warehouse},
                                         {"Datee", kNoDate},
                                         {"Amount", 1000.0},
                                         {"Cost", 10000.0},
                                         {"AveragePrice", 10.0}});
}

void AddVoucherSettings(TestProgram& test)
{
    const std::tuple<const char*, const char*, const char*> items[] = {
        {"商品组装单", "组装成商品的金额", "借方"},   {"商品组装单", "商品组装费用的借方", "借方"},
        {"商品组装单", "商品组装费用的贷方", "贷方"}, {"商品拆卸单", "拆卸成商品我金额", "贷方"},
        {"商品拆卸单", "商品拆卸费用的借方", "借方"}, {"商品拆卸单", "商品拆卸费用的贷方", "贷方"},
    };
    for (const auto& [bill, item, direction] : items)
        test.Insert("TabJXCAccount", {{"JXCTabName", bill},
                                      {"Item", item},
                                      {"AccountCode", "1001"},
                                      {"AccountName", "现金"},
                                      {"FX", direction},
                                      {"IsFuShu", "否"},
                                      {"IsWarrant", 1},
                                      {"AccountBook1", 1},
                                      {"WarrantType", "转账凭证"}});
    for (const auto& [code, name] :
         {std::pair("1403", "原材料"), std::pair("1405", "库存商品"), std::pair("1001", "现金")})
        test.Insert("TabAccountantType", {{"Code", code}, {"Name", name}, {"ParentCode", "0"}});
}

void TypeCell(Program& program, BillText& bill, int row, int column, double figure)
{
    bill.MSH.currentRow = row;
    bill.MSH.currentColumn = column;
    TypeInCell(program, bill, NumberText(figure));
}

void TypeHead(Program& program, GroupPieceText& bill, const QString& control, double figure)
{
    HeadFocusGained(bill, control);
    *HeadText(bill, control) = NumberText(figure);
    HeadTextChanged(program, bill, control);
    HeadFocusLost(program, bill, control);
}

/// What comes out of a disassembly is worth its product and the fee.
void TypeMoney(Program& program, GroupPieceText& bill, const WishedBill& wish)
{
    double money = 0;
    for (const WishedLine& line : wish.lines)
        money += line.quantity * line.price;
    if (!ModeOf(bill).assembles)
        TypeHead(program, bill, "TxtCost", money - wish.fee);
    TypeHead(program, bill, "TxtFee", wish.fee);
}

std::unique_ptr<BillText> OpenScreen(Program& program, const BillKind& kind)
{
    program.parameters.OperateType = kind.operation;
    if (kind.lines == LineShape::Pieces) {
        auto piece = std::make_unique<GroupPieceText>();
        LoadGroupPiece(program, *piece);
        frm_Initialize(program, *piece, false);
        return piece;
    }
    auto bill = std::make_unique<BillText>();
    LoadWindow(program, *bill);
    frm_Initialize(program, *bill, false);
    return bill;
}

} // namespace

QString GoodCode(int number)
{
    return "A" + QString::number(number).rightJustified(3, '0');
}

void FillAccountSet(TestProgram& test, int goods)
{
    test.program.parameters.IsJXC = false;
    for (const auto& [code, name, parent] : {std::tuple("1", "总库", "0"), std::tuple("101", "主仓", "1"),
                                             std::tuple("102", "分仓", "1"), std::tuple("103", "门市", "1")})
        test.Insert("TabWarehouseType", {{"Code", code}, {"Name", name}, {"ParentCode", parent}});
    for (int number = 1; number <= goods; ++number)
        AddGood(test, GoodCode(number), "1403");
    AddGood(test, "P001", "1405");
    AddVoucherSettings(test);
    test.Insert("TabSysSet", {{"IsZero", 0}});
    test.Insert("TabMoneyType", {{"Name", "人民币"}, {"Rate", 1.0}, {"IsBWB", "是"}});
    for (const char* kind : {"单价型", "数值型", "金额型"})
        test.Insert("TabDotSet", {{"Name", kind}, {"Num", 2}});
    test.InsertBill("TabOutBill", {{"Code", "XSD202302050001"}, {"Datee", QDate(2023, 2, 5)}, {"WarehouseCode", "101"}},
                    {{{"WareCode", "A001"}, {"UnionAmount", 1.0}, {"Cost", 7.0}, {"AveragePrice", 7.0}},
                     {{"WareCode", "P001"}, {"UnionAmount", 1.0}, {"Cost", 7.0}, {"AveragePrice", 7.0}}});
    LoadDecimalPlaces(test.program);
}

void AddLine(Program& program, BillText& bill, const WishedLine& line)
{
    const LineColumns at(*bill.kind);
    const int row = bill.MSH.lastRow();
    bill.MSH.currentRow = row;
    bill.MSH.currentColumn = at.code;
    ChooseGood(program, bill, line.good);
    TypeCell(program, bill, row, at.amount != 0 ? at.amount : at.revaluation, line.quantity);
    if (bill.kind->lines == LineShape::Priced)
        TypeCell(program, bill, row, at.price, line.price);
    if (bill.kind->lines == LineShape::Pieces)
        TypeCell(program, bill, row, at.cost, line.price);
}

std::unique_ptr<BillText> TypeBill(Program& program, const WishedBill& wish)
{
    std::unique_ptr<BillText> bill = OpenScreen(program, *wish.kind);
    const auto choose = [&](QString& code, QString& name, const QString& chosen) {
        code = chosen;
        name = chosen == u"101" ? "主仓" : chosen == u"102" ? "分仓" : "门市";
    };
    choose(bill->TxtWarehouseCodeF, bill->TxtWarehouseNameF, wish.from);
    choose(bill->TxtWarehouseCodeS, bill->TxtWarehouseNameS, wish.to);
    auto* const piece = dynamic_cast<GroupPieceText*>(bill.get());
    if (piece) {
        ChooseProduct(program, *piece, wish.product);
        TypeHead(program, *piece, "TxtAmount", 1);
    }
    for (const WishedLine& line : wish.lines)
        AddLine(program, *bill, line);
    if (piece)
        TypeMoney(program, *piece, wish);
    return bill;
}

std::unique_ptr<BillText> Recall(Program& program, const BillKind& kind, const QString& code)
{
    std::unique_ptr<BillText> bill = OpenScreen(program, kind);
    FillBill(program, *bill, kind.headTable, code);
    return bill;
}

std::unique_ptr<BillText> CopyOf(const BillText& bill)
{
    if (const auto* const piece = dynamic_cast<const GroupPieceText*>(&bill))
        return std::make_unique<GroupPieceText>(*piece);
    return std::make_unique<BillText>(bill);
}

Posting Save(Program& program, BillText& bill)
{
    auto* const piece = dynamic_cast<GroupPieceText*>(&bill);
    return piece ? FSave(program, *piece) : FSave(program, bill);
}

const QStringList& WrittenTables()
{
    static const QStringList tables = [] {
        QStringList names = {"TabWarrant", "TabWarrantInf", "TabWriteAccountant", "TabWarehouseAmountChange",
                             "TabImg",     "TabOutBillInf"};
        for (const BillKind& kind : BillKinds())
            names << kind.headTable << kind.lineTable;
        return names;
    }();
    return tables;
}

QStringList RowsOf(Store& store)
{
    QStringList texts;
    for (const QString& table : WrittenTables()) {
        const Recordset rows = store.Run(Sql("select * from ") + Name(table));
        for (int row = 0; row < rows.size(); ++row) {
            QString text = table;
            for (int column = 0; column < static_cast<int>(rows.columns().size()); ++column)
                text += "|" + TextOf(rows.at(row, column));
            texts << text;
        }
    }
    texts.sort();
    return texts;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes)
{
    for (const char* side : {"-wal", "-shm"})
        QFile::remove(path + side);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file of a test cannot be written");
}
