// Pages of a print as pictures.
#pragma once

#include "printing/qt/zuPrinting.h"

#include <QImage>
#include <QPageSize>
#include <QPainter>

namespace korvane {

/// A pixel of the picture is a pixel of the paper.
inline QImage PageImage(TzuPrinting &printing, int page)
{
    QImage image(printing.Paper().SheetSize().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    printing.PaintPage(painter, QRectF(image.rect()), page);
    return image;
}

/// Paper of this size in its pixels; content begins at its corner.
inline void SetBareSheet(TzuPrinting &printing, int width, int height)
{
    const QSizeF points(width * 0.75, height * 0.75);
    printing.Paper().Layout() =
        QPageLayout(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF(), QPageLayout::Point);
    printing.Paper().Header() = {};
    printing.Paper().Footer() = {};
}

} // namespace korvane
