#include "handover/open_query.h"

#include "support/test_program.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// What a database does, as the test script has it, and what it was asked.
struct Script
{
    QStringList log{};
    QStringList failing{};       // statements and unit steps that fail
    QString givesUpUnit{};       // the statement whose failure takes the whole unit back
    QString losing{};            // the statement at which the server is gone
    QString slow{};              // what lasts
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
        if (m_lost || m_script.failing.contains(step))
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
    bool Run(const QString& words) { return static_cast<bool>(OpenQuery(program, Sql(words.toUtf8()))); }
    QString TakeLog() { return std::exchange(script.log, {}).join(' '); }
    /// What the boxes say has failed.
    QString TakeBoxes() { return prompt.TakeTexts().join('|').remove("Error:13\r\n").remove(" failed"); }

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
    EXPECT_EQ(prompt.boxes[0].text, QString("Error:13\r\nbad failed"));
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
    EXPECT_EQ(TakeBoxes(), QString("open|open"));
    EXPECT_EQ(program.gConnection.State(), 0);
    script.failing = {};
    EXPECT_TRUE(Run("a"));
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
    EXPECT_EQ(TakeBoxes(), QString("b"));
}

TEST_F(OpenQueryTest, AUnitIsStoredWholeOrTakenBackAndItsBoxesComeAtItsEnd)
{
    const struct
    {
        Script script;
        const char* statements;
        bool commits;
        const char* log; // with the statement that follows
        const char* boxes;
    } cases[] = {
        {{}, "a", true, "begin a commit next", ""},
        {{.failing = {"bad", "worse"}}, "good bad good worse", true, "begin good bad rollback next", "bad"},
        {{.failing = {"bad"}}, "bad", false, "begin bad rollback next", "bad"},
        {{.failing = {"full"}, .givesUpUnit = "full"}, "a full b", true, "begin a full next", "full"},
        {{.failing = {"full"}, .givesUpUnit = "full"}, "a full b", false, "begin a full next", "full"},
        {{.losing = "cut"}, "a cut b", true, "begin a cut close open next", "cut"},
        {{.failing = {"begin"}}, "", true, "begin next", "begin"},
        {{.failing = {"commit"}}, "", true, "begin commit rollback next", "commit"},
        {{.failing = {"commit"}, .commitEndsUnit = true}, "", true, "begin commit next", "commit"},
        {{.failing = {"commit", "rollback"}}, "", true, "begin commit rollback close open next", "commit|rollback"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.log);
        EXPECT_TRUE(Run("first"));
        script = c.script;
        {
            SaveUnit unit(program);
            for (const QString& words : QString(c.statements).split(' ', Qt::SkipEmptyParts)) {
                const bool succeeds = Run(words);
                EXPECT_EQ(succeeds,
                          script.log.last() == words && words != script.losing && !script.failing.contains(words));
            }
            EXPECT_TRUE(prompt.boxes.empty() || !unit.isOpen());
            if (c.commits) {
                const bool stored = unit.Commit();
                EXPECT_EQ(stored, script.log.last() == "commit" && !script.failing.contains("commit"));
                EXPECT_FALSE(unit.isOpen());
                EXPECT_FALSE(unit.Commit()) << "once";
            }
        }
        EXPECT_FALSE(program.unitOpen);
        script.failing.clear();
        script.losing.clear();
        EXPECT_TRUE(Run("next"));
        EXPECT_EQ(TakeLog(), QString(c.log));
        EXPECT_EQ(TakeBoxes(), QString(c.boxes));
    }
}

TEST_F(OpenQueryTest, AConnectionClosedInsideAUnitEndsIt)
{
    SaveUnit unit(program);
    program.gConnection.Close();
    EXPECT_FALSE(Run("a"));
    EXPECT_FALSE(unit.Commit());
    EXPECT_EQ(TakeLog(), QString("open begin close"));
}

TEST_F(OpenQueryTest, AnUndertakingIsOverWithItsFirstFailure)
{
    script.failing = {"bad"};
    {
        const Undertaking outer(program);
        EXPECT_TRUE(Run("a"));
        OpenQueryAndGoOn(program, Sql("bad"));
        EXPECT_FALSE(outer.failed());
        Inform(program, "told");
        {
            const Undertaking inner(program);
            EXPECT_FALSE(Run("bad"));
        }
        EXPECT_TRUE(outer.failed());
        EXPECT_FALSE(Run("a"));
        EXPECT_FALSE(SaveUnit(program).isOpen());
        Inform(program, "rests on it");
        EXPECT_FALSE(Ask(program, "rests on it too"));
    }
    EXPECT_EQ(TakeLog(), QString("open a bad bad"));
    EXPECT_EQ(TakeBoxes(), QString("bad|told|bad"));
    EXPECT_TRUE(Run("next"));
}

TEST_F(OpenQueryTest, AnActionTriesToConnectOnceAndOtherFailuresDoNotEndIt)
{
    script.failing = {"bad", "open"};
    for (const char* log : {"open", "open"}) {
        const UserAction action(program);
        EXPECT_FALSE(Run("a") || Run("b") || SaveUnit(program).isOpen());
        EXPECT_EQ(TakeLog(), QString(log));
        EXPECT_EQ(TakeBoxes(), QString("open"));
    }
    script.failing = {"bad"};
    const UserAction action(program);
    EXPECT_FALSE(Run("bad"));
    EXPECT_TRUE(Run("b"));
}

TEST_F(OpenQueryTest, AUnitWhoseCommitIsNotAnsweredIsLookedFor)
{
    const struct
    {
        std::optional<bool> seen; // by the question after the loss
        const char* boxes;
    } cases[] = {{true, "held"}, {false, "commit"}, {{}, "look"}};
    for (const auto& c : cases) {
        EXPECT_TRUE(Run("first"));
        script = {.losing = "commit"};
        SaveUnit unit(program);
        Inform(program, "held");
        const std::optional<bool> stored = unit.Commit([&]() -> std::optional<bool> {
            script.losing.clear();
            script.failing = {"look"};
            if (c.seen)
                EXPECT_TRUE(Run("found"));
            else
                EXPECT_FALSE(Run("look"));
            return c.seen;
        });
        EXPECT_EQ(stored, c.seen);
        EXPECT_EQ(TakeBoxes(), QString(c.boxes));
    }
}
