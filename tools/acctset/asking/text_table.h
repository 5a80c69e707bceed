#pragma once

// A table of texts in columns of equal width, as a terminal shows it: Chinese signs are two places wide.

#include <QStringList>
#include <vector>

class TextTable
{
public:
    enum class Align
    {
        Left,
        Right,
    };

    struct Column
    {
        QString caption;
        Align align = Align::Left;
    };

    explicit TextTable(std::vector<Column> columns);
    void AddRow(const QStringList& cells) { m_rows.push_back(cells); }
    /// Captions, a rule, and the rows; no line ends in blanks.
    QStringList Lines() const;

private:
    QString LineOf(const QStringList& cells, const std::vector<int>& widths) const;

    std::vector<Column> m_columns;
    std::vector<QStringList> m_rows; // the captions first
};

/// Places that a text takes on a terminal.
int WidthOf(const QString& text);
