#include "handover/report_names.h"

QStringList SummaryAndDetail(const QStringList& subjects)
{
    QStringList names;
    for (const QString& subject : subjects)
        names << subject + "汇总表" << subject + "明细表";
    return names;
}

QStringList FlowReports(const QString& flow)
{
    return SummaryAndDetail({"商品" + flow, "按往来单位" + flow, "按业务员" + flow, "按仓库" + flow});
}
