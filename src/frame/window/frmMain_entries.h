#pragma once

// The entries of a category on a board: large tiles or slim rows, in as many columns as fit. Arrow keys move between
// them, Enter runs one.

#include <QAbstractButton>
#include <QWidget>
#include <vector>

struct Brand;

enum class EntryLook
{
    Tile,
    Row,
};

class FunctionEntry : public QAbstractButton
{
public:
    FunctionEntry(const QString& word, EntryLook look, const Brand& brand, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void PaintTile(QPainter& painter) const;
    void PaintRow(QPainter& painter) const;

    const EntryLook m_look;
    const Brand& m_brand;
};

class EntryBoard : public QWidget
{
    Q_OBJECT

public:
    /// @param controlName  the entries are called by it and their number
    EntryBoard(EntryLook look, const QString& controlName, const Brand& brand, QWidget* parent);

    void SetEntries(const QStringList& words);
    void SetMaximumColumns(int columns);
    void FocusFirst();

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

signals:
    void Chosen(const QString& word);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int ColumnsFor(int width) const;
    QSize CellSize() const;
    void Arrange();

    const EntryLook m_look;
    const QString m_controlName;
    const Brand& m_brand;
    const int m_gap;
    int m_maximumColumns = 99;
    std::vector<FunctionEntry*> m_entries;
};
