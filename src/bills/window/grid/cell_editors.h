#pragma once

// The editors that lie over the current cell: Text2 for texts and figures, Combol2 for units, and the list of goods
// under them. They move keys and texts between the user and the line entry; what a key does to the bill stands there.

#include "bills/lines/line_entry.h"

#include <QObject>

class DropList;
class GridView;
class QComboBox;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QWheelEvent;

class CellEditors : public QObject
{
    Q_OBJECT

public:
    /// @param window  what the list of goods may cover
    CellEditors(Program& program, BillText& bill, GridView& grid, QWidget* window);

    /// Opens the editor of the current cell, if it has one.
    void ShowCellEditor();
    void Hide();
    /// Opens what the current cell is chosen from: the goods, the attributes or the list of units. False without one.
    bool Pick();

signals:
    /// The bill's text has changed.
    void Changed();
    void PickerAsked(const PickerNeeded& picker);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTextEditor();
    void MakeUnitEditor();
    void ShowTextEditor();
    void ShowUnitEditor();
    void ShowAttributePicker();
    void PlaceEditors();
    QRect EditorRect() const;
    void LeaveToGrid();
    void Type(const QString& text);
    void TakeUnit(const QString& text);
    void Choose(const QString& code);

    void FollowFocus(const QObject* watched, const QFocusEvent& focus);
    bool ScrollGrid(QWheelEvent& wheel);
    bool LeavingKey(QKeyEvent* key);
    bool TextKey(QKeyEvent* key);
    bool UnitKey(QKeyEvent* key);
    bool GridKey(QKeyEvent* key);
    bool AskForGood();
    bool PasteKey(const QObject* watched, const QKeyEvent& key);
    void EnterText();
    void StepToColumn(int step);
    void Move(int columns, int rows);
    void TypeFromGrid(QKeyEvent* key);

    Program& m_program;
    BillText& m_bill;
    GridView& m_grid;
    QLineEdit* m_text;  // Text2
    QString m_opened;   // what it opened with
    QString m_typed;    // what it last took
    QComboBox* m_units; // Combol2
    DropList* m_dropList;
};
