#include "base/whole_text.h"

QString WholeText(QString text)
{
    if (text.isValidUtf16() && !text.contains(QChar::Null))
        return text;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (isPair)
            ++at;
        else if (text[at].isNull() || text[at].isSurrogate())
            text[at] = QChar::ReplacementCharacter;
    }
    return text;
}
