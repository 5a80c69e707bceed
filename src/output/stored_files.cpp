#include "output/stored_files.h"

#include "base/replace_file.h"
#include "handover/open_query.h"

#include <QFile>

bool SaveTableFileToDisk(Program& program, const QString& fileName, const QString& tabName)
{
    const Recordset stored = OpenQuery(program, Sql("SELECT * FROM TabExcelTable where TabName = ") + tabName + " ");
    if (stored.isEmpty()) {
        if (stored)
            program.prompt.InformFault(fileName + "  不存在！.");
        return false;
    }
    const auto* const content = std::get_if<QByteArray>(&stored.at(0, "TabInf"));
    if (content && !content->isEmpty())
        return ReplaceFile(fileName, *content);
    return !QFile::exists(fileName) || QFile::remove(fileName);
}
