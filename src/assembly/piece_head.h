#pragma once

// The head of an assembly: choosing the product, and what typing in its figures sets off.

#include "assembly/group_piece.h"
#include "bills/picker_needed.h"
#include "handover/program.h"

#include <optional>

/// Whether a key of this character may be pressed in TxtAmount, TxtCost or TxtFee.
bool IsFigureKey(QChar key);
/// Whether a control is one of these three.
bool IsHeadFigure(const QString& control);
/// The text of a control has changed: the figures that hang on TxtAmount and TxtFee follow at once.
void HeadTextChanged(Program& program, GroupPieceText& bill, const QString& control);
/// A key has been pressed in a control; its text is still as it was before.
void HeadKeyPressed(Program& program, GroupPieceText& bill, const QString& control);
/// TxtAmount, TxtCost and TxtFee show their bare number while they are edited.
void HeadFocusGained(GroupPieceText& bill, const QString& control);
/// ... and are formatted again afterwards, with what hangs on them.
void HeadFocusLost(Program& program, GroupPieceText& bill, const QString& control);

/// Enter in TxtWareName: the first good whose code or name begins with the text. Without one the box is emptied and
/// the picker is needed, as by ProductPicker. Unset also for an empty box.
std::optional<PickerNeeded> LookUpProduct(Program& program, GroupPieceText& bill);
/// TxtWareName has been typed into: it is no longer the good whose code stands beside it.
void ForgetProduct(GroupPieceText& bill);
/// A product whose whole name has been typed is chosen without Enter; of two with one name, none.
void ChooseTypedProduct(Program& program, GroupPieceText& bill);
/// ImgWare: unset while the source warehouse is missing, which has been said.
std::optional<PickerNeeded> ProductPicker(Program& program, const GroupPieceText& bill);
/// A good chosen from the picker.
void ChooseProduct(Program& program, GroupPieceText& bill, const QString& code);
/// The first good of a query on TabWare becomes the product.
void FillTxtWareName(Program& program, GroupPieceText& bill, const Sql& query);
/// ImgWareAttribute: unset without a product and for a product without attributes, which has been said. The choice goes
/// to TxtWareAttribute as AttributeCell makes it.
std::optional<PickerNeeded> ProductAttributePicker(Program& program, const GroupPieceText& bill);
