// The print templates that an account set is born with.

#include "acctset/books.h"

#include "data/bill_kinds.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

const QByteArray kWorkbookMark = QByteArray::fromHex("d0cf11e0a1b11ae1");

/// Names of the stored workbooks; each must be one.
QStringList StoredTemplates(Store& store, const QString& group)
{
    const Recordset rows =
        store.Run(Sql("select TabName,TabInf from TabExcelTable where TabType=") + group + " order by OrderBy,TabName");
    QStringList names;
    for (int row = 0; row < rows.size(); ++row) {
        names += rows.Text("TabName", row);
        const QByteArray* file = std::get_if<QByteArray>(&rows.at(row, 1));
        EXPECT_TRUE(file && file->startsWith(kWorkbookMark) && file->size() > 4096) << names.last().toStdString();
    }
    return names;
}

} // namespace

TEST(PrintTemplates, EveryAccountSetHoldsTheThreeFormsOfEachBillAndTheDemoTwoOfItsOwn)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("新账套.db");
    ASSERT_EQ(RunAcctset({"create", path}).exitCode, 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).filter(".new"), QStringList());
    const auto store = OpenSqliteFile(path);
    EXPECT_TRUE(store->Run(Sql("select * from TabWare")).isEmpty());
    EXPECT_EQ(store->Run(Sql("select count(*) as n from TabExcelTable")).Integer("n"), 18);
    QStringList expected;
    for (const char* name : {"SP-CXSP", "SP-PDBS", "SP-PDBY", "SP-SPTJ", "SP-TJDB", "SP-ZZSP"})
        for (const char* form : {"-TXM-S.xls", "-TXM-T.xls", ".xls"})
            expected += QString(name) + form;
    for (const BillKind& kind : BillKinds())
        EXPECT_TRUE(expected.contains(kind.excelTemplate)) << kind.bill.toStdString();
    const auto demo = OpenSqliteFile(DemoFile());
    for (Store* either : {store.get(), demo.get()})
        EXPECT_EQ(StoredTemplates(*either, "固定模版"), expected);
    EXPECT_EQ(StoredTemplates(*demo, "同价调拨单"), QStringList("调拨送货单.xls"));
    EXPECT_EQ(StoredTemplates(*demo, "组装拆卸单"), QStringList("组装拆卸作业单.xls"));
}
