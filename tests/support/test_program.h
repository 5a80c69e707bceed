#pragma once

// An account set in a folder of its own, with a program on it whose boxes are scripted and whose clock is set.

#include "handover/open_query.h"
#include "support/test_server.h"

#include <QTemporaryDir>
#include <deque>
#include <initializer_list>
#include <ostream>
#include <vector>

/// Keeps every box; questions take their answers in turn, then no or 取消. A file dialog is answered with `file`.
class ScriptedPrompt : public Prompt
{
public:
    struct Box
    {
        QString kind; // inform, cancel (with a second key), warn, ask, choose, error, file
        QString text;
    };

    void Inform(const QString& text) override { boxes.push_back({"inform", text}); }
    void InformOrCancel(const QString& text) override { boxes.push_back({"cancel", text}); }
    void InformFault(const QString& text) override { boxes.push_back({"fault", text}); }
    void Warn(const QString& text) override { boxes.push_back({"warn", text}); }
    bool Ask(const QString& text) override;
    Choice Choose(const QString& text, const QString& first, const QString& second) override;
    void Error(const QString& text) override { boxes.push_back({"error", text}); }
    QString AskFile(const QString& title, const QString& filters) override;

    /// The texts of all boxes since the last call.
    QStringList TakeTexts();

    std::deque<bool> answers;
    std::deque<Choice> choices;
    QString file;
    std::vector<Box> boxes;
};

/// Stands still until told otherwise, or moves on by `step` milliseconds at every look.
class FixedClock : public Clock
{
public:
    Moment Now() override;

    Moment now{QDate(2023, 2, 8), (9 * 60 + 30) * 60 * 1000};
    int step = 0;
};

/// A column and its value, for rows that name only what matters.
struct Field
{
    Field(const char* name, const char* text) : column(name), value(QString(text)) {}
    template <typename Type>
    Field(const char* name, const Type& typedValue) : column(name), value(typedValue)
    {}

    const char* column;
    Value value;
};

class TestProgram
{
public:
    /// An empty account set with all tables, no currency, operator 系统管理员, working date 2023-02-08. It is a file,
    /// or a database where the tests run on a server, unless the opener is the test's own.
    explicit TestProgram(const QString& databaseType = "Access", StoreOpener opener = {});

    /// A row of a table; columns not named get the empty text, 0, the date 1900-01-01, or null for a blob.
    void Insert(const char* table, std::initializer_list<Field> fields);
    /// A bill of any program: its head, and its lines numbered from 1 with the head's code, date and moment (midnight
    /// of the date unless named). State is 正常 in all of them unless named.
    void InsertBill(const char* headTable, std::initializer_list<Field> head,
                    std::initializer_list<std::initializer_list<Field>> lines);
    /// Runs a statement that must not fail.
    Recordset Run(const Sql& sql);
    /// The rows of a statement that must not fail, the values of each joined by "|".
    QStringList Rows(const Sql& sql);
    /// The texts of all boxes since the last call, joined by "|".
    QString Boxes() { return prompt.TakeTexts().join('|'); }
    QString databasePath() const;

    QTemporaryDir folder;
    std::unique_ptr<TestDatabase> database; // null for a file
    ScriptedPrompt prompt;
    FixedClock clock;
    Program program;

private:
    StoreOpener UsualOpener() const;
    void InsertFields(const QString& table, const std::vector<Field>& fields);
};

/// Readable failures of gtest.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
