#pragma once

// The list of goods that opens under the editor while a code or name is typed (PicSelect with its grid MSHSelect).

#include "dialogs/lazy_rows.h"

#include <QFrame>

class QKeyEvent;
class QTableView;

class DropList : public QFrame
{
    Q_OBJECT

public:
    DropList(Program& program, QWidget* window);

    /// Shows the goods of a query under an editor, or above it where there is no room below; stands on the first.
    /// Without any nothing opens.
    void ShowUnder(const QWidget& editor, const Sql& goods);
    /// Hands the keys over to the list.
    void TakeFocus();

signals:
    void Chosen(const QString& code);
    /// A key that the list has no use for; it belongs to the editor.
    void KeyForEditor(QKeyEvent* event);
    /// The list had the focus, and the user has clicked elsewhere.
    void ClickedAway();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeList();
    void Choose();
    int WantedWidth() const;
    void Place(const QWidget& editor);

    LazyRows* m_goods;
    QTableView* m_list;
};
