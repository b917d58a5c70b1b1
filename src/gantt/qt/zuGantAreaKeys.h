// Keyboard focus, keys, hints and pointing in the drawn area of a chart.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"

#include <QObject>

class QContextMenuEvent;
class QFocusEvent;
class QHelpEvent;

namespace korvane {

class TzuGant_ComBasic;

/// Translates key, focus and hint events of a chart's area into calls of the chart.
///
/// An area that gets the focus by the keyboard makes an item active, if none is; with no items to
/// make active the area itself is framed. The context menu of the keyboard opens at the active
/// item, as the event of a mouse click there. What handlers of the application throw is reported.
class KORVANE_WIDGETS_API TGantAreaKeys : public QObject
{
    Q_OBJECT

public:
    /// Both are observed and outlive the translator.
    TGantAreaKeys(TzuGant_ComBasic &gant, TzuOffscreenPaint &area);

    /// Whether the area got its focus by the keyboard, the last time.
    bool FocusByKeyboard() const { return m_focusByKeyboard; }

protected:
    /// The events of the area.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool HandleKey(int key, const TShiftState &shift);
    void HandleFocusIn(const QFocusEvent &event);
    void HandleHint(const QHelpEvent &event);
    bool HandleContextMenu(const QContextMenuEvent &event);

    TzuGant_ComBasic &m_gant;
    TzuOffscreenPaint &m_area;
    bool m_focusByKeyboard = false;
};

} // namespace korvane
