// The texts that a page is made of, with their places.
#pragma once

#include "printing/qt/zuPrinting.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <vector>

namespace korvane::test {

struct TRecordedText
{
    QString Text;
    QRectF Place;
};

/// A vector device that only takes down texts.
class TTextRecorder : public QPaintEngine, public QPaintDevice
{
public:
    explicit TTextRecorder(QSize size)
        : QPaintEngine(AllFeatures)
        , m_size(size)
    {
    }

    std::vector<TRecordedText> Texts;

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &) override {}
    void drawPath(const QPainterPath &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawTextItem(const QPointF &at, const QTextItem &item) override
    {
        const QRectF place(at.x(), at.y() - item.ascent(), item.width(),
                           item.ascent() + item.descent());
        Texts.push_back({item.text(), state->transform().mapRect(place)});
    }
    QPaintEngine *paintEngine() const override { return const_cast<TTextRecorder *>(this); }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96; // dots per inch
        }
    }

private:
    QSize m_size;
};

/// In pixels of content, from the sheet's corner.
inline std::vector<TRecordedText> TextsOf(TzuPrinting &printing, int page)
{
    const QSizeF size = printing.Paper().SheetSize() / printing.Layout().Scale();
    TTextRecorder recorder(size.toSize());
    QPainter painter(&recorder);
    printing.PaintPage(painter, QRectF(QPointF(0, 0), size), page);
    painter.end();
    return recorder.Texts;
}

} // namespace korvane::test
