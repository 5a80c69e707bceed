#include "frame/functions.h"
#include "support/test_program.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

class FunctionsTest : public testing::Test
{
protected:
    WindowStep Run(const QString& word) { return RunFunction(test.program, word); }

    TestProgram test;
    const QString noRight = "没有操作权限！";
    const QString unknown = "传递操作功能参数出错，请重新操作！";
    const QString missing = "程序不存在，请确定您程序安装是否完整！";
};

TEST_F(FunctionsTest, EveryEntryOfEveryCategoryRuns)
{
    for (const QString& caption : CategoryCaptions()) {
        const FunctionCategory* const category = FindCategory(caption);
        if (!category) {
            EXPECT_EQ(caption, "退出");
            continue;
        }
        for (const QString& word : category->pictures + category->items + category->tree) {
            if (word == "计算器")
                continue;
            const WindowStep step = Run(word);
            const QString texts = test.Boxes();
            const bool opens = step == WindowStep::OpenBill || step == WindowStep::OpenAssembly;
            if (opens || word == kTreeSeparator)
                EXPECT_EQ(texts, "") << word.toStdString();
            else if (word.startsWith("折卸"))
                EXPECT_EQ(texts, unknown) << word.toStdString();
            else
                EXPECT_TRUE(texts.endsWith(missing) && !texts.contains('|')) << word.toStdString();
        }
    }
}

TEST_F(FunctionsTest, ListsStandInTheirOrder)
{
    EXPECT_EQ(FindCategory("入库管理")->tree.mid(7),
              QStringList({"按仓库入库明细表", kTreeSeparator, "综合入库汇总表", kTreeSeparator, "按商品入库类别汇总表",
                           kTreeSeparator}));
    EXPECT_EQ(FindCategory("仓库管理")->tree.filter("折卸").size(), 4);
    EXPECT_EQ(FindCategory("仓库管理")->tree.last(), "业务单据查询");
    EXPECT_EQ(FindCategory("汇总管理")->items.size(), 39);
    EXPECT_EQ(FindCategory("汇总管理")->items.filter("拆卸").size(), 4);
    EXPECT_EQ(CategoryCaptions().size(), 8);
    EXPECT_EQ(CategoryCaptions(kStandAloneMode), QStringList({"基础管理", "仓库管理", "汇总管理", "数据查询", "退出"}));
}

TEST_F(FunctionsTest, OpensBillsWithTheirOperation)
{
    EXPECT_EQ(Run(" 盘点报溢 "), WindowStep::OpenBill);
    EXPECT_EQ(test.program.parameters.OperateType, "盘点报溢");
    EXPECT_EQ(Run("组装拆卸"), WindowStep::OpenAssembly);
    EXPECT_EQ(test.program.parameters.OperateType, "商品组装");
    EXPECT_EQ(Run("异价调拨"), WindowStep::None);
    EXPECT_EQ(test.Boxes(), unknown);
}

TEST_F(FunctionsTest, OnlyClosingsHandTheirWordOnAsOperation)
{
    Run("仓库日结");
    EXPECT_EQ(ReadRunParameters(test.program.folder, {})->OperateType, "仓库日结");
    EXPECT_EQ(test.program.parameters.OperateType, "仓库日结");
    Run("部门设置");
    EXPECT_EQ(test.program.parameters.OperateType, "仓库日结");
}

TEST_F(FunctionsTest, AnOperatorWithoutRightsChangesAccountSetsAndNothingElse)
{
    test.program.parameters.UserName = "王芳";
    test.Insert("TabOperateRight", {{"UserName", "王芳"}, {"FunctionName", "盘点报损"}, {"AllowRead", qint64(1)}});
    for (const char* word : {"同价调拨", "组装拆卸", "仓库日结", "商品入库", "期初库存设置", "备份数据库"}) {
        EXPECT_EQ(Run(word), WindowStep::None);
        EXPECT_EQ(test.Boxes(), noRight) << word;
    }
    EXPECT_EQ(Run("盘点报损"), WindowStep::OpenBill);
    EXPECT_EQ(Run("退出"), WindowStep::AskExit);
    Run("更换账套");
    EXPECT_EQ(test.Boxes(), "启动" + missing);
    Run("查看本机MAC值");
    EXPECT_EQ(test.Boxes(), "系统维护" + missing);
}

TEST_F(FunctionsTest, OpeningStockIsClosedByARealClosing)
{
    test.Insert("TabTurn", {{"Datee", QDate(2023, 1, 31)}});
    EXPECT_EQ(Run("期初库存设置"), WindowStep::None);
    EXPECT_EQ(test.Boxes(), "已经作过仓库期末结转，不允许再修改期初库存数！");
    EXPECT_FALSE(QFile::exists(test.program.folder + "/CfgVault.dll"));
}

TEST_F(FunctionsTest, AModuleSoldAloneLeavesWithoutAQuestion)
{
    EXPECT_EQ(RunFunction(test.program, "退出", kStandAloneMode), WindowStep::EndProcess);
    EXPECT_EQ(Run(""), WindowStep::None);
    EXPECT_EQ(test.Boxes(), "");
}

} // namespace
