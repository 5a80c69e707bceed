#pragma once

// What the commands of acctset share: the way they read their words, the account set that they open, how they answer
// and how they refuse. A command is one function; the table of commands stands in main.cpp.

#include "base/clock.h"
#include "base/prompt.h"
#include "handover/undertaking.h"
#include "place.h"
#include "refusal.h"

#include <QCommandLineParser>
#include <QJsonObject>
#include <QStringList>
#include <vector>

/// The words of one command: "acctset NAME FILE --option value". Help is an option of every command.
class CommandLine
{
public:
    struct Option
    {
        QString name;
        QString help;
        QString value; // what stands behind it in the help; empty for a flag
    };

    /// Reads the words behind the command's name. Throws WrongUse.
    /// @param words  the names of the words that must be given, in order, such as FILE
    CommandLine(const QString& command, const QString& help, const QStringList& words,
                const std::vector<Option>& options, const QStringList& arguments);

    /// Help was asked for and has been printed; nothing else is to be done.
    bool helpShown() const { return m_helpShown; }
    QString Word(int index) const { return m_parser.positionalArguments().at(index); }
    bool IsSet(const QString& option) const { return m_parser.isSet(option); }
    /// Empty where the option is not given.
    QString Text(const QString& option) const { return m_parser.value(option); }
    /// The text of an option that must be given.
    QString Needed(const QString& option) const;
    double Number(const QString& option, double otherwise) const;
    /// A whole number of at least `least`.
    qint64 Count(const QString& option, qint64 least, qint64 otherwise) const;
    Moment MomentAt(const QString& option, const Moment& otherwise) const;

private:
    QCommandLineParser m_parser;
    bool m_helpShown = false;
};

/// Keeps what a program would say in boxes, and answers its questions by one rule.
class RecordingPrompt : public Prompt
{
public:
    void Inform(const QString& text) override { said << text; }
    void Warn(const QString& text) override { said << text; }
    bool Ask(const QString& text) override;
    Choice Choose(const QString& text, const QString&, const QString&) override
    {
        return Ask(text) ? Choice::First : Choice::Cancel;
    }
    /// Goes to standard error at once, a reason only once.
    void Error(const QString& text) override;
    QString AskFile(const QString&, const QString&) override { return {}; }

    QStringList said; // boxes and questions, in order
    bool answer = true;
    QStringList errors; // each text once
};

/// An account set with a program on it. Operator 系统管理员, working date today, no currencies.
struct OpenedAccountSet
{
    /// Throws Refusal where the file is none.
    explicit OpenedAccountSet(const QString& word);
    explicit OpenedAccountSet(const AccountSetPlace& place);
    /// Throws Refusal when a statement has failed meanwhile.
    void RefuseOnErrors() const;

    RecordingPrompt prompt;
    SystemClock clock;
    StoreOpener opener; // of the program, for another one on the same account set
    Program program;
    const UserAction command{program}; // one connect that fails is enough
};

/// One line on standard output, in UTF-8.
void PrintLine(const QString& line);
void PrintErrorLine(const QString& line);
/// One object on one line.
void PrintJson(const QJsonObject& object);

int CreateCommand(const QStringList& arguments);
int DdlCommand(const QStringList& arguments);
int GenerateCommand(const QStringList& arguments);
int HandoverCommand(const QStringList& arguments);
int ReadHandoverCommand(const QStringList& arguments);
int StockCommand(const QStringList& arguments);
int CostCommand(const QStringList& arguments);
int RewriteCommand(const QStringList& arguments);
int PostCommand(const QStringList& arguments);
int ShowCommand(const QStringList& arguments);
int ExplainCommand(const QStringList& arguments);
int CheckCommand(const QStringList& arguments);
