#pragma once

// The names of the suite's reports, which come in families.

#include <QString>
#include <QStringList>

/// 汇总表 and 明细表 of each subject, in turn.
QStringList SummaryAndDetail(const QStringList& subjects);
/// The eight reports on goods that come in (入库) or go out (出库).
QStringList FlowReports(const QString& flow);
