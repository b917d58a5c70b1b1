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
    explicit TBabGridFindBar(TBabGridView_Custom &view);

    /// Shows the bar with the text, if there is one, and gives it the keyboard.
    void Open(const QString &text);
    void Close();
    void Find(TGridFindFrom from);
    QString Text() const;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
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
