// What the form designer offers for a grid.
#pragma once

#include "foundation/zuMethod.h"

#include <string>
#include <vector>

namespace korvane {

/// A component on a form; only the designer knows what it is.
class IDesignedComponent
{
public:
    virtual ~IDesignedComponent() = default;
};

/// Components that are edited together; observed.
using TDesignerSelectionList = std::vector<IDesignedComponent *>;

/// The editor of one property of a selection.
class IPropertyEditor
{
public:
    virtual ~IPropertyEditor() = default;

    /// Of the property, as it is published.
    virtual std::string GetName() const = 0;
    /// Opens it and returns when the user is done.
    virtual void Edit() = 0;
};

/// Called with the editor of one property.
using TGetPropEditProc = TMethod<void(IPropertyEditor &propertyEditor)>;

/// The part of a form designer that component editors use.
class IFormDesigner
{
public:
    virtual ~IFormDesigner() = default;

    /// Calls `proc` with the editor of each published property of the selection.
    virtual void GetComponentProperties(const TDesignerSelectionList &selection,
                                        const TGetPropEditProc &proc) = 0;
};

/// The component editor of the grid: its one verb opens the editor of the columns.
class TzuGridEditorWakeUpGlue
{
public:
    /// Grid and designer are observed.
    TzuGridEditorWakeUpGlue(IDesignedComponent &component, IFormDesigner &designer)
        : m_component(component)
        , m_designer(designer)
    {
    }

    /// How many verbs there are; always one.
    int GetVerbCount() const { return 1; }
    /// What the context menu shows; the same for any index.
    std::string GetVerb(int index) const;
    /// Does the verb, the same for any index; comes back when the user is done.
    void ExecuteVerb(int index);
    /// Opens the editor of the property `Columns`, whatever the case of its letters.
    void Props(IPropertyEditor &propertyEditor);

private:
    IDesignedComponent &m_component;
    IFormDesigner &m_designer;
};

} // namespace korvane
