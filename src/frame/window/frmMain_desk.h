#pragma once

// The middle of the main window: the main entries of the category as tiles, the further ones as a list beside them.

#include <QPixmap>
#include <QWidget>

class EntryBoard;
class QCheckBox;
class QLabel;
class QScrollArea;
class QToolButton;
struct Brand;
struct FunctionCategory;

class Desk : public QWidget
{
    Q_OBJECT

public:
    Desk(const Brand& brand, QWidget* parent);

    void ShowEntries(const FunctionCategory& category);
    /// A picture behind the tiles; none for an empty path and for a file that is no picture.
    void SetPicture(const QString& path);

signals:
    void Chosen(const QString& word);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* MakeTiles();
    QWidget* MakeItems();
    QToolButton* MakeScrollKey(const QString& name, Qt::ArrowType arrow, int direction);
    void ShowMainPictures(bool shown);

    const Brand& m_brand;
    QLabel* m_title = nullptr;
    QCheckBox* m_showPictures = nullptr; // ChShowMainPic
    EntryBoard* m_tiles = nullptr;       // PicFunction
    EntryBoard* m_items = nullptr;       // LabItemName
    QScrollArea* m_scroll = nullptr;     // PicInf
    QWidget* m_tilePane = nullptr;
    QWidget* m_itemPane = nullptr;
    QPixmap m_picture;
};
