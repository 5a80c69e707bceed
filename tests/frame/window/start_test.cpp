#include "bills/life/draft.h"
#include "bills/life/lifecycle.h"
#include "frame/run_mode.h"
#include "frame/window/start.h"
#include "support/test_program.h"

#include <QApplication>
#include <QFile>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

constexpr QStringView kInTheSuite = u"非单独操作";

TEST(Start, TheDirectivesDecideWhichWindowComesFirst)
{
    const std::tuple<QString, QString, FirstWindow, FirstWindow> cases[] = {
        {"", "  同价调拨 ", FirstWindow::RecalledBill, FirstWindow::RecalledBill},
        {"", "盘点报溢", FirstWindow::RecalledBill, FirstWindow::RecalledBill},
        {"", "商品拆卸", FirstWindow::RecalledAssembly, FirstWindow::RecalledAssembly},
        {"", "商品入库", FirstWindow::MainWindow, FirstWindow::None},
        {"", "", FirstWindow::MainWindow, FirstWindow::None},
        {" 商品调价", "", FirstWindow::MainWindow, FirstWindow::NewBill},
        {"组装拆卸", "", FirstWindow::MainWindow, FirstWindow::NewAssembly},
        {"商品组装", "", FirstWindow::MainWindow, FirstWindow::None},
        {"同价调拨", "商品组装", FirstWindow::RecalledAssembly, FirstWindow::NewBill},
    };
    for (const auto& [operation, word, inTheSuite, alone] : cases) {
        RunParameters parameters;
        parameters.OperateType = operation;
        parameters.OperationsDirective2 = word;
        EXPECT_EQ(FirstWindowOf(parameters, kInTheSuite), inTheSuite) << word.toStdString();
        EXPECT_EQ(FirstWindowOf(parameters, kStandAloneMode), alone) << word.toStdString();
    }
}

TEST(Start, WithoutAHandOverNothingStarts)
{
    TestProgram test;
    EXPECT_EQ(Main(test.folder.path(), test.prompt, test.clock, kInTheSuite), nullptr);
    EXPECT_EQ(test.prompt.boxes.at(0).kind, "warn");
    EXPECT_EQ(test.Boxes(), "读取系统参数失败，本模块启动终止！请重新操作！");
    EXPECT_EQ(test.program.gConnection.State(), 0);
}

TEST(Start, AWordThatNamesNothingEndsAModuleSoldAlone)
{
    TestProgram test;
    ASSERT_TRUE(WriteRunParameters(test.folder.path(), test.program.parameters, {"", "商品入库", "", "", ""}));
    EXPECT_EQ(Main(test.folder.path(), test.prompt, test.clock, kStandAloneMode), nullptr);
    EXPECT_EQ(test.Boxes(), "读取系统运行参数失败，本模块运行自动终止，请重新操作！");
}

TEST(Start, ASavedBillOpensAndTheHandOverIsGone)
{
    for (const auto& [table, word] : {std::pair("TabCheckOver", QString("盘点报溢")), {"TabWarePiece", "商品拆卸"}}) {
        TestProgram test;
        test.InsertBill(table, {{"Code", "BILL1"}, {"Datee", QDate(2023, 2, 8)}}, {{{"WareCode", "A001"}}});
        ASSERT_TRUE(WriteRunParameters(test.folder.path(), test.program.parameters,
                                       {word + "原单查看", word, QString(" %1 ").arg(table), "BILL1 ", ""}));
        const auto program = Main(test.folder.path(), test.prompt, test.clock, kInTheSuite);
        ASSERT_TRUE(program);
        EXPECT_FALSE(QFile::exists(test.folder.filePath("CfgVault.dll")));
        QWidgetList shown;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible())
                shown << window;
        ASSERT_EQ(shown.size(), 1);
        EXPECT_EQ(shown.front()->windowTitle(), word + "单 BILL1");
        EXPECT_TRUE(program->parameters.IsAccess);
        delete shown.front();
    }
}

/// The draft of a typed loss, left by a process that was killed.
QString LeaveDraft(TestProgram& test)
{
    BillText bill;
    test.program.parameters.OperateType = "盘点报损";
    LoadWindow(test.program, bill);
    frm_Initialize(test.program, bill, false);
    bill.TxtMemo = "急";
    Draft draft(test.program);
    EXPECT_TRUE(draft.Write(test.program, bill));
    return draft.path();
}

TEST(Start, ADraftIsOfferedAndADamagedOneIsRefusedByName)
{
    TestProgram test;
    const auto start = [&](Choice choice) {
        EXPECT_TRUE(WriteRunParameters(test.folder.path(), test.program.parameters, {}));
        test.prompt.choices = {choice};
        const auto program = Main(test.folder.path(), test.prompt, test.clock, kInTheSuite);
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
        QStringList titles;
        for (const QWidget* window : windows)
            titles << window->windowTitle();
        qDeleteAll(windows);
        titles.sort();
        return titles.join('|');
    };
    const QString path = LeaveDraft(test);
    EXPECT_EQ(start(Choice::Cancel), "仓库管理");
    EXPECT_EQ(test.Boxes(), "程序上次意外结束时有未保存的单据，需要恢复吗？\r\n盘点报损单 2023-02-08");
    EXPECT_EQ(start(Choice::First), "仓库管理|盘点报损单*");
    EXPECT_EQ(start(Choice::Second), "仓库管理");
    EXPECT_FALSE(QFile::exists(path));

    const QString damaged = LeaveDraft(test);
    ASSERT_TRUE(QFile::resize(damaged, 100));
    test.prompt.boxes.clear();
    EXPECT_EQ(start(Choice::First), "仓库管理");
    EXPECT_EQ(test.Boxes(),
              "草稿文件已损坏，不能恢复：\r\n" + damaged + "\r\n该文件已改名保留为：\r\n" + damaged + ".damaged");
    EXPECT_TRUE(QFile::exists(damaged + ".damaged"));
    EXPECT_EQ(start(Choice::First) + test.Boxes(), "仓库管理");
}

} // namespace
