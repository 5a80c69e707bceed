#include "shell/settings.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

TEST(Settings, ReadsTextsAndNumbersOnly)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    settings.setValue("FlashSet/FlashSet", QString("不显示") + QChar(0) + "rest");
    settings.setValue("Number/Number", 17);
    settings.setValue("List/List", QVariantList{1, 2});
    EXPECT_EQ(ReadSetting(settings, kFlashSetting), "不显示");
    EXPECT_EQ(ReadSetting(settings, "Number"), "17");
    EXPECT_EQ(ReadSetting(settings, "List"), "");
    EXPECT_EQ(ReadSetting(settings, kPictureSetting), "");
}

TEST(Settings, BelongToTheBrand)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    RunParameters brand;
    brand.SoftType = "QV ";
    EXPECT_TRUE(WriteSetting(*OpenSettings(brand), kPictureSetting, "/pictures/hall.png"));
    EXPECT_EQ(ReadSetting(*OpenSettings(brand), kPictureSetting), "/pictures/hall.png");
    brand.SoftType = "Z3";
    EXPECT_EQ(ReadSetting(*OpenSettings(brand), kPictureSetting), "");
}

} // namespace
