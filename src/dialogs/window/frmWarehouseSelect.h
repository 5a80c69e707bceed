#pragma once

// Picks a node of a tree table: a warehouse, an attribute, an account subject.

#include "dialogs/code_tree.h"
#include "dialogs/picker_lists.h"

#include <QDialog>

class QLineEdit;
class QMenuBar;
class QToolBar;
class QTreeView;

class frmWarehouseSelect : public QDialog
{
public:
    /// @param field  that the choice is for, such as 发货仓库; empty for none
    frmWarehouseSelect(Program& program, const PickerTree& tree, const TreeLimit& limit, const QString& field,
                       QWidget* parent);

    /// Opens it over `parent` until a node is chosen or the window left. Unset when left, or for a table that is no
    /// tree.
    static std::optional<PickedRow> Pick(Program& program, const QString& table, const TreeLimit& limit,
                                         const QString& field, QWidget* parent);
    const std::optional<PickedRow>& picked() const { return m_picked; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildCommands(QToolBar& bar, QMenuBar& menus);
    QLayout* BuildFilter();
    void BuildTree();
    void Narrow(const QString& typed);
    void Refresh();
    void Select();

    Program& m_program;
    const PickerTree& m_tree;
    TreeLimit m_limit;
    CodeTree m_nodes;
    QTreeView* m_view;
    QLineEdit* m_filter; // TxtFilter
    std::optional<PickedRow> m_picked;
};
