// A component of the palette, for the form designer and the loaders of forms.
#pragma once

#include "design/zuRegStuff.h"

#include <QPointer>
#include <QString>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace korvane {

/// Created in a designer, components show sample content. Loaders of forms, which do not
/// initialize the plug-in, get empty ones.
class TDesignerWidget : public QDesignerCustomWidgetInterface
{
public:
    /// Throws std::invalid_argument when there is no such component.
    TDesignerWidget(std::string_view page, const TPaletteComponent &component);

    /// Objects of the class are edited with the verbs of a grid.
    void SetHasGridEditor(bool value) { m_hasGridEditor = value; }

    /// As the designer asks; texts are those of the component. The widget that is created belongs
    /// to the parent.
    QString name() const override;
    QString group() const override { return m_page; }
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override { return !m_designer.isNull(); }
    void initialize(QDesignerFormEditorInterface *designer) override;
    /// What a component starts as on a form: its size, and what is to be known of its properties.
    QString domXml() const override;

private:
    using TCreate = QWidget *(*)(QWidget *parent, bool withSample);

    QString m_page;
    TPaletteComponent m_component;
    TCreate m_create;
    bool m_hasGridEditor = false;
    QPointer<QObject> m_designer; ///< nil in programs
};

} // namespace korvane
