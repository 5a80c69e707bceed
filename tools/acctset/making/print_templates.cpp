#include "making/print_templates.h"

#include <QDir>
#include <QFile>

namespace {

constexpr const char* kFixedFolder = ":/templates/fixed/";
constexpr const char* kFixedGroup = "固定模版";

struct DemoTemplate
{
    const char* file;
    const char* name;
    const char* group;
};

constexpr DemoTemplate kDemoTemplates[] = {
    {":/templates/demo/transfer_delivery.xls", "调拨送货单.xls", "同价调拨单"},
    {":/templates/demo/assembly_work_order.xls", "组装拆卸作业单.xls", "组装拆卸单"},
};

void InsertTemplate(NewAccountSet& accountSet, const QString& file, const QString& name, const QString& group,
                    qint64 order)
{
    QFile workbook(file);
    const bool embedded = workbook.open(QIODevice::ReadOnly);
    Q_ASSERT(embedded);
    accountSet.Insert("TabExcelTable", {name, group, order, embedded ? workbook.readAll() : QByteArray()});
}

} // namespace

void StoreFixedTemplates(NewAccountSet& accountSet)
{
    qint64 order = 0;
    for (const QString& name : QDir(kFixedFolder).entryList(QDir::Files, QDir::Name))
        InsertTemplate(accountSet, kFixedFolder + name, name, kFixedGroup, ++order);
}

void StoreDemoTemplates(NewAccountSet& accountSet)
{
    for (const DemoTemplate& made : kDemoTemplates)
        InsertTemplate(accountSet, made.file, made.name, made.group, 1);
}
