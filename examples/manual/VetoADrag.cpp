// Reacting to what the user drags: some items stay, some may only go to certain rows and times.
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"

#include <algorithm>
#include <cmath>

using namespace korvane;

QWidget *VetoADrag()
{
    auto *gant = new TzuGant;
    const TDateTime monday = EncodeDate(2026, 3, 2);
    gant->SetStart(monday - 1);
    gant->SetStop(monday + 13);
    gant->SetGantBackColor(clWindow); // plain paper instead of a pattern
    gant->SetGantPyjamasColor(clWindow);
    for (const char *name : {"Hall 1", "Hall 2", "Closed for repair"}) {
        TzuDataEntity_Tree *hall = gant->AddRootDataEntityTree(name);
        for (int day = 0; day < 10; day += 4) {
            TzuDataEntity_Spanbar *booking = gant->AddSpanbar(hall, 0);
            booking->SetStartDateTime(monday + day);
            booking->SetStopDateTime(monday + day + 2);
            booking->SetColor(day == 0 ? clSilver : Rgb(0x7f, 0xb0, 0x69));
        }
    }

    // What has begun stays where it is.
    gant->OnBeforeCanEditItem_Spanbar = [monday](TObject *, TzuDataEntity *item) {
        const auto *booking = static_cast<TzuDataEntity_Spanbar *>(item);
        item->SetCanEdit(booking->GetStartDateTime() > monday);
    };
    // Whole days, and nothing before tomorrow; also while the mouse moves.
    gant->OnSnapTimes = [monday](TzuGant_ComBasic *, const TzuDataEntity_Spanbar *,
                                 TGantMouseMoveMode, TDateTime &start, TDateTime &stop) {
        const TDateTime length = std::max(1.0, std::round(stop - start));
        start = std::max(monday + 1, std::round(start));
        stop = start + length;
    };
    // Another hall, but not the closed one. A handler that does nothing is a veto.
    gant->OnTimeChangeRow = [](TzuGant_ComBasic *, TzuDataEntity_Spanbar *booking, TGantRow *,
                               TGantRow *hall, TDateTime, TDateTime) {
        if (hall->TreeNode()->GetText() != "Closed for repair") {
            booking->ChangeOwner(hall->Layers().GetDataList(0), 0);
        }
    };
    // One step to undo, whatever it was done with.
    gant->OnEndUserChange = [gant](TzuGant_ComBasic *, TGantUserChange, bool changed) {
        gant->setWindowTitle(changed ? QStringLiteral("Bookings *") : QStringLiteral("Bookings"));
    };
    return gant;
}
