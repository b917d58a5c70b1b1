// The pages of the gallery; each is made by a source file of its own under pages/.
#pragma once

#include "Manual.h"

#include <QSize>
#include <QString>
#include <QWidget>

#include <array>

/// Each page is a widget that the caller owns.
QWidget *CreateDateScalerPage();
QWidget *CreateTreePage();
QWidget *CreateGanttPage();
QWidget *CreateGanttGridPage();
QWidget *CreateSchemaPage();
QWidget *CreateGridPage();

struct TGalleryPage
{
    const char *Name;     ///< as the list shows it
    const char *FileName; ///< of its picture, without suffix
    QSize PictureSize;
    QWidget *(*Create)();
};

inline const std::array kGalleryPages = {
    TGalleryPage{"Date scaler", "date-scaler", QSize(1000, 590), &CreateDateScalerPage},
    TGalleryPage{"Tree", "tree", QSize(1000, 480), &CreateTreePage},
    TGalleryPage{"Gantt chart", "gantt", QSize(1200, 600), &CreateGanttPage},
    TGalleryPage{"Gantt chart with a grid", "gantt-grid", QSize(1200, 420), &CreateGanttGridPage},
    TGalleryPage{"Schedule", "schedule", QSize(1200, 560), &CreateSchemaPage},
    TGalleryPage{"Grid", "grid", QSize(1000, 480), &CreateGridPage},
    TGalleryPage{"Show a plan", "show-a-plan", QSize(760, 240), &ShowAPlan},
    TGalleryPage{"React to a drag", "veto-a-drag", QSize(760, 200), &VetoADrag},
    TGalleryPage{"A million rows", "million-rows", QSize(560, 300), &MillionRows},
    TGalleryPage{"Hide nights", "hide-nights", QSize(760, 200), &HideNights},
    TGalleryPage{"Print", "print-it", QSize(960, 360), &PrintIt},
    TGalleryPage{"On a form", "on-a-form", QSize(640, 320), &OnAForm},
};
