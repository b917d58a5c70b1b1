#include "design/zuGrid_Editor.h"

#include "grid/zuCellLayouts.h"

namespace korvane {

std::string TzuGridEditorWakeUpGlue::GetVerb(int /*index*/) const
{
    return "Columns";
}

void TzuGridEditorWakeUpGlue::ExecuteVerb(int /*index*/)
{
    m_designer.GetComponentProperties(
        {&m_component}, TGetPropEditProc::Bind<&TzuGridEditorWakeUpGlue::Props>(this));
}

void TzuGridEditorWakeUpGlue::Props(IPropertyEditor &propertyEditor)
{
    if (SameName(propertyEditor.GetName(), "COLUMNS")) {
        propertyEditor.Edit();
    }
}

} // namespace korvane
