#pragma once

// The pages that a print would bring, to look at and to print from.

#include "handover/program.h"
#include "output/pdf_pages.h"

#include <QDialog>
#include <QHash>
#include <QImage>

class QAction;
class QLabel;
class QScrollArea;

class frmPrintPreview : public QDialog
{
public:
    frmPrintPreview(Program& program, const QString& pdf, QString title, std::vector<QSizeF> pages, QWidget* parent);

    /// Shows the pages of a PDF over `parent` until the window is left. What hinders it is said.
    /// @param title  of the print, should it come to one
    static void Show(Program& program, const QString& pdf, const QString& title, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildBar(class QToolBar& bar);
    void Print();
    void Turn(int step);
    void TurnTo(int page);
    void Zoom(double factor);
    void FitPage();
    void ShowPage();
    void ShowPicture(const QImage& picture);
    void Take(int page, int dpi, const QByteArray& picture);
    void Prefetch();
    /// Of the page, in units of the screen, for one inch of paper.
    double FittingDpi() const;
    int ShownDpi() const;

    Program& m_program;
    const QString m_pdf;
    const QString m_title;
    const std::vector<QSizeF> m_sizes;
    PdfPages m_pages;
    QHash<int, QImage> m_pictures; // by page, at m_dpi
    int m_dpi = 0;
    int m_page = 1;
    double m_zoom = 0; // 1 is life size, 0 the whole page in sight
    QScrollArea* m_area;
    QLabel* m_sheet;
    QLabel* m_place; // LabPage
};
