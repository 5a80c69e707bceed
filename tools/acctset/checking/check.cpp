// acctset check: what is wrong in an account set, one finding a line.

#include "checking/check.h"

#include "commands.h"
#include "handover/open_query.h"

int CheckCommand(const QStringList& arguments)
{
    const CommandLine line(
        "check",
        "Looks an account set through for faults and prints one line for each: kind, bill, code and what it is, with "
        "tabs between them. Exits with 1 where there is any. The kinds:\n"
        "  orphan    lines without a head\n"
        "  headless  a head without lines\n"
        "  twice     a code, or a voucher number of a book and month, that stands twice\n"
        "  state     lines whose state is not their head's\n"
        "  audit     lines whose audit mark is not their head's\n"
        "  voucher   debit and credit differ\n"
        "  moment    a moment off its bill's day, or not after the one before\n"
        "  same      lines of one good at one moment\n"
        "  stock     a good below zero in a warehouse, since when and until when\n"
        "  cost      a unit cost behind the last close that is not what the engine gives",
        {"FILE"}, {{"currencies", "bills carry a currency, and costs are kept for each", ""}}, arguments);
    if (line.helpShown())
        return kDone;
    OpenedAccountSet set(line.Word(0));
    // All of a file is read, most of it not in its order: mapped, its pages are not copied again and again.
    OpenQuery(set.program,
              set.program.parameters.IsAccess ? Sql("pragma mmap_size=2147418112") : Sql("select Name from TabDotSet"));
    set.RefuseOnErrors(); // nothing is asked of what cannot be opened
    int findings = 0;
    const Report print = [&](const Finding& finding) {
        PrintLine(QStringList{finding.kind, finding.bill, finding.code, finding.what}.join('\t'));
        ++findings;
    };
    CheckRows(set.program, print);
    CheckAgreement(set.program, print);
    CheckMoments(set.program, print);
    CheckGoods(set.program, line.IsSet("currencies"), print);
    set.RefuseOnErrors();
    return findings == 0 ? kDone : kRefused;
}
