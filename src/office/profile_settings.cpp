#include "office/profile_settings.h"

#include <QDir>
#include <QSaveFile>

namespace {

struct Setting
{
    const char* path;
    const char* name;
    const char* value;
};

constexpr Setting kSettings[] = {
    {"/org.openoffice.Setup/Office", "FirstStartWizardCompleted", "true"},
    {"/org.openoffice.Setup/Product", "ooSetupLastVersion", "99.9"},
    {"/org.openoffice.Setup/L10N", "ooSetupSystemLocale", "zh-CN"},
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.Common/Misc", "CrashReport", "false"},
    {"/org.openoffice.Office.Common/Save/Document", "WarnAlienFormat", "false"},
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Recovery/RecoveryInfo", "Enabled", "false"},
};

/// Names of sheets are the same everywhere where nobody looks at them.
constexpr Setting kJobSettings[] = {
    {"/org.openoffice.Office.Linguistic/General", "UILocale", "en-US"},
    // An opened sheet whose name differs from that of a new one in its case alone would be renamed: sheet1 and Sheet1.
    {"/org.openoffice.Office.Calc/Defaults/Sheet", "SheetPrefix", "New"},
};

constexpr Setting kWindowSettings[] = {
    {"/org.openoffice.Office.Linguistic/General", "UILocale", "zh-CN"},
    {"/org.openoffice.Setup/Office/Factories/"
     "org.openoffice.Setup:Factory['com.sun.star.sheet.SpreadsheetDocument']",
     "ooSetupFactoryDefaultFilter", "Calc MS Excel 2007 XML"},
};

QByteArray Item(const Setting& setting)
{
    return QByteArray("<item oor:path=\"") + setting.path + "\"><prop oor:name=\"" + setting.name +
           "\" oor:op=\"fuse\"><value>" + setting.value + "</value></prop></item>\n";
}

template <size_t count>
QByteArray Items(const Setting (&settings)[count])
{
    QByteArray items;
    for (const Setting& setting : settings)
        items += Item(setting);
    return items;
}

bool WriteWhole(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

} // namespace

bool WriteProfileSettings(const QString& folder, ProfileUse use)
{
    const QByteArray content =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
        "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n" +
        Items(kSettings) + (use == ProfileUse::Jobs ? Items(kJobSettings) : Items(kWindowSettings)) + "</oor:items>\n";
    return QDir().mkpath(folder + "/user") && WriteWhole(folder + "/user/registrymodifications.xcu", content);
}

bool WriteFontSettings(const QString& path)
{
    const QByteArray others = qEnvironmentVariable("FONTCONFIG_FILE", "/etc/fonts/fonts.conf").toHtmlEscaped().toUtf8();
    QByteArray content = "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\">\n"
                         "<fontconfig>\n<include ignore_missing=\"yes\">" +
                         others + "</include>\n";
    for (const char* family : {"宋体", "SimSun", "NSimSun", "新宋体", "黑体", "SimHei"})
        content += QByteArray("<alias binding=\"same\"><family>") + family +
                   "</family><accept><family>WenQuanYi Micro Hei</family><family>WenQuanYi Zen Hei</family>"
                   "<family>Noto Sans CJK SC</family></accept></alias>\n";
    return WriteWhole(path, content + "</fontconfig>\n");
}
