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
    if (program.gConnection.State() != 1) {
        const QString connection = BuildConnectionString(program);
        WaitFor(program, [&] { program.gConnection.Open(connection); });
    }
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
        ReportError(program, error);
        program.gConnection.Close();
    }
}

bool CommitUnit(Program& program)
{
    if (!StoreHoldsUnit(program))
        return false;
    try {
        WaitFor(program, [&] { program.gConnection.store().CommitUnit(); });
        return true;
    } catch (const StoreError& error) {
        ReportError(program, error);
        RollBack(program);
        return false;
    }
}

} // namespace

Recordset OpenQuery(Program& program, const Sql& sql)
{
    // What the database has taken back as a whole must not be followed by rows that stay.
    if (program.unitOpen && !StoreHoldsUnit(program))
        return Recordset();
    try {
        Store& store = OpenedStore(program);
        return WaitFor(program, [&] { return store.Run(sql); });
    } catch (const StoreError& error) {
        ReportError(program, error);
        return Recordset();
    }
}

void Inform(Program& program, const QString& text)
{
    ShowOrHold(program, {false, text});
}

SaveUnit::SaveUnit(Program& program) : m_program(program)
{
    Q_ASSERT(!program.unitOpen);
    try {
        Store& store = OpenedStore(program);
        WaitFor(program, [&] { store.BeginUnit(); });
        m_open = true;
        program.unitOpen = true;
    } catch (const StoreError& error) {
        ReportError(program, error);
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
    if (!m_open)
        return false;
    const bool stored = CommitUnit(m_program);
    EndUnit();
    return stored;
}

void SaveUnit::EndUnit()
{
    m_open = false;
    m_program.unitOpen = false;
    const std::vector<HeldBox> boxes = std::exchange(m_program.heldBoxes, {});
    for (const HeldBox& box : boxes)
        ShowBox(m_program, box);
}
