#include "commands.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <cstdio>

namespace {

/// Throws Refusal where a file is none.
AccountSetPlace ExistingPlace(const QString& word)
{
    AccountSetPlace place = ReadPlace(word);
    if (!place.server && !QFileInfo(place.path).isFile())
        throw Refusal{QString("there is no account set \"%1\"").arg(word)};
    return place;
}

QString FolderOf(const AccountSetPlace& place)
{
    return place.server ? QCoreApplication::applicationDirPath() : QFileInfo(place.path).absolutePath();
}

RunParameters ParametersOf(const AccountSetPlace& place)
{
    RunParameters parameters;
    parameters.DatabaseType = place.server ? "SQL" : "Access";
    parameters.IsAccess = !place.server;
    parameters.IsJXC = true;
    parameters.ConDataName = place.server ? place.server->address.database : QFileInfo(place.path).fileName();
    parameters.UserName = "系统管理员";
    parameters.OperateDate = DayText(QDate::currentDate());
    if (place.server) {
        parameters.ConServerIP = place.server->address.server;
        parameters.ConDataBaseUID = place.server->address.user;
    }
    return parameters;
}

void Print(FILE* stream, const QByteArray& line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stream);
    std::fputc('\n', stream);
}

} // namespace

CommandLine::CommandLine(const QString& command, const QString& help, const QStringList& words,
                         const std::vector<Option>& options, const QStringList& arguments)
{
    m_parser.setApplicationDescription(help);
    const QCommandLineOption helpOption({"h", "help"}, "shows this text");
    m_parser.addOption(helpOption);
    for (const QString& word : words)
        m_parser.addPositionalArgument(word, {});
    for (const Option& option : options)
        m_parser.addOption(QCommandLineOption(option.name, option.help, option.value));

    if (!m_parser.parse(QStringList("acctset " + command) + arguments))
        throw WrongUse{m_parser.errorText()};
    if (m_parser.isSet(helpOption)) {
        PrintLine(m_parser.helpText().replace(QCoreApplication::arguments().first(), "acctset " + command).trimmed());
        m_helpShown = true;
        return;
    }
    if (m_parser.positionalArguments().size() != words.size())
        throw WrongUse{QString("usage: acctset %1 %2 ...; --help tells the options").arg(command, words.join(' '))};
}

QString CommandLine::Needed(const QString& option) const
{
    const QString text = Text(option);
    if (text.trimmed().isEmpty())
        throw WrongUse{QString("--%1 must be given").arg(option)};
    return text;
}

double CommandLine::Number(const QString& option, double otherwise) const
{
    if (!IsSet(option))
        return otherwise;
    bool isNumber = false;
    const double number = Text(option).toDouble(&isNumber);
    if (!isNumber || !qIsFinite(number))
        throw WrongUse{QString("--%1 needs a number, not \"%2\"").arg(option, Text(option))};
    return number;
}

qint64 CommandLine::Count(const QString& option, qint64 least, qint64 otherwise) const
{
    if (!IsSet(option))
        return otherwise;
    bool isNumber = false;
    const qint64 number = Text(option).toLongLong(&isNumber);
    if (!isNumber || number < least)
        throw WrongUse{
            QString("--%1 needs a whole number of at least %2, not \"%3\"").arg(option).arg(least).arg(Text(option))};
    return number;
}

Moment CommandLine::MomentAt(const QString& option, const Moment& otherwise) const
{
    if (!IsSet(option))
        return otherwise;
    const std::optional<Moment> moment = ParseMoment(Text(option));
    if (!moment)
        throw WrongUse{QString("--%1 needs a date such as 2023-02-08, not \"%2\"").arg(option, Text(option))};
    return *moment;
}

bool RecordingPrompt::Ask(const QString& text)
{
    said << text;
    return answer;
}

void RecordingPrompt::Error(const QString& text)
{
    if (errors.contains(text))
        return;
    PrintErrorLine("acctset: " + QString(text).replace("\r\n", " "));
    errors << text;
}

OpenedAccountSet::OpenedAccountSet(const QString& word) : OpenedAccountSet(ExistingPlace(word)) {}

OpenedAccountSet::OpenedAccountSet(const AccountSetPlace& place)
    : opener(OpenerOf(place)), program(FolderOf(place), ParametersOf(place), prompt, clock, opener)
{}

void OpenedAccountSet::RefuseOnErrors() const
{
    if (!prompt.errors.isEmpty())
        throw Refusal{"the account set did not answer"};
}

void PrintLine(const QString& line)
{
    Print(stdout, line.toUtf8());
}

void PrintErrorLine(const QString& line)
{
    Print(stderr, line.toUtf8());
}

void PrintJson(const QJsonObject& object)
{
    Print(stdout, QJsonDocument(object).toJson(QJsonDocument::Compact));
}
