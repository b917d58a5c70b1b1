// The plug-in that the form designer loads.
#pragma once

#include "design/zuRegStuff.h"

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>
#include <vector>

namespace korvane {

class TDesignerWidget;

/// The five components as the designer and the loaders of forms know them.
class TSpanbarPackage : public QObject,
                        public QDesignerCustomWidgetCollectionInterface,
                        private IDesignerPackage
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    /// Registers the components.
    explicit TSpanbarPackage(QObject *parent = nullptr);
    ~TSpanbarPackage() override;

    /// One for each component, in the order of the palette; owned by the package.
    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    void RegisterComponents(std::string_view page,
                            std::span<const TPaletteComponent> components) override;
    void RegisterGridEditor(std::string_view className) override;

    std::vector<std::unique_ptr<TDesignerWidget>> m_widgets;
};

} // namespace korvane
