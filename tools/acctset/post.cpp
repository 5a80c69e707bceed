// acctset post: a bill described in JSON goes through the checks and the posting that a user's save goes through.
#include "commands.h"

#include "bills/head_fields.h"
#include "bills/lifecycle.h"
#include "bills/line_columns.h"
#include "bills/line_entry.h"
#include "bills/line_totals.h"
#include "bills/recall.h"
#include "bills/save.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "database/sqlite_store.h"
#include "handover/open_query.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <deque>

namespace {

/// Keeps every box with its kind; questions take the answers of the file in turn, then no.
class PostPrompt : public Prompt
{
public:
    void Inform(const QString& text) override { Keep("inform", text); }
    void Warn(const QString& text) override { Keep("warn", text); }
    void Error(const QString& text) override { Keep("error", text); }
    bool Ask(const QString& text) override
    {
        Keep("ask", text);
        if (answers.empty())
            return false;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::deque<bool> answers;
    QJsonArray boxes;

private:
    void Keep(const char* kind, const QString& text) { boxes.append(QJsonObject{{"kind", kind}, {"text", text}}); }
};

WrongUse Wrong(const QString& text)
{
    return {"the bill: " + text};
}

QJsonObject ReadBillFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw WrongUse{QString("\"%1\" cannot be read").arg(path)};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        throw WrongUse{QString("\"%1\" is no JSON: %2 at byte %3").arg(path, error.errorString()).arg(error.offset)};
    if (!document.isObject())
        throw WrongUse{QString("\"%1\" holds no JSON object").arg(path)};
    return document.object();
}

QString TextIn(const QJsonValue& value, const QString& where)
{
    if (value.isString())
        return value.toString();
    if (value.isDouble())
        return NumberText(value.toDouble());
    throw Wrong(where + " must be a text or a number");
}

bool FlagIn(const QJsonValue& value, const QString& where)
{
    if (!value.isBool())
        throw Wrong(where + " must be true or false");
    return value.toBool();
}

QJsonArray ArrayIn(const QJsonValue& value, const QString& where)
{
    if (!value.isArray())
        throw Wrong(where + " must be a list");
    return value.toArray();
}

QJsonObject ObjectIn(const QJsonValue& value, const QString& where)
{
    if (!value.isObject())
        throw Wrong(where + " must be an object");
    return value.toObject();
}

struct LineText
{
    QString code; // the good is chosen by code or, without one, by name
    QString name;
    std::vector<std::pair<int, QString>> cells; // typed afterwards, in column order
};

/// The file, understood and checked against the kind before anything is opened.
struct PostRequest
{
    const BillKind* kind = nullptr;
    QDate date;
    QString operatorName;
    QString code; // of a saved bill that is to be rewritten
    QString databaseType = "Access";
    bool lotMoney = false;
    bool withoutAccounting = false;
    std::vector<std::pair<const HeadField*, QString>> fields;
    std::vector<std::pair<const HeadCheck*, bool>> checks;
    std::optional<std::vector<LineText>> lines;
    std::deque<bool> answers;
};

void ReadFields(PostRequest& request, const QJsonObject& fields)
{
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        const HeadField* known = FindHeadField(field.key());
        const HeadCheck* check = FindHeadCheck(field.key());
        if (check)
            request.checks.emplace_back(check, FlagIn(field.value(), field.key()));
        else if (known && known->typed)
            request.fields.emplace_back(known, TextIn(field.value(), field.key()));
        else
            throw Wrong(QString("there is no field \"%1\" to type into").arg(field.key()));
    }
}

LineText ReadLine(const BillKind& kind, const QJsonObject& cells)
{
    const LineColumns at(kind);
    LineText line;
    for (const QString& caption : cells.keys()) {
        const int column = ColumnIndex(kind, caption);
        if (column == 0 || column == at.money || column == at.cost)
            throw Wrong(QString("a line of %1 has no column \"%2\" to type into").arg(kind.bill, caption));
        const QString text = TextIn(cells[caption], caption);
        if (column == at.code)
            line.code = text;
        else if (column == at.name)
            line.name = text;
        else
            line.cells.emplace_back(column, text);
    }
    std::ranges::sort(line.cells);
    return line;
}

void ReadLines(PostRequest& request, const QJsonArray& lines)
{
    request.lines.emplace();
    for (const QJsonValue line : lines)
        request.lines->push_back(ReadLine(*request.kind, ObjectIn(line, "each line")));
}

void ReadAnswers(PostRequest& request, const QJsonArray& answers)
{
    for (const QJsonValue answer : answers) {
        const QString word = answer.toString();
        if (word != u"是" && word != u"否")
            throw Wrong("an answer must be 是 or 否");
        request.answers.push_back(word == u"是");
    }
}

QDate DateIn(const QString& text)
{
    const std::optional<QDate> day = ParseDay(text);
    if (!day)
        throw Wrong(QString("date must be a date such as 2023-02-08, not \"%1\"").arg(text));
    return *day;
}

QString DatabaseTypeIn(const QString& text)
{
    if (text != u"Access" && text != u"Access2")
        throw Wrong("type must be Access or Access2");
    return text;
}

PostRequest ReadRequest(const QJsonObject& bill)
{
    PostRequest request;
    request.kind = KindOfBill(bill["bill"].toString());
    if (!request.kind || request.kind->lines == LineShape::Pieces)
        throw Wrong(QString("there is no bill \"%1\" to post").arg(bill["bill"].toString()));
    for (auto entry = bill.begin(); entry != bill.end(); ++entry) {
        const QString key = entry.key();
        const QJsonValue value = entry.value();
        if (key == u"date")
            request.date = DateIn(TextIn(value, key));
        else if (key == u"operator")
            request.operatorName = TextIn(value, key);
        else if (key == u"code")
            request.code = TextIn(value, key);
        else if (key == u"type")
            request.databaseType = DatabaseTypeIn(TextIn(value, key));
        else if (key == u"lotMoney")
            request.lotMoney = FlagIn(value, key);
        else if (key == u"jxc")
            request.withoutAccounting = FlagIn(value, key);
        else if (key == u"fields")
            ReadFields(request, ObjectIn(value, key));
        else if (key == u"lines")
            ReadLines(request, ArrayIn(value, key));
        else if (key == u"answers")
            ReadAnswers(request, ArrayIn(value, key));
        else if (key != u"bill")
            throw Wrong(QString("\"%1\" means nothing").arg(key));
    }
    return request;
}

RunParameters ParametersOf(const PostRequest& request, RunParameters parameters)
{
    parameters.DatabaseType = request.databaseType;
    parameters.IsAccess = request.databaseType == u"Access";
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

void TypeHead(Program& program, BillText& bill, const PostRequest& request)
{
    if (request.date.isValid())
        bill.DTPDate = request.date;
    for (const auto& [check, on] : request.checks)
        bill.*check->flag = on;
    // By control name, so that a code given beside a name is typed last.
    for (const auto& [field, text] : request.fields) {
        if (field->text == &BillText::TxtWarehouseNameF || field->text == &BillText::TxtWarehouseNameS)
            TypeWarehouse(program, bill, *field, text);
    }
    for (const auto& [field, text] : request.fields) {
        if (field->text != &BillText::TxtWarehouseNameF && field->text != &BillText::TxtWarehouseNameS)
            bill.*field->text = text;
    }
}

/// The text of an attribute's cell as its picker leaves it.
QString AttributeText(Program& program, const QString& text)
{
    return text.contains('>') ? text : AttributeCell(program, text);
}

void TypeLine(Program& program, BillText& bill, const LineText& line)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    const int row = grid.lastRow();
    const auto type = [&](int column, const QString& text) {
        grid.currentRow = row;
        grid.currentColumn = column;
        TypeInCell(program, bill, text);
    };
    if (!line.code.isEmpty()) {
        type(at.code, line.code);
        ChooseGood(program, bill, line.code);
        if (!line.name.isEmpty())
            type(at.name, line.name);
    } else if (!line.name.isEmpty()) {
        type(at.name, line.name);
        EnterCell(program, bill, line.name);
    }
    for (const auto& [column, text] : line.cells) {
        if (column == at.unit || column == at.attribute)
            grid.SetCell(row, column, column == at.unit ? text : AttributeText(program, text));
        else
            type(column, text);
    }
    if (grid.lastRow() == row)
        grid.AddRow();
}

void TypeBill(Program& program, BillText& bill, const PostRequest& request)
{
    TypeHead(program, bill, request);
    if (!request.lines)
        return;
    BuildGridColumns(program, bill);
    for (const LineText& line : *request.lines)
        TypeLine(program, bill, line);
    SumBillTotals(program, bill);
}

/// Whether the account set holds what this save was to write, whatever a box has said.
bool IsStored(Program& program, const BillKind& kind, const Posting& posting)
{
    if (!posting.stored)
        return false;
    const Recordset head =
        OpenQuery(program, Sql("select Code from ") + Name(kind.headTable) + " where Code=" + posting.code);
    const Recordset lines = OpenQuery(program, Sql("select count(*) as Lines from ") + Name(kind.lineTable) +
                                                   " where BillCode=" + posting.code);
    return !head.isEmpty() && lines.Integer("Lines") >= posting.lines;
}

/// Types the bill and saves it; a bill that is locked is left alone, as its save key would be.
bool PostBill(Program& program, BillText& bill, const PostRequest& request, Posting& posting)
{
    LoadDecimalPlaces(program);
    LoadWindow(program, bill);
    frm_Initialize(program, bill, false);
    if (!request.code.isEmpty()) {
        FillBill(program, bill, request.kind->headTable, request.code);
        if (bill.TxtBillCode.isEmpty())
            return false;
        if (!bill.isEnabled(Command::Save)) {
            PrintErrorLine("acctset: the bill is audited, voided or closed and cannot be changed");
            return false;
        }
    }
    TypeBill(program, bill, request);
    posting = FSave(program, bill);
    return IsStored(program, *request.kind, posting);
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
    Program program(set.program.folder, ParametersOf(request, set.program.parameters), prompt, set.clock,
                    [path = line.Word(0)](const QString&) { return OpenSqliteFile(path); });
    BillText bill;
    Posting posting;
    const bool saved = PostBill(program, bill, request, posting);
    PrintJson({{"saved", saved}, {"code", posting.stored ? posting.code : bill.TxtBillCode}, {"boxes", prompt.boxes}});
    return saved ? kDone : kRefused;
}
