#include "frame/window/start.h"

#include "assembly/window/frmGroupPiece.h"
#include "bills/life/draft.h"
#include "bills/window/frmWareManage.h"
#include "data/bill_kinds.h"
#include "data/decimals.h"
#include "frame/run_mode.h"
#include "frame/window/frmMain.h"
#include "handover/undertaking.h"

#include <QCoreApplication>

namespace {

/// The window of saved bills that a word opens; unset for a word that is no bill of this module.
std::optional<FirstWindow> RecallOf(const QString& word)
{
    const BillKind* const kind = KindOfOperation(word);
    if (!kind)
        return std::nullopt;
    return kind->lines == LineShape::Pieces ? FirstWindow::RecalledAssembly : FirstWindow::RecalledBill;
}

FirstWindow FirstWindowAlone(const RunParameters& parameters)
{
    const QString word = parameters.OperateType.trimmed();
    if (word == "组装拆卸")
        return FirstWindow::NewAssembly;
    if (RecallOf(word) == FirstWindow::RecalledBill)
        return FirstWindow::NewBill;
    return RecallOf(parameters.OperationsDirective2.trimmed()).value_or(FirstWindow::None);
}

/// The window of the saved bill that the hand-over names.
template <typename Window>
Window* ShowRecalled(Program& program)
{
    auto* const window = new Window(program);
    window->FillBill(program.parameters.OperationsDirective3.trimmed(),
                     program.parameters.OperationsDirective4.trimmed());
    window->show();
    return window;
}

void ShowRecalledBill(Program& program, QStringView moduleRunMode)
{
    auto* const window = ShowRecalled<frmWareManage>(program);
    if (moduleRunMode == kStandAloneMode)
        window->frm_Initialize(true);
}

BillWindow* ShowNewBill(Program& program)
{
    auto* const window = new frmWareManage(program);
    window->show();
    window->frm_Initialize(false);
    return window;
}

void ShowRecalledAssembly(Program& program, QStringView moduleRunMode)
{
    auto* const window = ShowRecalled<frmGroupPiece>(program);
    if (moduleRunMode == kStandAloneMode)
        window->frm_Initialize(true, true);
}

BillWindow* ShowNewAssembly(Program& program)
{
    auto* const window = new frmGroupPiece(program);
    window->show();
    window->frm_Initialize(false, true);
    return window;
}

void ShowMain(Program& program)
{
    auto* const window = new frmMain(program);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

/// A window of the draft's kind with what it holds, where the user wants it back.
void OfferDraft(Program& program, std::unique_ptr<Draft> draft)
{
    const std::optional<DraftText> text = draft->Read(program);
    if (!text) {
        const QString path = draft->path();
        const QString aside = draft->PutAside();
        program.prompt.Inform("草稿文件已损坏，不能恢复：\r\n" + path +
                              (aside.isEmpty() ? QString() : "\r\n该文件已改名保留为：\r\n" + aside));
        return;
    }
    const Choice choice = program.prompt.Choose(
        "程序上次意外结束时有未保存的单据，需要恢复吗？\r\n" + DescribeDraft(*text), "恢复(&R)", "放弃(&D)");
    if (choice == Choice::Second)
        draft->Remove();
    if (choice != Choice::First)
        return;
    const bool isPieces = text->kind->lines == LineShape::Pieces;
    const QString handedOver = std::exchange(program.parameters.OperateType, text->kind->operation);
    BillWindow* const window = isPieces ? ShowNewAssembly(program) : ShowNewBill(program);
    program.parameters.OperateType = handedOver;
    window->TakeDraft(std::move(draft), *text);
}

/// False when the user was told that there is nothing to open.
bool ShowFirstWindow(Program& program, QStringView moduleRunMode)
{
    switch (FirstWindowOf(program.parameters, moduleRunMode)) {
    case FirstWindow::RecalledBill:
        ShowRecalledBill(program, moduleRunMode);
        return true;
    case FirstWindow::NewBill:
        ShowNewBill(program);
        return true;
    case FirstWindow::RecalledAssembly:
        ShowRecalledAssembly(program, moduleRunMode);
        return true;
    case FirstWindow::NewAssembly:
        ShowNewAssembly(program);
        return true;
    case FirstWindow::MainWindow:
        ShowMain(program);
        return true;
    case FirstWindow::None:
        break;
    }
    program.prompt.Warn("读取系统运行参数失败，本模块运行自动终止，请重新操作！");
    return false;
}

} // namespace

FirstWindow FirstWindowOf(const RunParameters& parameters, QStringView moduleRunMode)
{
    if (moduleRunMode == kStandAloneMode)
        return FirstWindowAlone(parameters);
    return RecallOf(parameters.OperationsDirective2.trimmed()).value_or(FirstWindow::MainWindow);
}

std::unique_ptr<Program> Main(const QString& folder, Prompt& prompt, Clock& clock, QStringView moduleRunMode)
{
    const auto parameters = ReadRunParameters(folder, clock.Now().day);
    if (!parameters) {
        prompt.Warn("读取系统参数失败，本模块启动终止！请重新操作！");
        return nullptr;
    }
    auto program = std::make_unique<Program>(folder, *parameters, prompt, clock);
    const UserAction start(*program);
    LoadDecimalPlaces(*program);
    if (!ShowFirstWindow(*program, moduleRunMode))
        return nullptr;
    program->parameters.IsAccess = program->parameters.DatabaseType == "Access";
    program->mayLeave = MayLeaveBills;
    program->leave = [] {
        DropDrafts();
        QCoreApplication::exit(0);
    };
    for (std::unique_ptr<Draft>& draft : Draft::LeftBehind(*program))
        OfferDraft(*program, std::move(draft));
    return program;
}
