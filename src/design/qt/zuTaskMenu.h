// The verbs of the components in the form designer.
#pragma once

#include <QList>
#include <QObject>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

#include <functional>
#include <memory>

class QAction;
class QDesignerFormEditorInterface;

namespace korvane {

class TzuGant;
class TzuGrid;
class TzuGridEditorWakeUpGlue;

/// Puts the verbs of TzuGridEditorWakeUpGlue first in the context menu of a grid on a form, and the
/// editors of its other collections behind them. The menu of a chart has the editors for the
/// chart's grid. All components have those of their images and menus.
class TTaskMenu : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    /// The component outlives the menu.
    TTaskMenu(QWidget &component, QObject *parent);
    ~TTaskMenu() override;

    /// The first verb of a grid or a chart, null for other components; then all verbs, with a
    /// separator at the end. Owned by the menu.
    QAction *preferredEditAction() const override { return m_preferred; }
    QList<QAction *> taskActions() const override { return m_actions; }

private:
    class TDesigner;
    class TComponent;

    void AddGridVerbs(TzuGrid &grid);
    void AddChartVerbs(TzuGant &chart);
    void AddNameVerbs(QWidget &component);
    void AddVerb(const QString &text, std::function<void()> act);
    void AddSeparator();

    std::unique_ptr<TComponent> m_component;
    std::unique_ptr<TDesigner> m_designer;
    std::unique_ptr<TzuGridEditorWakeUpGlue> m_editor;
    QList<QAction *> m_actions;
    QAction *m_preferred = nullptr;
};

/// Gives the components their menu.
class TTaskMenuFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    /// Once for each designer, which owns the factory.
    static void Install(QDesignerFormEditorInterface &designer);

protected:
    /// A menu for grids and charts; null for other objects and other extensions.
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;

private:
    using QExtensionFactory::QExtensionFactory;
};

} // namespace korvane
