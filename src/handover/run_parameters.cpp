#include "handover/run_parameters.h"

#include "base/code_page.h"
#include "base/dates.h"
#include "base/number_text.h"
#include "base/program_folder.h"
#include "handover/private_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <variant>

namespace {

constexpr const char* kHandoverFile = "CfgVault.dll";
constexpr const char* kStarterFile = "lnch.ini";
constexpr const char* kLineEnd = "\r\n";
constexpr int kCodeShift = 5;
/// Far more than any hand-over; what lies behind it is not looked at.
constexpr qint64 kMostBytes = 1024 * 1024;

using Member = std::variant<QString RunParameters::*, bool RunParameters::*, qint16 RunParameters::*>;

struct ParameterKey
{
    const char* name;
    Member member;
    bool trimmed = false; // on writing
};

/// The lines of the hand-over in file order.
constexpr std::array<ParameterKey, 27> kParameterKeys = {{
    {"SoftType", &RunParameters::SoftType, true},
    {"DatabaseType", &RunParameters::DatabaseType, true},
    {"VisionNum", &RunParameters::VisionNum, true},
    {"LoginType", &RunParameters::LoginType, true},
    {"CalCostType", &RunParameters::CalCostType, true},
    {"IsJXC", &RunParameters::IsJXC},
    {"IsAccessSQL", &RunParameters::IsAccess},
    {"IsLotMoney", &RunParameters::IsLotMoney},
    {"ConDataName", &RunParameters::ConDataName},
    {"ConDataRemark", &RunParameters::ConDataRemark},
    {"PrintModleName", &RunParameters::PrintModleName},
    {"ConDataBaseUID", &RunParameters::ConDataBaseUID},
    {"ConDataBasePWD", &RunParameters::ConDataBasePWD},
    {"ConServerIP", &RunParameters::ConServerIP},
    {"ConPortNum", &RunParameters::ConPortNum},
    {"OperateType", &RunParameters::OperateType},
    {"UserName", &RunParameters::UserName},
    {"UserPSW", &RunParameters::UserPSW},
    {"UserNum", &RunParameters::UserNum},
    {"OperateDate", &RunParameters::OperateDate, true},
    {"CloudAccount", &RunParameters::CloudAccount},
    {"CloudAccount2", &RunParameters::CloudAccount2},
    {"OperationsDirective", &RunParameters::OperationsDirective, true},
    {"OperationsDirective2", &RunParameters::OperationsDirective2, true},
    {"OperationsDirective3", &RunParameters::OperationsDirective3, true},
    {"OperationsDirective4", &RunParameters::OperationsDirective4, true},
    {"OperationsDirective5", &RunParameters::OperationsDirective5, true},
}};

bool ParameterFlagFromText(const QString& text)
{
    return text.trimmed() == u"1";
}

QString ParameterFlagToText(bool flag)
{
    return flag ? "1" : "0";
}

qint16 ParameterNumberFromText(const QString& text)
{
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<double>(RoundToPlaces(Val(text), 0), Limits::min(), Limits::max()));
}

/// How a member of each kind stands in the file.
struct ToText
{
    const RunParameters& parameters;

    QString operator()(QString RunParameters::*text) const { return parameters.*text; }
    QString operator()(bool RunParameters::*flag) const { return ParameterFlagToText(parameters.*flag); }
    QString operator()(qint16 RunParameters::*number) const { return PlainNumberText(parameters.*number); }
};

struct FromText
{
    RunParameters& parameters;
    QString text;

    void operator()(QString RunParameters::*member) const { parameters.*member = text; }
    void operator()(bool RunParameters::*flag) const { parameters.*flag = ParameterFlagFromText(text); }
    void operator()(qint16 RunParameters::*number) const { parameters.*number = ParameterNumberFromText(text); }
};

/// The lines of the file, forward only.
class ParameterLines
{
public:
    explicit ParameterLines(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    bool atEnd() const { return m_position >= m_bytes.size(); }
    /// The next line, clear.
    QString Next()
    {
        qsizetype end = m_bytes.indexOf('\n', m_position);
        if (end < 0)
            end = m_bytes.size();
        QByteArray stored = m_bytes.mid(m_position, end - m_position);
        m_position = end + 1;
        if (stored.endsWith('\r'))
            stored.chop(1);
        return FromCodePage(UnscrambleParameterLine(stored));
    }

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

/// The value of the first line of that key from here on. Empty where the lines end before, and at a line that is
/// neither `key=value` nor a label `name:`.
QString ReadParameterLine(ParameterLines& lines, QLatin1String key)
{
    while (!lines.atEnd()) {
        const QString line = lines.Next();
        const qsizetype colon = line.indexOf(u':');
        const qsizetype equalsSign = line.indexOf(u'=');
        if (colon < 0 && equalsSign < 0)
            return QString();
        const bool isLabel = colon >= 0 && (equalsSign < 0 || colon < equalsSign);
        if (!isLabel && QStringView(line).left(equalsSign) == key)
            return line.sliced(equalsSign + 1);
    }
    return QString();
}

QByteArray ParameterLine(const ParameterKey& key, const RunParameters& parameters)
{
    QString value = std::visit(ToText{parameters}, key.member);
    if (key.trimmed)
        value = value.trimmed();
    return ScrambleParameterLine(ToCodePage(QLatin1String(key.name) + u'=' + value)) + kLineEnd;
}

/// The line turned round, each code moved by `shift`.
QByteArray Reversed(const QByteArray& line, int shift)
{
    QByteArray reversed(line.size(), Qt::Uninitialized);
    const auto byteAt = [&](qsizetype i) { return static_cast<unsigned char>(line[i]); };
    qsizetype to = line.size();
    for (qsizetype from = 0; from < line.size();) {
        const bool isDouble = IsLeadByte(byteAt(from)) && from + 1 < line.size();
        if (!isDouble) {
            reversed[--to] = static_cast<char>(byteAt(from++) + shift);
            continue;
        }
        const int code = (byteAt(from) << 8 | byteAt(from + 1)) + shift;
        reversed[--to] = static_cast<char>(code);
        reversed[--to] = static_cast<char>(code >> 8);
        from += 2;
    }
    return reversed;
}

std::optional<ParameterLines> OpenHandover(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return ParameterLines(file.read(kMostBytes));
}

} // namespace

QByteArray ScrambleParameterLine(const QByteArray& clearLine)
{
    qsizetype first = 0;
    qsizetype end = clearLine.size();
    while (end > first && clearLine[end - 1] == ' ')
        --end;
    while (first < end && clearLine[first] == ' ')
        ++first;
    return Reversed(clearLine.mid(first, end - first), -kCodeShift);
}

QByteArray UnscrambleParameterLine(const QByteArray& storedLine)
{
    return Reversed(storedLine, kCodeShift);
}

std::optional<RunParameters> ReadRunParameters(const QString& folder, const QDate& today)
{
    const QString path = PathInFolder(folder, kHandoverFile);
    auto lines = OpenHandover(path);
    if (!lines)
        return std::nullopt;
    QFile::remove(path);

    RunParameters parameters;
    for (const ParameterKey& key : kParameterKeys)
        std::visit(FromText{parameters, ReadParameterLine(*lines, QLatin1String(key.name))}, key.member);
    parameters.OperateType = parameters.OperationsDirective;
    if (!ParseDay(parameters.OperateDate))
        parameters.OperateDate = DayText(today);
    parameters.IsAccess = parameters.DatabaseType == u"Access";
    return parameters;
}

std::optional<QStringList> ReadClearLines(const QString& folder)
{
    auto lines = OpenHandover(PathInFolder(folder, kHandoverFile));
    if (!lines)
        return std::nullopt;
    QStringList clear;
    while (!lines->atEnd())
        clear += lines->Next();
    return clear;
}

bool WriteRunParameters(const QString& folder, const RunParameters& parameters, const Directives& directives)
{
    RunParameters written = parameters;
    written.OperationsDirective = directives[0];
    written.OperationsDirective2 = directives[1];
    written.OperationsDirective3 = directives[2];
    written.OperationsDirective4 = directives[3];
    written.OperationsDirective5 = directives[4];
    QByteArray content;
    for (const ParameterKey& key : kParameterKeys)
        content += ParameterLine(key, written);
    return ReplacePrivateFile(PathInFolder(folder, kHandoverFile), content);
}

bool WriteStarterDirective(const QString& folder, const QString& directive)
{
    const QString word = directive.trimmed();
    if (word.isEmpty())
        return false;
    return ReplacePrivateFile(PathInFolder(folder, kStarterFile), ToCodePage(word) + kLineEnd);
}
