// The pages of the gallery; each is made by a source file of its own under pages/.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

#include <array>

/// Each page is a widget that the caller owns.
QWidget *CreateDateScalerPage();
QWidget *CreateTreePage();
QWidget *CreateGanttPage();
QWidget *CreateSchemaPage();

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
    TGalleryPage{"Schedule", "schedule", QSize(1200, 560), &CreateSchemaPage},
};
