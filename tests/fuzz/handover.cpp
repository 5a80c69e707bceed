#include "fuzz/targets.h"
#include "handover/run_parameters.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

void FuzzHandover(const uint8_t* bytes, size_t size)
{
    static const QTemporaryDir folder; // making one takes longer than all the rest
    const QString path = folder.filePath("CfgVault.dll");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char*>(bytes), static_cast<qint64>(size));
    file.close();

    if (!ReadClearLines(folder.path()))
        std::abort();
    const QDate today(2023, 2, 8);
    const std::optional<RunParameters> read = ReadRunParameters(folder.path(), today);
    if (!read || QFile::exists(path))
        std::abort();
    // What was understood can be handed on.
    if (!WriteRunParameters(folder.path(), *read, {}) || !ReadRunParameters(folder.path(), today))
        std::abort();
}
