#include "design/qt/zuGridTaskMenu.h"

#include "design/qt/zuCollectionEditor.h"
#include "design/zuGrid_Editor.h"
#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"

#include <QAction>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <utility>

namespace korvane {

namespace {

/// Opens the editor of a collection; what was done is one step of the form's undo stack. The
/// collection is stored in a property of the component, which is the grid or has it.
void EditCollection(QWidget &component, const TzuGrid &grid, const QString &collection,
                    const QString &property)
{
    auto *form = QDesignerFormWindowInterface::findFormWindow(&component);
    if (form == nullptr || !TCollectionEditor::CanEdit(collection)) {
        return;
    }
    TCollectionEditor editor(grid, collection, form->window());
    editor.setWindowTitle(TGridTaskMenu::tr("%1 of %2").arg(property, component.objectName()));
    if (editor.exec() == QDialog::Accepted && editor.IsChanged()) {
        form->cursor()->setWidgetProperty(&component, property, editor.Text());
    }
}

/// A property of a grid on a form.
class TSheetProperty : public IPropertyEditor
{
public:
    TSheetProperty(TzuGrid &grid, QString name)
        : m_grid(grid)
        , m_name(std::move(name))
    {
    }
    std::string GetName() const override { return FromQt(m_name); }
    void Edit() override { EditCollection(m_grid, m_grid, m_name, m_name); }

private:
    TzuGrid &m_grid;
    QString m_name;
};

} // namespace

class TGridTaskMenu::TComponent : public IDesignedComponent
{
public:
    explicit TComponent(TzuGrid &grid)
        : Grid(grid)
    {
    }
    TzuGrid &Grid;
};

/// The form designer, by its property sheets.
class TGridTaskMenu::TDesigner : public IFormDesigner
{
public:
    void GetComponentProperties(const TDesignerSelectionList &selection,
                                const TGetPropEditProc &proc) override
    {
        for (IDesignedComponent *each : selection) {
            TzuGrid &grid = static_cast<TComponent &>(*each).Grid;
            auto *form = QDesignerFormWindowInterface::findFormWindow(&grid);
            const auto *sheet = form == nullptr ? nullptr
                                                : qt_extension<QDesignerPropertySheetExtension *>(
                                                    form->core()->extensionManager(), &grid);
            for (int index = 0; sheet != nullptr && index < sheet->count(); ++index) {
                TSheetProperty property(grid, sheet->propertyName(index));
                proc(property);
            }
        }
    }
};

TGridTaskMenu::TGridTaskMenu(TzuGrid &grid, QObject *parent)
    : QObject(parent)
    , m_component(std::make_unique<TComponent>(grid))
    , m_designer(std::make_unique<TDesigner>())
    , m_editor(std::make_unique<TzuGridEditorWakeUpGlue>(*m_component, *m_designer))
{
    for (int verb = 0; verb < m_editor->GetVerbCount(); ++verb) {
        AddVerb(ToQt(m_editor->GetVerb(verb)), [this, verb] { m_editor->ExecuteVerb(verb); });
    }
    for (const auto &[text, name] :
         {std::pair(tr("Sub-grids"), QStringLiteral("SubGrids")),
          std::pair(tr("Cell layouts"), QStringLiteral("CellLayouts"))}) {
        AddVerb(text, [&grid, name = name] { EditCollection(grid, grid, name, name); });
    }
    AddSeparator();
}

TGridTaskMenu::TGridTaskMenu(TzuGant &chart, QObject *parent)
    : QObject(parent)
{
    for (const auto &[text, name] :
         {std::pair(tr("Grid columns"), QStringLiteral("Columns")),
          std::pair(tr("Grid sub-grids"), QStringLiteral("SubGrids")),
          std::pair(tr("Grid cell layouts"), QStringLiteral("CellLayouts"))}) {
        AddVerb(text, [&chart, name = name] {
            EditCollection(chart, chart.Grid(), name, QStringLiteral("Grid_") + name);
        });
    }
    AddSeparator();
}

void TGridTaskMenu::AddVerb(const QString &text, std::function<void()> act)
{
    auto *action = new QAction(text, this);
    connect(action, &QAction::triggered, this, std::move(act));
    m_actions.append(action);
}

void TGridTaskMenu::AddSeparator()
{
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    m_actions.append(separator);
}

TGridTaskMenu::~TGridTaskMenu() = default;

void TGridTaskMenuFactory::Install(QDesignerFormEditorInterface &designer)
{
    QExtensionManager *manager = designer.extensionManager();
    manager->registerExtensions(new TGridTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
}

QObject *TGridTaskMenuFactory::createExtension(QObject *object, const QString &iid,
                                               QObject *parent) const
{
    if (iid != Q_TYPEID(QDesignerTaskMenuExtension)) {
        return nullptr;
    }
    if (auto *grid = qobject_cast<TzuGrid *>(object)) {
        return new TGridTaskMenu(*grid, parent);
    }
    auto *chart = qobject_cast<TzuGant *>(object);
    return chart != nullptr ? new TGridTaskMenu(*chart, parent) : nullptr;
}

} // namespace korvane
