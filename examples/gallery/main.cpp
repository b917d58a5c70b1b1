// One window with a page per control.
//   gallery [--dark]
//   gallery --render DIR [--dpr N] [--dark]    one picture per page, without a display
#include "Gallery.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdlib>

int main(int argc, char **argv)
{
    const QCommandLineOption render("render", "Write one picture per page into <dir>.", "dir");
    const QCommandLineOption ratio("dpr", "Device pixels per pixel.", "ratio", "1");
    const QCommandLineOption dark("dark", "Use dark colours.");
    QCommandLineParser parser;
    parser.setApplicationDescription("The controls of the library, a page for each.");
    parser.addHelpOption();
    parser.addOptions({render, ratio, dark});

    // The platform and the scale have to be set before the application is made.
    parser.parse(QStringList(argv, argv + argc));
    if (parser.isSet(render)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (parser.isSet(ratio)) {
        qputenv("QT_SCALE_FACTOR", parser.value(ratio).toLocal8Bit());
    }
    const QApplication application(argc, argv);
    parser.process(application);

    if (parser.isSet(dark)) {
        QApplication::setStyle("fusion");
        QApplication::setPalette(DarkPalette());
    }
    if (parser.isSet(render)) {
        return RenderPages(parser.value(render)) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    TGallery gallery;
    gallery.setWindowTitle("Korvane");
    gallery.resize(1200, 760);
    gallery.show();
    return QApplication::exec();
}
