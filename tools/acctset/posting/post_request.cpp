#include "posting/post_request.h"

#include "assembly/group_piece.h"
#include "base/number_text.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/paste.h"
#include "commands.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

std::unique_ptr<BillText> MakeScreen(const BillKind& kind)
{
    if (kind.lines == LineShape::Pieces)
        return std::make_unique<GroupPieceText>();
    return std::make_unique<BillText>();
}

namespace {

WrongUse Wrong(const QString& text)
{
    return {"the bill: " + text};
}

} // namespace

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

namespace {

QString TextIn(const QJsonValue& value, const QString& where)
{
    if (value.isString())
        return OneLine(value.toString()); // as its box would show it
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

void ReadFields(PostRequest& request, const QJsonObject& fields)
{
    const std::unique_ptr<BillText> screen = MakeScreen(*request.kind);
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        if (HeadFlag(*screen, field.key()))
            request.checks[field.key()] = FlagIn(field.value(), field.key());
        else if (HeadText(*screen, field.key(), true))
            request.fields[field.key()] = TextIn(field.value(), field.key());
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
        const bool costIsTyped = kind.lines == LineShape::Pieces;
        if (column == 0 || column == at.money || (column == at.cost && !costIsTyped))
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

} // namespace

PostRequest ReadRequest(const QJsonObject& bill)
{
    PostRequest request;
    request.kind = KindOfBill(bill["bill"].toString());
    if (!request.kind)
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
