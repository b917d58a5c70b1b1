// Services of the drawn components that need a window: the hint window of gestures.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuGraphStuff.h"
#include "foundation/zuMethod.h"

#include <QBasicTimer>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QVector>
#include <QWidget>

namespace korvane {

/// A small window that tells what a gesture is changing, or what lies under the pointer. It stands
/// beside the pointer, on the pointer's screen and never below it, and takes neither focus nor
/// mouse. It is seen only while its owner's window is the active one.
///
/// A text is lines; a line may be a label and a value with a tab between them, and all values then
/// stand in one column. Positions are those of the pointer on the screen.
class KORVANE_WIDGETS_API TGraphHintWindow : public QWidget
{
    Q_OBJECT

public:
    /// Answers with the text for a position; one left empty shows nothing.
    using TWantsNewText = TMethod<void(TGraphHintWindow *sender, QPoint position, QString &text)>;

    /// The owner is the control that the hints are about; it also owns the window.
    explicit TGraphHintWindow(QWidget *owner);
    /// Hides it and withdraws what was put off.
    ~TGraphHintWindow() override;

    /// The window of the owner.
    QWidget *ParentForm() const { return parentWidget()->window(); }
    /// Whether it is the active one; without that no hint is seen.
    bool ParentFormActive() const { return ParentForm()->isActiveWindow(); }

    /// Whether hints are shown at all; true by default.
    bool ShowFlag() const { return m_showFlag; }
    void SetShowFlag(bool show);
    /// What the window says, or would; set, the window takes the size that it needs.
    QString Text() const { return m_text; }
    void SetText(const QString &text);
    /// Where a static hint stands, in the owner's pixels: in this rectangle's corner, and at least
    /// as large as it is.
    QRect BoundsRect() const { return m_bounds; }
    void SetBoundsRect(const QRect &bounds);
    /// Whether the hints of gestures stand in BoundsRect rather than beside the pointer.
    bool StaticPos() const { return m_static; }
    void SetStaticPos(bool on);

    /// Shows three texts, one below the other; empty ones take no line.
    void ShowMoveInfo(const QString &first, const QString &second, const QString &third,
                      QPoint position);
    /// For every move of the pointer while nothing is pressed: `target` is what lies under it, in
    /// pixels of the screen. When the pointer has rested within one target as long as tooltips take
    /// to wake up, the text is asked for and shown. Another target, and an empty one, hide it.
    void ShowSlowHintFor(const QRect &target, QPoint position);
    /// Shows a text at once.
    void ShowDirect(const QString &text, QPoint position);

    /// Follows the pointer.
    void SetPos(QPoint position);
    /// Stands in BoundsRect again after the owner has moved.
    void UpdateStaticPos();

    /// Shows the text, if there is one and the owner's window is active; otherwise hides.
    void DoShow();
    /// Nothing when it is hidden.
    void DoHide();
    /// The same when the event loop next comes round. The last request holds.
    void DoShowAsync();
    /// Replaces a request to show that has not run yet.
    void DoHideAsync();

    /// What the text needs.
    QSize sizeHint() const override;

    /// Asked by ShowSlowHintFor; without a handler there are no slow hints.
    TWantsNewText OnWantsNewText;

protected:
    /// Takes the size that the text needs.
    virtual void CMTextChanged();

    /// Follow the window of the owner, the palette, and the rest of the pointer.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct TLine
    {
        QString Text; ///< the label, when there is a value
        QString Value;
        bool Labelled = false;
    };

    void Place();
    void Watch(QWidget *form);
    void DoShow_Later(TObject *parameter);
    void DoHide_Later(TObject *parameter);
    int LabelWidth() const;
    QRect AvailableGeometry() const;

    QString m_text;
    QVector<TLine> m_lines;
    QPoint m_position;
    QRect m_bounds;
    QRect m_slowTarget; ///< of the hint that waits or is shown; empty when there is none
    QBasicTimer m_slowTimer;
    QPointer<QWidget> m_watched;
    bool m_showFlag = true;
    bool m_static = false;
};

} // namespace korvane
