// A time axis without nights: drag it along, or drag with the right button to zoom.
#include "foundation/zuDateUtils.h"
#include "scaler/qt/zuScaler.h"

#include <QApplication>

using namespace korvane;

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    TzuDateScaler scaler;
    scaler.SetHorizontal(true);
    scaler.SetStart(EncodeDate(2026, 3, 2));
    scaler.SetStop(EncodeDate(2026, 3, 5));
    scaler.GetPassList(0) = {.Active = true,
                             .FromTime = EncodeTime(18, 0, 0, 0),
                             .ToTime = EncodeTime(7, 59, 59, 999),
                             .Hide = true};
    scaler.CalcDrawMode();
    scaler.resize(900, scaler.sizeHint().height());
    scaler.show();
    return QApplication::exec();
}
