#pragma once

// The pages of a PDF as pictures, drawn one at a time by the poppler tools beside the program's own work.

#include <QObject>
#include <QProcess>
#include <QSizeF>
#include <functional>
#include <optional>
#include <vector>

/// The sizes of all pages in points. Empty for a file that cannot be read, unset without the tools.
std::optional<std::vector<QSizeF>> PageSizes(const QString& path);

class PdfPages : public QObject
{
public:
    /// @param drawn  gets page, dots per inch and the picture in a form that QImage reads; no bytes for a failure
    using Drawn = std::function<void(int page, int dpi, const QByteArray& picture)>;
    PdfPages(QString path, Drawn drawn);
    ~PdfPages() override;

    /// Draws a page, counted from 1, as soon as it can. An earlier page that is still being drawn is given up.
    void Ask(int page, int dpi);
    bool isDrawing() const { return m_process.state() != QProcess::NotRunning; }

private:
    void Start();
    void Finish();

    const QString m_path;
    const Drawn m_drawn;
    QProcess m_process;
    struct Wish
    {
        int page;
        int dpi;
    };
    std::optional<Wish> m_drawing;
    std::optional<Wish> m_next;
};
