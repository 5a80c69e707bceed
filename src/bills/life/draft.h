#pragma once

// What stands in a bill window and is not stored, kept in a file of its user's until it is stored or let go: where the
// program ends unexpectedly, it is offered on the next start. A draft bears no bill number.

#include "bills/bill_text.h"

#include <QLockFile>
#include <memory>
#include <optional>
#include <vector>

struct Program;

/// The content of a draft.
struct DraftText
{
    const BillKind* kind = nullptr;
    std::optional<Moment> stored; // of the stored bill that is being changed; unset for a new one
    BillContent content;
};

/// The draft of one bill window. Its file is there only while there is something to keep, and is the window's alone as
/// long as this object lives.
class Draft
{
public:
    /// Of a new window; nothing is written yet.
    explicit Draft(const Program& program);
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// Writes what is on the screen, whole or not at all. False when that failed; the older draft then stands.
    bool Write(const Program& program, const BillText& bill);
    void Remove();

    /// Unset for a damaged file.
    std::optional<DraftText> Read(const Program& program) const;
    /// Puts a damaged file aside, out of every later offer.
    /// @return its new name; empty where it could not be renamed
    QString PutAside();
    const QString& path() const { return m_path; }

    /// The drafts of this account set and operator that no running window holds.
    static std::vector<std::unique_ptr<Draft>> LeftBehind(const Program& program);

private:
    explicit Draft(const QString& path);
    bool Lock();

    QString m_path;
    QByteArray m_written;
    std::unique_ptr<QLockFile> m_lock; // set while the file is this window's
};

/// The bill that a draft is about, on a blank window of its kind: the stored one with what was typed, or, where that
/// one is another by now or locked, a new one, which is said.
void ShowDraft(Program& program, BillText& bill, const DraftText& draft);
/// The draft in a question: its kind and the first of its lines.
QString DescribeDraft(const DraftText& draft);
