#include "bills/life/draft.h"

#include "bills/life/bill_content.h"
#include "bills/life/lifecycle.h"
#include "bills/life/recall.h"
#include "bills/lines/line_columns.h"
#include "handover/open_query.h"
#include "handover/private_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>
#include <cstdio>

namespace {

const QString kEnding = QStringLiteral(".draft");
const QString kLockEnding = QStringLiteral(".lock");
const QString kNewEnding = QStringLiteral(".new");
const QString kAsideEnding = QStringLiteral(".damaged");

/// Whose drafts these are: they are offered to nobody else.
QString OwnerText(const Program& program)
{
    const RunParameters& parameters = program.parameters;
    return QStringList{parameters.DatabaseType,
                       parameters.ConServerIP,
                       parameters.ConPortNum,
                       parameters.ConDataName,
                       parameters.DatabaseType == u"SQL" ? QString() : QDir(program.folder).canonicalPath(),
                       parameters.UserName}
        .join('\n');
}

QString NameStart(const Program& program)
{
    const QByteArray hash = QCryptographicHash::hash(OwnerText(program).toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(16)) + "-";
}

QDir DraftFolder(const Program& program)
{
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/" +
            program.parameters.SoftType.trimmed() + "Warehouse/Drafts"};
}

QJsonObject HeadOf(const BillContent& content)
{
    QJsonObject head;
    for (auto text = content.head.begin(); text != content.head.end(); ++text)
        head[text.key()] = text.value();
    return head;
}

/// Cells by their canonical captions, so that a column may move meanwhile.
QJsonArray LinesOf(const BillKind& kind, const BillContent& content)
{
    QJsonArray lines;
    for (const QStringList& cells : content.lines) {
        QJsonObject line;
        for (int column = 1; column < cells.size(); ++column) {
            if (!cells[column].isEmpty())
                line[kind.columns[column].caption] = cells[column];
        }
        lines.append(line);
    }
    return lines;
}

QByteArray BytesOf(const Program& program, const BillText& bill)
{
    const BillContent content = ContentOf(bill);
    QJsonObject draft{{"owner", OwnerText(program)},
                      {"bill", bill.kind->bill},
                      {"day", DayText(content.day)},
                      {"head", HeadOf(content)},
                      {"lines", LinesOf(*bill.kind, content)}};
    if (bill.BillSavedFlag && bill.DateTimee)
        draft["stored"] = MomentText(*bill.DateTimee);
    return QJsonDocument(draft).toJson(QJsonDocument::Compact);
}

std::optional<QStringList> CellsOf(const BillKind& kind, const QJsonValue& line)
{
    if (!line.isObject())
        return {};
    QStringList cells(static_cast<qsizetype>(kind.columns.size()));
    const QJsonObject object = line.toObject();
    for (auto cell = object.begin(); cell != object.end(); ++cell) {
        const int column = ColumnIndex(kind, cell.key());
        if (column == 0 || !cell.value().isString())
            return {};
        cells[column] = cell.value().toString();
    }
    return cells;
}

std::optional<DraftText> TextOf(const QJsonObject& object)
{
    DraftText draft;
    draft.kind = KindOfBill(object["bill"].toString());
    const std::optional<QDate> day = ParseDay(object["day"].toString());
    if (!draft.kind || !day || !object["head"].isObject() || !object["lines"].isArray())
        return {};
    draft.content.day = *day;
    const QJsonObject head = object["head"].toObject();
    for (auto text = head.begin(); text != head.end(); ++text)
        draft.content.head[text.key()] = text.value().toString();
    for (const QJsonValue line : object["lines"].toArray()) {
        const std::optional<QStringList> cells = CellsOf(*draft.kind, line);
        if (!cells)
            return {};
        draft.content.lines.push_back(*cells);
    }
    if (object.contains("stored"))
        draft.stored = ParseMoment(object["stored"].toString());
    return draft;
}

/// The number of the stored bill that bears a moment; empty where there is not exactly one.
QString CodeAt(Program& program, const BillKind& kind, const Moment& moment)
{
    const Recordset heads =
        OpenQuery(program, Sql("select Code from ") + Name(kind.headTable) + " where DateTimee=" + moment);
    return heads.size() == 1 ? heads.Text("Code") : QString();
}

} // namespace

Draft::Draft(const Program& program)
    : m_path(DraftFolder(program).filePath(NameStart(program) + QUuid::createUuid().toString(QUuid::Id128) + kEnding))
{}

Draft::Draft(const QString& path) : m_path(path) {}

bool Draft::Lock()
{
    if (m_lock)
        return true;
    auto lock = std::make_unique<QLockFile>(m_path + kLockEnding);
    lock->setStaleLockTime(0); // held as long as its process lives
    if (!lock->tryLock())
        return false;
    m_lock = std::move(lock);
    return true;
}

bool Draft::Write(const Program& program, const BillText& bill)
{
    const QByteArray bytes = BytesOf(program, bill);
    if (bytes == m_written)
        return true;
    const QDir folder = DraftFolder(program);
    if (!folder.mkpath(".") ||
        !QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return false;
    if (!Lock() || !ReplacePrivateFile(m_path + kNewEnding, bytes))
        return false;
    const QByteArray from = QFile::encodeName(m_path + kNewEnding);
    if (std::rename(from.constData(), QFile::encodeName(m_path).constData()) != 0)
        return false;
    m_written = bytes;
    return true;
}

void Draft::Remove()
{
    if (!m_lock)
        return;
    QFile::remove(m_path);
    m_written.clear();
    m_lock.reset();
}

std::optional<DraftText> Draft::Read(const Program& program) const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    if (object["owner"].toString() != OwnerText(program))
        return {};
    return TextOf(object);
}

QString Draft::PutAside()
{
    const QString aside = m_path + kAsideEnding;
    const bool renamed = QFile::rename(m_path, aside);
    m_lock.reset();
    return renamed ? aside : QString();
}

std::vector<std::unique_ptr<Draft>> Draft::LeftBehind(const Program& program)
{
    const QDir folder = DraftFolder(program);
    std::vector<std::unique_ptr<Draft>> left;
    for (const QString& name :
         folder.entryList({NameStart(program) + "*" + kEnding}, QDir::Files, QDir::Time | QDir::Reversed)) {
        std::unique_ptr<Draft> draft(new Draft(folder.filePath(name)));
        if (draft->Lock())
            left.push_back(std::move(draft));
    }
    return left;
}

void ShowDraft(Program& program, BillText& bill, const DraftText& draft)
{
    if (draft.stored) {
        const QString code = CodeAt(program, *draft.kind, *draft.stored);
        const bool isOpen =
            !code.isEmpty() && FillBill(program, bill, draft.kind->headTable, code) && bill.entryEnabled;
        if (!isOpen) {
            OpenBlank(program, bill, draft.kind->headTable);
            program.prompt.Inform("草稿所修改的原单已被更改、审核或删除，草稿将作为新单打开，请核对后再保存！");
        }
    }
    ShowContent(program, bill, draft.content);
}

QString DescribeDraft(const DraftText& draft)
{
    const LineColumns at(*draft.kind);
    QString text = draft.kind->bill + " " + DayText(draft.content.day);
    if (!draft.content.lines.empty())
        text += "，" + draft.content.lines.front().value(at.name).trimmed() + " 等 " +
                QString::number(draft.content.lines.size()) + " 行";
    return text;
}
