// acctset post: a bill described in JSON goes through the checks and the posting that a user's save goes through.
#include "commands.h"

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/piece_head.h"
#include "assembly/saving/assembly_save.h"
#include "bills/head_fields.h"
#include "bills/life/lifecycle.h"
#include "bills/life/recall.h"
#include "bills/lines/entry_limits.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "bills/saving/save.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/open_query.h"
#include "posting/post_request.h"

#include <QJsonArray>
#include <deque>

namespace {

/// Keeps every box with its kind; questions take the answers of the file in turn, then no.
class PostPrompt : public Prompt
{
public:
    void Inform(const QString& text) override { Keep("inform", text); }
    void Warn(const QString& text) override { Keep("warn", text); }
    void Error(const QString& text) override { Keep("error", text); }
    QString AskFile(const QString&, const QString&) override { return {}; }
    bool Ask(const QString& text) override
    {
        Keep("ask", text);
        if (answers.empty())
            return false;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }

    Choice Choose(const QString& text, const QString&, const QString&) override
    {
        return Ask(text) ? Choice::First : Choice::Cancel;
    }

    std::deque<bool> answers;
    QJsonArray boxes;

private:
    void Keep(const char* kind, const QString& text) { boxes.append(QJsonObject{{"kind", kind}, {"text", text}}); }
};

RunParameters ParametersOf(const PostRequest& request, RunParameters parameters)
{
    // What a bill says of the kind of database is about files.
    if (parameters.DatabaseType != u"SQL") {
        parameters.DatabaseType = request.databaseType;
        parameters.IsAccess = request.databaseType == u"Access";
    }
    parameters.IsLotMoney = request.lotMoney;
    parameters.IsJXC = request.withoutAccounting;
    parameters.OperateType = request.kind->operation;
    if (!request.operatorName.isEmpty())
        parameters.UserName = request.operatorName;
    return parameters;
}

/// A warehouse box is typed into and left with Enter. What Enter cannot tell apart stays as typed, for the save to
/// refuse or to find by its exact name.
void TypeWarehouse(Program& program, BillText& bill, const HeadField& field, const QString& text)
{
    const bool isSource = field.text == &BillText::TxtWarehouseNameF;
    bill.*field.text = text;
    (isSource ? bill.TxtWarehouseCodeF : bill.TxtWarehouseCodeS).clear();
    BillText lookedUp = bill;
    if (!LookUpWarehouse(program, lookedUp, isSource ? WarehouseField::F : WarehouseField::S))
        bill = lookedUp;
}

/// The text of an attribute's cell as its picker leaves it.
QString AttributeText(Program& program, const QString& text)
{
    return text.contains('>') ? text : AttributeCell(program, text);
}

/// The product is chosen by code or, without one, by what its box is typed into; then the other boxes are.
void TypeProduct(Program& program, GroupPieceText& bill, const PostRequest& request)
{
    if (const auto code = request.fields.find("TxtWareCode"); code != request.fields.end()) {
        ChooseProduct(program, bill, code->second);
    } else if (const auto name = request.fields.find("TxtWareName"); name != request.fields.end()) {
        bill.TxtWareName = name->second;
        LookUpProduct(program, bill);
    }
    for (const auto& [control, text] : request.fields) {
        if (control == u"TxtWareCode" || control == u"TxtWareName" || FindHeadField(control))
            continue;
        *HeadText(bill, control) = control == u"TxtWareAttribute" ? AttributeText(program, text) : text;
        HeadTextChanged(program, bill, control);
        if (control == u"TxtCost")
            HeadKeyPressed(program, bill, control);
    }
}

/// Whether the boxes can hold their texts; otherwise the user has been told.
bool CheckBoxes(Program& program, const PostRequest& request)
{
    for (const auto& [control, text] : request.fields) {
        const QString fault = FaultOfBox(program, control, text);
        if (fault.isEmpty())
            continue;
        program.prompt.Inform(fault);
        return false;
    }
    return true;
}

void TypeHead(Program& program, BillText& bill, const PostRequest& request)
{
    if (request.date.isValid())
        bill.DTPDate = request.date;
    for (const auto& [control, on] : request.checks)
        *HeadFlag(bill, control) = on;
    // A code given beside a name is typed last.
    const auto isWarehouse = [](const HeadField& field) {
        return field.text == &BillText::TxtWarehouseNameF || field.text == &BillText::TxtWarehouseNameS;
    };
    for (const bool warehouses : {true, false}) {
        for (const auto& [control, text] : request.fields) {
            const HeadField* const field = FindHeadField(control);
            if (!field || isWarehouse(*field) != warehouses)
                continue;
            if (warehouses)
                TypeWarehouse(program, bill, *field, text);
            else
                bill.*field->text = text;
        }
    }
    if (auto* const piece = dynamic_cast<GroupPieceText*>(&bill))
        TypeProduct(program, *piece, request);
}

/// False for a text that its cell cannot hold, which has been said.
bool TypeLine(Program& program, BillText& bill, const LineText& line)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    const int row = grid.lastRow();
    const auto type = [&](int column, const QString& text) {
        grid.currentRow = row;
        grid.currentColumn = column;
        return TypeInCell(program, bill, text);
    };
    if (!line.code.isEmpty()) {
        if (!type(at.code, line.code))
            return false;
        ChooseGood(program, bill, line.code);
        if (!line.name.isEmpty() && !type(at.name, line.name))
            return false;
    } else if (!line.name.isEmpty()) {
        if (!type(at.name, line.name))
            return false;
        EnterCell(program, bill, line.name);
    }
    for (const auto& [column, text] : line.cells) {
        if (column == at.unit || column == at.attribute) {
            grid.currentRow = row;
            grid.currentColumn = column;
        }
        if (column == at.unit)
            ChooseUnit(program, bill, text);
        else if (column == at.attribute)
            grid.SetCell(row, column, AttributeText(program, text));
        else if (!type(column, text))
            return false;
    }
    if (grid.lastRow() == row)
        grid.AddRow();
    return true;
}

/// False for what cannot be typed, which has been said.
bool TypeBill(Program& program, BillText& bill, const PostRequest& request)
{
    if (!CheckBoxes(program, request))
        return false;
    TypeHead(program, bill, request);
    if (request.lines) {
        BuildGridColumns(program, bill);
        for (const LineText& line : *request.lines) {
            if (!TypeLine(program, bill, line))
                return false;
        }
        SumBillTotals(program, bill);
        bill.LinesChanged(program);
    }
    // A recipe is multiplied once its lines are there.
    if (auto* const piece = dynamic_cast<GroupPieceText*>(&bill); piece && piece->ChAutoChen)
        ClickAutoChen(program, *piece, true);
    return true;
}

void OpenWindow(Program& program, BillText& bill)
{
    if (auto* const piece = dynamic_cast<GroupPieceText*>(&bill)) {
        LoadGroupPiece(program, *piece);
        frm_Initialize(program, *piece, false);
    } else {
        LoadWindow(program, bill);
        frm_Initialize(program, bill, false);
    }
}

Posting SaveBill(Program& program, BillText& bill)
{
    auto* const piece = dynamic_cast<GroupPieceText*>(&bill);
    return piece ? FSave(program, *piece) : FSave(program, bill);
}

/// Types the bill and saves it; a bill that is locked is left alone, as its save key would be.
Posting PostBill(Program& program, BillText& bill, const PostRequest& request)
{
    LoadDecimalPlaces(program);
    OpenWindow(program, bill);
    if (!request.code.isEmpty()) {
        if (!FillBill(program, bill, request.kind->headTable, request.code))
            return {};
        if (!bill.isEnabled(Command::Save)) {
            PrintErrorLine("acctset: the bill is audited, voided or closed and cannot be changed");
            return {};
        }
    }
    return TypeBill(program, bill, request) ? SaveBill(program, bill) : Posting();
}

} // namespace

int PostCommand(const QStringList& arguments)
{
    const CommandLine line("post", "Checks and saves a bill, described in a JSON file, as its window would.",
                           {"FILE", "BILL.json"}, {}, arguments);
    if (line.helpShown())
        return kDone;
    const PostRequest request = ReadRequest(ReadBillFile(line.Word(1)));
    OpenedAccountSet set(line.Word(0));

    PostPrompt prompt;
    prompt.answers = request.answers;
    Program program(set.program.folder, ParametersOf(request, set.program.parameters), prompt, set.clock, set.opener);
    const std::unique_ptr<BillText> bill = MakeScreen(*request.kind);
    const Posting posting = PostBill(program, *bill, request);
    // Neither true nor false where the server was lost before it said which.
    const QJsonValue saved = posting.unknown ? QJsonValue() : QJsonValue(posting.stored);
    PrintJson({{"saved", saved},
               {"code", posting.code.isEmpty() ? bill->TxtBillCode : posting.code},
               {"boxes", prompt.boxes}});
    return posting.stored ? kDone : kRefused;
}
