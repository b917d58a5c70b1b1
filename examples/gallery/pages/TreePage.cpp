// The tree: images, fonts and lines, with captions to edit and entries to drag, sort and delete;
// several selected nodes without lines; children that are made when a node is expanded.
#include "Pages.h"
#include "foundation/qt/zuImageList.h"
#include "tree/qt/zuTree.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

#include <string>
#include <string_view>

using namespace korvane;

namespace {

template <typename Tree = TzuTree>
Tree *AddTree(QWidget &page, const QString &caption)
{
    auto *group = new QGroupBox(caption);
    auto *tree = new Tree;
    (new QVBoxLayout(group))->addWidget(tree);
    page.layout()->addWidget(group);
    return tree;
}

// A tree that owns the images of its nodes.
class TTreeWithImages : public TzuTree
{
public:
    enum { Folder, OpenFolder, File };

    TTreeWithImages()
    {
        for (const auto image : {QStyle::SP_DirIcon, QStyle::SP_DirOpenIcon, QStyle::SP_FileIcon}) {
            m_images.Add(style()->standardIcon(image));
        }
        SetImages(&m_images);
    }
    ~TTreeWithImages() override { SetImages(nullptr); }

private:
    TzuImageList m_images;
};

TzuDataEntity_Tree *AddNode(TzuTree &tree, TzuDataEntity_Tree *parent, std::string_view text)
{
    TzuDataEntity_Tree *node = tree.AddDataEntity(parent);
    node->SetText(text);
    return node;
}

void FillWithImages(TTreeWithImages &tree)
{
    tree.SetLoadOnDemand(false);
    TzuDataEntity_Tree *current = nullptr;
    for (const char *site : {"Observatory", "Visitor centre"}) {
        TzuDataEntity_Tree *folder = AddNode(tree, nullptr, site);
        folder->SetImageIndex(TTreeWithImages::Folder);
        folder->SetSelectedIndex(TTreeWithImages::OpenFolder);
        folder->SetFontStyle({.Bold = true});
        for (const char *part : {"Foundation", "Dome", "Instruments"}) {
            AddNode(tree, folder, part)->SetImageIndex(TTreeWithImages::File);
        }
        AddNode(tree, folder, "A caption in italics, too long for the width of the tree")
            ->SetFontStyle({.Italic = true});
        current = folder;
    }
    tree.FullExpand();
    tree.SetCurrentDataEntity(current);
    // F2 or a second click edits, the right button opens the menu, the left one drags.
    tree.SetShowLines(true);
    tree.SetHotTrack(true);
    tree.SetDragMode(TzuTree::TDragMode::dmAutomatic);
    tree.SetMaxLevels(3);
    tree.SetAllowDelete(true);
    tree.OnBeforeEdit = [](TObject * /*theTree*/, TzuDataEntity_Tree *node, bool &allow) {
        allow = node->GetLevel() > 0; // the sites keep their names
    };
}

void FillForSelection(TzuTree &tree)
{
    tree.SetLoadOnDemand(false);
    tree.SetMultiSelect(true);
    tree.SetRowSelect(true);
    tree.SetHideSelection(false);
    tree.SetShowLines(false);
    for (const char *discipline : {"Civil works", "Optics", "Électronique", "Software"}) {
        TzuDataEntity_Tree *node = AddNode(tree, nullptr, discipline);
        for (const char *phase : {"Draft", "Review", "Release"}) {
            AddNode(tree, node, phase)->SetSelected(phase == std::string_view("Review"));
        }
    }
    tree.FullExpand();
}

void FillOnDemand(TzuTree &tree)
{
    tree.SetLoadOnDemand(true);
    tree.OnLoadChildren = [&tree](TObject * /*theTree*/, TzuDataEntity_Tree *node,
                                  bool & /*loaded*/) {
        for (int i = 1; i <= 3 && node->GetLevel() < 3; ++i) {
            AddNode(tree, node, node->GetText() + '.' + std::to_string(i));
        }
    };
    for (const char *text : {"1", "2", "3"}) {
        AddNode(tree, nullptr, text);
    }
    TzuDataEntity_Tree *first = tree.DataList()->Entity(0);
    first->SetExpanded(true);
    first->ChildList()->Entity(1)->SetExpanded(true);
}

} // namespace

QWidget *CreateTreePage()
{
    auto *page = new QWidget;
    new QHBoxLayout(page);
    FillWithImages(*AddTree<TTreeWithImages>(*page, "Images and fonts"));
    FillForSelection(*AddTree(*page, "Several selected nodes"));
    FillOnDemand(*AddTree(*page, "Children made when expanded"));
    return page;
}
