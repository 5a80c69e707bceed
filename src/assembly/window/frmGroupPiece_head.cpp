// How the head of an assembly is put together.

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/piece_head.h"
#include "assembly/window/frmGroupPiece.h"
#include "bills/window/bill_widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <algorithm>

/// A caption with its box in the head.
struct HeadCell
{
    const char* caption;
    const char* control;
    int row;
    int column;
    int span = 1;
    const char* button = nullptr; // to pick from
    const char* labelName = "";   // of a caption that follows the mode
};

namespace {

constexpr int kHeadColumns = 5;
constexpr int kMargin = 10;
constexpr int kSpacing = 5;
constexpr auto kWidestCaption = "组装商品名"; // in the first column

constexpr HeadCell kBillCells[] = {
    {"单据类型", "FrameType", 0, 0},
    {"单据编号", "TxtBillCode", 0, 1},
    {"录单日期", "DTPDate", 0, 2},
    {"制单人", "TxtOperator", 0, 3},
    {"审核人", "TxtAuditing", 0, 4},
    {"发出仓库", "TxtWarehouseNameF", 1, 0, 1, "ImgWarehouseF"},
    {"收存仓库", "TxtWarehouseNameS", 1, 1, 1, "ImgWarehouseS"},
    {"业 务 员", "TxtSaleMan", 1, 2, 1, "ImgSaleMan"},
    {"", "TxtWareName", 2, 0, 1, "ImgWare", "LabWareName"},
    {"商品编号", "TxtWareCode", 2, 1},
    {"规格", "TxtWareSpec", 2, 2},
    {"属性", "TxtWareAttribute", 2, 3, 1, "ImgWareAttribute"},
    {"计量单位", "TxtUnite", 2, 4},
    {"", "TxtAmount", 3, 0, 1, nullptr, "LabAmount"},
    {"单件成本", "TxtCost", 3, 1},
    {"", "TxtFee", 3, 2, 1, nullptr, "LabFee"},
    {"合计金额", "TxtTotalMoney", 3, 3},
};

constexpr HeadCell kProvideCells[] = {
    {"生产厂商", "TxtManufacturer", 1, 0}, {"品牌", "TxtBrand", 1, 1},      {"批号", "TxtPCode", 1, 2},
    {"生产日期", "TxtSCDate", 1, 3},       {"有效日期", "TxtYXDate", 1, 4}, {"唯一码", "TxtOnlyCode", 2, 0},
    {"自定义1", "TxtCustom1", 2, 1},       {"自定义2", "TxtCustom2", 2, 2}, {"自定义3", "TxtCustom3", 2, 3},
};

QGridLayout* NewHeadGrid(QWidget* frame)
{
    auto* const grid = new QGridLayout(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * kMargin);
    grid->setVerticalSpacing(kSpacing);
    for (int column = 0; column < kHeadColumns; ++column)
        grid->setColumnStretch(column, 1);
    return grid;
}

/// With a large font two columns are wider than the others: captions of options cannot be scrolled, and the code of a
/// bill is to be seen whole.
void WidenColumns(const QWidget& fields, const QWidget& provided)
{
    auto* const code = fields.findChild<QLineEdit*>("TxtBillCode");
    code->setMinimumWidth(code->fontMetrics().horizontalAdvance("ZZD202300000000") + kMargin);
    auto* const grid = static_cast<QGridLayout*>(fields.layout());
    for (const int column : {0, 1}) {
        const int width = grid->itemAtPosition(0, column)->widget()->minimumSizeHint().width();
        grid->setColumnMinimumWidth(column, width);
        static_cast<QGridLayout*>(provided.layout())->setColumnMinimumWidth(column, width);
    }
}

} // namespace

QWidget* frmGroupPiece::MakeHead()
{
    auto* const head = new QWidget;
    auto* const layout = new QVBoxLayout(head);
    layout->setContentsMargins(kMargin, kMargin, kMargin, 2);
    layout->setSpacing(kSpacing);
    auto* const fields = new QWidget;
    fields->setObjectName("FrameHead");
    QGridLayout* const grid = NewHeadGrid(fields);
    for (const HeadCell& cell : kBillCells)
        AddCell(*grid, cell);
    QWidget* const money = MakeMoneyFrame();
    money->setVisible(m_program.parameters.IsLotMoney);
    grid->addWidget(money, 1, 3, 1, 2);
    layout->addWidget(fields);
    QWidget* const provided = MakeFrameProvide();
    layout->addWidget(provided);
    layout->addWidget(MakeLineBand());
    WidenColumns(*fields, *provided);
    return head;
}

QWidget* frmGroupPiece::MakeFrameProvide()
{
    auto* const frame = new QWidget;
    frame->setObjectName("FrameProvide");
    QGridLayout* const grid = NewHeadGrid(frame);
    auto* const line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* const title = new QHBoxLayout;
    title->setSpacing(kMargin);
    title->addWidget(new QLabel("附属信息(无此信息不填写)"));
    title->addWidget(line, 1);
    grid->addLayout(title, 0, 0, 1, kHeadColumns);
    for (const HeadCell& cell : kProvideCells)
        AddCell(*grid, cell);
    return frame;
}

void frmGroupPiece::AddCell(QGridLayout& grid, const HeadCell& cell)
{
    QLabel* const caption = NewLabel(cell.labelName, cell.caption);
    grid.addWidget(MakeCell(caption, MakeEditor(cell.control), cell.button), cell.row, cell.column, 1, cell.span);
    if (cell.column == 0)
        caption->setMinimumWidth(caption->fontMetrics().horizontalAdvance(kWidestCaption));
}

QWidget* frmGroupPiece::MakeEditor(const char* control)
{
    const QLatin1String name(control);
    if (name == QLatin1String("FrameType"))
        return MakeFrameType();
    if (name == QLatin1String("DTPDate"))
        return MakeDate();
    if (name == QLatin1String("TxtUnite"))
        return MakeUnits();
    const auto own = std::ranges::find_if(
        PieceFields(), [&](const PieceField& field) { return name == QLatin1String(field.control); });
    if (own == PieceFields().end())
        return MakeHeadBox(control);
    // The code comes with the good and is never typed.
    QLineEdit* const box = MakeBox(control, m_piece.*own->text, own->typed && name != QLatin1String("TxtWareCode"));
    if (name == QLatin1String("TxtWareName"))
        connect(box, &QLineEdit::textEdited, this, [this] {
            ForgetProduct(m_piece);
            ShowBill();
        });
    if (IsHeadFigure(name))
        connect(box, &QLineEdit::textEdited, this, [this, name = QString(name)] {
            HeadTextChanged(m_program, m_piece, name);
            ShowBill();
        });
    return box;
}

QWidget* frmGroupPiece::MakeFrameType()
{
    auto* const frame = new QWidget;
    frame->setObjectName("FrameType");
    auto* const layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* control, const QString& caption, bool assembles) {
        auto* const option = new QRadioButton(caption);
        option->setObjectName(control);
        option->installEventFilter(this);
        connect(option, &QRadioButton::clicked, this, [this, assembles] { Switch(assembles); });
        layout->addWidget(option);
    };
    add("OptGroup", "商品组装", true);
    add("OptPiece", "商品拆卸", false);
    layout->addStretch();
    return frame;
}

QWidget* frmGroupPiece::MakeUnits()
{
    m_units = NewChoice("TxtUnite");
    m_units->installEventFilter(this);
    connect(m_units, &QComboBox::textActivated, this, [this](const QString& unit) {
        m_piece.TxtUnite = unit;
        ShowTitle();
    });
    return m_units;
}

/// What the lines below are, and the options of their figures.
QWidget* frmGroupPiece::MakeLineBand()
{
    auto* const band = new QWidget;
    band->setObjectName("FrameLines");
    auto* const layout = new QHBoxLayout(band);
    layout->setContentsMargins(0, kSpacing, 0, 0);
    layout->setSpacing(2 * kMargin);
    auto* const title = NewLabel("LabOperateType", {});
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);
    layout->addWidget(NewLabel("LabRemark", {}));
    layout->addStretch();
    const auto add = [&](const char* control, const QString& caption, auto clicked) {
        auto* const check = new QCheckBox(caption);
        check->setObjectName(control);
        connect(check, &QCheckBox::clicked, this, clicked);
        layout->addWidget(check);
    };
    add("ChAutoChen", "清单自动乘生产数量", [this](bool on) {
        HideEditors();
        ClickAutoChen(m_program, m_piece, on);
        ShowBill();
    });
    add("ChSpecJE", "启用 金额=规格*数量*单价", [this](bool on) { m_piece.ChSpecJE = on; });
    return band;
}
