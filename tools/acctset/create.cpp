#include "commands.h"
#include "demo.h"
#include "new_account_set.h"
#include "print_templates.h"

int CreateCommand(const QStringList& arguments)
{
    const CommandLine line("create", "Makes a new account set FILE with all tables and indexes.", {"FILE"},
                           {{"demo", "fills it with a trading company and its year 2023", ""}}, arguments);
    if (line.helpShown())
        return kDone;
    NewAccountSet accountSet(line.Word(0));
    StoreFixedTemplates(accountSet);
    if (line.IsSet("demo")) {
        FillDemo(accountSet);
        StoreDemoTemplates(accountSet);
    }
    accountSet.Finish();
    if (line.IsSet("demo"))
        WriteDemoVouchers(line.Word(0));
    return kDone;
}
