#pragma once

// The box of a day in every window: typed in any of the short ways, stepped by keys, or chosen from a calendar.

#include <QDate>
#include <QLineEdit>

/// Shows a day as 2023-02-08. What is typed is read when the box is left or a command's key is pressed; what cannot be
/// read stays where it is, marked, and the focus with it. Escape brings the day back.
class DateBox : public QLineEdit
{
    Q_OBJECT

public:
    enum class Blank
    {
        Refused,
        Allowed,
    };

    explicit DateBox(const char* name, Blank blank = Blank::Refused);

    /// Invalid for an empty box.
    const QDate& date() const { return m_day; }
    /// What is being typed stays while the day is the same.
    void SetDate(const QDate& day);
    /// Tints the box and says something of its day in the tip; nothing for an empty text.
    void SetRemark(const QString& remark);
    /// The day to which +1 or 15 refer in an empty box.
    void SetBase(const QDate& day) { m_base = day; }
    /// Takes what was typed. False when it cannot be read, which is shown and heard.
    bool Commit();
    void OpenCalendar();

signals:
    /// The user has given another day.
    void DateChanged(const QDate& day);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool TakesForItself(QKeyEvent& key);
    void Take(const QDate& day);
    void Step(int step);
    void ShowDay();
    void Mark(bool unreadable);
    void Tint();

    const bool m_mayBeEmpty;
    QDate m_day;
    QDate m_base;
    bool m_marked = false;
    QString m_remark;
};
