#pragma once

// An assembly or disassembly on the screen: a bill whose head is a good as well, the product, with its quantity, its
// money and its batch data. What sets the two apart stands in one table.

#include "bills/bill_text.h"

struct GroupPieceText : BillText
{
    QString TxtWareCode; // the product
    QString TxtWareName;
    QString TxtWareSpec;
    QString TxtWareAttribute; // code>path
    QString TxtUnite;
    QStringList unitChoices; // of TxtUnite: main and second unit of the product
    QString TxtAmount;
    QString TxtCost; // of one product
    QString TxtFee;
    QString TxtTotalMoney;
    QString TxtManufacturer;
    QString TxtBrand;
    QString TxtPCode;
    QString TxtSCDate;
    QString TxtYXDate;
    QString TxtOnlyCode;
    QString TxtCustom1;
    QString TxtCustom2;
    QString TxtCustom3;
    bool ChAutoChen = false; // quantities of the lines have been multiplied by TxtAmount
    bool ChSpecJE = false;   // a line's money is multiplied by its 规格 when a cell is committed

    /// The product of a stored head with its quantity and money, without its batch data.
    void ShowProduct(Program& program, const Recordset& head);
    /// Main and second unit of the product, beside the one that it stands in.
    void OfferUnits(const Recordset& good);
    void OfferUnits(Program& program);

    bool TakesKind(const BillKind& shown) const override { return shown.lines == LineShape::Pieces; }
    std::vector<HeadField> OwnFields() const override;
    void ClearOwn() override;
    void ShowOwn(Program& program, const Recordset& head) override;
    bool MayEnterGoods(Program& program) const override;
    void LinesChanged(const Program& program) override;
    void ContentShown(Program& program) override;
    double MoneyFactor(int row) const override;
};

/// What an assembly and a disassembly are called, and which way goods and value go.
struct PieceMode
{
    QString bill;
    bool assembles; // goods become a product; otherwise a product becomes goods
    // Captions.
    QString LabWareName;
    QString LabAmount;
    QString LabOperateType;
    QString LabOperateMoneyName;
    QString LabFee;
    QString LabRemark;
    // Refusals of a save.
    QString allocationWrong;
    QString codeTaken;
    // Items of the voucher settings.
    QString moneyItem;
    QString feeDebitItem;
    QString feeCreditItem;
};
/// Both, assembly first.
const std::vector<PieceMode>& PieceModes();
const PieceMode& ModeOf(const BillText& bill);

struct PieceField
{
    const char* control;
    QString GroupPieceText::*text;
    bool typed; // takes what the user types; the others only show
    bool isFigure = false;
};
/// The texts of the head that only these bills have. The others are HeadFields.
const std::vector<PieceField>& PieceFields();

/// The text of a control of the head, be it shared or the assembly's own; null for an unknown control.
/// @param typedOnly  only what the user may type into
QString* HeadText(BillText& bill, const QString& control, bool typedOnly = false);
/// A check box of the head in the same way.
bool* HeadFlag(BillText& bill, const QString& control);
