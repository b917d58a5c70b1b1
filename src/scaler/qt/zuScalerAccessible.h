// The time axis as assistive tools see it.
#pragma once

#include "foundation/qt/zuAccessible.h"
#include "foundation/zuExport.h"
#include "scaler/qt/zuScaler.h"

#include <QAccessibleWidget>
#include <QRect>

namespace korvane {

/// A slider over the first visible instant, in days. Its name is the visible time in the user's
/// language unless the application has set another; the value's text is always that. It can be
/// zoomed and moved by actions, and its children are the visible periods of the major row.
class KORVANE_WIDGETS_API TScalerAccessible : public QAccessibleWidget,
                                              public QAccessibleValueInterface
{
public:
    /// The scaler is observed.
    explicit TScalerAccessible(TzuDateScaler &scaler);

    /// The control that this is about.
    TzuDateScaler &Scaler() const { return *static_cast<TzuDateScaler *>(object()); }
    /// A visible period in screen coordinates; empty when there is no such one.
    QRect PeriodRect(int index) const;
    /// Null when there is no such period.
    const TScaleMark *PeriodMark(int index) const;

    /// As Qt asks; children are the visible periods of the major row, 0-based in order of time.
    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text text) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    /// Actions are the zooms and moves of TScalerCommand, by Qt's names where it has some.
    QStringList actionNames() const override;
    QString localizedActionName(const QString &name) const override;
    QString localizedActionDescription(const QString &name) const override;
    void doAction(const QString &name) override;

    /// Days since 1899-12-30.
    QVariant currentValue() const override { return Scaler().GetStart(); }
    /// Keeps the length of the visible time.
    void setCurrentValue(const QVariant &value) override;
    /// Days; from 0 to the last start at which the visible time fits. A step is that of the scroll
    /// buttons.
    QVariant maximumValue() const override;
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return Scaler().GetScrollStep(); }

private:
    /// Indexes of the major marks whose periods are visible, half-open.
    struct TMarkRange
    {
        int Begin = 0;
        int End = 0;
    };

    TMarkRange VisibleMarks() const;
    int PixelAfter(int mark) const;

    mutable TAccessibleParts m_periods;
};

/// Tells assistive tools that the visible time has changed.
KORVANE_WIDGETS_API void TellVisibleTime(TzuDateScaler &scaler);

} // namespace korvane
