#include "handover/open_query.h"

#include <chrono>
#include <future>
#include <utility>

namespace {

QString ErrorText(const StoreError& error)
{
    return "Error:" + QString::number(error.number) + "\r\n" + error.description;
}

void ShowBox(Program& program, const HeldBox& box)
{
    if (box.isError)
        program.prompt.Error(box.text);
    else
        program.prompt.Inform(box.text);
}

void ShowOrHold(Program& program, const HeldBox& box)
{
    if (program.unitOpen)
        program.heldBoxes.push_back(box);
    else
        ShowBox(program, box);
}

void ReportError(Program& program, const StoreError& error)
{
    ShowOrHold(program, {true, ErrorText(error)});
}

/// What is under way ends with it.
void ReportFailure(Program& program, const StoreError& error)
{
    program.underway.failed = true;
    ReportError(program, error);
}

/// A server may be slow: what lasts longer than a glance is waited for under a busy pointer. The work runs beside the
/// user's thread, which waits for it and does nothing else.
template <typename Work>
auto WaitFor(Program& program, const Work& work)
{
    constexpr std::chrono::milliseconds kGlance(200);
    if (!program.prompt.showsBusy() || program.parameters.DatabaseType != u"SQL")
        return work();
    auto result = std::async(std::launch::async, work);
    if (result.wait_for(kGlance) == std::future_status::timeout) {
        program.prompt.Busy(true);
        result.wait();
        program.prompt.Busy(false);
    }
    return result.get();
}

/// The open store; opens it where it is closed.
Store& OpenedStore(Program& program)
{
    if (program.gConnection.State() == 1)
        return program.gConnection.store();
    const QString connection = BuildConnectionString(program);
    // Until it has opened, whatever else is asked meanwhile would fail as well.
    program.underway.unreachable = true;
    WaitFor(program, [&] { program.gConnection.Open(connection); });
    program.underway.unreachable = false;
    if (const QString advice = program.gConnection.TakeAdvice(); !advice.isEmpty())
        ShowOrHold(program, {false, advice});
    program.gConnection.store().WhenDamaged([&program](const QString& text) { program.prompt.Warn(text); });
    return program.gConnection.store();
}

bool StoreHoldsUnit(Program& program)
{
    return program.gConnection.State() == 1 && program.gConnection.store().inUnit();
}

/// Closing takes back what a store no longer can.
void RollBack(Program& program)
{
    if (!StoreHoldsUnit(program))
        return;
    try {
        program.gConnection.store().RollbackUnit();
    } catch (const StoreError& error) {
        ReportFailure(program, error);
        program.gConnection.Close();
    }
}

Recordset Run(Program& program, const Sql& sql, void (*report)(Program&, const StoreError&))
{
    // What the database has taken back as a whole must not be followed by rows that stay.
    if (IsOver(program) || (program.unitOpen && !StoreHoldsUnit(program)))
        return Recordset();
    try {
        Store& store = OpenedStore(program);
        return WaitFor(program, [&] { return store.Run(sql); });
    } catch (const StoreError& error) {
        report(program, error);
        return Recordset();
    }
}

} // namespace

Recordset OpenQuery(Program& program, const Sql& sql)
{
    return Run(program, sql, ReportFailure);
}

Recordset OpenQueryAndGoOn(Program& program, const Sql& sql)
{
    return Run(program, sql, ReportError);
}

void Inform(Program& program, const QString& text)
{
    if (!IsOver(program))
        ShowOrHold(program, {false, text});
}

bool Ask(Program& program, const QString& text)
{
    Q_ASSERT(!program.unitOpen);
    return !IsOver(program) && program.prompt.Ask(text);
}

SaveUnit::SaveUnit(Program& program) : m_program(program), m_undertaking(program)
{
    Q_ASSERT(!program.unitOpen);
    if (IsOver(program))
        return;
    try {
        Store& store = OpenedStore(program);
        WaitFor(program, [&] { store.BeginUnit(); });
        m_open = true;
        program.unitOpen = true;
        if (program.writing)
            program.writing(true);
    } catch (const StoreError& error) {
        ReportFailure(program, error);
    }
}

SaveUnit::~SaveUnit()
{
    if (!m_open)
        return;
    RollBack(m_program);
    EndUnit();
}

bool SaveUnit::Commit()
{
    return Commit({}).value_or(false);
}

std::optional<bool> SaveUnit::Commit(const IsStoredQuestion& isStored)
{
    if (!m_open)
        return false;
    bool stored = false;
    try {
        if (!m_undertaking.failed() && StoreHoldsUnit(m_program)) {
            WaitFor(m_program, [&] { m_program.gConnection.store().CommitUnit(); });
            stored = true;
        }
    } catch (const StoreError& error) {
        if (isStored && m_program.gConnection.State() != 1)
            return LookAfterLoss(isStored, error);
        ReportFailure(m_program, error);
    }
    if (!stored)
        RollBack(m_program);
    EndUnit();
    return stored;
}

/// The commit may have arrived although its answer did not.
std::optional<bool> SaveUnit::LookAfterLoss(const IsStoredQuestion& isStored, const StoreError& error)
{
    m_program.unitOpen = false;
    const std::optional<bool> stored = isStored();
    if (stored == false)
        ReportFailure(m_program, error);
    EndUnit();
    return stored;
}

void SaveUnit::EndUnit()
{
    m_open = false;
    m_program.unitOpen = false;
    if (m_program.writing)
        m_program.writing(false);
    const std::vector<HeldBox> boxes = std::exchange(m_program.heldBoxes, {});
    for (const HeldBox& box : boxes) {
        // What was said of rows that are not there is not said.
        if (box.isError || !m_undertaking.failed())
            ShowBox(m_program, box);
    }
}
