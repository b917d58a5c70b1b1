#include "foundation/qt/zuImageList.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

int Scaled(int length, double factor)
{
    return std::max(1, static_cast<int>(std::lround(length * factor)));
}

QPixmap Render(const QIcon &icon, TSize size, double ratio)
{
    return icon.pixmap(QSize(size.Width, size.Height), ratio);
}

QPixmap Render(const QPixmap &pixmap, TSize size, double ratio)
{
    // Never enlarged beyond its own resolution; the painter does that as well.
    const double own = std::min(ratio, pixmap.devicePixelRatio());
    const QSize pixels(Scaled(size.Width, own), Scaled(size.Height, own));
    QPixmap result = pixels == pixmap.size()
                         ? pixmap
                         : pixmap.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    result.setDevicePixelRatio(own);
    return result;
}

} // namespace

int TzuImageList::Add(const QIcon &icon)
{
    return Append({icon, {}, {}, 0});
}

int TzuImageList::Add(const QPixmap &pixmap)
{
    return Append({pixmap, {}, {}, 0});
}

int TzuImageList::Append(TImage image)
{
    m_images.push_back(std::move(image));
    return Count() - 1;
}

void TzuImageList::SetSize(TSize size)
{
    m_size = size;
}

TSize TzuImageList::ImageSize(int index) const
{
    if (!Has(index)) {
        return {};
    }
    const auto *pixmap = std::get_if<QPixmap>(&m_images[static_cast<std::size_t>(index)].Source);
    if (pixmap == nullptr) {
        return m_size;
    }
    const QSize size = pixmap->deviceIndependentSize().toSize();
    return {size.width(), size.height()};
}

QPixmap TzuImageList::Pixmap(int index, TSize room, double ratio) const
{
    TSize size = ImageSize(index);
    if (std::min({size.Width, size.Height, room.Width, room.Height}) <= 0) {
        return {};
    }
    const double factor = std::min({1.0, static_cast<double>(room.Width) / size.Width,
                                    static_cast<double>(room.Height) / size.Height});
    size = {Scaled(size.Width, factor), Scaled(size.Height, factor)};
    const TImage &image = m_images[static_cast<std::size_t>(index)];
    if (image.LastSize != size || image.LastRatio != ratio) {
        image.Last = std::visit([&](const auto &source) { return Render(source, size, ratio); },
                                image.Source);
        image.LastSize = size;
        image.LastRatio = ratio;
    }
    return image.Last;
}

} // namespace korvane
