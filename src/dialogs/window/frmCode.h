#pragma once

// Picks a good, a partner or a member of staff: the tree of their types beside the list of records, which three boxes
// filter while one types. What stands in the boxes 编号 and 名称 is what 确定 takes.

#include "dialogs/code_tree.h"
#include "dialogs/picker_lists.h"

#include <QDialog>

class QGridLayout;
class QLineEdit;
class QPushButton;
class QTableView;
class QTreeView;

class frmCode : public QDialog
{
public:
    /// @param firstRows  the list to open with, a select of the same columns; empty for all rows
    /// @param caption  of the window; empty for the table's own
    /// @param typed  a text that the list is narrowed to where `firstRows` has not done so and any row fits it
    frmCode(Program& program, const PickerList& list, const Sql& firstRows, const QString& caption, QWidget* parent,
            const QString& typed = {});

    /// Opens it over `parent` until a record is chosen or the window left. Unset when left, or for a table that is no
    /// list.
    static std::optional<PickedRow> Pick(Program& program, const QString& table, const Sql& firstRows,
                                         const QString& caption, QWidget* parent, const QString& typed = {});
    const std::optional<PickedRow>& picked() const { return m_picked; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildTree();
    QWidget* BuildList();
    QLineEdit* AddFilter(QGridLayout& row, ListFilter filter, const char* name, const QString& caption);
    QLayout* BuildButtons();

    void ShowNode(const QModelIndex& node);
    void ShowRows(const Sql& rows);
    void ShowTyped(const QString& text);
    void Filter(ListFilter filter, const QString& text);
    void CopySelection();
    void GoToList();
    void Refresh();
    void EnterInFilter(const QLineEdit& box);
    bool KeyInList(int key);
    void Choose(const QString& code);

    Program& m_program;
    const PickerList& m_list;
    Sql m_shown;             // the statement of the list
    bool m_filtered = false; // by a box, not by a node
    CodeTree m_types;
    LazyRows m_rows;
    QTreeView* m_tree = nullptr;
    QTableView* m_table = nullptr;
    std::vector<QLineEdit*> m_filters; // by ListFilter
    std::optional<PickedRow> m_picked;
};
