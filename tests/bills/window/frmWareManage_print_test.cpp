#include "bills/ware_window.h"
#include "output/fake_lp.h"
#include "support/memory_workbook.h"

#include <QMenu>
#include <array>

namespace {

struct WareManagePrint : WareManageTest
{
    WareManagePrint()
    {
        for (const char* name : {"SP-PDBS.xls", "SP-PDBS-TXM-S.xls", "我的&单.xls"}) {
            office.books[name] = {SheetOfTexts("sheet1", std::vector<QStringList>(20, QStringList("?单据编号")))};
            test.Insert("TabExcelTable", {{"TabName", name}, {"TabType", "盘点报损单"}, {"TabInf", QByteArray(name)}});
        }
    }
    void OpenSavedLoss()
    {
        OpenLoss();
        ASSERT_EQ(SaveByKey(), QStringList("保存成功！"));
    }
    /// An entry of a menu of templates.
    void Choose(const char* menu, const QString& caption)
    {
        for (QAction* const entry : Find<QMenu>(menu)->actions())
            if (entry->text() == caption)
                return entry->trigger();
        ADD_FAILURE() << menu << " " << caption.toStdString();
    }

    const std::array<const char*, 3> templateMenus{"MPDirect_Excel_D", "MPPreview_Excel_D", "FIntoExcel"};
    MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);
};

TEST_F(WareManagePrint, EveryEntryLeadsToItsWork)
{
    OpenSavedLoss();
    const QString noHost = "打印管理程序不存在，请确定您程序安装是否完整！|启动打印模块意外失败，请重新操作！";
    const QString hint = "提示：在进行EXCEL打印格式设置时，请不可删除或增加行和列，否则会导致以EXCEL格式打印时出错!";
    const QString folder = test.folder.path();
    const QString missing = folder + "/PrintTemp/SP-PDBS-TXM-T.xls  不存在！.|打开报表模版失败，请重新操作！";
    const std::pair<const char*, QString> cases[] = {
        {"MPDirect_PT", noHost},
        {"MPPreview_PT", noHost},
        {"MPrintSet_PT", noHost},
        {"MPDirect_Excel_TXM_T", missing},
        {"MPPreview_Excel_TXM_T", missing},
        {"MPrintSet_Excel_TXM_T", hint + "|" + missing},
        {"MPrintSet_Excel", hint},
        {"MPrintSet_Excel_D",
         "外部报表管理程序不存在，请确定您程序安装是否完整！|启动外部报表管理模块意外失败，请重新操作！"},
        {"MPPreview_Excel", "读取预览文件失败，请重新操作！"}, // the page in memory is no real one
    };
    for (const auto& [entry, boxes] : cases) {
        Trigger(entry);
        EXPECT_EQ(test.Boxes(), boxes) << entry;
    }
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_TRUE(QDir(test.folder.filePath("TempFile")).isEmpty());
    EXPECT_EQ(ReadClearLines(folder)->filter("盘点报损单").size(), 1) << "the group of its templates";
    ASSERT_EQ(office.handedOver.size(), 1U);
    EXPECT_EQ(office.handedOver[0].path, folder + "/PrintTemp/SP-PDBS.xls");

    const FakeLp lp;
    Trigger("MPDirect_Excel");
    Trigger("MPDirect_Excel_TXM_S");
    Choose("MPDirect_Excel_D", "我的&&单.xls");
    ASSERT_TRUE(QTest::qWaitFor(FakeLp::IsDone, kPatience));
    EXPECT_EQ(lp.titles().count("BSD202302080001"), 3);
    EXPECT_TRUE(lp.paper().contains("BSD202302080001\n")) << lp.paper().toStdString();
    EXPECT_TRUE(lp.paper().contains("A001\t螺丝"));
    Choose("FIntoExcel", "SP-PDBS.xls");
    ASSERT_EQ(office.handedOver.size(), 2U);
    EXPECT_EQ(office.handedOver[1].caption, "输出....");
    EXPECT_EQ(test.Boxes(), "");

    OpenSaved("TabCheckLose", "BSD202302080001");
    for (const char* menu : templateMenus)
        EXPECT_EQ(Find<QMenu>(menu)->actions().size(), 3) << "of a recalled bill too: " << menu;
}

TEST_F(WareManagePrint, EveryEntryAsksForTheRightFirst)
{
    OpenSavedLoss();
    test.program.parameters.UserName = "张三";
    const auto tryAll = [this] {
        QStringList boxes;
        for (const char* entry : {"MPDirect_PT", "MPDirect_Excel_TXM_T", "MPPreview_PT", "MPPreview_Excel_TXM_T",
                                  "MPrintSet_PT", "MPrintSet_Excel_TXM_T", "MPrintSet_Excel_D"}) {
            Trigger(entry);
            boxes << test.Boxes().section('|', 0, 0);
        }
        for (const char* menu : templateMenus) {
            office.failures = {{"Run", {SpreadsheetError::Kind::Busy, "busy"}}};
            Choose(menu, "SP-PDBS.xls");
            boxes << test.Boxes().section('|', 0, 0);
        }
        return boxes;
    };
    EXPECT_EQ(tryAll(), QStringList(10, "没有操作权限！"));
    test.Insert("TabOperateRight", {{"UserName", "张三"}, {"FunctionName", "盘点报损"}, {"AllowPrint", 1}});
    const QStringList allowed = tryAll();
    EXPECT_FALSE(allowed.contains("没有操作权限！") || allowed.contains(""));
}

TEST_F(WareManagePrint, AnEmptyListRefusesAndANewBillIsNotPrinted)
{
    OpenNew("盘点报溢");
    EXPECT_FALSE(Find<QMenu>("MPrint")->menuAction()->isEnabled());
    Choose("FIntoExcel", "暂无");
    Trigger("MPrintSet_PT");
    EXPECT_EQ(test.Boxes(), "未传递打印模版名，打印终止！|尚未保存数据，请先保存数据后重新执行！");
}

} // namespace
