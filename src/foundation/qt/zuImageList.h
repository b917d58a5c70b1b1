// Numbered images for items and tree nodes.
#pragma once

#include "foundation/zuCanvas.h"

#include <QIcon>
#include <QPixmap>

#include <vector>

namespace korvane {

/// A list of images, each available at the resolution of the device it is drawn on.
class TzuImageList : public TImageList
{
public:
    /// Both return the image's index. An icon is drawn in the list's size; a pixmap is an image of
    /// its own size.
    int Add(const QIcon &icon);
    int Add(const QPixmap &pixmap);
    void Clear() { m_images.clear(); }

    int Count() const override { return static_cast<int>(m_images.size()); }

    /// Extent of icons in logical pixels; initially 16 by 16.
    TSize Size() const { return m_size; }
    void SetSize(TSize size) { m_size = size; }

    /// The image's extent in logical pixels; empty for an index outside 0..Count()-1.
    TSize ImageSize(int index) const;
    /// The image within `size` logical pixels, scaled down when it is larger, at `ratio` device
    /// pixels per logical pixel. Null for an index outside 0..Count()-1.
    QPixmap Pixmap(int index, TSize size, double ratio) const;

private:
    struct TImage
    {
        QIcon Icon;
        QPixmap Pixmap; ///< null when the image is an icon
    };

    const TImage *Find(int index) const;

    std::vector<TImage> m_images;
    TSize m_size{16, 16};
};

} // namespace korvane
