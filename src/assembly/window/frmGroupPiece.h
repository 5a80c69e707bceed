#pragma once

// The window of 商品组装单 and 商品拆卸单: a head with the product and its figures above the goods that it is made of
// or taken into.

#include "assembly/group_piece.h"
#include "bills/window/bill_window.h"

class QComboBox;
class QGridLayout;
struct HeadCell;

class frmGroupPiece : public BillWindow
{
    Q_OBJECT

public:
    explicit frmGroupPiece(Program& program);

    /// Starts the shown window in its mode.
    /// @param isFillBill  a recalled bill stays; otherwise a blank one is opened
    /// @param loadMenu  the menus of templates are filled
    void frm_Initialize(bool isFillBill, bool loadMenu);

protected:
    void ShowBill() override;
    void FocusFirstField() override;
    void EnterInHead(const QString& control) override;
    bool PickFor(const QString& control) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmGroupPiece(Program& program, const std::shared_ptr<GroupPieceText>& piece);

    QWidget* MakeHead();
    QWidget* MakeFrameProvide();
    QWidget* MakeFrameType();
    QWidget* MakeLineBand();
    QWidget* MakeUnits();
    QWidget* MakeEditor(const char* control);
    void AddCell(QGridLayout& grid, const HeadCell& cell);
    void AddPieceCommands();
    void ConnectPieceCommands();

    void Switch(bool assembles);
    void EnterProduct();
    void PickProduct(const PickerNeeded& picker);
    void PickAttribute();
    void CallInPattern();
    bool FigureKey(const QString& control, const QKeyEvent& key);
    void ShowUnits();

    GroupPieceText& m_piece;
    QComboBox* m_units = nullptr; // TxtUnite
};
