#include "bills/ware_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QTableView>
#include <QWheelEvent>

namespace {

TEST_F(WareManageTest, ATransferIsTypedAndSavedByKeyboard)
{
    OpenNew("同价调拨");
    EXPECT_EQ(Focus(), "TxtWarehouseNameF");
    TypeHead();
    EXPECT_EQ(Box("TxtWarehouseNameF") + Box("TxtWarehouseNameS"), "主仓分仓");
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
    EXPECT_EQ(Text("LabTotalAmount"), "13.00");

    test.Run(Sql("insert into TabSysSet values(1)"));
    EXPECT_EQ(SaveByKey(), QStringList("保存成功！"));
    EXPECT_EQ(window->windowTitle(), "同价调拨单 TDD202302080001");
    EXPECT_EQ(Rows("select WarehouseCodeF,WarehouseCodeS,Remark from TabSamePriceMove"), QStringList("101|102|memo"));
    EXPECT_EQ(Rows("select WareName,Amount,Remark from TabSamePriceMoveInf order by Num"),
              QStringList({"螺丝|12|first", "O'Neil|1|"}));
}

TEST_F(WareManageTest, ANameTypedOverAChosenWarehouseIsTheOneThatIsSaved)
{
    OpenTransfer();
    Find<QLineEdit>("TxtWarehouseNameF")->setFocus();
    Find<QLineEdit>("TxtWarehouseNameF")->clear();
    TypeText("zhu"); // no warehouse's name
    EXPECT_EQ(SaveByKey(), QStringList("发货仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"));
    EXPECT_EQ(Count("TabSamePriceMove"), 0);
}

TEST_F(WareManageTest, AWholeNameIsChosenWithoutEnterAndAPartIsLeftAsTyped)
{
    OpenNew("盘点报溢");
    TypeText("10");
    Press({Qt::Key_Tab});
    EXPECT_EQ(Box("TxtWarehouseNameS"), "10");
    EXPECT_EQ(window->bill().TxtWarehouseCodeS, "");

    OpenNew("同价调拨");
    Write("主仓");
    Press({Qt::Key_Tab});
    EXPECT_EQ(window->bill().TxtWarehouseCodeF, "101");
    EXPECT_EQ(Focus(), "ImgWarehouseF");
    Press({Qt::Key_Tab});
    Write("分仓");
    ClickCell(1, 1);
    TypeAndEnter({"A001"});
    EXPECT_EQ(test.Boxes(), "");
    EXPECT_EQ(window->bill().TxtWarehouseCodeS, "102");
    EXPECT_EQ(window->bill().MSH.Cell(1, 1), "A001");
}

TEST_F(WareManageTest, TheKindDecidesWhatTheHeadShows)
{
    struct Case
    {
        const char* operation;
        QString warehouse;
        bool source, attention, amount, money;
    };
    const Case cases[] = {
        {"同价调拨", "收货仓库", true, false, true, false},  {"异价调拨", "收货仓库", true, false, true, true},
        {"商品调价", "调价仓库", false, true, false, true},  {"盘点报损", "报损仓库", false, false, true, false},
        {"盘点报溢", "报溢仓库", false, false, true, false},
    };
    for (const Case& kind : cases) {
        SCOPED_TRACE(kind.operation);
        OpenNew(kind.operation);
        EXPECT_EQ(Text("LabBillName"), QString(kind.operation) + "单");
        EXPECT_EQ(Text("LabWarehouseNameS"), kind.warehouse);
        for (const char* control : {"LabWarehouseNameF", "TxtWarehouseNameF", "ImgWarehouseF"})
            EXPECT_EQ(Shown(control), kind.source) << control;
        EXPECT_EQ(Shown("LabAttention_TiaoJia"), kind.attention);
        EXPECT_EQ(Shown("LabTotalAmount"), kind.amount);
        EXPECT_EQ(Shown("LabTotalMoney"), kind.money);
        EXPECT_FALSE(Shown("FrameMoneyType"));
        EXPECT_EQ(Find<QAction>("FJXCAccount")->isVisible(), QString(kind.operation) != "同价调拨");
        EXPECT_EQ(Focus(), kind.source ? "TxtWarehouseNameF" : "TxtWarehouseNameS");
    }
}

TEST_F(WareManageTest, TheStateOfABillLocksItsKeys)
{
    const QDate today(2023, 2, 8);
    const QDate closed(2023, 1, 31);
    const std::tuple<const char*, const char*, QDate, const char*, QString> cases[] = {
        {"", "正常", today, "未审核",
         "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord Print In Pos Img Before Back Exit"},
        {"张三", "正常", today, "已审核", "Build UnAuditing Print Img Before Back Exit"},
        {"", "作废", today, "作废未审核", "Build Delete Print Img Before Back Exit"},
        {"张三", "作废", today, "作废已审核", "Build Delete Print Img Before Back Exit"},
        {"", "正常", closed, "未审核", "Build Print Img Before Back Exit"},
    };
    test.Insert("TabTurn", {{"Datee", closed}});
    int number = 0;
    for (const auto& [auditing, state, day, stamps, keys] : cases) {
        const QString code = "BSD" + QString::number(++number);
        SCOPED_TRACE(code.toStdString());
        test.InsertBill("TabCheckLose", {{"Code", code}, {"Datee", day}, {"Auditing", auditing}, {"State", state}},
                        {{{"WareCode", "A001"}, {"WareName", "螺丝"}, {"Unite", "箱"}, {"Amount", 3.0}}});
        OpenSaved("TabCheckLose", code);
        EXPECT_EQ(Keys(), keys);
        EXPECT_EQ((Shown("LabState") ? Text("LabState") : "") + Text("LabAuditing"), stamps);
        EXPECT_TRUE(Shown("LabAuditing"));
        const bool isOpen = keys.contains("Save");
        EXPECT_EQ(Find<QWidget>("TxtMemo")->isEnabled(), isOpen);
        EXPECT_EQ(Find<QWidget>("DTPDate")->isEnabled(), isOpen);
        ClickCell(1, 6);
        EXPECT_EQ(Shown("Text2"), isOpen);
        ClickCell(1, 5);
        EXPECT_EQ(Shown("Combol2"), isOpen);
    }
    OpenNew("盘点报损");
    EXPECT_EQ(Keys(), "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord In Pos Img Before Back Exit");
}

TEST_F(WareManageTest, ASavedBillComesBackAndItsNeighboursFollow)
{
    for (const auto& [code, day, price] : {std::tuple("YDD1", 3, 1.5), {"YDD2", 4, 2.0}})
        test.InsertBill("TabDiffPriceMove",
                        {{"Code", code}, {"Datee", QDate(2023, 2, day)}, {"WarehouseNameF", "主仓"}, {"SaleMan", code}},
                        {{{"WareCode", "A001"},
                          {"WareName", "螺丝"},
                          {"Unite", "箱"},
                          {"Amount", 1200.0},
                          {"Price", price},
                          {"Moneyy", Currency::FromDouble(1200 * price)}}});
    OpenSaved("TabDiffPriceMove", "YDD1");
    EXPECT_EQ(window->windowTitle(), "异价调拨单 YDD1");
    EXPECT_EQ(Box("TxtSaleMan"), "YDD1");
    EXPECT_EQ(Box("DTPDate"), "2023-02-03");
    EXPECT_EQ(Line(1), QStringList({"A001", "螺丝", "", "", "箱", "1,200.00", "1.50", "0.00", "1,800.00", ""}));
    EXPECT_EQ(Text("LabTotalMoney"), "1,800.00");
    Press({Qt::Key_PageDown}, Qt::ControlModifier);
    EXPECT_EQ(Box("TxtBillCode"), "YDD2");
    QTest::mouseClick(Find<QToolButton>("ToolBefore"), Qt::LeftButton);
    EXPECT_EQ(Box("TxtBillCode"), "YDD1");
}

TEST_F(WareManageTest, ADayIsTypedShortAndAWrongOneCannotBeLeft)
{
    OpenNew("盘点报溢");
    auto* const day = Find<QLineEdit>("DTPDate");
    const auto type = [&](const QString& text) {
        day->setFocus();
        day->selectAll();
        TypeText(text);
    };
    type("1115");
    Press({Qt::Key_Return});
    EXPECT_EQ(window->bill().DTPDate, QDate(2023, 11, 15));
    EXPECT_EQ(Focus(), "TxtWarehouseNameS");
    const QColor usual = day->palette().color(QPalette::Base);
    for (const Qt::Key leave : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_F2}) {
        type("1332");
        Press({leave});
        QCoreApplication::processEvents();
        EXPECT_EQ(Focus() + day->text(), "DTPDate1332");
        EXPECT_NE(day->palette().color(QPalette::Base), usual);
    }
    for (const char* control : {"ToolSave", "ToolBuild", "MSH"}) { // neither the command nor the way to the lines
        QTest::mouseClick(Find<QWidget>(control), Qt::LeftButton);
        QCoreApplication::processEvents();
        EXPECT_EQ(test.Boxes() + Focus() + day->text(), "DTPDate1332");
    }
    Press({Qt::Key_Escape, Qt::Key_Home, Qt::Key_Up, Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(window->bill().DTPDate, QDate(2024, 11, 15));
    Press({Qt::Key_End, Qt::Key_Down});
    EXPECT_EQ(day->text(), "2024-11-14");
    Press({Qt::Key_F4});
    Press({Qt::Key_Escape});
    type("-13");
    Press({Qt::Key_S}, Qt::ControlModifier); // a command takes what was typed
    EXPECT_EQ(window->bill().DTPDate, QDate(2024, 11, 1));
}

TEST_F(WareManageTest, WhatCannotBeOpenedLeavesABlankWindow)
{
    for (const auto& [table, title] : {std::pair("TabCheckLose", "盘点报损单"), {"TabWareGroup", "同价调拨单"}}) {
        OpenSaved(table, "none");
        EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
        EXPECT_EQ(window->windowTitle(), title);
        EXPECT_FALSE(window->bill().BillSavedFlag);
        EXPECT_EQ(Keys(),
                  "Build Save Auditing UnAuditing Delete InsertRow DeleteRow RedWord In Pos Img Before Back Exit");
    }
}

TEST_F(WareManageTest, UnitsAreThoseOfTheGood)
{
    OpenTransfer();
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
    OpenTransfer("异价调拨");
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
    OpenTransfer();
    const std::tuple<Qt::Key, std::pair<int, int>, const char*> steps[] = {
        {Qt::Key_Tab, {1, 2}, "Text2"},   {Qt::Key_Backtab, {1, 1}, "Text2"}, {Qt::Key_Backtab, {1, 1}, "Text2"},
        {Qt::Key_Left, {1, 1}, "Text2"},  {Qt::Key_Up, {1, 1}, "Text2"},      {Qt::Key_Down, {2, 1}, "Text2"},
        {Qt::Key_Right, {2, 2}, "Text2"}, {Qt::Key_Escape, {2, 2}, "MSH"},    {Qt::Key_Up, {1, 2}, "Text2"},
    };
    for (const auto& [key, cell, focus] : steps) {
        SCOPED_TRACE(key);
        Press({key}, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_EQ(At(), cell);
        EXPECT_EQ(Focus(), focus);
    }
}

TEST_F(WareManageTest, WithoutWarehousesNoGoodIsTaken)
{
    OpenNew("盘点报溢");
    ClickCell(1, 1);
    TypeAndEnter({"A001"});
    EXPECT_EQ(test.Boxes(), "请先选择报溢仓库名称！");
    EXPECT_EQ(Focus(), "Text2");
    EXPECT_EQ(Line(1)[1], "");
}

TEST_F(WareManageTest, RowsAreInsertedAndDeletedByTheirKeys)
{
    OpenLoss();
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
    for (const auto& [name, rate, isOwn] : {std::tuple("美元", 7.0, "否"), {"人民币", 1.0, "是"}})
        test.Insert("TabMoneyType", {{"Name", name}, {"Rate", rate}, {"IsBWB", isOwn}});
    OpenNew("同价调拨");
    EXPECT_TRUE(Shown("FrameMoneyType"));
    EXPECT_EQ(Find<QComboBox>("TxtMoneyName")->currentText() + Box("TxtMoneyRate"), "人民币1");
    Find<QComboBox>("TxtMoneyName")->setCurrentText("美元");
    EXPECT_EQ(window->bill().TxtMoneyName, "美元");
}

TEST_F(WareManageTest, AtLeastThreeColumnsAreFixed)
{
    OpenNew("同价调拨");
    Find<QLineEdit>("TxtFixedColNum")->setText("1");
    QTest::mouseClick(Find<QWidget>("ChFixedCol"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(Box("TxtFixedColNum"), "3");
}

TEST_F(WareManageTest, ClosingTheWindowClosesTheConnection)
{
    OpenNew("同价调拨");
    EXPECT_EQ(test.program.gConnection.State(), 1);
    QTest::mouseClick(Find<QToolButton>("ToolExit"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(test.program.gConnection.State(), 0);
}

TEST_F(WareManageTest, EnterOnAnUnchangedGoodMovesOn)
{
    test.Insert("TabWare", {{"Code", "A000"}, {"Name", "螺丝"}, {"Unite", "包"}});
    OpenTransfer();
    ClickCell(1, 6);
    TypeAndEnter({"110"});
    for (const int column : {1, 2}) {
        ClickCell(1, column);
        Press({Qt::Key_Return});
        EXPECT_EQ(At(), std::pair(1, column + 1));
    }
    EXPECT_EQ(Line(1).mid(0, 6), QStringList({"A001", "螺丝", "M8", "", "箱", "110.00"}));
}

TEST_F(WareManageTest, TheWheelChangesNothingThatHasNotTheFocus)
{
    OpenTransfer();
    const auto turn = [](QWidget* over) {
        QWheelEvent wheel(QPointF(5, 5), over->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(over, &wheel);
    };
    auto* const money = Find<QComboBox>("TxtMoneyName");
    money->addItems({"人民币", "美元"});
    money->setCurrentIndex(0);
    turn(money);
    EXPECT_EQ(money->currentText(), "人民币");
    ClickCell(1, 5);
    EXPECT_EQ(Focus(), "Combol2");
    turn(Find<QWidget>("Combol2"));
    EXPECT_EQ(Line(1)[4], "箱");
}

TEST_F(WareManageTest, EditorsCloseWhereTheUserClicksAway)
{
    OpenTransfer();
    ClickCell(1, 5);
    QTest::mouseClick(Find<QLineEdit>("TxtMemo"), Qt::LeftButton);
    EXPECT_FALSE(Shown("Combol2"));
    test.Insert("TabWare", {{"Code", "A002"}});
    ClickCell(2, 1);
    TypeText("A");
    Press({Qt::Key_Down, Qt::Key_End});
    EXPECT_EQ(Find<QTableView>("MSHSelect")->currentIndex().row(),
              Find<QTableView>("MSHSelect")->model()->rowCount() - 1);
    Press({Qt::Key_Home});
    EXPECT_EQ(Find<QTableView>("MSHSelect")->currentIndex().row(), 0);
    QTest::mouseClick(Find<QLineEdit>("TxtMemo"), Qt::LeftButton);
    EXPECT_FALSE(Shown("PicSelect"));
    EXPECT_FALSE(Shown("Text2"));
    EXPECT_EQ(Focus(), "TxtMemo");
}

TEST_F(WareManageTest, LockedColumnsLeaveRoomForTheOthers)
{
    OpenTransfer();
    window->resize(640, 500);
    Find<QLineEdit>("TxtFixedColNum")->setText("20");
    Find<QAbstractButton>("ChFixedCol")->click();
    ClickCell(1, 1);
    Grid()->setCurrentIndex(Grid()->model()->index(0, 17));
    EXPECT_GT(Grid()->CurrentCellRect().width(), 24);
}

TEST_F(WareManageTest, ARefusalBringsItsHiddenColumnIntoSight)
{
    OpenTransfer();
    const int column = ColumnIndex(*window->bill().kind, u"有效日期");
    EXPECT_TRUE(Grid()->isColumnHidden(column - 1));
    const_cast<BillText&>(window->bill()).MSH.SetCell(1, column, "x");
    EXPECT_EQ(SaveByKey().size(), 1);
    EXPECT_FALSE(Grid()->isColumnHidden(column - 1));
    TypeAndEnter({"2024-01-01"});
    EXPECT_EQ(window->bill().MSH.Cell(1, column), "2024-01-01");
}

TEST_F(WareManageTest, WhatABoxOrACellCannotHoldIsNotTyped)
{
    OpenTransfer();
    QTest::mouseClick(Find<QLineEdit>("TxtSaleMan"), Qt::LeftButton);
    QApplication::clipboard()->setText(QString(256, u'字'));
    Press({Qt::Key_V}, Qt::ControlModifier);
    EXPECT_EQ(test.Boxes(), "业务员 超过 255 个字，请修改后再保存！");
    EXPECT_EQ(Box("TxtSaleMan"), "");
    QTest::mouseClick(Find<QLineEdit>("TxtMemo"), Qt::LeftButton);
    Press({Qt::Key_V}, Qt::ControlModifier);
    EXPECT_EQ(window->bill().TxtMemo.size(), 256 + 4);
    ClickCell(1, 6);
    TypeText("1e20");
    EXPECT_EQ(test.Boxes(), "第 1 行 数量 超出系统所能保存的范围，请修改后再保存！");
    EXPECT_EQ(Box("Text2") + " " + Line(1)[5], "1e2 100.00");
}

} // namespace
