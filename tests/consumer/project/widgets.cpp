// Uses the widgets of the installed package: resolves a system colour by the palette.
#include "foundation/qt/zuConvert.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QPalette palette = QApplication::palette();
    const QColor color = korvane::ToQt(korvane::clHighlight, palette);
    return color == palette.color(QPalette::Highlight) ? EXIT_SUCCESS : EXIT_FAILURE;
}
