// A chart on a form: the form gives it its place and its looks, the program its content.
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"
#include "ui_OnAForm.h"

using namespace korvane;

QWidget *OnAForm()
{
    auto *window = new QWidget;
    Ui::OnAForm form;
    form.setupUi(window);

    TzuGant *gant = form.gant;
    const TDateTime monday = EncodeDate(2026, 3, 2);
    gant->SetStart(monday);
    gant->SetStop(monday + 14);
    for (const char *name : {"Anna", "Ben", "Clara"}) {
        TzuDataEntity_Spanbar *shift = gant->AddSpanbar(gant->AddRootDataEntityTree(name), 0);
        shift->SetStartDateTime(monday + name[0] - 'A');
        shift->SetStopDateTime(monday + name[0] - 'A' + 5);
        shift->SetColor(Rgb(0xe0, 0xb0, 0x5c));
    }
    // Signals of the chart can be connected in the designer as well.
    QObject::connect(gant, &TzuGant::areaDoubleClicked, gant, [](TzuDataEntity_Spanbar *shift) {
        if (shift != nullptr) {
            shift->SetColor(clRed);
        }
    });
    // The form's context menu of the bars has this action.
    QObject::connect(form.remove, &QAction::triggered, gant, [gant] {
        gant->RemoveSpanbar(gant->ActiveDataEntity()); // null is ignored
    });
    QObject::connect(form.today, &QPushButton::clicked, gant, [gant] {
        const TDateTime length = gant->Stop() - gant->Start();
        gant->SetStart(Today());
        gant->SetStop(Today() + length);
    });
    return window;
}
