#pragma once

// What can be picked instead of typing its code: records of a list beside the tree of their types, and nodes of a
// tree. Which table shows what stands in two tables of data; the windows ask their rows.

#include "dialogs/lazy_rows.h"

#include <optional>

/// What was chosen.
struct PickedRow
{
    QString Code;
    QString Name;
};

/// A list of records: goods, partners or staff.
struct PickerList
{
    const char* table;
    const char* treeTable;
    QString treeTitle;
    QString caption;        // of the window
    const char* select;     // the list's columns
    const char* typeColumn; // holds the code of the record's node
    QStringList columns;
    bool hasMnemonic; // the list can be searched by ZJF
    QString addFunction;
    QString addRecord;
};
/// Null for a table that is none of them.
const PickerList* FindPickerList(const QString& table);

enum class ListFilter
{
    Code, // begins with the text
    Name, // holds it
    ZJF,  // holds it
};
/// All nodes of the list's tree.
Sql TreeOf(const PickerList& list);
/// The rows of a node and of all nodes below it; all rows for the empty code.
Sql RowsOfNode(const PickerList& list, const QString& code);
/// The rows that a text typed into one of the filter boxes leaves.
Sql RowsFiltered(const PickerList& list, ListFilter filter, const QString& text);
RowOrder OrderOf(const PickerList& list);
/// The record of a code. Unset for an empty or unknown one, which the user has been told.
std::optional<PickedRow> PickRecord(Program& program, const PickerList& list, const QString& code);

/// A tree whose nodes themselves are picked: warehouses, account subjects or attributes.
struct PickerTree
{
    const char* table;
    QString caption;
    QString topTitle;
    const char* condition;        // empty for all nodes
    const char* furtherCondition; // the same behind a limit to some codes
    QString addFunction;          // empty where no sibling can be asked
    QString addRecord;
};
const PickerTree* FindPickerTree(const QString& table);

/// How one pick from a tree is limited.
struct TreeLimit
{
    Sql codes = {};           // " where Code like .. ", empty for all
    bool cashAndBank = false; // of the account subjects 1001 and 1002 with what is below them
    bool leafOnly = false;    // refuse a code that others name as parent
    QString typed = {};       // nodes whose code begins with it or whose name holds it; empty for all
};
/// The nodes to show.
Sql NodesOf(const PickerTree& tree, const TreeLimit& limit);
/// The chosen node.
/// @param code  empty for the top node, unset for none
/// @return unset for a choice that may not be made, which the user has been told
std::optional<PickedRow> PickNode(Program& program, const PickerTree& tree, const TreeLimit& limit,
                                  const std::optional<QString>& code);

/// Starts the sibling that records what the picker lacks.
void AddRecord(Program& program, const PickerList& list);
void AddNode(Program& program, const PickerTree& tree);
/// Whether AddNode has somewhere to go: of the account subjects only cash and bank accounts do.
bool CanAddNode(const PickerTree& tree, const TreeLimit& limit);
