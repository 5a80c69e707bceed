#include "office/uno_text.h"

#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <com/sun/star/beans/XMultiPropertySet.hpp>

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

void SetProperties(const uno::Reference<uno::XInterface>& object,
                   std::initializer_list<beans::PropertyValue> properties)
{
    uno::Sequence<rtl::OUString> names(sal_Int32(properties.size()));
    uno::Sequence<uno::Any> values(sal_Int32(properties.size()));
    std::ranges::transform(properties, names.getArray(), &beans::PropertyValue::Name);
    std::ranges::transform(properties, values.getArray(), &beans::PropertyValue::Value);
    uno::Reference<beans::XMultiPropertySet>(object, uno::UNO_QUERY_THROW)->setPropertyValues(names, values);
}
