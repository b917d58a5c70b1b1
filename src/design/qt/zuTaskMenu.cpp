#include "design/qt/zuTaskMenu.h"

#include "design/qt/zuCollectionEditor.h"
#include "design/qt/zuNameListEditor.h"
#include "design/zuGrid_Editor.h"
#include "design/zuRegStuff.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuNamedImages.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"

#include <QAction>
#include <QDirIterator>
#include <QMenu>
#include <QMetaProperty>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <utility>

namespace korvane {

namespace {

/// Opens the editor of a collection; what was done is one step of the form's undo stack. The
/// collection is stored in a property of the component, which is the grid or has it, and its
/// captions, for translation, in another.
void EditCollection(QWidget &component, const TzuGrid &grid, const QString &collection,
                    const QString &prefix = {})
{
    auto *form = QDesignerFormWindowInterface::findFormWindow(&component);
    if (form == nullptr || !TCollectionEditor::CanEdit(collection)) {
        return;
    }
    const QString property = prefix + collection;
    TCollectionEditor editor(grid, collection, form->window());
    editor.setWindowTitle(TTaskMenu::tr("%1 of %2").arg(property, component.objectName()));
    if (editor.exec() != QDialog::Accepted || !editor.IsChanged()) {
        return;
    }
    form->beginCommand(editor.windowTitle());
    form->cursor()->setWidgetProperty(&component, property, editor.Text());
    if (collection == u"Columns") {
        form->cursor()->setWidgetProperty(&component, prefix + QStringLiteral("HeaderTexts"),
                                          grid.HeaderTexts());
    } else if (collection == u"SubGrids") {
        form->cursor()->setWidgetProperty(&component, prefix + QStringLiteral("SubGridHeaderTexts"),
                                          grid.SubGridHeaderTexts());
    }
    form->endCommand();
}

/// Asks for the names that a property is to hold; false when the user has thought better of it.
bool AskNames(QDesignerFormWindowInterface &form, const QString &title, QStringList &names,
              const TNameListEditor::TOffer &offer)
{
    TNameListEditor editor(names, offer, form.window());
    editor.setWindowTitle(title);
    if (editor.exec() != QDialog::Accepted || editor.Names() == names) {
        return false;
    }
    names = editor.Names();
    return true;
}

/// The images among the resources, without those of the designer.
QStringList ImageResources()
{
    QStringList names;
    QDirIterator files(QStringLiteral(":/"), {"*.svg", "*.png", "*.ico", "*.gif", "*.jpg", "*.bmp"},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next();
        if (!name.startsWith(u":/qt-project.org/") && !name.startsWith(u":/korvane/")) {
            names.append(name);
        }
    }
    names.sort();
    return names;
}

void EditImages(QWidget &component, const QString &property)
{
    auto *form = QDesignerFormWindowInterface::findFormWindow(&component);
    QStringList names =
        TNamedImages::NamesOf(component.property(property.toLatin1()).toByteArray());
    if (form != nullptr
        && AskNames(*form, TTaskMenu::tr("Images of %1").arg(component.objectName()), names,
                    {ImageResources(), &TNamedImages::IconOf,
                     TTaskMenu::tr("Part of the name, a file, or an icon of the theme")})) {
        form->cursor()->setWidgetProperty(&component, property, TNamedImages::TextOf(names));
    }
}

/// Menus and actions of a form that have names, and the line between actions.
QStringList MenusAndActions(const QWidget &form)
{
    QStringList names;
    for (const auto *menu : form.findChildren<QMenu *>()) {
        names.append(menu->objectName());
    }
    for (const auto *action : form.findChildren<QAction *>()) {
        names.append(action->isSeparator() ? QString() : action->objectName());
    }
    names.removeIf([](const QString &name) {
        return name.isEmpty() || name.startsWith(u"qt_") || name.startsWith(u'_');
    });
    names.append(QStringLiteral("-"));
    return names;
}

void EditMenu(QWidget &component, const QString &property)
{
    auto *form = QDesignerFormWindowInterface::findFormWindow(&component);
    QStringList names = QString::fromUtf8(component.property(property.toLatin1()).toByteArray())
                            .split(u' ', Qt::SkipEmptyParts);
    if (form != nullptr
        && AskNames(*form, TTaskMenu::tr("%1 of %2").arg(property, component.objectName()), names,
                    {MenusAndActions(*form->mainContainer()),
                     [](const QString &) { return QIcon(); },
                     TTaskMenu::tr("A menu, or actions; - is a line")})) {
        form->cursor()->setWidgetProperty(&component, property, names.join(u' ').toUtf8());
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
    void Edit() override { EditCollection(m_grid, m_grid, m_name); }

private:
    TzuGrid &m_grid;
    QString m_name;
};

} // namespace

class TTaskMenu::TComponent : public IDesignedComponent
{
public:
    explicit TComponent(TzuGrid &grid)
        : Grid(grid)
    {
    }
    TzuGrid &Grid;
};

/// The form designer, by its property sheets.
class TTaskMenu::TDesigner : public IFormDesigner
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

TTaskMenu::TTaskMenu(QWidget &component, QObject *parent)
    : QObject(parent)
{
    if (auto *grid = qobject_cast<TzuGrid *>(&component)) {
        AddGridVerbs(*grid);
    } else if (auto *chart = qobject_cast<TzuGant *>(&component)) {
        AddChartVerbs(*chart);
    }
    m_preferred = m_actions.isEmpty() ? nullptr : m_actions.first();
    AddNameVerbs(component);
    AddSeparator();
}

void TTaskMenu::AddGridVerbs(TzuGrid &grid)
{
    m_component = std::make_unique<TComponent>(grid);
    m_designer = std::make_unique<TDesigner>();
    m_editor = std::make_unique<TzuGridEditorWakeUpGlue>(*m_component, *m_designer);
    for (int verb = 0; verb < m_editor->GetVerbCount(); ++verb) {
        AddVerb(ToQt(m_editor->GetVerb(verb)), [this, verb] { m_editor->ExecuteVerb(verb); });
    }
    for (const auto &[text, name] :
         {std::pair(tr("Sub-grids"), QStringLiteral("SubGrids")),
          std::pair(tr("Cell layouts"), QStringLiteral("CellLayouts"))}) {
        AddVerb(text, [&grid, name = name] { EditCollection(grid, grid, name); });
    }
}

void TTaskMenu::AddChartVerbs(TzuGant &chart)
{
    for (const auto &[text, name] :
         {std::pair(tr("Grid columns"), QStringLiteral("Columns")),
          std::pair(tr("Grid sub-grids"), QStringLiteral("SubGrids")),
          std::pair(tr("Grid cell layouts"), QStringLiteral("CellLayouts"))}) {
        AddVerb(text, [&chart, name = name] {
            EditCollection(chart, chart.Grid(), name, QStringLiteral("Grid_"));
        });
    }
}

/// By what the properties are called; images first.
void TTaskMenu::AddNameVerbs(QWidget &component)
{
    QStringList menus;
    const QMetaObject *meta = component.metaObject();
    for (int i = QFrame::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        const QString name = QString::fromLatin1(meta->property(i).name());
        if (name == u"ImageList" || name == u"Images") {
            AddVerb(tr("Images"), [&component, name] { EditImages(component, name); });
        } else if (name.contains(u"Popup")) {
            menus.append(name);
        }
    }
    for (const QString &name : menus) {
        AddVerb(tr("Menu: %1").arg(name), [&component, name] { EditMenu(component, name); });
    }
}

void TTaskMenu::AddVerb(const QString &text, std::function<void()> act)
{
    auto *action = new QAction(text, this);
    connect(action, &QAction::triggered, this, std::move(act));
    m_actions.append(action);
}

void TTaskMenu::AddSeparator()
{
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    m_actions.append(separator);
}

TTaskMenu::~TTaskMenu() = default;

void TTaskMenuFactory::Install(QDesignerFormEditorInterface &designer)
{
    QExtensionManager *manager = designer.extensionManager();
    manager->registerExtensions(new TTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
}

QObject *TTaskMenuFactory::createExtension(QObject *object, const QString &iid,
                                           QObject *parent) const
{
    if (iid != Q_TYPEID(QDesignerTaskMenuExtension)) {
        return nullptr;
    }
    auto *component = qobject_cast<QWidget *>(object);
    if (component == nullptr) {
        return nullptr;
    }
    const QLatin1String className(component->metaObject()->className());
    for (const TPaletteComponent &each : PaletteComponents()) {
        if (className == QStringLiteral("korvane::") + ToQt(each.ClassName)) {
            return new TTaskMenu(*component, parent);
        }
    }
    return nullptr;
}

} // namespace korvane
