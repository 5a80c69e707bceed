#include "shell/window/message_prompt.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>

namespace {

const QString kTitle = QStringLiteral("系统提示");
/// The name of the executable would stand in place of an empty one.
const QString kNoTitle = QStringLiteral(" ");

/// A sign in a coloured disc, as large as two lines of text.
struct Sign
{
    const char* letter; // null for a box without a sign
    QRgb colour;
};
constexpr Sign kInformation{"i", 0xff1d62b8};
constexpr Sign kQuestion{"?", 0xff1d62b8};
constexpr Sign kCritical{"!", 0xffc6362f};
constexpr Sign kNone{nullptr, 0};

QPixmap Draw(const Sign& sign, const QMessageBox& box)
{
    const int size = box.fontMetrics().height() * 5 / 2;
    const double scale = box.devicePixelRatioF();
    QPixmap pixmap(QSize(size, size) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(sign.colour));
    const QRectF disc(1, 1, size - 2, size - 2);
    painter.drawEllipse(disc);
    QFont font = box.font();
    font.setPixelSize(size * 2 / 3);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(disc, Qt::AlignCenter, sign.letter);
    return pixmap;
}

/// A box that can be read, and copied from, while a save keeps the pointer busy.
class Box
{
public:
    Box(const Sign& sign, const QString& title, const QString& text)
        : m_box(QMessageBox::NoIcon, title, text, QMessageBox::NoButton, QApplication::activeWindow())
    {
        m_box.setTextFormat(Qt::PlainText);
        m_box.setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto* const words = m_box.findChild<QLabel*>("qt_msgbox_label");
        // A longer text keeps its own width, or the box would cut it off instead of wrapping it.
        const int least = m_box.fontMetrics().averageCharWidth() * 32;
        if (words->sizeHint().width() < least)
            words->setMinimumWidth(least);
        words->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        if (sign.letter)
            m_box.setIconPixmap(Draw(sign, m_box));
    }

    QPushButton* Button(const QString& caption, QMessageBox::ButtonRole role) { return m_box.addButton(caption, role); }
    void SetKeys(QPushButton* enter, QPushButton* escape)
    {
        m_box.setDefaultButton(enter);
        m_box.setEscapeButton(escape);
    }
    /// The button that closed it.
    QAbstractButton* Show()
    {
        QApplication::setOverrideCursor(Qt::ArrowCursor);
        m_box.exec();
        QApplication::restoreOverrideCursor();
        return m_box.clickedButton();
    }

private:
    QMessageBox m_box;
};

void Tell(const Sign& sign, const QString& title, const QString& text)
{
    Box box(sign, title, text);
    QPushButton* const ok = box.Button("确定", QMessageBox::AcceptRole);
    box.SetKeys(ok, ok);
    box.Show();
}

} // namespace

void MessagePrompt::Inform(const QString& text)
{
    Tell(kInformation, kTitle, text);
}

void MessagePrompt::InformFault(const QString& text)
{
    Tell(kInformation, "错误", text);
}

void MessagePrompt::InformOrCancel(const QString& text)
{
    Box box(kInformation, kTitle, text);
    QPushButton* const ok = box.Button("确定", QMessageBox::AcceptRole);
    box.SetKeys(ok, box.Button("取消", QMessageBox::RejectRole));
    box.Show();
}

void MessagePrompt::Warn(const QString& text)
{
    Tell(kCritical, kTitle, text);
}

bool MessagePrompt::Ask(const QString& text)
{
    Box box(kQuestion, kTitle, text);
    QPushButton* const yes = box.Button("是(&Y)", QMessageBox::YesRole);
    QPushButton* const no = box.Button("否(&N)", QMessageBox::NoRole);
    box.SetKeys(yes, no);
    return box.Show() == yes;
}

Choice MessagePrompt::Choose(const QString& text, const QString& first, const QString& second)
{
    Box box(kQuestion, kTitle, text);
    QPushButton* const enter = box.Button(first, QMessageBox::YesRole);
    const QPushButton* const other = box.Button(second, QMessageBox::NoRole);
    QPushButton* const cancel = box.Button("取消(&C)", QMessageBox::RejectRole);
    box.SetKeys(enter, cancel);
    const QAbstractButton* const pressed = box.Show();
    if (pressed == enter)
        return Choice::First;
    return pressed == other ? Choice::Second : Choice::Cancel;
}

void MessagePrompt::Error(const QString& text)
{
    Tell(kNone, kNoTitle, text);
}

QString MessagePrompt::AskFile(const QString& title, const QString& filters)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, QString(), filters);
}

void MessagePrompt::Busy(bool busy)
{
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}
