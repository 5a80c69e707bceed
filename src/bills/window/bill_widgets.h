#pragma once

// Small widgets that the bill windows are put together from.

#include "output/window/frmProgress.h"

#include <QLabel>

class QComboBox;
class QFocusEvent;
class QToolButton;

/// Of a box whose limit the rules know: the widget's own would cut a pasted text off without a word.
constexpr int kNoLimit = 0x7fffffff;

/// A label with a name.
QLabel* NewLabel(const char* name, const QString& text);
/// A list to choose from, which reads as well while it is locked, and which the wheel leaves alone unless it has the
/// focus.
QComboBox* NewChoice(const char* name);
/// A caption and its editor side by side. With the name of a button, one to pick from stands behind the editor.
QWidget* MakeCell(QLabel* caption, QWidget* editor, const char* buttonName = nullptr);
/// A button that opens a picker. It is reached by the tab key.
QToolButton* NewPickButton(const char* name);
/// Says which field it is for, in its tip and to a screen reader.
void NamePickButton(QToolButton& button, const QString& field);
/// The same for all buttons of a head, by the captions in their cells.
void NamePickButtons(const QWidget& head);

/// The user has left the window, not the box.
bool LeavesWindow(const QFocusEvent& focus);

/// Of several windows in one remembered place each shows the caption of the one before, as far as the screen has room.
void StepAside(QWidget& window);

/// A word stamped on the bill in a coloured frame. It hides itself without a text.
class Stamp : public QLabel
{
public:
    explicit Stamp(const char* name);
    void SetWord(const QString& word);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// While it lives the pointer is busy and a label says that the bill is being written.
class Busy
{
public:
    explicit Busy(QLabel& loading);
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    const BusyPointer m_pointer;
    QLabel& m_loading;
};
