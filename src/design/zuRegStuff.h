// What a form designer is told of the library: the components and their page.
#pragma once

#include "foundation/zuTypes.h"

#include <span>
#include <string_view>

namespace korvane {

/// The page of the designer's palette that holds the components.
inline constexpr std::string_view kPalettePage = "Korvane";

/// A component that can be put on a form. Texts are plain, in English, literals;
/// tips are for Translate("TzuDesign", ...).
struct TPaletteComponent
{
    std::string_view ClassName; ///< without the namespace
    std::string_view Header;    ///< as programs include it
    std::string_view ToolTip;   ///< one line
    std::string_view WhatsThis; ///< some sentences
    TSize Size;                 ///< when it is dropped on a form, in pixels
};

/// What a designer lets a package do while it is installed.
class IDesignerPackage
{
public:
    virtual ~IDesignerPackage() = default;

    /// Called once; the texts live forever.
    virtual void RegisterComponents(std::string_view page,
                                    std::span<const TPaletteComponent> components) = 0;
    /// The components of that class are edited by TzuGridEditorWakeUpGlue.
    virtual void RegisterGridEditor(std::string_view className) = 0;
};

/// In the order of the palette. Controls that only stand in others are not among them.
std::span<const TPaletteComponent> PaletteComponents();

/// Makes the components and the editor of the grid known to a designer.
void Register(IDesignerPackage &package);

} // namespace korvane
