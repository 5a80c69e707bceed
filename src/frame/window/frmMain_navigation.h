#pragma once

// The left side of the main window: the category buttons as a stack that opens under the chosen one, and the tree of
// that category in the opening.

#include <QPushButton>
#include <QTreeWidget>
#include <vector>

struct Brand;
class QVBoxLayout;

class Navigation : public QWidget
{
    Q_OBJECT

public:
    Navigation(const QStringList& captions, const Brand& brand, QWidget* parent);

    /// Opens the stack under a button and fills the tree.
    void Open(const QString& caption, const QStringList& nodes);

    QSize sizeHint() const override;

signals:
    void CategoryChosen(const QString& caption);
    void NodeRun(const QString& word);

private:
    QPushButton* MakeButton(const QString& caption);
    QColor Ink() const;
    void FillTree(const QString& caption, const QStringList& nodes);

    const Brand& m_brand;
    QVBoxLayout* m_stack = nullptr;
    std::vector<QPushButton*> m_buttons; // Cmd
    QTreeWidget* m_tree = nullptr;
    QString m_clickedNode;
    QIcon m_nodePicture;
};
