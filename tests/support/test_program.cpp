#include "support/test_program.h"

#include "data/schema.h"
#include "database/sqlite_store.h"
#include "support/shape_log.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {
/// The bytes of an account set without rows. Made once: a copy is quicker than a hundred statements.
QByteArray EmptyAccountSet()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("empty.db");
    {
        const std::unique_ptr<Store> store = CreateSqliteFile(path);
        store->BeginUnit();
        for (const QString& statement : SqliteSchema())
            store->Run(Sql(statement.toUtf8().constData()));
        store->CommitUnit();
    }
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

RunParameters ParametersFor(const QString& databaseType)
{
    RunParameters parameters;
    parameters.DatabaseType = databaseType;
    // Every rule holds in both dialects.
    parameters.IsAccess = databaseType == "Access" && qEnvironmentVariable("WAREHOUSE_TEST_DIALECT") != u"quoted";
    parameters.ConDataName = "test.db";
    parameters.ConDataRemark = "测试账套";
    parameters.ConDataBaseUID = "tester";
    parameters.ConServerIP = "127.0.0.1";
    parameters.UserName = "系统管理员";
    parameters.OperateDate = "2023-02-08";
    return parameters;
}

Value EmptyValueOf(ColumnType type)
{
    switch (type) {
    case ColumnType::Text:
        return QString("");
    case ColumnType::Day:
    case ColumnType::Moment:
        return kNoDate;
    case ColumnType::Number:
    case ColumnType::Money:
    case ColumnType::Integer:
        return qint64(0);
    case ColumnType::Blob:
        return {};
    }
    return {};
}

bool SameColumn(const char* a, const char* b)
{
    return std::strcmp(a, b) == 0;
}

/// Null when the row does not name the column.
const Value* Named(const std::vector<Field>& fields, const char* column)
{
    const auto found = std::ranges::find_if(fields, [&](const Field& f) { return SameColumn(f.column, column); });
    return found == fields.end() ? nullptr : &found->value;
}

void AddUnlessNamed(std::vector<Field>& fields, const Field& field)
{
    if (!Named(fields, field.column))
        fields.push_back(field);
}
} // namespace

bool ScriptedPrompt::Ask(const QString& text)
{
    boxes.push_back({"ask", text});
    if (answers.empty())
        return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

Choice ScriptedPrompt::Choose(const QString& text, const QString&, const QString&)
{
    boxes.push_back({"choose", text});
    if (choices.empty())
        return Choice::Cancel;
    const Choice choice = choices.front();
    choices.pop_front();
    return choice;
}

QString ScriptedPrompt::AskFile(const QString& title, const QString& filters)
{
    boxes.push_back({"file", title + "|" + filters});
    return file;
}

QStringList ScriptedPrompt::TakeTexts()
{
    QStringList texts;
    for (const Box& box : boxes)
        texts += box.text;
    boxes.clear();
    return texts;
}

Moment FixedClock::Now()
{
    const Moment seen = now;
    const int ahead = now.millisecondOfDay + step;
    now.day = now.day.addDays(ahead / kMillisecondsPerDay);
    now.millisecondOfDay = ahead % kMillisecondsPerDay;
    return seen;
}

TestProgram::TestProgram(const QString& databaseType, StoreOpener opener)
    : database(opener || TestServer().isEmpty() ? nullptr : std::make_unique<TestDatabase>()),
      program(folder.path(), ParametersFor(databaseType), prompt, clock, opener ? std::move(opener) : UsualOpener())
{
    static const QByteArray empty = EmptyAccountSet();
    QDir(folder.path()).mkdir("Data");
    QFile file(databasePath());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(empty), empty.size());
}

StoreOpener TestProgram::UsualOpener() const
{
    const StoreOpener open = database ? database->opener() : OpenStore;
    const QString log = qEnvironmentVariable("WAREHOUSE_TEST_SHAPES");
    return log.isEmpty() ? open : ShapeLog(log, open);
}

void TestProgram::Insert(const char* table, std::initializer_list<Field> fields)
{
    InsertFields(table, fields);
}

void TestProgram::InsertFields(const QString& table, const std::vector<Field>& fields)
{
    const SchemaTable* const schema = FindTable(table);
    ASSERT_NE(schema, nullptr) << table.toStdString();
    std::vector<Value> values;
    size_t used = 0;
    for (const SchemaColumn& column : schema->columns) {
        const Value* const named = Named(fields, column.name.toLatin1());
        values.push_back(named ? *named : EmptyValueOf(column.type));
        used += named ? 1 : 0;
    }
    ASSERT_EQ(used, fields.size()) << "a column named twice or unknown to " << table.toStdString();
    Run(InsertInto(Name(table), values));
}

void TestProgram::InsertBill(const char* headTable, std::initializer_list<Field> head,
                             std::initializer_list<std::initializer_list<Field>> lines)
{
    std::vector<Field> headFields = head;
    ASSERT_TRUE(Named(headFields, "Code") && Named(headFields, "Datee")) << headTable;
    const Value code = *Named(headFields, "Code");
    const Value day = *Named(headFields, "Datee");
    AddUnlessNamed(headFields, {"State", "正常"});
    AddUnlessNamed(headFields, {"DateTimee", day});
    InsertFields(headTable, headFields);

    qint64 number = 0;
    for (const auto& line : lines) {
        std::vector<Field> fields = line;
        AddUnlessNamed(fields, {"Num", ++number});
        AddUnlessNamed(fields, {"Datee", day});
        AddUnlessNamed(fields, {"BillCode", code});
        AddUnlessNamed(fields, {"DateTimee", *Named(headFields, "DateTimee")});
        AddUnlessNamed(fields, {"State", "正常"});
        InsertFields(QString(headTable) + "Inf", fields);
    }
}

Recordset TestProgram::Run(const Sql& sql)
{
    Recordset rs = OpenQuery(program, sql);
    EXPECT_TRUE(rs) << sql.ProgramText(true).toStdString() << "\n"
                    << (prompt.boxes.empty() ? "" : prompt.boxes.back().text.toStdString());
    return rs;
}

QStringList TestProgram::Rows(const Sql& sql)
{
    const Recordset rows = Run(sql);
    QStringList texts;
    for (int row = 0; row < rows.size(); ++row) {
        QStringList values;
        for (int column = 0; column < static_cast<int>(rows.columns().size()); ++column)
            values << TextOf(rows.at(row, column));
        texts << values.join('|');
    }
    return texts;
}

QString TestProgram::databasePath() const
{
    return folder.filePath("Data/test.db");
}
