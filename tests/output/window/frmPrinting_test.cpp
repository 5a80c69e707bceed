#include "output/window/frmPrinting.h"

#include "output/fake_lp.h"
#include "support/window.h"

namespace {

struct PrintingTest : testing::Test
{
    PrintingTest()
    {
        QFile paper(pdf);
        EXPECT_TRUE(paper.open(QIODevice::WriteOnly) && paper.write("pages") == 5);
        window.show();
    }
    void Print()
    {
        frmPrinting::Print(test.program, pdf, "TDD1", &window, [this](bool taken) { ended << taken; });
    }
    static bool IsDone() { return QTest::qWaitFor(FakeLp::IsDone, kPatience); }

    TestProgram test;
    QWidget window;
    const QString pdf = test.folder.filePath("paper.pdf");
    QList<bool> ended;
};

TEST_F(PrintingTest, TheFileMayGoAtOnce)
{
    const FakeLp lp;
    Print();
    QFile::remove(pdf);
    ASSERT_TRUE(IsDone());
    EXPECT_EQ(lp.paper() + lp.titles(), "pagesTDD1\n");
    Print();
    ASSERT_TRUE(IsDone());
    EXPECT_EQ(test.Boxes(), "读取打印文件失败，请重新操作！");
    EXPECT_EQ(ended, QList<bool>({true, false}));
}

TEST_F(PrintingTest, WhatThePrintingSystemRefusesIsSaid)
{
    const std::pair<QByteArray, const char*> cases[] = {
        {FakeLp::Saying("lp: Error - No default destination."),
         "没有默认打印机，不能打印！请在系统设置中添加打印机并设为默认打印机后重新操作。"},
        {FakeLp::Saying("lp: Error - The printer or class does not exist."),
         "默认打印机不存在，不能打印！请在系统设置中重新设定默认打印机后重新操作。"},
        {FakeLp::Saying("lp: Destination \"a\" is not accepting jobs."),
         "打印机已停止接收打印任务，不能打印！请检查打印机后重新操作。"},
        {FakeLp::Saying("lp: Error - scheduler not responding."),
         "打印服务没有运行，不能打印！请启动系统的打印服务(cups)后重新操作。"},
        {FakeLp::Saying("lp: fire"), "打印机没有接收打印任务：lp: fire"},
        {"exit 3\n", "打印命令lp没有说明原因（返回值3），没有打印！请检查打印机后重新操作。"},
        {"kill -9 $$\n", "打印命令lp意外终止，没有打印！请重新操作。"},
    };
    for (const auto& [script, box] : cases) {
        const FakeLp lp(script);
        Print();
        ASSERT_TRUE(IsDone());
        EXPECT_EQ(test.Boxes(), box);
    }
    const NoPrograms none;
    Print();
    ASSERT_TRUE(IsDone());
    EXPECT_EQ(test.Boxes(), "没有安装打印命令lp，不能打印！请安装软件包 cups-client 后重新操作。");
}

TEST_F(PrintingTest, WhoDoesNotAnswerIsGivenUpByTheUserOrInTheEnd)
{
    const FakeLp hangs("exec tail -f /dev/null\n");
    Print();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window.findChild<QWidget*>("frmPrinting")->isVisible(); }, kPatience));
    EXPECT_FALSE(QApplication::activeModalWidget()) << "the windows go on";
    window.findChild<QAbstractButton*>("CmdCancel")->click();
    ASSERT_TRUE(IsDone());
    EXPECT_FALSE(window.findChild<QWidget*>("frmPrinting"));
    EXPECT_EQ(test.Boxes(), "");
    EXPECT_EQ(ended, QList<bool>({false}));

    new PrintJob(test.program, pdf, "TDD1", {}, std::chrono::milliseconds(1));
    ASSERT_TRUE(IsDone());
    EXPECT_EQ(test.Boxes(), "打印服务在1秒内没有应答，没有打印！请检查打印机和系统的打印服务(cups)后重新操作。");
}

} // namespace
