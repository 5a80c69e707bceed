#include "data/rights.h"

#include "support/test_program.h"

#include <QSysInfo>
#include <gtest/gtest.h>

TEST(Rights, EachActionAsksItsOwnColumn)
{
    TestProgram test;
    test.Insert("TabOperateRight", {{"UserName", "张三"}, {"FunctionName", "同价调拨"}, {"AllowEdit", 1}});
    const auto may = [&](const char* user, const char* function, Action action) {
        return CheckOperateRight(test.program, user, function, action);
    };
    EXPECT_TRUE(may(" 张三 ", "同价调拨 ", Action::Edit));
    EXPECT_TRUE(may("系统管理员", "", Action::Delete));
    EXPECT_TRUE(test.prompt.TakeTexts().isEmpty());

    EXPECT_FALSE(may("张三", "同价调拨", Action::Read));
    EXPECT_FALSE(may("张三", "同价调拨", Action::Delete));
    EXPECT_FALSE(may("张三", "同价调拨", Action::Print));
    EXPECT_FALSE(may("张三", "同价调拨", Action::Audit));
    EXPECT_FALSE(may("张三", "盘点报损", Action::Edit));
    EXPECT_FALSE(may("' or '1'='1", "同价调拨", Action::Edit));
    EXPECT_FALSE(may("张三", " ", Action::Edit));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList(7, "没有操作权限！"));
}

TEST(Rights, ACloudAccountWorksOnTheDeviceOfItsLastSignIn)
{
    TestProgram test;
    RunParameters& parameters = test.program.parameters;
    parameters.CloudAccount = "云";
    EXPECT_TRUE(CheckOperateRight(test.program, "系统管理员", "同价调拨", Action::Read));
    EXPECT_FALSE(CheckCloudLogin(test.program));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList{"不能确定子账号，请退出软件重新登陆！"});

    parameters.CloudAccount2 = "子";
    EXPECT_TRUE(CheckCloudLogin(test.program));
    test.Insert("TabCloudAccountLoginInf", {{"Account", "云"}, {"Account2", "子"}, {"UserCode", "别的设备"}});
    EXPECT_FALSE(CheckOperateRight(test.program, "系统管理员", "同价调拨", Action::Read));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList{"本云账号已在别的终端设备上登陆，本终端自动终止操作！"});
    test.Run(Sql("update TabCloudAccountLoginInf set UserCode=") + QString::fromLatin1(QSysInfo::machineUniqueId()));
    EXPECT_TRUE(CheckOperateRight(test.program, "系统管理员", "同价调拨", Action::Read));

    parameters.CloudAccount = " ";
    EXPECT_FALSE(CheckCloudLogin(test.program));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList{"不能确定云账号，请退出软件重新登陆！"});
}
