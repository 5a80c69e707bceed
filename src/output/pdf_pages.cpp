#include "output/pdf_pages.h"

#include <QRegularExpression>
#include <utility>

namespace {

constexpr int kLongestWait = 10 * 1000; // milliseconds
constexpr int kMostPages = 100'000;

} // namespace

std::optional<std::vector<QSizeF>> PageSizes(const QString& path)
{
    QProcess info;
    info.start("pdfinfo", {"-f", "1", "-l", QString::number(kMostPages), path});
    if (!info.waitForStarted())
        return std::nullopt;
    info.waitForFinished(kLongestWait);
    std::vector<QSizeF> sizes;
    static const QRegularExpression size(R"(^Page +\d+ size: +([\d.]+) x ([\d.]+) pts)",
                                         QRegularExpression::MultilineOption);
    auto found = size.globalMatch(QString::fromLatin1(info.readAllStandardOutput()));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        sizes.emplace_back(match.captured(1).toDouble(), match.captured(2).toDouble());
    }
    return sizes;
}

PdfPages::PdfPages(QString path, Drawn drawn) : m_path(std::move(path)), m_drawn(std::move(drawn))
{
    connect(&m_process, &QProcess::finished, this, &PdfPages::Finish);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Finish();
    });
}

PdfPages::~PdfPages()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(kLongestWait);
}

void PdfPages::Ask(int page, int dpi)
{
    m_next = Wish{page, dpi};
    if (isDrawing())
        m_process.kill(); // Finish goes on with the next one
    else
        Start();
}

void PdfPages::Start()
{
    m_drawing = std::exchange(m_next, std::nullopt);
    if (!m_drawing)
        return;
    const QString page = QString::number(m_drawing->page);
    m_process.start("pdftoppm", {"-r", QString::number(m_drawing->dpi), "-f", page, "-l", page, m_path});
}

void PdfPages::Finish()
{
    const QByteArray picture = m_process.readAllStandardOutput();
    const std::optional<Wish> done = std::exchange(m_drawing, std::nullopt);
    const bool isWhole = m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    const bool isGivenUp = m_next.has_value();
    Start();
    if (done && !isGivenUp)
        m_drawn(done->page, done->dpi, isWhole ? picture : QByteArray());
}
