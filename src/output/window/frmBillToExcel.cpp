#include "output/window/frmBillToExcel.h"

#include "output/spreadsheet_plugin.h"
#include "output/window/frmProgress.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace {

constexpr const char* kRules[] = {
    "导入须知：",
    "1、导入的文件必须是MS Excel格式文件；",
    "2、Excel文件中需要导入的项的表头名称必须与软件界面列表的表头名称相同；",
    "3、如果规格从商品信息设置中设置的取值时，规格处为空白；",
    "4、如果是商品调价单时，Excel文件中第三列需是调价金额；",
    "5、导入时从第二行起开始导入，第一行不导入；",
    "6、Excel文件中不允许有空行，如果存在空行则从空行处以下不再导入；",
};

} // namespace

frmBillToExcel::frmBillToExcel(Program& program, ImportCaller caller, QWidget* parent)
    : QDialog(parent), m_program(program), m_caller(std::move(caller)), m_body(new QWidget)
{
    setObjectName("frmBillToExcel");
    setWindowTitle("从Excel文件中导入....");
    auto* const layout = new QVBoxLayout(m_body);
    layout->addWidget(BuildRules());
    layout->addLayout(BuildKeys());
    auto* const around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(m_body);
    findChild<QPushButton*>("CmdIn")->setFocus();
}

void frmBillToExcel::Open(Program& program, const ImportCaller& caller, QWidget* parent)
{
    frmBillToExcel(program, caller, parent).exec();
}

QWidget* frmBillToExcel::BuildRules()
{
    auto* const group = new QGroupBox("从Excel文件中导入商品");
    auto* const layout = new QVBoxLayout(group);
    for (const char* rule : kRules)
        layout->addWidget(new QLabel(rule));
    return group;
}

QLayout* frmBillToExcel::BuildKeys()
{
    auto* const row = new QHBoxLayout;
    const auto add = [this, row](const char* name, const QString& caption, const QString& tip, auto run) {
        auto* const key = new QPushButton(caption);
        key->setObjectName(name);
        key->setToolTip(tip);
        connect(key, &QPushButton::clicked, this, run);
        row->addWidget(key);
        return key;
    };
    add("CmdBlank", "空白表格(&B)...", "打开一个只有表头的Excel文件", &frmBillToExcel::OpenBlank);
    row->addStretch();
    QPushButton* const in = add("CmdIn", "导入(&I)...", "选择Excel文件，导入其中的商品", &frmBillToExcel::Import);
    add("CmdExit", "退出(&X)", {}, &QDialog::reject);
    in->setDefault(true);
    return row;
}

/// The keys are dead meanwhile.
void frmBillToExcel::Work(const std::function<void()>& work)
{
    m_isBusy = true;
    m_body->setEnabled(false);
    work();
    m_body->setEnabled(true);
    m_isBusy = false;
}

void frmBillToExcel::Import()
{
    Work([this] { m_caller.ExcelInBill(this); });
    accept();
}

void frmBillToExcel::OpenBlank()
{
    Work([this] {
        try {
            const BusyPointer pointer;
            OpenBlankWorkbook(SpreadsheetOf(m_program), m_caller.columns, windowTitle());
        } catch (const SpreadsheetError& error) {
            m_program.prompt.Inform(error.description);
        }
    });
}

void frmBillToExcel::reject()
{
    if (!m_isBusy)
        QDialog::reject();
}
