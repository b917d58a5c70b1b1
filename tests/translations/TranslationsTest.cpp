#include "Language.h"
#include "MainWindow.h"
#include "foundation/zuGestureHint.h"
#include "foundation/zuTranslate.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace korvane::planner {

namespace {

using namespace Qt::StringLiterals;

struct Entry
{
    std::string Source; ///< for messages of the test
    QString Text;
    QStringList Translations; ///< several for a number
    QString State;            ///< "unfinished", "vanished" or "obsolete" when it is not well
};

std::vector<Entry> EntriesOf(const QString &catalogue)
{
    QFile file(catalogue);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(catalogue);
    std::vector<Entry> entries;
    bool isForNumber = false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == u"message") {
            isForNumber = xml.attributes().value(u"numerus"_s) == u"yes";
        } else if (xml.name() == u"source") {
            const QString text = xml.readElementText();
            entries.push_back({text.toStdString(), text, {}, {}});
        } else if (xml.name() == u"numerusform") {
            entries.back().Translations.append(xml.readElementText());
        } else if (xml.name() == u"translation") {
            entries.back().State = xml.attributes().value(u"type"_s).toString();
            if (!isForNumber) {
                entries.back().Translations.append(xml.readElementText());
            }
        }
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    return entries;
}

/// What a translation has to take over, in any order: places of arguments, mnemonics, braces, tags,
/// filters of file names, blanks at the ends, and the punctuation by which labels look alike.
std::string BindingParts(const QString &text)
{
    static const QRegularExpression kParts(
        uR"(%L?[n1-9]|&(?=\w)|\{\w+\}|</?\w+>|\(\*[^)]*\)|\t|\n|^ +| +$|\.\.\.$|…$|:$)"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    QStringList parts;
    for (auto match = kParts.globalMatch(text); match.hasNext();) {
        parts.append(match.next().captured());
    }
    parts.sort();
    return parts.join(u'|').toStdString();
}

QStringList Catalogues(const QString &folder)
{
    QStringList files;
    for (const QFileInfo &file : QDir(folder).entryInfoList({u"*.ts"_s})) {
        files.append(file.filePath());
    }
    return files;
}

const QString kSources = QStringLiteral(KORVANE_SOURCE);

/// Texts of a menu whose mnemonics are taken by others before them.
std::string Clashes(const QMenu &menu)
{
    QString taken;
    std::string clashes;
    for (const QAction *action : menu.actions()) {
        const qsizetype mark = action->text().indexOf(u'&');
        const QChar letter = mark >= 0 ? action->text().at(mark + 1).toLower() : QChar();
        if (mark >= 0 && taken.contains(letter)) {
            clashes += action->text().toStdString() + '\n';
        }
        taken += letter;
        if (action->menu() != nullptr) {
            clashes += Clashes(*action->menu());
        }
    }
    return clashes;
}

/// In English again for others.
class LanguageTest : public testing::Test
{
protected:
    ~LanguageTest() override
    {
        UseLanguage(u"en"_s);
        QLocale::setDefault(QLocale::c());
    }
};

} // namespace

TEST(TranslationsTest, KnowEveryTextOfTheSourcesAndNoOther)
{
    const QTemporaryDir folder;
    for (const QString &file : Catalogues(kSources + u"/translations"_s)) {
        ASSERT_TRUE(QFile::copy(file, folder.filePath(QFileInfo(file).fileName())));
    }
    QProcess update;
    update.start(kSources + u"/tools/translations"_s, {folder.path()});
    ASSERT_TRUE(update.waitForFinished(120'000) && update.exitCode() == 0);
    EXPECT_EQ(update.readAllStandardError().toStdString(), "") << "a text that is not found";
    const QStringList files = Catalogues(folder.path());
    EXPECT_GE(files.size(), 4);
    for (const QString &file : files) {
        for (const Entry &entry : EntriesOf(file)) {
            EXPECT_TRUE(entry.State.isEmpty())
                << qPrintable(file) << ": " << entry.Source << " is " << qPrintable(entry.State);
        }
    }
}

TEST(TranslationsTest, KeepWhatTheirTextsAreMadeOf)
{
    for (const QString &file : Catalogues(kSources + u"/translations"_s)) {
        for (const Entry &entry : EntriesOf(file)) {
            EXPECT_FALSE(entry.Translations.isEmpty()) << entry.Source;
            for (const QString &translation : entry.Translations) {
                EXPECT_FALSE(translation.isEmpty()) << entry.Source;
                EXPECT_EQ(BindingParts(translation), BindingParts(entry.Text))
                    << qPrintable(file) << ": " << entry.Source << '\n'
                    << qPrintable(translation);
            }
        }
    }
}

TEST_F(LanguageTest, IsThatOfComponentsAndPlanner)
{
    struct Case
    {
        QString Language;
        std::string Hint;
        std::string OneCell;
        std::string Cells;
        QString Menu;
    };
    const Case cases[] = {
        {u"de"_s, "Dauer\t1 T. 6 Std.", "1 Zelle einfügen", "2 Zellen einfügen", u"&Datei"_s},
        {u"sv"_s, "Längd\t1 d 6 tim", "Klistra in 1 cell", "Klistra in 2 celler", u"&Arkiv"_s},
        {u"en"_s, "Length\t1 d 6 h", "Paste 1 cell", "Paste 2 cells", u"&File"_s}};
    for (const Case &each : cases) {
        UseLanguage(each.Language);
        const auto paste = [](int n) {
            return Translate("Planner", "Paste %n cell(s)", nullptr, n);
        };
        EXPECT_EQ(HintOfTimes(46000, 46001.25)[2], each.Hint);
        EXPECT_EQ(paste(1), each.OneCell);
        EXPECT_EQ(paste(2), each.Cells);
        const MainWindow window;
        EXPECT_EQ(window.menuBar()->actions().value(0)->text(), each.Menu);
    }
}

TEST_F(LanguageTest, GivesEveryActionOfAMenuAMnemonicOfItsOwn)
{
    for (const QString &language : {u"de"_s, u"en"_s, u"sv"_s}) {
        UseLanguage(language);
        const MainWindow window;
        for (const QAction *top : window.menuBar()->actions()) {
            EXPECT_EQ(Clashes(*top->menu()), "")
                << qPrintable(language) << ", in " << qPrintable(top->text());
        }
    }
}

TEST(TranslateTest, PutsArgumentsInTheirPlacesAllAtOnce)
{
    EXPECT_EQ(WithArguments("%2 before %1, 100 % of %3", {"%2", "b"}), "b before %2, 100 % of %3");
    EXPECT_EQ(WithArguments("%", {"a"}), "%");
    EXPECT_EQ(Untranslated("%n cell(s) of %1", 1), "1 cell of %1");
    EXPECT_EQ(Untranslated("%Ln cell(s)", 0), "0 cells");
    EXPECT_EQ(Untranslated("item(s)", -1), "item(s)");
}

} // namespace korvane::planner
