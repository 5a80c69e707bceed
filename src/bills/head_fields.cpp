#include "bills/head_fields.h"

#include "handover/open_query.h"

#include <algorithm>

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
        {"TxtMoneyRate", &BillText::TxtMoneyRate, true},
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

const HeadField* FindHeadField(const QString& control)
{
    return FindControl(HeadFields(), control);
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
    const Recordset found = FindByBeginning(program, "select Code,Name from TabWarehouseType ", bill.*boxes.name);
    const bool isOnly = found.size() == 1;
    bill.*boxes.code = isOnly ? found.Text("Code") : QString();
    bill.*boxes.name = isOnly ? found.Text("Name") : QString();
    if (isOnly)
        return {};
    return WarehousePicker(field);
}

std::optional<PickerNeeded> LookUpStaff(Program& program, BillText& bill)
{
    if (bill.TxtSaleMan.trimmed().isEmpty())
        return {};
    const Recordset found = FindByBeginning(program, "select Code,Name from TabStuff ", bill.TxtSaleMan);
    const bool isOnly = found.size() == 1;
    bill.TxtSaleMan = isOnly ? found.Text("Name") : QString();
    if (isOnly)
        return {};
    return StaffPicker();
}

PickerNeeded WarehousePicker(WarehouseField field)
{
    return {"TabWarehouseType", field == WarehouseField::F ? "发货仓库" : "收货仓库", {}};
}

PickerNeeded StaffPicker()
{
    return {"TabStuff", "选择业务员", Sql("select Code,Name from TabStuff order by code")};
}
