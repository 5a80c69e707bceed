#include "base/code_page.h"

#include <cstring>
#include <iconv.h>

namespace {

constexpr const char* kCodePage = "GBK";
constexpr const char* kInMemory = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";

/// The converter of the C library, and how much of input and output is left.
class Conversion
{
public:
    Conversion(const char* from, const char* to, const void* in, qsizetype inSize, void* out, qsizetype outSize)
        : m_handle(iconv_open(to, from)),
          m_in(static_cast<char*>(const_cast<void*>(in))),
          m_inLeft(static_cast<size_t>(inSize)),
          m_out(static_cast<char*>(out)),
          m_outLeft(static_cast<size_t>(outSize))
    {}
    ~Conversion()
    {
        if (isOpen())
            iconv_close(m_handle);
    }
    Q_DISABLE_COPY(Conversion)

    /// Converts until the end or to a character that cannot be converted; true at the end.
    bool Run()
    {
        if (!isOpen()) // a system without its code pages: nothing converts
            return m_inLeft == 0;
        return iconv(m_handle, &m_in, &m_inLeft, &m_out, &m_outLeft) != static_cast<size_t>(-1);
    }
    const char* in() const { return m_in; }
    qsizetype inLeft() const { return static_cast<qsizetype>(m_inLeft); }
    qsizetype outLeft() const { return static_cast<qsizetype>(m_outLeft); }

    void Replace(qsizetype inSize, const void* text, qsizetype textSize)
    {
        m_in += inSize;
        m_inLeft -= static_cast<size_t>(inSize);
        memcpy(m_out, text, static_cast<size_t>(textSize));
        m_out += textSize;
        m_outLeft -= static_cast<size_t>(textSize);
    }

private:
    bool isOpen() const { return reinterpret_cast<qintptr>(m_handle) != -1; }

    iconv_t m_handle;
    char* m_in;
    size_t m_inLeft;
    char* m_out;
    size_t m_outLeft;
};

qsizetype BrokenSize(const Conversion& conversion)
{
    const auto byte = [&](int i) { return static_cast<unsigned char>(conversion.in()[i]); };
    if (conversion.inLeft() < 2 || !IsLeadByte(byte(0)))
        return 1;
    const bool isTrailByte = byte(1) >= 0x40 && byte(1) != 0x7F && byte(1) != 0xFF;
    return isTrailByte ? 2 : 1;
}

} // namespace

QByteArray ToCodePage(const QString& text)
{
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    const qsizetype inSize = text.size() * qsizetype(sizeof(QChar));
    Conversion conversion(kInMemory, kCodePage, text.constData(), inSize, bytes.data(), bytes.size());
    while (!conversion.Run()) {
        const QChar* const lacking = text.constEnd() - conversion.inLeft() / qsizetype(sizeof(QChar));
        const bool isPair = lacking->isHighSurrogate() && lacking + 1 < text.constEnd() && lacking[1].isLowSurrogate();
        conversion.Replace(isPair ? 4 : 2, "?", 1);
    }
    bytes.chop(conversion.outLeft());
    return bytes;
}

QString FromCodePage(const QByteArray& bytes)
{
    const QChar broken(QChar::ReplacementCharacter);
    QString text(bytes.size(), Qt::Uninitialized);
    const qsizetype outSize = text.size() * qsizetype(sizeof(QChar));
    Conversion conversion(kCodePage, kInMemory, bytes.constData(), bytes.size(), text.data(), outSize);
    while (!conversion.Run())
        conversion.Replace(BrokenSize(conversion), &broken, sizeof broken);
    text.chop(conversion.outLeft() / qsizetype(sizeof(QChar)));
    return text;
}
