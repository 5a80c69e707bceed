#include "output/window/frmPrinting.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <utility>

namespace {

constexpr int kShownAfter = 500; // milliseconds

} // namespace

frmPrinting::frmPrinting(PrintJob& job, const QString& title, QWidget* over) : QDialog(over), m_job(&job)
{
    setObjectName("frmPrinting");
    setWindowTitle("打印");
    setAttribute(Qt::WA_ShowWithoutActivating); // what is being typed stays where it goes
    auto* const bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    auto* const cancel = new QPushButton("取消打印(&C)");
    cancel->setObjectName("CmdCancel");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const keys = new QHBoxLayout;
    keys->addStretch();
    keys->addWidget(cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("正在打印" + title + "，等待打印服务的应答...."));
    layout->addWidget(bar);
    layout->addLayout(keys);
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    QTimer::singleShot(kShownAfter, this, &QWidget::show);
}

void frmPrinting::Print(Program& program, const QString& pdf, const QString& title, QWidget* over,
                        PrintJob::Ended ended)
{
    const auto shown = std::make_shared<QPointer<frmPrinting>>();
    auto* const job = new PrintJob(program, pdf, title, [shown, ended = std::move(ended)](bool taken) {
        if (!*shown)
            return;
        (*shown)->deleteLater();
        (*shown)->hide();
        if (ended)
            ended(taken);
    });
    *shown = new frmPrinting(*job, title, over);
}

void frmPrinting::reject()
{
    if (m_job)
        m_job->Cancel();
    QDialog::reject();
}
