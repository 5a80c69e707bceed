#pragma once

// The JSON file that describes a bill to be posted.

#include "data/bill_kinds.h"

#include <QDate>
#include <QJsonObject>
#include <deque>
#include <map>
#include <memory>
#include <optional>

struct BillText;

struct LineText
{
    QString code; // the good is chosen by code or, without one, by name
    QString name;
    std::vector<std::pair<int, QString>> cells; // typed afterwards, in column order
};

/// The file, understood and checked against the kind before anything is opened.
struct PostRequest
{
    const BillKind* kind = nullptr;
    QDate date;
    QString operatorName;
    QString code; // of a saved bill that is to be rewritten
    QString databaseType = "Access";
    bool lotMoney = false;
    bool withoutAccounting = false;
    std::map<QString, QString> fields; // texts by control
    std::map<QString, bool> checks;
    std::optional<std::vector<LineText>> lines;
    std::deque<bool> answers;
};

/// The object in a file. Throws WrongUse where there is none.
QJsonObject ReadBillFile(const QString& path);
/// Throws WrongUse for whatever makes no sense.
PostRequest ReadRequest(const QJsonObject& bill);
/// A screen for a bill of the kind.
std::unique_ptr<BillText> MakeScreen(const BillKind& kind);
