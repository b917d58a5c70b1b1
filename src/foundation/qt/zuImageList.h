// Numbered images for items and tree nodes.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <QIcon>
#include <QPixmap>

#include <variant>
#include <vector>

namespace korvane {

/// A list of images, each drawn at the resolution of the device.
class KORVANE_WIDGETS_API TzuImageList : public TImageList
{
public:
    /// Both return the image's index. An icon is drawn in the list's size, a pixmap in its own.
    int Add(const QIcon &icon);
    int Add(const QPixmap &pixmap);
    /// Indexes begin at 0 again. Who draws from the list is not told.
    void Clear() { m_images.clear(); }

    /// Number of images.
    int Count() const override { return static_cast<int>(m_images.size()); }

    /// Extent of icons in logical pixels; initially 16 by 16.
    TSize Size() const { return m_size; }
    void SetSize(TSize size);

    /// The image's extent in logical pixels; empty for an index outside 0..Count()-1.
    TSize ImageSize(int index) const;
    /// The image, scaled down when it does not fit into `room` logical pixels, at `ratio` device
    /// pixels per logical pixel. Null for an index outside 0..Count()-1 and for no room.
    QPixmap Pixmap(int index, TSize room, double ratio) const;

private:
    struct TImage
    {
        std::variant<QIcon, QPixmap> Source;
        mutable QPixmap Last; ///< what was drawn last
        mutable TSize LastSize;
        mutable double LastRatio = 0;
    };

    int Append(TImage image);
    bool Has(int index) const { return index >= 0 && index < Count(); }

    std::vector<TImage> m_images;
    TSize m_size{16, 16};
};

} // namespace korvane
