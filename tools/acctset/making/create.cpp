#include "commands.h"
#include "making/base_data.h"
#include "making/demo.h"
#include "making/new_account_set.h"
#include "making/print_templates.h"

#include <QFileInfo>

namespace {

QString CompanyOf(const CommandLine& line)
{
    if (line.IsSet("company"))
        return line.Needed("company").trimmed();
    const AccountSetPlace place = ReadPlace(line.Word(0));
    return place.server ? place.server->address.database : QFileInfo(place.path).completeBaseName();
}

} // namespace

int CreateCommand(const QStringList& arguments)
{
    const CommandLine line("create", "Makes a new account set FILE with all tables and indexes.", {"FILE"},
                           {{"company", "name of the company, as forms print it; otherwise that of FILE", "NAME"},
                            {"demo", "fills it with a trading company and its year 2023", ""}},
                           arguments);
    if (line.helpShown())
        return kDone;
    NewAccountSet accountSet(line.Word(0));
    StoreFixedTemplates(accountSet);
    if (line.IsSet("demo")) {
        FillDemo(accountSet);
        StoreDemoTemplates(accountSet);
    } else {
        WriteSettings(accountSet, CompanyOf(line));
    }
    accountSet.Finish();
    if (line.IsSet("demo"))
        WriteDemoVouchers(line.Word(0));
    return kDone;
}
