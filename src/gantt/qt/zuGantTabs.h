// Tab sheets beside the Gantt chart's own.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QStackedWidget;
class QTabBar;

namespace korvane {

class TGantRow;

/// Another row became the active one; null when there is none.
using TOnTabRowChange = TMethod<void(TGantRow *row)>;
/// The sheet is about to be left; `allow` set to false keeps it.
using TOnTabChanging = TMethod<void(QWidget *sender, bool &allow)>;
/// The sheet has been left or come to the front.
using TOnTabChange = TMethod<void(QWidget *sender)>;

/// A sheet that an application has added, and what it wants to hear.
struct TMyContainer
{
    QPointer<QWidget> Sheet;     ///< observed; null once it is gone
    TOnTabRowChange OnRowChange; ///< the active row is another
    TOnTabChanging OnChanging;   ///< before it is left
    TOnTabChange OnChange;       ///< it has been left, or come to the front
};

/// Tabs above a stack of sheets. Before the user or the program leaves a sheet, the handler is
/// asked; until it has agreed, no other sheet is seen.
class KORVANE_WIDGETS_API TGantPageControl : public QWidget
{
    Q_OBJECT

public:
    /// Shared with whoever walks them while handlers change them.
    using TContainers = std::vector<std::shared_ptr<TMyContainer>>;

    /// With the sheet "Gant" alone.
    explicit TGantPageControl(QWidget *parent);
    ~TGantPageControl() override;

    /// The first sheet, "Gant"; empty until the chart moves in.
    QWidget &GantSheet() { return *m_gantSheet; }
    /// The tabs of all sheets.
    QTabBar &Tabs() { return *m_tabs; }
    /// The sheet in front. Setting another one asks OnChanging; a widget that is no sheet is
    /// ignored.
    QWidget *ActivePage() const;
    void SetActivePage(QWidget *sheet);

    /// Appends a sheet under its window title, and owns it. A sheet that is destroyed or moved
    /// elsewhere takes its tab along.
    void Add(TMyContainer container);
    /// Of the sheets added; handlers may add and remove some, so callers work on a copy.
    const TContainers &Containers() const { return m_containers; }

    /// A sheet is about to be left, which `allow` set to false prevents; another one is in front.
    TMethod<void(TGantPageControl *sender, bool &allow)> OnChanging;
    TMethod<void(TGantPageControl *sender)> OnChange;

private:
    void CurrentTabChanged(int index);
    void SheetRemoved(int index);
    int AddSheet(QWidget *sheet, const QString &caption);

    QTabBar *m_tabs;
    QStackedWidget *m_sheets;
    QWidget *m_gantSheet;
    TContainers m_containers;
};

} // namespace korvane
