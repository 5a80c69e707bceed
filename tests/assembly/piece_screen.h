#pragma once

// An assembly's screen on the small account set of the bills: 螺丝 costs 10, a set is put together from it.

#include "bills/screen.h"

#include "assembly/assembly_lifecycle.h"
#include "assembly/assembly_save.h"
#include "assembly/piece_head.h"

class PieceScreen : public ScreenOf<GroupPieceText>
{
protected:
    explicit PieceScreen(const QString& databaseType = "Access") : ScreenOf(databaseType)
    {
        test.program.parameters.IsJXC = true;
        test.Insert("TabWare", {{"Code", "P001"},
                                {"Name", "套装"},
                                {"Spec", "S"},
                                {"Unite", "套"},
                                {"SecondUnite", "盒"},
                                {"UniteRelation", 4.0},
                                {"CostStyle", "移动加权平均法"},
                                {"AmountQueryYN", "是"}});
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
