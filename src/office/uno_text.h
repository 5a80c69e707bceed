#pragma once

// Texts, file names and named values as LibreOffice's component model wants them.

#include <QString>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <initializer_list>

rtl::OUString ToUno(const QString& text);
QString FromUno(const rtl::OUString& text);

/// The address of a file.
rtl::OUString FileUrl(const QString& path);

using UnoProperties = com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>;

com::sun::star::beans::PropertyValue Property(const char* name, const com::sun::star::uno::Any& value);
UnoProperties Properties(std::initializer_list<com::sun::star::beans::PropertyValue> properties);
/// Sets properties of an object in one call.
/// @param properties  in the order of their names
void SetProperties(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& object,
                   std::initializer_list<com::sun::star::beans::PropertyValue> properties);
