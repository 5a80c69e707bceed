#include "shell/settings.h"

#include <QMetaType>

namespace {

const QString kProductWord = QStringLiteral("Warehouse");

QString KeyOf(const QString& name)
{
    return name + '/' + name;
}

} // namespace

std::unique_ptr<QSettings> OpenSettings(const RunParameters& parameters)
{
    const QString product = parameters.SoftType.trimmed() + kProductWord;
#ifdef Q_OS_WIN
    return std::make_unique<QSettings>("HKEY_LOCAL_MACHINE\\Software\\" + product, QSettings::NativeFormat);
#else
    return std::make_unique<QSettings>(QSettings::UserScope, product);
#endif
}

QString ReadSetting(const QSettings& settings, const QString& name)
{
    const QVariant value = settings.value(KeyOf(name));
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString().section(QChar(0), 0, 0);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toString();
    default:
        return {};
    }
}

bool WriteSetting(QSettings& settings, const QString& name, const QString& text)
{
    settings.setValue(KeyOf(name), text);
    settings.sync();
    return settings.status() == QSettings::NoError;
}
