#include "ware_window.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>

namespace {

TEST_F(WareManageTest, ATransferIsTypedAndSavedByKeyboard)
{
    OpenNew("同价调拨");
    EXPECT_EQ(Focus(), "TxtWarehouseNameF");
    TypeHead();
    EXPECT_EQ(Box("TxtWarehouseNameF"), "主仓");
    EXPECT_EQ(Box("TxtWarehouseNameS"), "分仓");
    EXPECT_EQ(Focus(), "Text2");

    TypeAndEnter({"A001"});
    EXPECT_EQ(At(), std::pair(1, 1)) << "the cursor stays on the code";
    Press({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
    TypeAndEnter({"12", "first"});
    EXPECT_EQ(At(), std::pair(2, 1)) << "the last column leads to the next line";
    TypeText("B");
    EXPECT_TRUE(Shown("PicSelect"));
    Press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_FALSE(Shown("PicSelect"));
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "M8", "", "箱", "12.00", "first"}));
    EXPECT_EQ(Line(2), QStringList({"B001", "O'Neil", "", "", "件", "1.00", ""}));
    EXPECT_EQ(Find<QLabel>("LabTotalAmount")->text(), "13.00");

    test.Run(Sql("insert into TabSysSet values(1)"));
    Press({Qt::Key_S}, Qt::ControlModifier);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("保存成功！"));
    EXPECT_EQ(window->windowTitle(), "同价调拨单 TDD202302080001");
    EXPECT_EQ(Count("TabSamePriceMove"), 1);
    EXPECT_EQ(Count("TabSamePriceMoveInf"), 2);
    const Recordset head = test.Run(Sql("select * from TabSamePriceMove"));
    EXPECT_EQ(head.Text("WarehouseCodeF") + head.Text("WarehouseCodeS") + head.Text("Remark"), "101102memo");
    const Recordset lines = test.Run(Sql("select * from TabSamePriceMoveInf order by Num"));
    EXPECT_EQ(lines.Number("Amount", 0), 12);
    EXPECT_EQ(lines.Text("Remark", 0), "first");
    EXPECT_EQ(lines.Text("WareName", 1), "O'Neil");
}

TEST_F(WareManageTest, ANameTypedOverAChosenWarehouseIsTheOneThatIsSaved)
{
    OpenNew("同价调拨");
    TypeHead();
    TypeAndEnter({"A001"});
    auto* const box = Find<QLineEdit>("TxtWarehouseNameF");
    box->setFocus();
    box->clear();
    QTest::keyClicks(box, "zhu"); // no warehouse's name
    Press({Qt::Key_S}, Qt::ControlModifier);
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList("发货仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"));
    EXPECT_EQ(Count("TabSamePriceMove"), 0);
}

TEST_F(WareManageTest, AWholeNameIsChosenWithoutEnter)
{
    const auto write = [this](const char* text) { // as an input method does
        QInputMethodEvent written;
        written.setCommitString(text);
        QApplication::sendEvent(FocusWidget(), &written);
    };
    OpenNew("同价调拨");
    write("主仓");
    Press({Qt::Key_Tab});
    EXPECT_EQ(window->bill().TxtWarehouseCodeF, "101");
    write("分仓");
    ClickCell(1, 1);
    TypeAndEnter({"A001"});
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList());
    EXPECT_EQ(window->bill().TxtWarehouseCodeS, "102");
    EXPECT_EQ(window->bill().MSH.Cell(1, 1), "A001");
}

TEST_F(WareManageTest, APartOfANameIsLeftAsTyped)
{
    OpenNew("盘点报溢");
    TypeText("10");
    Press({Qt::Key_Tab});
    EXPECT_EQ(Box("TxtWarehouseNameS"), "10");
    EXPECT_EQ(window->bill().TxtWarehouseCodeS, "");
}

TEST_F(WareManageTest, TheKindDecidesWhatTheHeadShows)
{
    struct Case
    {
        const char* operation;
        QString warehouse;
        bool source, attention, amount, money;
        const char* first;
    };
    const Case cases[] = {
        {"同价调拨", "收货仓库", true, false, true, false, "TxtWarehouseNameF"},
        {"异价调拨", "收货仓库", true, false, true, true, "TxtWarehouseNameF"},
        {"商品调价", "调价仓库", false, true, false, true, "TxtWarehouseNameS"},
        {"盘点报损", "报损仓库", false, false, true, false, "TxtWarehouseNameS"},
        {"盘点报溢", "报溢仓库", false, false, true, false, "TxtWarehouseNameS"},
    };
    for (const Case& kind : cases) {
        SCOPED_TRACE(kind.operation);
        OpenNew(kind.operation);
        EXPECT_EQ(Find<QLabel>("LabBillName")->text(), QString(kind.operation) + "单");
        EXPECT_EQ(Find<QLabel>("LabWarehouseNameS")->text(), kind.warehouse);
        for (const char* control : {"LabWarehouseNameF", "TxtWarehouseNameF", "ImgWarehouseF"})
            EXPECT_EQ(Shown(control), kind.source) << control;
        EXPECT_EQ(Shown("LabAttention_TiaoJia"), kind.attention);
        EXPECT_EQ(Shown("LabTotalAmount"), kind.amount);
        EXPECT_EQ(Shown("LabTotalMoney"), kind.money);
        EXPECT_FALSE(Shown("FrameMoneyType"));
        EXPECT_EQ(Find<QAction>("FJXCAccount")->isVisible(), QString(kind.operation) != "同价调拨");
        EXPECT_EQ(Focus(), kind.first);
    }
}

TEST_F(WareManageTest, TheStateOfABillLocksItsKeys)
{
    struct Case
    {
        const char* name;
        const char* auditing;
        const char* state;
        QDate day;
        QString keys, stamps;
        bool isOpen;
    };
    const QDate open(2023, 2, 8);
    const Case cases[] = {
        {"saved", "", "正常", open,
         "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord Print In Pos Img Before Back Exit",
         "未审核", true},
        {"audited", "张三", "正常", open, "Build UnAuditing Print Img Before Back Exit", "已审核", false},
        {"voided", "", "作废", open, "Build Delete Print Img Before Back Exit", "作废未审核", false},
        {"voided and audited", "张三", "作废", open, "Build Delete Print Img Before Back Exit", "作废已审核", false},
        {"closed", "", "正常", QDate(2023, 1, 31), "Build Print Img Before Back Exit", "未审核", false},
    };
    test.Insert("TabTurn", {{"Datee", QDate(2023, 1, 31)}});
    for (const Case& saved : cases) {
        SCOPED_TRACE(saved.name);
        test.Run(Sql("delete from TabCheckLose"));
        test.Run(Sql("delete from TabCheckLoseInf"));
        test.InsertBill("TabCheckLose",
                        {{"Code", "BSD1"}, {"Datee", saved.day}, {"Auditing", saved.auditing}, {"State", saved.state}},
                        {{{"WareCode", "A001"}, {"WareName", "螺丝"}, {"Unite", "箱"}, {"Amount", 3.0}}});
        OpenSaved("TabCheckLose", "BSD1");
        EXPECT_EQ(Keys(), saved.keys);
        QString stamps;
        for (const char* stamp : {"LabState", "LabAuditing"})
            stamps += Shown(stamp) ? Find<QLabel>(stamp)->text() : QString();
        EXPECT_EQ(stamps, saved.stamps);
        EXPECT_EQ(Find<QWidget>("TxtMemo")->isEnabled(), saved.isOpen);
        EXPECT_EQ(Find<QWidget>("DTPDate")->isEnabled(), saved.isOpen);
        ClickCell(1, 6);
        EXPECT_EQ(Shown("Text2"), saved.isOpen);
        ClickCell(1, 5);
        EXPECT_EQ(Shown("Combol2"), saved.isOpen);
    }
    OpenNew("盘点报损");
    EXPECT_EQ(Keys(), "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord In Pos Img Before Back Exit");
}

TEST_F(WareManageTest, ASavedBillComesBackAndItsNeighboursFollow)
{
    const auto insert = [this](const char* code, int day, double price) {
        test.InsertBill("TabDiffPriceMove",
                        {{"Code", code}, {"Datee", QDate(2023, 2, day)}, {"WarehouseNameF", "主仓"}, {"SaleMan", code}},
                        {{{"WareCode", "A001"},
                          {"WareName", "螺丝"},
                          {"Unite", "箱"},
                          {"Amount", 1200.0},
                          {"Price", price},
                          {"Moneyy", Currency::FromDouble(1200 * price)}}});
    };
    insert("YDD1", 3, 1.5);
    insert("YDD2", 4, 2);
    OpenSaved("TabDiffPriceMove", "YDD1");
    EXPECT_EQ(window->windowTitle(), "异价调拨单 YDD1");
    EXPECT_EQ(Box("TxtSaleMan"), "YDD1");
    EXPECT_EQ(Find<QDateEdit>("DTPDate")->date(), QDate(2023, 2, 3));
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "", "", "箱", "1,200.00", "1.50", "0.00", "1,800.00", ""}));
    EXPECT_EQ(Find<QLabel>("LabTotalMoney")->text(), "1,800.00");
    Press({Qt::Key_PageDown}, Qt::ControlModifier);
    EXPECT_EQ(Box("TxtBillCode"), "YDD2");
    QTest::mouseClick(Find<QToolButton>("ToolBefore"), Qt::LeftButton);
    EXPECT_EQ(Box("TxtBillCode"), "YDD1");
}

TEST_F(WareManageTest, UnitsAreThoseOfTheGood)
{
    OpenNew("同价调拨");
    TypeHead();
    TypeAndEnter({"A001"});
    Press({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
    auto* const units = Find<QComboBox>("Combol2");
    EXPECT_TRUE(units->isVisible());
    EXPECT_EQ(units->currentText(), "箱");
    ASSERT_EQ(units->count(), 2);
    Press({Qt::Key_Down});
    EXPECT_EQ(Line(1)[4], "个");
    Press({Qt::Key_Return});
    EXPECT_EQ(At(), std::pair(1, 6));
    EXPECT_FALSE(units->isVisible());
}

TEST_F(WareManageTest, CellsThatAreComputedTakeNoInput)
{
    OpenNew("异价调拨");
    TypeHead();
    TypeAndEnter({"A001"});
    ClickCell(1, 7);
    TypeAndEnter({"2.5"});
    EXPECT_EQ(At(), std::pair(1, 8));
    EXPECT_FALSE(Shown("Text2"));
    TypeText("9");
    Press({Qt::Key_Right});
    TypeText("9");
    EXPECT_EQ(Line(1).mid(5), QStringList({"1.00", "2.50", "10.00", "2.50", ""}));
}

TEST_F(WareManageTest, KeysWalkThroughTheCells)
{
    OpenNew("同价调拨");
    TypeHead();
    TypeAndEnter({"A001"});
    struct Step
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::pair<int, int> cell;
        QString focus;
    };
    const Step steps[] = {
        {Qt::Key_Tab, {}, {1, 2}, "Text2"},
        {Qt::Key_Backtab, Qt::ShiftModifier, {1, 1}, "Text2"},
        {Qt::Key_Backtab, Qt::ShiftModifier, {1, 1}, "Text2"},
        {Qt::Key_Left, {}, {1, 1}, "Text2"},
        {Qt::Key_Up, {}, {1, 1}, "Text2"},
        {Qt::Key_Down, {}, {2, 1}, "Text2"},
        {Qt::Key_Right, {}, {2, 2}, "Text2"},
        {Qt::Key_Escape, {}, {2, 2}, "MSH"},
        {Qt::Key_Up, {}, {1, 2}, "Text2"},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.key);
        Press({step.key}, step.modifiers);
        EXPECT_EQ(At(), step.cell);
        EXPECT_EQ(Focus(), step.focus);
    }
}

TEST_F(WareManageTest, ARevaluationGoesOnToItsMoney)
{
    OpenNew("商品调价");
    TypeAndEnter({"101", "", "", ""});
    TypeAndEnter({"A001"});
    EXPECT_EQ(At(), std::pair(1, 6));
    TypeAndEnter({"-25.5"});
    EXPECT_EQ(Find<QLabel>("LabTotalMoney")->text(), "-25.50");
}

TEST_F(WareManageTest, WithoutWarehousesNoGoodIsTaken)
{
    OpenNew("盘点报溢");
    ClickCell(1, 1);
    TypeAndEnter({"A001"});
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("请先选择报溢仓库名称！"));
    EXPECT_EQ(Focus(), "Text2");
    EXPECT_EQ(Line(1)[1], "");
}

TEST_F(WareManageTest, ARefusedSaveShowsTheCellAtFault)
{
    OpenNew("盘点报损");
    TypeAndEnter({"101", "", "", "", "A001"});
    Press({Qt::Key_Down, Qt::Key_Right});
    TypeText("X9");
    Press({Qt::Key_Escape, Qt::Key_Up});
    Press({Qt::Key_S}, Qt::ControlModifier);
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
    EXPECT_EQ(Count("TabCheckLose"), 0);
    EXPECT_EQ(At(), std::pair(2, 1));
    EXPECT_EQ(Focus(), "Text2");
}

TEST_F(WareManageTest, RowsAreInsertedAndDeletedByTheirKeys)
{
    OpenNew("盘点报损");
    TypeAndEnter({"101", "", "", "", "A001"});
    Press({Qt::Key_Insert}, Qt::ControlModifier);
    EXPECT_EQ(Line(1)[0], "");
    EXPECT_EQ(Line(2)[0], "A001");
    test.prompt.answers = {true};
    Press({Qt::Key_Delete}, Qt::ControlModifier);
    EXPECT_EQ(Line(1)[0], "A001");
}

TEST_F(WareManageTest, CurrenciesStandInTheHeadWhereTheyAreKept)
{
    test.program.parameters.IsLotMoney = true;
    test.Insert("TabMoneyType", {{"Name", "美元"}, {"Rate", 7.0}, {"IsBWB", "否"}});
    test.Insert("TabMoneyType", {{"Name", "人民币"}, {"Rate", 1.0}, {"IsBWB", "是"}});
    OpenNew("同价调拨");
    EXPECT_TRUE(Shown("FrameMoneyType"));
    EXPECT_EQ(Find<QComboBox>("TxtMoneyName")->currentText(), "人民币");
    EXPECT_EQ(Box("TxtMoneyRate"), "1");
    Find<QComboBox>("TxtMoneyName")->setCurrentText("美元");
    EXPECT_EQ(window->bill().TxtMoneyName, "美元");
}

TEST_F(WareManageTest, AtLeastThreeColumnsAreFixed)
{
    OpenNew("同价调拨");
    auto* const count = Find<QLineEdit>("TxtFixedColNum");
    count->setText("1");
    QTest::mouseClick(Find<QWidget>("ChFixedCol"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(count->text(), "3");
}

TEST_F(WareManageTest, ClosingTheWindowClosesTheConnection)
{
    OpenNew("同价调拨");
    EXPECT_EQ(test.program.gConnection.State(), 1);
    QTest::mouseClick(Find<QToolButton>("ToolExit"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(test.program.gConnection.State(), 0);
}

} // namespace
