#pragma once

// The head of a bill by the names of its controls, and what Enter and the picker buttons do in them.

#include "bills/bill_text.h"
#include "bills/picker_needed.h"
#include "handover/program.h"

#include <optional>
#include <vector>

struct HeadField
{
    const char* control;
    QString BillText::*text;
    bool typed; // takes what the user types; the others only show
    bool isFigure = false;
};
const std::vector<HeadField>& HeadFields();
/// Null for an unknown control.
const HeadField* FindHeadField(const QString& control);

/// A field has been typed into: a name typed over a chosen warehouse is no longer that warehouse, whose code would
/// otherwise win at the save.
void ForgetChoice(BillText& bill, const HeadField& typed);
/// Whether a box shows a warehouse that was chosen and not typed over since.
bool IsChosen(const BillText& bill, const QString& control);
/// A warehouse whose whole name has been typed is chosen without Enter.
void ChooseTypedWarehouses(Program& program, BillText& bill);

struct HeadCheck
{
    const char* control;
    bool BillText::*flag;
};
const std::vector<HeadCheck>& HeadChecks();
const HeadCheck* FindHeadCheck(const QString& control);

enum class WarehouseField
{
    F, // goods leave it
    S, // goods arrive in it, or the only one
};

/// Enter in a warehouse box: the only warehouse whose code or name begins with the text fills code and name; otherwise
/// both are emptied and the picker is needed, narrowed to the text. Unset also for an empty box. An assembly takes the
/// first that fits.
std::optional<PickerNeeded> LookUpWarehouse(Program& program, BillText& bill, WarehouseField field);
/// Enter in the staff box, the same by code or name.
std::optional<PickerNeeded> LookUpStaff(Program& program, BillText& bill);
/// The pickers behind the buttons beside the boxes.
PickerNeeded WarehousePicker(const BillText& bill, WarehouseField field);
PickerNeeded StaffPicker();

/// A box of the head that a choice fills, with the button beside it.
struct HeadPicker
{
    const char* box;
    const char* button;
    std::optional<PickerNeeded> (*lookUp)(Program& program, BillText& bill); // Enter in the box
    PickerNeeded (*picker)(const BillText& bill);                            // the button
    void (*choose)(BillText& bill, const QString& code, const QString& name);
};
const std::vector<HeadPicker>& HeadPickers();
/// By box or by button; null for any other control.
const HeadPicker* FindHeadPicker(const QString& control);
