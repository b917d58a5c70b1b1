#include "design/qt/zuSpanbarPackage.h"

#include "design/qt/zuDesignerWidget.h"
#include "foundation/qt/zuConvert.h"

namespace korvane {

TSpanbarPackage::TSpanbarPackage(QObject *parent)
    : QObject(parent)
{
    Register(*this);
}

TSpanbarPackage::~TSpanbarPackage() = default;

QList<QDesignerCustomWidgetInterface *> TSpanbarPackage::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> widgets;
    for (const auto &each : m_widgets) {
        widgets.append(each.get());
    }
    return widgets;
}

void TSpanbarPackage::RegisterComponents(std::string_view page,
                                         std::span<const TPaletteComponent> components)
{
    for (const TPaletteComponent &each : components) {
        m_widgets.push_back(std::make_unique<TDesignerWidget>(page, each));
    }
}

void TSpanbarPackage::RegisterGridEditor(std::string_view className)
{
    for (const auto &each : m_widgets) {
        if (each->name().endsWith(u':' + ToQt(className))) {
            each->SetHasGridEditor(true);
        }
    }
}

} // namespace korvane
