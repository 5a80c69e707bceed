#include "data/typed_code.h"

QString NarrowCode(const QString& code)
{
    constexpr char16_t kFirstWide = u'\uFF01';
    constexpr char16_t kLastWide = u'\uFF5E';
    constexpr char16_t kWideBlank = u'\u3000';
    QString narrow = code;
    for (QChar& c : narrow) {
        if (c == kWideBlank)
            c = u' ';
        else if (c >= kFirstWide && c <= kLastWide)
            c = QChar(char16_t(c.unicode() - kFirstWide + u'!'));
    }
    while (narrow.endsWith(u' '))
        narrow.chop(1);
    return narrow;
}

Sql CodeIs(const char* column, const QString& typed)
{
    const QString narrow = NarrowCode(typed);
    if (narrow == typed)
        return Sql(column) + "=" + typed + " ";
    return Sql("(") + column + "=" + typed + " or " + column + "=" + narrow + ") ";
}
