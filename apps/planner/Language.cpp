#include "Language.h"

#include "foundation/qt/zuLocale.h"
#include "foundation/qt/zuTranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QList>
#include <QPointer>
#include <QTranslator>

#include <memory>
#include <utility>

static void InitTexts()
{
    Q_INIT_RESOURCE(planner_texts);
}

namespace korvane::planner {

namespace {

/// What is loaded; it goes with the application object.
QList<QPointer<QTranslator>> &Loaded()
{
    static QList<QPointer<QTranslator>> loaded;
    return loaded;
}

void Load(const QString &catalogue, const QString &folder)
{
    auto texts = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (texts->load(catalogue, folder) && QCoreApplication::installTranslator(texts.get())) {
        Loaded().append(texts.release());
    }
}

} // namespace

void UseLanguage(const QString &language)
{
    InitTexts();
    if (!language.isEmpty()) {
        const QLocale asked(language);
        const QLocale own = QLocale::system();
        QLocale::setDefault(asked.language() == own.language() ? own : asked);
        SetFormatSettings(FormatSettingsOf(QLocale()));
    }
    qDeleteAll(std::exchange(Loaded(), {}));
    const QString found = LoadComponentTexts(language.isEmpty() ? QLocale() : QLocale(language));
    if (found.isEmpty()) {
        return;
    }
    const QString own = QStringLiteral(":/planner/texts");
    // Later ones are asked first. Qt has no Swedish of its own.
    Load(QStringLiteral("qtbase_") + found, own);
    Load(QStringLiteral("qtbase_") + found, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Load(QStringLiteral("planner_") + found, own);
}

} // namespace korvane::planner
