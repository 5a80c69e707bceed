#include "output/window/frmPrintPreview.h"

#include "output/window/frmPrinting.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kStep = 1.25;
constexpr double kLeastZoom = 0.2;
constexpr double kMostZoom = 4;
constexpr int kRim = 12;      // around the page
constexpr int kKeptPages = 2; // in front of the shown one and behind it

} // namespace

frmPrintPreview::frmPrintPreview(Program& program, const QString& pdf, QString title, std::vector<QSizeF> pages,
                                 QWidget* parent)
    : QDialog(parent),
      m_program(program),
      m_pdf(pdf),
      m_title(std::move(title)),
      m_sizes(std::move(pages)),
      m_pages(pdf, [this](int page, int dpi, const QByteArray& picture) { Take(page, dpi, picture); }),
      m_area(new QScrollArea),
      m_sheet(new QLabel),
      m_place(new QLabel)
{
    setObjectName("frmPrintPreview");
    setWindowTitle("打印");
    auto* const bar = new QToolBar(this);
    BuildBar(*bar);
    m_sheet->setObjectName("PicPage");
    m_sheet->setFrameShape(QFrame::Box);
    m_sheet->setAlignment(Qt::AlignCenter);
    m_area->setWidget(m_sheet);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setBackgroundRole(QPalette::Mid);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_area, 1);
    resize(parent ? parent->size() : QSize(1000, 700));
    m_area->setFocus();
}

void frmPrintPreview::Show(Program& program, const QString& pdf, const QString& title, QWidget* parent)
{
    const auto pages = PageSizes(pdf);
    if (!pages)
        return program.prompt.Inform("没有安装poppler-utils，不能打印预览！请安装软件包 poppler-utils 后重新操作。");
    if (pages->empty())
        return program.prompt.Inform("读取预览文件失败，请重新操作！");
    QApplication::setOverrideCursor(Qt::ArrowCursor); // the command that leads here keeps the pointer busy
    frmPrintPreview(program, pdf, title, *pages, parent).exec();
    QApplication::restoreOverrideCursor();
}

void frmPrintPreview::BuildBar(QToolBar& bar)
{
    using Preview = frmPrintPreview;
    bar.setObjectName("Toolbar1");
    bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](const char* name, const QString& caption, const char* keys, auto run) {
        auto* const action = new QAction(caption, this);
        action->setObjectName(name);
        action->setShortcuts(QKeySequence::listFromString(keys));
        action->setToolTip(caption + " (" + QString(keys).section(';', 0, 0) + ")");
        connect(action, &QAction::triggered, this, run);
        bar.addAction(action);
        bar.widgetForAction(action)->setFocusPolicy(Qt::NoFocus);
    };
    add("ToolPrint", "打印", "Ctrl+P; F5", &Preview::Print);
    bar.addSeparator();
    add("ToolBefore", "上页", "PgUp", [this] { Turn(-1); });
    add("ToolBack", "下页", "PgDown", [this] { Turn(1); });
    m_place->setObjectName("LabPage");
    m_place->setMargin(kRim / 2);
    bar.addWidget(m_place);
    bar.addSeparator();
    add("ToolEnlarge", "放大", "+; =; Ctrl++", [this] { Zoom(kStep); });
    add("ToolReduce", "缩小", "-; Ctrl+-", [this] { Zoom(1 / kStep); });
    add("ToolWhole", "整页", "*; Ctrl+0", &Preview::FitPage);
    bar.addSeparator();
    add("ToolExit", "退出", "Esc", [this] { reject(); });
}

void frmPrintPreview::Print()
{
    auto* const key = findChild<QAction*>("ToolPrint");
    key->setEnabled(false);
    frmPrinting::Print(m_program, m_pdf, m_title, this, [this, key](bool taken) {
        key->setEnabled(true);
        if (taken)
            accept();
    });
}

void frmPrintPreview::Turn(int step)
{
    TurnTo(m_page + step);
}

void frmPrintPreview::TurnTo(int page)
{
    page = std::clamp(page, 1, int(m_sizes.size()));
    if (page == m_page)
        return;
    m_page = page;
    m_area->verticalScrollBar()->setValue(0);
    ShowPage();
}

void frmPrintPreview::Zoom(double factor)
{
    const double now = m_zoom > 0 ? m_zoom : FittingDpi() / logicalDpiX();
    m_zoom = std::clamp(now * factor, kLeastZoom, kMostZoom);
    ShowPage();
}

void frmPrintPreview::FitPage()
{
    m_zoom = 0;
    ShowPage();
}

double frmPrintPreview::FittingDpi() const
{
    const QSizeF page = m_sizes[m_page - 1];
    const QSizeF room = m_area->maximumViewportSize() - QSize(2 * kRim, 2 * kRim);
    return std::max(10.0, kPointsPerInch * std::min(room.width() / page.width(), room.height() / page.height()));
}

int frmPrintPreview::ShownDpi() const
{
    return int((m_zoom > 0 ? m_zoom * logicalDpiX() : FittingDpi()) * devicePixelRatioF());
}

/// What is drawn already at once, otherwise an empty sheet until it is.
void frmPrintPreview::ShowPage()
{
    m_place->setText(QString("第 %1 页 / 共 %2 页").arg(m_page).arg(m_sizes.size()));
    findChild<QAction*>("ToolBefore")->setEnabled(m_page > 1);
    findChild<QAction*>("ToolBack")->setEnabled(m_page < int(m_sizes.size()));
    if (const int dpi = ShownDpi(); dpi != m_dpi) {
        m_dpi = dpi;
        m_pictures.clear();
    }
    const auto drawn = m_pictures.constFind(m_page);
    if (drawn != m_pictures.cend()) {
        ShowPicture(*drawn);
        return Prefetch();
    }
    QImage blank((m_sizes[m_page - 1] * (m_dpi / kPointsPerInch)).toSize(), QImage::Format_RGB32);
    blank.fill(Qt::white);
    ShowPicture(blank);
    m_pages.Ask(m_page, m_dpi);
}

void frmPrintPreview::ShowPicture(const QImage& picture)
{
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    m_sheet->setPixmap(pixmap);
    m_sheet->adjustSize();
}

void frmPrintPreview::Take(int page, int dpi, const QByteArray& picture)
{
    if (dpi != m_dpi)
        return;
    m_pictures.removeIf([this](const auto& each) { return std::abs(each.key() - m_page) > kKeptPages; });
    m_pictures[page] = QImage::fromData(picture);
    if (page != m_page)
        return;
    if (m_pictures[page].isNull())
        m_sheet->setText(QString("第 %1 页不能显示").arg(page));
    else
        ShowPicture(m_pictures[page]);
    Prefetch();
}

/// The page that will most likely be turned to.
void frmPrintPreview::Prefetch()
{
    const int next = m_page + 1;
    if (next <= int(m_sizes.size()) && !m_pictures.contains(next) && !m_pages.isDrawing())
        m_pages.Ask(next, m_dpi);
}

void frmPrintPreview::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    ShowPage();
}

void frmPrintPreview::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home)
        TurnTo(1);
    else if (event->key() == Qt::Key_End)
        TurnTo(int(m_sizes.size()));
    else
        QDialog::keyPressEvent(event);
}
