#include "base/program_folder.h"

namespace {

bool IsDriveRoot(const QString& folder)
{
    const QStringView trimmed = QStringView(folder).trimmed();
    return trimmed.size() == 3 && trimmed[1] == u':';
}

} // namespace

QString PathInFolder(const QString& folder, const QString& fileName)
{
    const bool endsInSeparator = folder.endsWith(u'/') || IsDriveRoot(folder);
    return endsInSeparator ? folder + fileName : folder + u'/' + fileName;
}
