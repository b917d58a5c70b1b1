#include "gantt/qt/zuGant.h"

#include "foundation/qt/zuConvert.h"

namespace korvane {

TzuGant::TzuGant(QWidget *parent, TConstruction construction)
    : TzuGant_ComBasic(parent, construction)
{
}

QColor TzuGant::BackColor() const
{
    return ToQt(GantBackColor(), palette());
}

void TzuGant::SetBackColor(const QColor &color)
{
    SetGantBackColor(FromQt(color));
}

QColor TzuGant::PyjamasColor() const
{
    return ToQt(GantPyjamasColor(), palette());
}

void TzuGant::SetPyjamasColor(const QColor &color)
{
    SetGantPyjamasColor(FromQt(color));
}

QColor TzuGant::LinkColor() const
{
    return ToQt(DefaultLinkColor(), palette());
}

void TzuGant::SetLinkColor(const QColor &color)
{
    SetDefaultLinkColor(FromQt(color));
}

} // namespace korvane
