#pragma once

// An assembly's screen on the small account set of the bills: 螺丝 costs 10, a set is put together from it.

#include "bills/screen.h"

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/piece_head.h"
#include "assembly/saving/assembly_save.h"

class PieceScreen : public ScreenOf<GroupPieceText>
{
protected:
    explicit PieceScreen(const QString& databaseType = "Access") : ScreenOf(databaseType)
    {
        test.program.parameters.IsJXC = true;
        test.Insert("TabWare", {{"Code", "P001"}, {"Name", "套装"}, {"Spec", "S"}, {"UniteRelation", 4.0}});
        test.Run(Sql("update TabWare set Unite='套',SecondUnite='盒',CostStyle='移动加权平均法',AmountQueryYN='是' "
                     "where Code='P001'"));
    }

    /// A blank bill with warehouses and product.
    void Open(bool assembles, const char* amount = "1")
    {
        test.program.parameters.OperateType = assembles ? "商品组装" : "商品拆卸";
        bill = {};
        LoadGroupPiece(test.program, bill);
        frm_Initialize(test.program, bill, false);
        ChooseWarehouses();
        ChooseProduct(test.program, bill, "P001");
        TypeHead("TxtAmount", amount);
    }

    /// The same with one good to put in or take out.
    void OpenWith(bool assembles, std::initializer_list<std::pair<const char*, const char*>> cells = {},
                  const char* good = "A001")
    {
        Open(assembles);
        AddLine(good, cells);
    }

    /// A stored assembly of two for 110: ten screws at 10 and a fee of 10.
    void AddAssembly(const QString& code, const QDate& day, const char* good = "P001")
    {
        test.InsertBill("TabWareGroup", {{"Code", code}, {"Datee", day}, {"WareCode", good}},
                        {{{"WareCode", "A001"}, {"WareName", "螺丝"}}});
        test.Run(Sql("update TabWareGroup set WareName=") + ("名" + QString(good)) +
                 ",Unite='套',WarehouseCodeF='101',WarehouseNameF='主仓',WarehouseCodeS='102',WarehouseNameS='分仓',"
                 "Amount=2,Cost=55,SumMoney=110,Fee=10,Operator='小王',SaleMan='老王',OnlyCode='U1',"
                 "BillType='商品组装' where Code=" +
                 code);
        test.Run(Sql("update TabWareGroupInf set Unite='箱',Amount=10,Price=10,Moneyy=100,Remark='急',PCode='B1' "
                     "where BillCode=") +
                 code);
    }

    /// Types into a box of the head and stays there.
    void TypeHead(const QString& control, const QString& text)
    {
        *HeadText(bill, control) = text;
        HeadTextChanged(test.program, bill, control);
    }

    void TypeAndLeave(const QString& control, const QString& text)
    {
        HeadFocusGained(bill, control);
        TypeHead(control, text);
        HeadFocusLost(test.program, bill, control);
    }

    void SetPlaces(int price, int amount, int money)
    {
        test.program.gDot = {qint16(price), qint16(amount), qint16(money)};
    }
};
