#pragma once

// The ANSI code page of the systems served: GBK. Files shared with the siblings are written in it.

#include <QByteArray>
#include <QString>

/// Text to GBK; a character that the code page lacks becomes "?".
QByteArray ToCodePage(const QString& text);
/// GBK to text; a broken sequence becomes U+FFFD.
QString FromCodePage(const QByteArray& bytes);
/// Whether this byte opens a double-byte character.
constexpr bool IsLeadByte(unsigned char byte)
{
    return byte >= 0x81 && byte <= 0xFE;
}
