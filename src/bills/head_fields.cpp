#include "bills/head_fields.h"

#include "handover/open_query.h"

#include <algorithm>
#include <array>

namespace {

struct WarehouseBoxes
{
    QString BillText::*code;
    QString BillText::*name;
};

constexpr WarehouseBoxes BoxesOf(WarehouseField field)
{
    if (field == WarehouseField::F)
        return {&BillText::TxtWarehouseCodeF, &BillText::TxtWarehouseNameF};
    return {&BillText::TxtWarehouseCodeS, &BillText::TxtWarehouseNameS};
}

/// The row that Enter in a box means, or none.
bool IsMeant(const BillText& bill, const Recordset& found)
{
    return bill.kind->lines == LineShape::Pieces ? !found.isEmpty() : found.size() == 1;
}

/// A picker that opens because Enter could not tell what a text means.
PickerNeeded Narrowed(PickerNeeded picker, const QString& typed, const QString& what, const Recordset& found)
{
    const QString begun = "编号或名称以“" + typed + "”开头的" + what;
    picker.query = {};
    picker.typed = typed;
    picker.note = found.isEmpty() ? "没有" + begun + "，请选择。" : begun + "不止一个，请选择。";
    return picker;
}

/// The rows whose code or name begins with a text.
Recordset FindByBeginning(Program& program, const char* select, const QString& text)
{
    const QString begins = text + "%";
    return OpenQuery(program,
                     Sql(select) + " where Code like " + begins + "  or Name like " + begins + "   order by code");
}

template <typename Entry>
const Entry* FindControl(const std::vector<Entry>& entries, const QString& control)
{
    const auto found = std::ranges::find_if(
        entries, [&control](const Entry& entry) { return control == QLatin1String(entry.control); });
    return found == entries.end() ? nullptr : &*found;
}

template <WarehouseField field>
HeadPicker PickerOfWarehouse(const char* box, const char* button)
{
    return {box, button, [](Program& program, BillText& bill) { return LookUpWarehouse(program, bill, field); },
            [](const BillText& bill) { return WarehousePicker(bill, field); },
            [](BillText& bill, const QString& code, const QString& name) {
                bill.*BoxesOf(field).code = code;
                bill.*BoxesOf(field).name = name;
            }};
}

} // namespace

const std::vector<HeadField>& HeadFields()
{
    static const std::vector<HeadField> fields = {
        {"TxtWarehouseCodeF", &BillText::TxtWarehouseCodeF, true},
        {"TxtWarehouseNameF", &BillText::TxtWarehouseNameF, true},
        {"TxtWarehouseCodeS", &BillText::TxtWarehouseCodeS, true},
        {"TxtWarehouseNameS", &BillText::TxtWarehouseNameS, true},
        {"TxtSaleMan", &BillText::TxtSaleMan, true},
        {"TxtMemo", &BillText::TxtMemo, true},
        {"TxtExplain", &BillText::TxtExplain, true},
        {"TxtMoneyName", &BillText::TxtMoneyName, true},
        {"TxtMoneyRate", &BillText::TxtMoneyRate, true, true},
        {"TxtBillCode", &BillText::TxtBillCode, false},
        {"TxtDate", &BillText::TxtDate, false},
        {"TxtOperator", &BillText::TxtOperator, false},
        {"TxtAuditing", &BillText::TxtAuditing, false},
        {"LabBillName", &BillText::LabBillName, false},
        {"LabWarehouseNameS", &BillText::LabWarehouseNameS, false},
        {"LabAuditing", &BillText::LabAuditing, false},
        {"LabState", &BillText::LabState, false},
        {"LabTotalAmount", &BillText::LabTotalAmount, false},
        {"LabTotalMoney", &BillText::LabTotalMoney, false},
    };
    return fields;
}

std::vector<HeadField> BillText::OwnFields() const
{
    return {};
}

const HeadField* FindHeadField(const QString& control)
{
    return FindControl(HeadFields(), control);
}

void ForgetChoice(BillText& bill, const HeadField& typed)
{
    for (const WarehouseField warehouse : {WarehouseField::F, WarehouseField::S}) {
        const WarehouseBoxes boxes = BoxesOf(warehouse);
        if (typed.text == boxes.name)
            (bill.*boxes.code).clear();
    }
}

bool IsChosen(const BillText& bill, const QString& control)
{
    const HeadField* const field = FindHeadField(control);
    return std::ranges::any_of(std::array{WarehouseField::F, WarehouseField::S}, [&](WarehouseField warehouse) {
        const WarehouseBoxes boxes = BoxesOf(warehouse);
        return field && field->text == boxes.name && !(bill.*boxes.code).trimmed().isEmpty();
    });
}

void ChooseTypedWarehouses(Program& program, BillText& bill)
{
    for (const WarehouseField warehouse : {WarehouseField::F, WarehouseField::S}) {
        const WarehouseBoxes boxes = BoxesOf(warehouse);
        const QString name = (bill.*boxes.name).trimmed();
        if (name.isEmpty() || !(bill.*boxes.code).trimmed().isEmpty())
            continue;
        const Recordset found = OpenQuery(program, Sql("select Code from TabWarehouseType  where Name=") + name + " ");
        if (found.size() == 1)
            bill.*boxes.code = found.Text("Code");
    }
}

const std::vector<HeadCheck>& HeadChecks()
{
    static const std::vector<HeadCheck> checks = {
        {"ChAutoAdd", &BillText::ChAutoAdd},
        {"ChAutoAuditing", &BillText::ChAutoAuditing},
    };
    return checks;
}

const HeadCheck* FindHeadCheck(const QString& control)
{
    return FindControl(HeadChecks(), control);
}

std::optional<PickerNeeded> LookUpWarehouse(Program& program, BillText& bill, WarehouseField field)
{
    const WarehouseBoxes boxes = BoxesOf(field);
    if ((bill.*boxes.name).trimmed().isEmpty())
        return {};
    const QString typed = bill.*boxes.name;
    const Recordset found = FindByBeginning(program, "select Code,Name from TabWarehouseType ", typed);
    const bool isMeant = IsMeant(bill, found);
    bill.*boxes.code = isMeant ? found.Text("Code") : QString();
    bill.*boxes.name = isMeant ? found.Text("Name") : QString();
    if (isMeant)
        return {};
    return Narrowed(WarehousePicker(bill, field), typed, "仓库", found);
}

std::optional<PickerNeeded> LookUpStaff(Program& program, BillText& bill)
{
    if (bill.TxtSaleMan.trimmed().isEmpty())
        return {};
    const QString typed = bill.TxtSaleMan;
    const Recordset found = FindByBeginning(program, "select Code,Name from TabStuff ", typed);
    const bool isMeant = IsMeant(bill, found);
    bill.TxtSaleMan = isMeant ? found.Text("Name") : QString();
    if (isMeant)
        return {};
    return Narrowed(StaffPicker(), typed, "人员", found);
}

PickerNeeded WarehousePicker(const BillText& bill, WarehouseField field)
{
    // Every bill of one warehouse calls it the receiving one.
    const QString arrival = bill.kind->hasSource ? bill.kind->warehouse : QString("收货仓库");
    return {"TabWarehouseType", field == WarehouseField::F ? bill.kind->sourceWarehouse : arrival, {}};
}

PickerNeeded StaffPicker()
{
    return {"TabStuff", "选择业务员", Sql("select Code,Name from TabStuff order by code")};
}

const std::vector<HeadPicker>& HeadPickers()
{
    static const std::vector<HeadPicker> pickers = {
        PickerOfWarehouse<WarehouseField::F>("TxtWarehouseNameF", "ImgWarehouseF"),
        PickerOfWarehouse<WarehouseField::S>("TxtWarehouseNameS", "ImgWarehouseS"),
        {"TxtSaleMan", "ImgSaleMan", LookUpStaff, [](const BillText&) { return StaffPicker(); },
         [](BillText& bill, const QString&, const QString& name) { bill.TxtSaleMan = name; }},
    };
    return pickers;
}

const HeadPicker* FindHeadPicker(const QString& control)
{
    const auto found = std::ranges::find_if(HeadPickers(), [&control](const HeadPicker& picker) {
        return control == QLatin1String(picker.box) || control == QLatin1String(picker.button);
    });
    return found == HeadPickers().end() ? nullptr : &*found;
}
