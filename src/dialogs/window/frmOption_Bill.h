#pragma once

// Edits the layout of a grid that is on the screen: every change shows in the grid at once, 保存 keeps it.

#include "dialogs/grid_format.h"

#include <QDialog>
#include <functional>

class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QListWidget;

/// The look of a grid's cells as their widget draws them.
CellFormat FormatOfCells(const QWidget& cells, int align);

class frmOption_Bill : public QDialog
{
public:
    /// Shows a changed column in the grid.
    using ColumnChanged = std::function<void(int column, const ColumnFormat& format)>;

    /// @param format  of the grid as it is now
    frmOption_Bill(Program& program, GridFormat format, const QString& layoutKey, ColumnChanged changed,
                   QWidget* parent);

    /// Opens it over `parent` until it is left. What was changed stays in the grid, saved or not.
    static void Open(Program& program, const GridFormat& format, const QString& layoutKey, const ColumnChanged& changed,
                     QWidget* parent);

private:
    QWidget* BuildColumn();
    QLayout* BuildButtons();
    void ShowColumn(const QString& caption);
    void ShowWidth();
    void SetCaption(const QString& caption);
    void SetWidth(int twips);
    template <typename Change>
    void Edit(Change change);

    Program& m_program;
    GridFormat m_format;
    const QString m_layoutKey;
    const ColumnChanged m_changed;
    std::vector<int> m_chosen; // the columns under the chosen caption; the first is shown
    QListWidget* m_list;
    QWidget* m_column = nullptr;
    QLineEdit* m_caption = nullptr;
    QLineEdit* m_width = nullptr;
    QCheckBox* m_shown = nullptr;
    QButtonGroup* m_alignments = nullptr;
};
