#include "place.h"

#include "database/odbc_store.h"
#include "database/sqlite_store.h"
#include "refusal.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>

namespace {

struct KindWord
{
    const char* word;
    ServerKind kind;
};

constexpr KindWord kKindWords[] = {
    {"sqlserver", ServerKind::SqlServer},
    {"postgresql", ServerKind::PostgreSql},
};

const KindWord& KindOf(const QString& word)
{
    for (const KindWord& known : kKindWords) {
        if (word == known.word)
            return known;
    }
    throw WrongUse{QString("a server is sqlserver or postgresql, not \"%1\"").arg(word)};
}

QString Password()
{
    const QString path = qEnvironmentVariable("ACCTSET_PASSWORD_FILE");
    if (path.isEmpty())
        return qEnvironmentVariable("ACCTSET_PASSWORD");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw WrongUse{QString("the password file \"%1\" cannot be read").arg(path)};
    return QString::fromUtf8(file.readLine()).remove('\r').remove('\n');
}

QString Decoded(const QString& part)
{
    return QUrl::fromPercentEncoding(part.toUtf8());
}

/// The driver and its options are those of the program's own settings where they are for this kind of server.
ServerSettings SettingsFor(ServerKind kind)
{
    ServerSettings settings = ReadServerSettings(QCoreApplication::applicationDirPath());
    if (settings.kind != kind)
        settings = {};
    settings.kind = kind;
    return settings;
}

} // namespace

AccountSetPlace ReadPlace(const QString& word)
{
    static const QRegularExpression form("^([a-z]+)://(?:([^@/]*)@)?([^@/:]+)(?::([0-9]+))?/([^/]+)$");
    if (!word.contains("://"))
        return {word, {}};
    const QRegularExpressionMatch match = form.match(word);
    if (!match.hasMatch())
        throw WrongUse{"a server is written as postgresql://login@address:port/database"};
    const KindWord& kind = KindOf(match.captured(1));
    if (match.captured(2).contains(':'))
        throw WrongUse{"a password does not belong on a command line; ACCTSET_PASSWORD holds it"};
    const QString port = match.captured(4).isEmpty() ? UsualPort(kind.kind) : match.captured(4);
    return {{},
            ServerPlace{SettingsFor(kind.kind),
                        {Decoded(match.captured(3)), port, Decoded(match.captured(5)), Decoded(match.captured(2)),
                         Password()}}};
}

ServerKind ReadServerKind(const QString& word)
{
    return KindOf(word).kind;
}

StoreOpener OpenerOf(const AccountSetPlace& place)
{
    if (place.server)
        return [server = *place.server](const QString&) { return OpenServer(server.settings, server.address); };
    return [path = place.path](const QString&) { return OpenSqliteFile(path); };
}
