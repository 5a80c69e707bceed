#pragma once

// The bills in which a product was made or taken apart, with a filter: one becomes the pattern of the open bill, or its
// original is opened to be read.

#include "assembly/life/assembly_recall.h"

#include <QDialog>

class DateBox;
class GridView;
class QLineEdit;
class QMenuBar;
class QToolBar;

class frmReadGroupPieceQuery : public QDialog
{
public:
    /// Accepted once a bill of the list has become the pattern of `bill`.
    frmReadGroupPieceQuery(Program& program, GroupPieceText& bill, AssemblyList list, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildCommands(QToolBar& bar, QMenuBar& menus);
    QLayout* BuildFilter();
    void Filter();
    void TakePattern();
    void OpenOldBill();
    void ExportGrid();
    void SetUpPrint();
    void PreviewPrint();
    void PrintDirect();
    void FormatColumns();
    void DeleteFormat();

    Program& m_program;
    GroupPieceText& m_bill;
    AssemblyList m_list;
    GridView* m_grid;      // MSH
    QLineEdit* m_billCode; // TxtBillCode
    DateBox* m_from;       // TxtDateeFrom
    DateBox* m_to;         // TxtDateeTo
};
