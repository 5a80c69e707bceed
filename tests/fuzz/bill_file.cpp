#include "commands.h"
#include "fuzz/targets.h"
#include "posting/post_request.h"

#include <QJsonDocument>

void FuzzBillFile(const uint8_t* bytes, size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return;
    try {
        ReadRequest(document.object());
    } catch (const WrongUse&) {
        return; // said by name
    }
}
