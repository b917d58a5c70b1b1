// A tree whose children are made when a node is expanded; captions are edited in place, nodes are
// dragged.
#include "tree/qt/zuTree.h"

#include <QApplication>

#include <string>

using namespace korvane;

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    TzuTree tree;
    tree.SetLoadOnDemand(true);
    tree.SetDragMode(TzuTree::TDragMode::dmAutomatic);
    tree.OnLoadChildren = [&tree](TObject *, TzuDataEntity_Tree *node, bool &) {
        for (int i = 1; i <= 3 && node->GetLevel() < 3; ++i) {
            tree.AddDataEntity(node)->SetText(node->GetText() + '.' + std::to_string(i));
        }
    };
    for (const char *text : {"1", "2", "3"}) {
        tree.AddDataEntity(nullptr)->SetText(text);
    }
    tree.DataList()->Entity(0)->SetExpanded(true);
    tree.resize(300, 300);
    tree.show();
    return QApplication::exec();
}
