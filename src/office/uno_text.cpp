#include "office/uno_text.h"

#include <QFileInfo>
#include <QUrl>

using namespace com::sun::star;

rtl::OUString ToUno(const QString& text)
{
    static_assert(sizeof(sal_Unicode) == sizeof(QChar));
    return {reinterpret_cast<const sal_Unicode*>(text.utf16()), sal_Int32(text.size())};
}

QString FromUno(const rtl::OUString& text)
{
    return QString(reinterpret_cast<const QChar*>(text.getStr()), text.getLength());
}

rtl::OUString FileUrl(const QString& path)
{
    const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    return ToUno(QString::fromLatin1(url.toEncoded(QUrl::FullyEncoded)));
}

beans::PropertyValue Property(const char* name, const uno::Any& value)
{
    beans::PropertyValue property;
    property.Name = rtl::OUString::createFromAscii(name);
    property.Value = value;
    return property;
}

UnoProperties Properties(std::initializer_list<beans::PropertyValue> properties)
{
    return {properties.begin(), sal_Int32(properties.size())};
}
