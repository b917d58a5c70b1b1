// The Gantt chart control as the form designer and applications know it.
#pragma once

#include "gantt/qt/zuGantComBasic.h"

#include <QColor>

namespace korvane {

/// The Gantt chart control with its designer properties and signals.
class TzuGant : public TzuGant_ComBasic
{
    Q_OBJECT
    Q_PROPERTY(int ScalerHeight READ GetScalerHeight WRITE SetScalerHeight)
    Q_PROPERTY(int TreeWidth READ TreeWidth WRITE SetTreeWidth)
    Q_PROPERTY(double Start READ Start WRITE SetStart)
    Q_PROPERTY(double Stop READ Stop WRITE SetStop)
    Q_PROPERTY(double Scale READ Scale WRITE SetScale STORED false)
    Q_PROPERTY(double ZoomFactor READ Get_ZoomFactor WRITE Set_ZoomFactor)
    Q_PROPERTY(QString DateFormat READ DateFormat WRITE SetDateFormat)
    Q_PROPERTY(QString TimeFormat READ TimeFormat WRITE SetTimeFormat)
    Q_PROPERTY(int FirstDayOfWeekScaler READ FirstDayOfWeekScaler WRITE SetFirstDayOfWeekScaler)
    Q_PROPERTY(QFont FontScaler READ FontScaler WRITE SetFontScaler)
    Q_PROPERTY(QColor GantBackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QColor GantPyjamasColor READ PyjamasColor WRITE SetPyjamasColor)
    Q_PROPERTY(bool VerticalPyjamas READ VerticalPyjamas WRITE SetVerticalPyjamas)
    Q_PROPERTY(bool DrawShortLines READ DrawShortLines WRITE SetDrawShortLines)
    Q_PROPERTY(QColor DefaultLinkColor READ LinkColor WRITE SetLinkColor)

public:
    explicit TzuGant(QWidget *parent = nullptr,
                     TConstruction construction = TConstruction::Complete);

    QColor BackColor() const;
    void SetBackColor(const QColor &color);
    QColor PyjamasColor() const;
    void SetPyjamasColor(const QColor &color);
    QColor LinkColor() const;
    void SetLinkColor(const QColor &color);
};

} // namespace korvane
