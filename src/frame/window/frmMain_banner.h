#pragma once

// The two brands of the suite as the main window wears them: colours, and banners drawn as vectors.

#include <QVariantAnimation>
#include <QWidget>

struct Brand
{
    QColor deep;
    QColor main;
    QColor accent;
};

/// Shares in the ground: of the text in an edge, of the brand behind what is under the pointer.
constexpr double kEdge = 0.17;
constexpr double kLit = 0.12;

/// "Z3" has its own brand, every other code the first one.
const Brand& BrandOf(const QString& softType);

/// Img_Top with the title, Img_Top2 with the brand's drawing, Img_Bottom the strip that closes the window.
class Banner : public QWidget
{
public:
    enum class Part
    {
        Top,
        Top2,
        Bottom,
    };

    Banner(Part part, const Brand& brand, QWidget* parent);
    void SetTitle(const QString& title, const QString& subtitle);
    /// The start animation: title and drawing come in once.
    void Play();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintTitle(QPainter& painter) const;
    void PaintShelves(QPainter& painter) const;
    void PaintRoutes(QPainter& painter) const;

    const Part m_part;
    const Brand& m_brand;
    QString m_title;
    QString m_subtitle;
    QVariantAnimation m_entrance;
    double m_progress = 1; // of the entrance
};
