#include "bills/window/print_commands.h"

#include "bills/window/bill_widgets.h"
#include "data/rights.h"
#include "output/window/frmPrintPreview.h"
#include "output/window/frmPrinting.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <utility>

namespace {

struct Way
{
    const char* prefix;            // of its entries
    const char* action;            // as the print host calls it
    std::optional<SheetGoal> goal; // unset where a template is opened, not filled
};
constexpr Way kWays[] = {
    {"MPDirect_", "直接打印", SheetGoal::Print},
    {"MPPreview_", "打印预览", SheetGoal::Preview},
    {"MPrintSet_", "打印设置", std::nullopt},
};

/// Entries of every way that stand for a template of the kind.
struct Format
{
    const char* entry;
    const char* form;
};
constexpr Format kFormats[] = {{"Excel", ""}, {"Excel_TXM_S", "-TXM-S"}, {"Excel_TXM_T", "-TXM-T"}};

/// Menus that list the templates of the group.
struct TemplateList
{
    const char* menu;
    SheetGoal goal;
};
constexpr TemplateList kLists[] = {
    {"MPDirect_Excel_D", SheetGoal::Print},
    {"MPPreview_Excel_D", SheetGoal::Preview},
    {"FIntoExcel", SheetGoal::IntoExcel},
};

} // namespace

PrintCommands::PrintCommands(Program& program, const BillText& bill, const BillPaper& paper, QMainWindow& window,
                             QLabel& loading, std::function<bool()> isStored)
    : QObject(&window),
      m_program(program),
      m_bill(bill),
      m_paper(paper),
      m_window(window),
      m_loading(loading),
      m_isStored(std::move(isStored))
{
    ConnectFormats();
    ConnectLists();
}

void PrintCommands::ConnectFormats()
{
    const auto connectEntry = [this](const QString& name, auto run) {
        connect(m_window.findChild<QAction*>(name), &QAction::triggered, this, run);
    };
    for (const Way& way : kWays) {
        const QString prefix = way.prefix;
        connectEntry(prefix + "PT", [this, action = way.action] { RunPlain(action); });
        for (const Format& format : kFormats) {
            const QString form = format.form;
            connectEntry(prefix + format.entry, [this, form, goal = way.goal] {
                if (!MayPrint(m_bill.kind->rights))
                    return;
                if (goal)
                    Fill(FixedTemplate(*m_bill.kind, form), *goal);
                else
                    SetUp(form);
            });
        }
    }
    connectEntry("MPrintSet_Excel_D", [this] {
        if (MayPrint(TemplateRights(m_bill, m_paper)))
            OpenTemplateReports(m_program, m_bill, m_paper);
    });
}

void PrintCommands::ConnectLists()
{
    for (const TemplateList& list : kLists) {
        connect(m_window.findChild<QMenu*>(list.menu), &QMenu::triggered, this,
                [this, goal = list.goal](const QAction* entry) {
                    if (MayPrint(TemplateRights(m_bill, m_paper)))
                        Fill(entry->data().toString(), goal);
                });
    }
}

bool PrintCommands::MayPrint(const QString& function)
{
    return CheckOperateRight(m_program, m_program.parameters.UserName, function, Action::Print) && m_isStored();
}

void PrintCommands::RunPlain(const QString& action)
{
    if (MayPrint(m_bill.kind->rights))
        PlainBillPrint(m_program, m_bill, m_paper, action);
}

void PrintCommands::SetUp(const QString& form)
{
    m_program.prompt.Inform(
        "提示：在进行EXCEL打印格式设置时，请不可删除或增加行和列，否则会导致以EXCEL格式打印时出错!");
    const Busy busy(m_loading);
    SetPrintTemplate(m_program, FixedTemplate(*m_bill.kind, form));
}

void PrintCommands::Fill(const QString& templateName, SheetGoal goal)
{
    const Busy busy(m_loading);
    const BillSheet sheet = SheetOf(m_program, m_bill, m_paper);
    PrintBill_Excel(m_program, sheet, templateName, goal, [&](const QString& pdf) {
        if (goal == SheetGoal::Preview)
            frmPrintPreview::Show(m_program, pdf, sheet.valBillCode, &m_window);
        else
            frmPrinting::Print(m_program, pdf, sheet.valBillCode, &m_window);
    });
}
