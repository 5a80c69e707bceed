#include "output/window/frmExport.h"

#include "output/grid_export.h"
#include "output/spreadsheet_plugin.h"
#include "output/window/frmProgress.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>

frmExport::frmExport(Program& program, const GridTable& grid, QWidget* parent)
    : QDialog(parent), m_program(program), m_rows(TextsInSight(grid)), m_bar(new QProgressBar)
{
    setObjectName("frmExport");
    setWindowTitle("数据导出");
    m_bar->setObjectName("prg");
    m_bar->setRange(0, 100);
    m_bar->setValue(0);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("共 " + QString::number(m_rows.size()) + " 行"));
    layout->addWidget(m_bar);
    auto* const keys = new QHBoxLayout;
    layout->addLayout(keys);
    m_excel = AddKey("cmdExcel", "输出到Excel...");
    m_excel->setDefault(true);
    connect(m_excel, &QPushButton::clicked, this, &frmExport::Export);
    // Nothing stands behind these two.
    AddKey("cmdWord", "输出到Word...")->setEnabled(false);
    AddKey("cmdHtml", "输出到Html...")->setEnabled(false);
    connect(AddKey("cmdQuit", "退出(&Q)"), &QPushButton::clicked, this, &QDialog::reject);
    setMinimumWidth(fontMetrics().averageCharWidth() * 64);
}

QPushButton* frmExport::AddKey(const char* name, const QString& caption)
{
    auto* const key = new QPushButton(caption);
    key->setObjectName(name);
    key->setAutoDefault(false); // Enter pressed once too often does not leave
    static_cast<QBoxLayout*>(layout()->itemAt(2)->layout())->addWidget(key);
    return key;
}

void frmExport::ExportGrid(Program& program, const GridTable& grid, QWidget* parent)
{
    frmExport(program, grid, parent).exec();
}

void frmExport::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, &frmExport::Export); // once it can be seen
}

void frmExport::Export()
{
    m_exporting = true;
    m_excel->setEnabled(false);
    m_bar->setValue(0);
    const bool copied = Copy();
    m_exporting = false;
    m_excel->setEnabled(true);
    if (copied)
        accept();
}

bool frmExport::Copy()
{
    const auto showRows = [this](int done, int total) {
        // The rows are written on a thread of their own.
        QMetaObject::invokeMethod(m_bar, [this, done, total] { m_bar->setValue(done * 100 / total); });
    };
    try {
        const BusyPointer busy;
        OpenNewWorkbook(SpreadsheetOf(m_program), m_rows, windowTitle(), showRows);
        return true;
    } catch (const SpreadsheetError& error) {
        if (error.kind != SpreadsheetError::Kind::Cancelled)
            m_program.prompt.Inform(error.description);
        return false;
    }
}

void frmExport::reject()
{
    if (!m_exporting)
        return QDialog::reject();
    if (m_program.spreadsheet)
        m_program.spreadsheet->Cancel();
}
