#include "output/window/frmProgress.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kShownAfter = 500; // milliseconds
constexpr int kPaintEvery = 50;

} // namespace

BusyPointer::BusyPointer()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyPointer::~BusyPointer()
{
    QApplication::restoreOverrideCursor();
}

frmProgress::frmProgress(Program& program, const QString& caption, QWidget* parent)
    : QDialog(parent), m_program(program), m_rows(new QLabel), m_bar(new QProgressBar)
{
    setObjectName("frmProgress");
    setWindowTitle(caption);
    setWindowModality(Qt::ApplicationModal);
    m_bar->setObjectName("prg");
    auto* const cancel = new QPushButton("取消(&C)");
    cancel->setObjectName("CmdCancel");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const keys = new QHBoxLayout;
    keys->addStretch();
    keys->addWidget(cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_rows);
    layout->addWidget(m_bar);
    layout->addLayout(keys);
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    m_sincePaint.start();
    QTimer::singleShot(kShownAfter, this, [this] { setVisible(!m_ended); });
}

bool frmProgress::Step(int done, int total)
{
    const bool isDue = m_sincePaint.hasExpired(kPaintEvery);
    if (!isDue && total > 0)
        return !m_ended;
    m_rows->setText(total > 0 ? "正在导入第 " + QString::number(done) + " 行，共 " + QString::number(total) + " 行"
                              : "正在打开文件，请稍等....");
    m_bar->setRange(0, total);
    m_bar->setValue(done);
    if (isDue) {
        QCoreApplication::processEvents();
        m_sincePaint.restart();
    }
    return !m_ended;
}

/// A key or the frame: the work ends, be it in the office or here.
void frmProgress::reject()
{
    m_ended = true;
    hide();
    if (m_program.spreadsheet)
        m_program.spreadsheet->Cancel();
}
