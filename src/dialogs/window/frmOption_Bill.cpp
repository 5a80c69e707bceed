#include "dialogs/window/frmOption_Bill.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <algorithm>
#include <utility>

namespace {

constexpr int kLongestCaption = 50;
constexpr int kLongestWidth = 10;

struct AlignmentOption
{
    const char* name;
    const char* caption;
    int align;
};
constexpr AlignmentOption kAlignments[] = {
    {"OptionMSHHeadLeft", "左对齐", 1},
    {"OptionMSHHeadCenter", "居中对齐", 4},
    {"OptionMSHHeadRight", "右对齐", 7},
    {"OptionMSHHeadDefault", "默认对齐", 9},
};

} // namespace

CellFormat FormatOfCells(const QWidget& cells, int align)
{
    const QFont& font = cells.font();
    const QColor color = cells.palette().color(QPalette::Text);
    return {align,
            font.family(),
            static_cast<float>(font.pointSizeF()),
            font.bold(),
            font.italic(),
            font.underline(),
            color.red() | color.green() << 8 | color.blue() << 16};
}

frmOption_Bill::frmOption_Bill(Program& program, GridFormat format, const QString& layoutKey, ColumnChanged changed,
                               QWidget* parent)
    : QDialog(parent),
      m_program(program),
      m_format(std::move(format)),
      m_layoutKey(layoutKey.trimmed()),
      m_changed(std::move(changed)),
      m_list(new QListWidget)
{
    setObjectName("frmOption_Bill");
    setWindowTitle("界面显示格式设置");
    m_list->setObjectName("ListMSHHead");
    m_list->setStyleSheet("QListWidget::item { padding: 3px 0 }");
    for (const ColumnFormat& column : m_format.columns)
        m_list->addItem(column.elseName);
    connect(m_list, &QListWidget::currentTextChanged, this, &frmOption_Bill::ShowColumn);

    m_column = BuildColumn();
    auto* const columns = new QGroupBox("列(&L)");
    (new QVBoxLayout(columns))->addWidget(m_list);
    auto* const right = new QVBoxLayout;
    right->addWidget(m_column);
    right->addWidget(new QLabel("更改即时显示在列表中，保存后长期有效。"));
    right->addStretch();
    right->addLayout(BuildButtons());
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(columns, 1);
    layout->addLayout(right, 1);
    resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 26);
    m_column->setEnabled(false);
    m_list->setCurrentRow(std::min(1, m_list->count() - 1)); // the first column rarely has a caption
    m_list->setFocus();
}

void frmOption_Bill::Open(Program& program, const GridFormat& format, const QString& layoutKey,
                          const ColumnChanged& changed, QWidget* parent)
{
    frmOption_Bill(program, format, layoutKey, changed, parent).exec();
}

QWidget* frmOption_Bill::BuildColumn()
{
    m_caption = new QLineEdit;
    m_caption->setObjectName("TxtMSHElseName");
    m_caption->setMaxLength(kLongestCaption);
    connect(m_caption, &QLineEdit::textEdited, this, &frmOption_Bill::SetCaption);
    m_width = new QLineEdit;
    m_width->setObjectName("TxtMSHColWidth");
    m_width->setMaxLength(kLongestWidth);
    m_width->setValidator(new QRegularExpressionValidator(QRegularExpression("[.0-9]*"), m_width));
    connect(m_width, &QLineEdit::textEdited, this, [this](const QString& text) { SetWidth(TwipsOf(text)); });
    m_shown = new QCheckBox("显示列");
    m_shown->setObjectName("ChShowCol");
    connect(m_shown, &QCheckBox::clicked, this, [this](bool on) {
        SetWidth(on ? kShownColumnWidth : 0);
        ShowWidth();
    });

    auto* const alignments = new QGridLayout;
    m_alignments = new QButtonGroup(this);
    int place = 0;
    for (const AlignmentOption& option : kAlignments) {
        auto* const button = new QRadioButton(option.caption);
        button->setObjectName(option.name);
        m_alignments->addButton(button, option.align);
        alignments->addWidget(button, place / 2, place % 2);
        ++place;
    }
    connect(m_alignments, &QButtonGroup::idClicked, this, [this](int align) {
        Edit([=](ColumnFormat& column) { column.head.align = column.content.align = align; });
    });

    auto* const box = new QGroupBox("列的格式");
    auto* const form = new QFormLayout(box);
    form->addRow("列标题(&T)", m_caption);
    form->addRow("列宽(毫米)(&W)", m_width);
    form->addRow(QString(), m_shown);
    form->addRow("对齐方式", alignments);
    return box;
}

QLayout* frmOption_Bill::BuildButtons()
{
    auto* const save = new QPushButton("保   存");
    save->setObjectName("CmdOk");
    save->setShortcut(QKeySequence("Alt+S"));
    save->setToolTip("Alt+S");
    save->setAutoDefault(false);
    connect(save, &QPushButton::clicked, this, [this] { SaveGridFormat(m_program, m_layoutKey, m_format); });
    auto* const leave = new QPushButton("退   出");
    leave->setObjectName("CmdExit");
    leave->setShortcut(QKeySequence("Alt+X"));
    leave->setToolTip("Alt+X, Esc");
    leave->setAutoDefault(false);
    connect(leave, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(save);
    row->addWidget(leave);
    return row;
}

void frmOption_Bill::ShowColumn(const QString& caption)
{
    m_chosen.clear();
    for (size_t column = 0; column < m_format.columns.size(); ++column)
        if (m_format.columns[column].elseName.trimmed() == caption.trimmed())
            m_chosen.push_back(static_cast<int>(column));
    m_column->setEnabled(!m_chosen.empty());
    if (m_chosen.empty())
        return;
    const ColumnFormat& column = m_format.columns[m_chosen.front()];
    m_caption->setText(column.elseName);
    m_alignments->button(AlignmentOf(column.content.align))->setChecked(true);
    m_shown->setChecked(column.width != 0);
    ShowWidth();
}

void frmOption_Bill::ShowWidth()
{
    m_width->setText(MillimetresText(m_format.columns[m_chosen.front()].width));
}

void frmOption_Bill::SetCaption(const QString& caption)
{
    Edit([&](ColumnFormat& column) { column.elseName = caption; });
    const QSignalBlocker silent(m_list);
    for (const int column : m_chosen)
        m_list->item(column)->setText(caption);
}

void frmOption_Bill::SetWidth(int twips)
{
    Edit([=](ColumnFormat& column) { column.width = twips; });
    m_shown->setChecked(twips != 0);
}

/// Columns of one caption are edited together.
template <typename Change>
void frmOption_Bill::Edit(Change change)
{
    for (const int column : m_chosen) {
        change(m_format.columns[column]);
        m_changed(column, m_format.columns[column]);
    }
}
