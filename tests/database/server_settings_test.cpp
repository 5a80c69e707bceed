#include "database/server_settings.h"

#include "database/store.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
ServerSettings SettingsOf(const char* text)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(kServerSettingsFile));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    return ReadServerSettings(folder.path());
}

constexpr const char* kHandedOver = "Driver={SQL Server};Server=10.0.0.9,1433;DataBase=books;UID=sa;PWD=%1; ";
} // namespace

TEST(ServerSettings, AMissingFileMeansSqlServer)
{
    const ServerSettings settings = ReadServerSettings(QTemporaryDir().path());
    EXPECT_EQ(settings.kind, ServerKind::SqlServer);
    EXPECT_GT(settings.connectSeconds, 0);
}

TEST(ServerSettings, AreReadLineByLine)
{
    const ServerSettings settings = SettingsOf(
        "# the server\r\n\r\nkind = PostgreSQL\r\ndriver=My Driver\noptions=a=b;c=d;\nconnect=3\nstatement=9");
    EXPECT_EQ(settings.kind, ServerKind::PostgreSql);
    EXPECT_EQ(settings.driver.toStdString(), "My Driver");
    EXPECT_EQ(settings.options.toStdString(), "a=b;c=d;");
    EXPECT_EQ(settings.connectSeconds, 3);
    EXPECT_EQ(settings.statementSeconds, 9);
    for (const char* nonsense : {"kind=oracle", "connect=soon", "connect=0", "colour=red", "postgresql"})
        EXPECT_THROW(SettingsOf(nonsense), StoreError) << nonsense;
}

TEST(ServerSettings, SqlServerGetsTheConnectionStringAsItStandsAndTheVersionOfItsLogIn)
{
    const QString given = QString(kHandedOver).arg("secret");
    EXPECT_EQ(DriverConnection({}, AddressOf(given)).toStdString(),
              QString(kHandedOver).arg("secret;TDS_Version=7.4").toStdString());
}

TEST(ServerSettings, AValueNeverEndsItsPlaceInTheString)
{
    ServerSettings postgres;
    postgres.kind = ServerKind::PostgreSql;
    struct Case
    {
        const char* password;
        const char* sqlServer;
        const char* postgres;
    };
    const Case cases[] = {
        {"secret", ";PWD=secret;", ";PWD=secret;"},
        {"", ";PWD=;", ";PWD=;"},
        {"a;Server=evil", ";PWD={a;Server=evil};", ";PWD={a;Server=evil};"},
        {"a}b{", ";PWD=a}b{;", ";PWD={a}}b{};"},
        {"{a};", "", ";PWD={{a}};};"},
        {"a;b}", ";PWD={a;b}};", ";PWD={a;b}}};"},
        {"x;PWD=y; z", ";PWD={x;PWD=y; z};", ";PWD={x;PWD=y; z};"},
        {"密 码", ";PWD=密 码;", ";PWD={密 码};"},
    };
    for (const auto& [password, forSqlServer, forPostgres] : cases) {
        const ServerAddress address = AddressOf(QString(kHandedOver).arg(password));
        EXPECT_EQ(address.password.toStdString(), password);
        EXPECT_EQ(address.server.toStdString() + " " + address.port.toStdString(), "10.0.0.9 1433");
        EXPECT_EQ(address.database.toStdString() + " " + address.user.toStdString(), "books sa");
        EXPECT_TRUE(DriverConnection(postgres, address).contains(forPostgres));
        if (*forSqlServer)
            EXPECT_TRUE(DriverConnection({}, address).contains(forSqlServer)) << forSqlServer;
        else
            EXPECT_THROW(DriverConnection({}, address), StoreError) << "the driver has no way to say it";
    }
}
