// What the views of a plan have in common.
#pragma once

#include "ChartLooks.h"
#include "gantt/qt/zuGant.h"
#include "plan/PlanEditor.h"

#include <QBasicTimer>
#include <QTimer>

#include <optional>
#include <string>
#include <vector>

class QHelpEvent;
class QPainter;

namespace korvane::planner {

class PlanDocument;
class PlanEdits;
class PlanTitle;
class PlanTree;

/// A chart over the time of a document's plan: its axis, title, colours and fonts, the grid, days
/// off and the present. What stands on the rows is up to the class that derives from it. A notch of
/// the wheel zooms so little that two of them are a step of the menu.
///
/// Bars that the user has moved, resized or copied are handed to the edits, and show the plan
/// again. Such edits change times by whole days as long as hours are too narrow to be told apart,
/// so that times of day stay.
class PlanView : public TzuGant
{
    Q_OBJECT

public:
    ~PlanView() override;

    const Plan &GetPlan() const;
    /// Lets the user edit the plans to come; observed. A view without edits only shows.
    void SetEdits(PlanEdits *edits) { m_edits = edits; }

    /// Shows the plan's whole length with a margin; without any date the days around today.
    void FitPlan();
    /// Whether there is room on the right for the scroll bar. There is, initially.
    void SetScrollBarShown(bool shown);
    bool IsScrollBarShown() const { return m_scrollBarShown; }

    /// Whether the sub-rows of all rows have been worked out.
    bool IsSeparated() const;

    /// The present time, which is marked by a line.
    TDateTime GetNow() const { return m_now; }
    void SetNow(TDateTime now);

    /// By how many days edits with mouse and keys change times at the present zoom.
    TDateTime EditStep() const;

Q_SIGNALS:
    /// The tasks or links that are selected are others.
    void selectionChanged();
    /// A task was double-clicked, or the Enter key pressed on it.
    void taskActivated(int task);
    /// The Delete key was pressed in the area, or the tree was asked to delete.
    void deleteWanted();
    /// The instant under the pointer has changed.
    void pointedAt(double instant);
    /// The pointer has left the area.
    void pointerLeft();

protected:
    /// Which of the chart's item fonts a name is drawn in.
    enum LabelStyle : int { kDarkLabel = 1, kLightLabel = 2, kMutedLabel = 3 };

    /// `document` is observed and has to live as long. ApplyLooks is still to be called.
    explicit PlanView(PlanDocument &document, QWidget *parent = nullptr);

    TGantTree *CreateTree(QWidget *parent) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    /// Another plan is here.
    virtual void ShowPlan() = 0;
    virtual int TaskOfBar(const TzuDataEntity_Spanbar &bar) const = 0;
    /// Whatever shows the task shows it as it is in the plan.
    virtual void UpdateBar(int task) = 0;
    /// The colours are others.
    virtual void ColorItems() = 0;
    virtual void PaintBackground(const TRect &rect, TCanvas &canvas) = 0;
    virtual void PaintForeground(const TRect &rect, TCanvas &canvas) = 0;
    virtual void HandleToolTip(QHelpEvent &event) = 0;
    /// In pixels, for rows in a font of that height.
    virtual int RowHeightFor(int textHeight) const;

    /// What a tree caption may hold of a name.
    static std::string Caption(const QString &name);
    /// The painter behind the canvas of the area; null while only measuring.
    static QPainter *PainterOf(TCanvas &canvas);
    /// Thickness of a fine line on that canvas, in pixels.
    static double LineWidthOf(const TCanvas &canvas);
    void ApplyLooks();
    /// Of what is still to be done of the task.
    TColor ColorOf(const PlanTask &task) const;
    /// Makes the tree as wide as its first captions need, within limits.
    void FitTree();
    void PaintGrid(const TRect &rect, TCanvas &canvas) const;
    void ShadeDaysOff(const TRect &rect, TCanvas &canvas) const;
    void PaintNow(const TRect &rect, TCanvas &canvas) const;

    PlanDocument &m_document;
    PlanEdits *m_edits = nullptr;
    PlanTree *m_tree = nullptr; ///< is Tree()
    ChartLooks m_looks;

private:
    void ApplyFonts();
    void ShowDates();
    void ConnectGestures();
    void GestureEnded(TGantUserChange kind);
    void SnapTimes(const TzuDataEntity_Spanbar &bar, TGantMouseMoveMode mode, TDateTime &start,
                   TDateTime &stop) const;
    void PointAt(int pixel);
    void PointerLeft();

    static constexpr double kHoursWidth = 240; ///< of a day, in pixels, from which on hours matter

    PlanTitle *m_title = nullptr;
    bool m_inGesture = false;
    std::vector<TaskDates> m_draggedDates; ///< of the gesture that runs
    std::vector<int> m_copiedTasks;        ///< of the gesture that runs
    TDateTime m_copyOffset = 0;            ///< of the gesture that runs
    TDateTime m_now;
    QBasicTimer m_nowTimer;
    QTimer m_datesTimer; ///< of ShowDates after edits
    std::optional<int> m_pointerPixel;
    bool m_scrollBarShown = true;
};

} // namespace korvane::planner
