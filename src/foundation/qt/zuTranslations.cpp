#include "foundation/qt/zuTranslations.h"

#include "foundation/qt/zuToolkit.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

#include <memory>

/// Outside of the namespace: the macro declares a function of the resources.
static void InitTexts()
{
    Q_INIT_RESOURCE(korvane_texts);
}

namespace korvane {

QString LoadComponentTexts(const QLocale &locale)
{
    static QPointer<QTranslator> loaded;
    InitTexts();
    InstallToolkitServices();
    delete loaded;
    auto texts = std::make_unique<QTranslator>();
    const QString folder = QStringLiteral(":/korvane/texts");
    for (const QString &name : locale.uiLanguages()) {
        const QString language = name.section(u'-', 0, 0);
        if (language == u"en" || language == u"C") {
            break;
        }
        if (texts->load(QStringLiteral("korvane_") + language, folder)
            && QCoreApplication::installTranslator(texts.get())) {
            loaded = texts.release();
            loaded->setParent(QCoreApplication::instance());
            return language;
        }
    }
    return {};
}

} // namespace korvane
