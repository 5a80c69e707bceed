#include "shell/window/appearance.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    const QTemporaryDir settings;                       // what windows remember of themselves
    qputenv("XDG_DATA_HOME", settings.path().toUtf8()); // and their drafts
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    SetAppearance();
    return RUN_ALL_TESTS();
}
