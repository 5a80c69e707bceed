#include "handover/program.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(ConnectionString, NamesTheAccountSet)
{
    const QString noAccountSet = "不能确定当前操作账套，请重新登陆系统！";
    const QString access = "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = ";
    const QString password = "Jet OLEDB:Database Password='wkvtmq#482.zzz'";
    const struct
    {
        QString type;
        QString folder;
        QString data;
        QString server;
        QString port;
        QString expected;
        int boxes;
    } cases[] = {
        {"SQL", "C:\\S", "Vault", "10.0.0.1", " 1500 ",
         "Driver={SQL Server};Server=10.0.0.1,1500;DataBase=Vault;UID=sa;PWD=p w; ", 0},
        {"SQL", "C:\\S", "Vault", "10.0.0.1", "  ",
         "Driver={SQL Server};Server=10.0.0.1,1433;DataBase=Vault;UID=sa;PWD=p w; ", 0},
        {"SQL", "C:\\S", "", "", "", "Driver={SQL Server};Server=,1433;DataBase=;UID=sa;PWD=p w; ", 2},
        {"Access", "C:\\S", "a.mdb", "", "", access + "C:\\S\\Data\\a.mdb;" + password, 0},
        {"Access", "C:\\", "a.mdb", "", "", access + "C:\\\\Data\\a.mdb;" + password, 0},
        {"Access", "/opt/s", "", "", "", access + "/opt/s\\Data\\;" + password, 1},
        {"Access2", "C:\\S", "a.mdb", "", "", access + "C:\\S\\Data\\a.mdb;  " + password, 0},
        {"Access2", "C:\\", "a.mdb", "", "", access + "C:\\Data\\a.mdb;  " + password, 0},
        {"access", "C:\\S", "a.mdb", "", "", "", 0},
    };
    for (const auto& c : cases) {
        ScriptedPrompt prompt;
        FixedClock clock;
        RunParameters parameters;
        parameters.DatabaseType = c.type;
        parameters.ConDataName = c.data;
        parameters.ConServerIP = c.server;
        parameters.ConPortNum = c.port;
        parameters.ConDataBaseUID = "sa";
        parameters.ConDataBasePWD = "p w";
        Program program(c.folder, parameters, prompt, clock);
        EXPECT_EQ(BuildConnectionString(program), c.expected);
        ASSERT_EQ(prompt.boxes.size(), static_cast<size_t>(c.boxes)) << c.expected.toStdString();
        for (const auto& box : prompt.boxes) {
            EXPECT_EQ(box.kind, QString("warn"));
            EXPECT_EQ(box.text, noAccountSet);
        }
    }
}
