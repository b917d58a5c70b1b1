#include "design/zuGrid_Editor.h"
#include "design/zuRegStuff.h"

#include <gmock/gmock.h>

namespace korvane {
namespace {

using testing::ElementsAre;

struct FakePackage : IDesignerPackage
{
    void RegisterComponents(std::string_view page,
                            std::span<const TPaletteComponent> components) override
    {
        std::string call(page);
        for (const TPaletteComponent &each : components) {
            call.append(" ").append(each.ClassName);
        }
        Calls.push_back(call);
    }
    void RegisterGridEditor(std::string_view className) override
    {
        Calls.push_back("editor " + std::string(className));
    }

    std::vector<std::string> Calls;
};

TEST(Registration, FiveComponentsComeOneByOneAndTheGridHasAnEditor)
{
    FakePackage package;
    Register(package);
    EXPECT_THAT(package.Calls,
                ElementsAre("Korvane TzuSchema", "Korvane TzuGant", "Korvane TzuDateScaler",
                            "Korvane TzuTree", "Korvane TzuGrid", "editor TzuGrid"));
}

/// A designer whose selection has the properties given; notes what was edited on what.
struct FakeDesigner : IFormDesigner
{
    struct Property : IPropertyEditor
    {
        Property(std::string name, std::vector<std::string> &edited)
            : Name(std::move(name))
            , Edited(edited)
        {
        }
        std::string GetName() const override { return Name; }
        void Edit() override { Edited.push_back(Name); }

        std::string Name;
        std::vector<std::string> &Edited;
    };

    void GetComponentProperties(const TDesignerSelectionList &selection,
                                const TGetPropEditProc &proc) override
    {
        Selected = selection;
        for (const std::string &name : Names) {
            Property property(name, Edited);
            proc(property);
        }
    }

    std::vector<std::string> Names;
    std::vector<std::string> Edited;
    TDesignerSelectionList Selected;
};

TEST(GridEditor, ItsVerbOpensTheEditorOfTheColumnsWhateverTheCaseOfTheName)
{
    struct Component : IDesignedComponent
    {
    } grid;
    FakeDesigner designer;
    TzuGridEditorWakeUpGlue editor(grid, designer);
    ASSERT_EQ(editor.GetVerbCount(), 1);
    for (const int index : {0, 1, -1}) {
        EXPECT_EQ(editor.GetVerb(index), "Columns");
    }

    designer.Names = {"Column", "HasHeaders", "cOLUMNs", "Columns2", "", "Columns"};
    editor.ExecuteVerb(0);
    EXPECT_THAT(designer.Selected, ElementsAre(&grid));
    EXPECT_THAT(designer.Edited, ElementsAre("cOLUMNs", "Columns"));
}

} // namespace
} // namespace korvane
