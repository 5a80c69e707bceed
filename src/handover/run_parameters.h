#pragma once

// What one program of the suite tells another when it starts it: a short file of scrambled lines beside the
// executables, read once and deleted at once. It holds a password, so it is made readable by its owner alone.

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

/// One member for each key of the hand-over, named as the key is.
struct RunParameters
{
    QString SoftType;
    QString DatabaseType;
    QString VisionNum;
    QString LoginType;
    QString CalCostType;
    bool IsJXC = false;
    bool IsAccess = false; // stands in the file as IsAccessSQL; true exactly for the DatabaseType "Access"
    bool IsLotMoney = false;
    QString ConDataName;
    QString ConDataRemark;
    QString PrintModleName;
    QString ConDataBaseUID;
    QString ConDataBasePWD;
    QString ConServerIP;
    QString ConPortNum;
    QString OperateType;
    QString UserName;
    QString UserPSW;
    qint16 UserNum = 0;
    QString OperateDate;
    QString CloudAccount;
    QString CloudAccount2;
    QString OperationsDirective;
    QString OperationsDirective2;
    QString OperationsDirective3;
    QString OperationsDirective4;
    QString OperationsDirective5;
};

using Directives = std::array<QString, 5>;

/// A clear line as it stands in the file, without its line end: trimmed, its characters in reverse order, each code
/// 5 lower. A double-byte character of the code page is one character.
QByteArray ScrambleParameterLine(const QByteArray& clearLine);
QByteArray UnscrambleParameterLine(const QByteArray& storedLine);

/// Reads CfgVault.dll in `folder` and deletes it.
/// @param today  the working date where the file names none
/// @return unset when there is no such file
std::optional<RunParameters> ReadRunParameters(const QString& folder, const QDate& today);
/// The clear lines of CfgVault.dll, in file order; the file stays. Unset when there is no such file.
std::optional<QStringList> ReadClearLines(const QString& folder);
/// Replaces CfgVault.dll by these parameters with the given directives. False on any file error.
bool WriteRunParameters(const QString& folder, const RunParameters& parameters, const Directives& directives);
/// Replaces lnch.ini by the one clear word for the starter. False for an empty word and on any file error.
bool WriteStarterDirective(const QString& folder, const QString& directive);
