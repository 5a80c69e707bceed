// What a bill window does for work that is not stored: it shows that there is some, asks before it would be lost, and
// keeps a draft of it.

#include "bills/life/bill_content.h"
#include "bills/life/draft.h"
#include "bills/window/bill_window.h"
#include "bills/window/grid/grid_view.h"
#include "shell/window/date_box.h"

#include <QApplication>
#include <QScopedValueRollback>

void BillWindow::ShowTitle()
{
    const QString code = m_bill.TxtBillCode.trimmed();
    const bool isChanged = IsChanged(m_bill);
    setWindowTitle(m_bill.LabBillName + (code.isEmpty() ? "" : " " + code) + (isChanged ? "*" : ""));
    if (isChanged) {
        m_draftTimer.start();
        return;
    }
    m_draftTimer.stop();
    m_draft->Remove();
}

void BillWindow::KeepDraft()
{
    if (m_draft->Write(m_program, m_bill) || std::exchange(m_draftRefused, true))
        return;
    m_program.prompt.Inform("未保存内容的草稿未能写入，程序意外结束时将无法恢复，请及时保存！\r\n" + m_draft->path());
}

void BillWindow::DropDraft()
{
    m_draftTimer.stop();
    m_draft->Remove();
}

void BillWindow::TakeDraft(std::unique_ptr<Draft> draft, const DraftText& text)
{
    m_draft = std::move(draft);
    ShowDraft(m_program, m_bill, text);
    ShowBill();
    m_grid->setFocus();
}

/// With 保存后自动新建下一单 as well the bill stays, for what is to follow.
bool BillWindow::SaveAndStay()
{
    const QScopedValueRollback<bool> stays(m_bill.ChAutoAdd, false);
    return SaveBill();
}

bool BillWindow::MayGo()
{
    m_editors->Hide();
    m_date->Commit();
    if (!IsChanged(m_bill))
        return true;
    raise();
    activateWindow();
    const Choice choice = AskUnsaved(m_program, m_bill);
    return choice == Choice::First ? SaveAndStay() : choice == Choice::Second;
}

bool BillWindow::IsStoredNow()
{
    m_editors->Hide();
    if (!m_date->Commit())
        return false;
    if (!IsChanged(m_bill))
        return true;
    return m_program.prompt.Ask("单据有尚未保存的内容，须先保存，现在保存吗？") && SaveAndStay();
}

bool MayLeaveBills()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::ranges::all_of(windows, [](QWidget* widget) {
        auto* const bill = qobject_cast<BillWindow*>(widget);
        return !bill || bill->isHidden() || bill->MayGo();
    });
}

void DropDrafts()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const bill = qobject_cast<BillWindow*>(widget))
            bill->DropDraft();
    }
}
