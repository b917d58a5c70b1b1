// The bar below a grid in which the user looks for text.
#pragma once

#include "cellgrid/zuBabGridFind.h"

#include <QBasicTimer>
#include <QFrame>
#include <QString>

class QLabel;
class QLineEdit;
class QToolButton;

namespace korvane {

class TBabGridView_Custom;

/// Finds while the user types. Enter and F3 go on to the next place, with Shift to the one before;
/// Escape closes the bar. The search runs between other events, a few milliseconds at a time.
class KORVANE_WIDGETS_API TBabGridFindBar : public QFrame
{
    Q_OBJECT

public:
    /// Becomes a child of the view, which does the searching.
    explicit TBabGridFindBar(TBabGridView_Custom &view);

    /// Shows the bar with the text, if there is one, and gives it the keyboard.
    void Open(const QString &text);
    /// Hides the bar and removes the marks of the text; the view gets the keyboard if it was here.
    void Close();
    /// Begins a search for what is typed; one that is under way is given up.
    void Find(TGridFindFrom from);
    /// What is typed now.
    QString Text() const;

protected:
    /// Takes the keys that find and close from the field.
    bool eventFilter(QObject *object, QEvent *event) override;
    /// Goes on with the search for some milliseconds.
    void timerEvent(QTimerEvent *event) override;
    /// Another language is shown at once.
    void changeEvent(QEvent *event) override;

private:
    void Retranslate();
    void ShowState(TGridFindState state);

    TBabGridView_Custom &m_view;
    QLineEdit *m_field;
    QLabel *m_message;
    QToolButton *m_previous;
    QToolButton *m_next;
    QToolButton *m_close;
    QBasicTimer m_timer;
};

} // namespace korvane
