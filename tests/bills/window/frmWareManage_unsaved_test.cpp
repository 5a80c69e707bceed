// Work that is not stored: shown, asked about before it would be lost, and brought back after a crash.

#include "bills/life/draft.h"
#include "bills/ware_window.h"

#include <QDir>

namespace {

class UnsavedTest : public WareManageTest
{
protected:
    /// A stored loss of three, open in its window.
    void OpenStored()
    {
        test.InsertBill("TabCheckLose",
                        {{"Code", "BSD202302080001"},
                         {"Datee", QDate(2023, 2, 8)},
                         {"WarehouseCode", "101"},
                         {"WarehouseName", "主仓"}},
                        {{{"WareCode", "A001"}, {"WareName", "螺丝"}, {"Unite", "箱"}, {"Amount", 3.0}}});
        OpenSaved("TabCheckLose", "BSD202302080001");
    }
    void TypeAmount(const QString& amount)
    {
        ClickCell(1, 6);
        TypeText(amount);
    }
    bool isMarked() { return window->windowTitle().endsWith('*'); }
    std::vector<std::unique_ptr<Draft>> Left() { return Draft::LeftBehind(test.program); }
    /// The window goes as it does with a process that is killed, as soon as the draft is written.
    void EndProcess()
    {
        const QDir drafts(qEnvironmentVariable("XDG_DATA_HOME") + "/Warehouse/Drafts");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !drafts.entryList({"*.draft"}).isEmpty(); }, kPatience));
        EXPECT_TRUE(Left().empty()) << "its window still lives";
        window.reset();
    }
};

TEST_F(UnsavedTest, NothingTypedGoesWithoutAQuestion)
{
    const std::pair<Qt::Key, const char*> ways[] = {
        {Qt::Key_N, "A001"}, {Qt::Key_PageUp, "A001"}, {Qt::Key_PageDown, "A001"}, {Qt::Key_Q, "A001"}};
    OpenStored();
    for (const auto& [way, good] : ways) {
        SCOPED_TRACE(way);
        OpenLoss();
        EXPECT_TRUE(isMarked());
        Press({way}, Qt::ControlModifier);
        EXPECT_EQ(test.Boxes(), "盘点报损单 有尚未保存的内容，需要保存吗？");
        EXPECT_EQ(Line(1)[0] + Box("TxtWarehouseNameS"), good + QString("主仓"));
        EXPECT_TRUE(isMarked() && window->isVisible());

        test.prompt.choices = {Choice::Second};
        Press({way}, Qt::ControlModifier);
        EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
        EXPECT_FALSE(isMarked() && window->isVisible());
        EXPECT_EQ(Count("TabCheckLose"), 1);
    }
    OpenLoss();
    test.prompt.choices = {Choice::First};
    window->close();
    EXPECT_EQ(test.Boxes(), "盘点报损单 有尚未保存的内容，需要保存吗？|保存成功！");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Count("TabCheckLose"), 2);

    OpenNew("盘点报损");
    Press({Qt::Key_N, Qt::Key_Q}, Qt::ControlModifier);
    EXPECT_EQ(test.Boxes(), "") << "a blank bill";
}

TEST_F(UnsavedTest, WhatIsNotStoredIsSavedBeforeItIsAuditedVoidedOrPrinted)
{
    const char* const question = "单据有尚未保存的内容，须先保存，现在保存吗？";
    OpenStored();
    TypeAmount("2");
    EXPECT_TRUE(isMarked());
    for (const char* command : {"ToolAuditing", "ToolRedWord", "MPDirect_PT", "MPPreview_Excel", "MPrintSet_Excel_D"}) {
        Trigger(command);
        EXPECT_EQ(test.Boxes(), question) << command;
    }
    EXPECT_EQ(Rows("select Amount,State,Auditing from TabCheckLoseInf"), QStringList("3|正常|"));

    test.prompt.answers = {true, true};
    Trigger("ToolAuditing");
    EXPECT_EQ(test.prompt.TakeTexts().mid(2), QStringList("保存成功！"));
    EXPECT_EQ(Rows("select Amount,Auditing from TabCheckLoseInf"), QStringList("2|系统管理员"));
    EXPECT_EQ(Text("LabAuditing") + Line(1)[5], "已审核2.00");
    EXPECT_FALSE(isMarked());
}

TEST_F(UnsavedTest, ADayThatIsNotTheWorkingDateIsNoticedOnANewBill)
{
    OpenNew("盘点报损");
    auto* day = Find<QLineEdit>("DTPDate");
    const auto tint = [&] { return day->palette().color(QPalette::Base); };
    const QColor usual = tint();
    test.Insert("TabCheckLose", {{"Code", "BSD1"}, {"Datee", QDate(2023, 2, 3)}, {"State", "正常"}});
    OpenSaved("TabCheckLose", "BSD1");
    day = Find<QLineEdit>("DTPDate");
    EXPECT_EQ(tint(), usual);
    Press({Qt::Key_N}, Qt::ControlModifier);
    EXPECT_NE(tint(), usual);
    EXPECT_TRUE(day->toolTip().startsWith("不是当前工作日期 2023-02-08\n"));
}

TEST_F(UnsavedTest, ADraftBringsTypedWorkBackToItsOperatorAlone)
{
    OpenLoss();
    EndProcess();
    test.program.parameters.UserName = "小王";
    EXPECT_TRUE(Left().empty());
    test.program.parameters.UserName = "系统管理员";
    auto drafts = Left();
    ASSERT_EQ(drafts.size(), 1U);
    const QString path = drafts[0]->path();
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    const auto text = drafts[0]->Read(test.program);
    ASSERT_TRUE(text);
    OpenNew("盘点报损");
    window->TakeDraft(std::move(drafts[0]), *text);
    EXPECT_EQ(Line(1).mid(0, 6), QStringList({"A001", "螺丝", "M8", "", "箱", "1.00"}));
    EXPECT_EQ(Box("TxtWarehouseNameS") + Box("TxtBillCode") + Text("LabTotalAmount"), "主仓1.00");
    EXPECT_TRUE(isMarked());
    EXPECT_EQ(SaveByKey(), QStringList("保存成功！"));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(UnsavedTest, ADraftOfAStoredBillChangesThatBillOnlyWhileItIsTheOneThatWasRead)
{
    OpenStored();
    TypeAmount("2");
    EndProcess();
    auto drafts = Left();
    ASSERT_EQ(drafts.size(), 1U);
    QFile file(drafts[0]->path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("BSD"));
    const auto text = drafts[0]->Read(test.program);
    ASSERT_TRUE(text);
    OpenNew("盘点报损");
    window->TakeDraft(std::move(drafts[0]), *text);
    EXPECT_EQ(window->windowTitle() + Line(1)[5], "盘点报损单 BSD202302080001*2.00");

    test.Run(Sql("update TabCheckLose set DateTimee=") + Moment{QDate(2023, 2, 8), 5});
    OpenNew("盘点报损");
    window->TakeDraft(std::make_unique<Draft>(test.program), *text);
    EXPECT_EQ(test.Boxes(), "草稿所修改的原单已被更改、审核或删除，草稿将作为新单打开，请核对后再保存！");
    EXPECT_EQ(window->windowTitle() + Line(1)[5], "盘点报损单*2.00");
}

/// Notes at every showing of a widget whether a unit is open.
struct ShowWatch : QObject
{
    explicit ShowWatch(const Program& onProgram) : program(onProgram) {}
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            shown.push_back(program.unitOpen);
        return false;
    }
    const Program& program;
    std::vector<bool> shown;
};

TEST_F(UnsavedTest, TheBusySignStandsWhileRowsAreWrittenAndNotBefore)
{
    OpenLoss();
    ShowWatch watch(test.program);
    Find<QLabel>("LoadingPic")->installEventFilter(&watch);
    TypeAmount("0"); // refused
    EXPECT_EQ(SaveByKey().size(), 1);
    EXPECT_TRUE(watch.shown.empty());
    Press({Qt::Key_Escape});
    TypeAmount("1");
    EXPECT_EQ(SaveByKey(), QStringList("保存成功！"));
    EXPECT_EQ(watch.shown, std::vector<bool>{true});
    EXPECT_FALSE(Shown("LoadingPic"));
}

} // namespace
