#include "handover/open_query.h"

#include "support/test_program.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// What a database does, as the test script has it, and what it was asked.
struct Script
{
    QStringList log;
    QStringList failing;         // statements and unit steps that fail
    QString givesUpUnit;         // the statement whose failure takes the whole unit back
    QString losing;              // the statement at which the server is gone
    QString slow;                // what lasts
    bool commitEndsUnit = false; // a failed commit has taken everything back already
};

class FakeStore : public Store
{
public:
    explicit FakeStore(Script& script) : m_script(script) { Step("open"); }
    ~FakeStore() override { m_script.log += "close"; }

    Recordset Run(const Sql& sql) override
    {
        const QString words = QString::fromStdString(sql.shape());
        if (words == m_script.givesUpUnit)
            m_inUnit = false;
        Step(words);
        return Recordset(std::make_shared<const Recordset::Columns>(), {});
    }
    void BeginUnit() override
    {
        Step("begin");
        m_inUnit = true;
    }
    void CommitUnit() override
    {
        if (m_script.commitEndsUnit)
            m_inUnit = false;
        Step("commit");
        m_inUnit = false;
    }
    void RollbackUnit() override
    {
        Step("rollback");
        m_inUnit = false;
    }
    bool inUnit() const override { return m_inUnit && !m_lost; }
    bool isLost() const override { return m_lost; }

private:
    void Step(const QString& step)
    {
        m_script.log += step;
        if (step == m_script.slow)
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
        m_lost = m_lost || step == m_script.losing;
        if (m_lost)
            throw StoreError{13, step + " failed"};
        if (m_script.failing.contains(step))
            throw StoreError{13, step + " failed"};
    }

    Script& m_script;
    bool m_inUnit = false;
    bool m_lost = false;
};

/// Keeps when the pointer was busy.
class PointerPrompt : public ScriptedPrompt
{
public:
    bool showsBusy() const override { return hasPointer; }
    void Busy(bool on) override { busy += on ? "busy " : "ready "; }

    bool hasPointer = false;
    QString busy;
};

class OpenQueryTest : public testing::Test
{
protected:
    bool Run(const char* words) { return static_cast<bool>(OpenQuery(program, Sql(words))); }
    QString TakeLog() { return std::exchange(script.log, {}).join(' '); }
    QString TakeBoxes() { return prompt.TakeTexts().join('|'); }

    static RunParameters Parameters()
    {
        RunParameters parameters;
        parameters.DatabaseType = "Access";
        parameters.ConDataName = "a.db";
        return parameters;
    }

    Script script;
    PointerPrompt prompt;
    FixedClock clock;
    Program program{"/s", Parameters(), prompt, clock, [this](const QString& connection) -> std::unique_ptr<Store> {
                        EXPECT_EQ(connection, BuildConnectionString(program));
                        return std::make_unique<FakeStore>(script);
                    }};
};

} // namespace

TEST_F(OpenQueryTest, OpensAtTheFirstStatementAndAfterAClose)
{
    EXPECT_EQ(program.gConnection.State(), 0);
    EXPECT_TRUE(Run("a"));
    EXPECT_TRUE(Run("b"));
    program.gConnection.Close();
    EXPECT_TRUE(Run("c"));
    EXPECT_EQ(TakeLog(), QString("open a b close open c"));
    EXPECT_EQ(TakeBoxes(), QString());
}

TEST_F(OpenQueryTest, AFailureIsShownAndTheNextStatementRuns)
{
    script.failing = {"bad"};
    EXPECT_FALSE(Run("bad"));
    ASSERT_EQ(prompt.boxes.size(), 1u);
    EXPECT_EQ(prompt.boxes[0].kind, QString("error"));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nbad failed"));
    EXPECT_TRUE(Run("good"));
}

TEST_F(OpenQueryTest, AConnectionThatDoesNotOpenIsTriedAgain)
{
    script.failing = {"open"};
    EXPECT_FALSE(Run("a"));
    {
        SaveUnit unit(program);
        EXPECT_FALSE(unit.isOpen());
        EXPECT_FALSE(unit.Commit());
    }
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nopen failed|Error:13\r\nopen failed"));
    EXPECT_EQ(program.gConnection.State(), 0);
    script.failing = {};
    EXPECT_TRUE(Run("a"));
}

TEST_F(OpenQueryTest, ALostServerIsConnectedToAgain)
{
    script.losing = "cut";
    {
        SaveUnit unit(program);
        EXPECT_TRUE(Run("a"));
        EXPECT_FALSE(Run("cut"));
        EXPECT_FALSE(Run("b"));
        EXPECT_FALSE(unit.Commit());
    }
    EXPECT_TRUE(Run("c"));
    EXPECT_EQ(TakeLog(), QString("open begin a cut close open c"));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\ncut failed"));
}

TEST_F(OpenQueryTest, ASlowServerIsWaitedForUnderABusyPointer)
{
    program.parameters.DatabaseType = "SQL";
    program.parameters.ConServerIP = program.parameters.ConDataBaseUID = "s";
    prompt.hasPointer = true;
    EXPECT_TRUE(Run("a"));
    EXPECT_EQ(prompt.busy, QString());
    script.slow = "open";
    program.gConnection.Close();
    EXPECT_TRUE(Run("a"));
    EXPECT_EQ(prompt.busy, QString("busy ready "));
    script.slow = script.failing.emplaceBack("b");
    EXPECT_FALSE(Run("b"));
    EXPECT_EQ(prompt.busy, QString("busy ready busy ready "));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nb failed"));
}

TEST_F(OpenQueryTest, AUnitIsCommittedOnceAndOpensTheConnection)
{
    {
        SaveUnit unit(program);
        EXPECT_TRUE(unit.isOpen());
        EXPECT_TRUE(Run("a"));
        EXPECT_TRUE(unit.Commit());
        EXPECT_FALSE(unit.isOpen());
        EXPECT_FALSE(unit.Commit());
    }
    EXPECT_TRUE(Run("b"));
    EXPECT_EQ(TakeLog(), QString("open begin a commit b"));
    EXPECT_EQ(TakeBoxes(), QString());
}

TEST_F(OpenQueryTest, ErrorsInsideAUnitWaitForItsEnd)
{
    script.failing = {"bad", "worse"};
    SaveUnit unit(program);
    EXPECT_FALSE(Run("bad"));
    EXPECT_TRUE(Run("good"));
    EXPECT_FALSE(Run("worse"));
    EXPECT_TRUE(prompt.boxes.empty());
    EXPECT_TRUE(unit.Commit());
    EXPECT_EQ(TakeLog(), QString("open begin bad good worse commit"));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nbad failed|Error:13\r\nworse failed"));
    EXPECT_FALSE(Run("bad"));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nbad failed"));
}

TEST_F(OpenQueryTest, AnUncommittedUnitIsTakenBack)
{
    script.failing = {"bad"};
    {
        SaveUnit unit(program);
        Run("bad");
    }
    EXPECT_EQ(TakeLog(), QString("open begin bad rollback"));
    EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nbad failed"));
    EXPECT_TRUE(Run("a"));
}

TEST_F(OpenQueryTest, NothingRunsOnItsOwnAfterTheUnitIsLost)
{
    script.failing = {"full"};
    script.givesUpUnit = "full";
    for (const bool commits : {true, false}) {
        {
            SaveUnit unit(program);
            EXPECT_TRUE(Run("a"));
            EXPECT_FALSE(Run("full"));
            EXPECT_FALSE(Run("b"));
            if (commits) {
                EXPECT_FALSE(unit.Commit());
            }
        }
        EXPECT_EQ(TakeLog().remove("open "), QString("begin a full"));
        EXPECT_EQ(TakeBoxes(), QString("Error:13\r\nfull failed"));
    }
    EXPECT_TRUE(Run("b"));
}

TEST_F(OpenQueryTest, AConnectionClosedInsideAUnitEndsIt)
{
    SaveUnit unit(program);
    program.gConnection.Close();
    EXPECT_FALSE(Run("a"));
    EXPECT_FALSE(unit.Commit());
    EXPECT_EQ(TakeLog(), QString("open begin close"));
}

TEST_F(OpenQueryTest, AFailedCommitStoresNothing)
{
    const struct
    {
        QStringList failing;
        bool commitEndsUnit;
        const char* log;
        const char* boxes;
    } cases[] = {
        {{"begin"}, false, "begin", "Error:13\r\nbegin failed"},
        {{"commit"}, false, "begin commit rollback", "Error:13\r\ncommit failed"},
        {{"commit"}, true, "begin commit", "Error:13\r\ncommit failed"},
        {{"commit", "rollback"},
         false,
         "begin commit rollback close",
         "Error:13\r\ncommit failed|Error:13\r\nrollback failed"},
    };
    for (const auto& c : cases) {
        Run("a");
        TakeLog();
        script.failing = c.failing;
        script.commitEndsUnit = c.commitEndsUnit;
        SaveUnit unit(program);
        EXPECT_FALSE(unit.Commit());
        EXPECT_EQ(TakeLog(), QString(c.log));
        EXPECT_EQ(TakeBoxes(), QString(c.boxes));
        EXPECT_FALSE(program.unitOpen);
    }
}
