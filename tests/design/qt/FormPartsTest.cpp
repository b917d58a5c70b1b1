// What forms refer to by name, and what of them is translated.
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QTemporaryDir>
#include <QTranslator>
#include <QUiLoader>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace korvane::test {
namespace {

TEST(FormMenus, AreFoundByNameWhenTheyAreWanted)
{
    QWidget window;
    auto *chart = new TzuGant(&window);
    auto *tree = new TzuTree(&window);
    auto *grid = new TzuGrid(&window);
    auto *schema = new TzuSchema(&window);
    for (QWidget *each : std::vector<QWidget *>{chart, tree, grid, schema}) {
        each->setProperty("PopupMenu", "  cut -  copy gone ");
        EXPECT_EQ(each->property("PopupMenu").toByteArray(), "cut - copy gone");
    }
    chart->SetPopupMenuTreeviewNames("ofTree");
    schema->SetHeaderPopupmenuNames("ofTree");
    EXPECT_EQ(chart->PopupMenu(), nullptr) << "there is none of the actions yet";
    EXPECT_EQ(chart->PopupMenuTreeview(), nullptr);

    auto *menu = new QMenu(&window);
    menu->setObjectName(QStringLiteral("ofTree"));
    for (const char *name : {"cut", "copy"}) {
        (new QAction(QString::fromLatin1(name), &window))->setObjectName(QLatin1String(name));
    }
    EXPECT_EQ(chart->PopupMenuTreeview(), menu);
    EXPECT_EQ(schema->HeaderPopupmenu(), menu);
    for (QMenu *each :
         {chart->PopupMenu(), tree->PopupMenu(), grid->PopupMenu(), schema->PopupMenu()}) {
        ASSERT_NE(each, nullptr);
        QStringList texts;
        for (const QAction *action : each->actions()) {
            texts.append(action->text());
        }
        EXPECT_EQ(texts, (QStringList{"cut", "", "copy"}));
    }
    // A menu takes the place of names, and names that of a menu.
    chart->SetPopupMenu(menu);
    EXPECT_EQ(chart->PopupMenuNames(), "");
    EXPECT_EQ(chart->PopupMenu(), menu);
    tree->SetPopupMenuNames({});
    EXPECT_TRUE(tree->PopupMenu() != nullptr && tree->PopupMenu() != menu) << "its own";

    // On headers the menu of columns comes first.
    grid->Columns().Add().SetHeaderText("Name");
    grid->AddRows(3);
    grid->resize(300, 200);
    window.show();
    const TRect cell = grid->CellRect(grid->GetTopLeftCell());
    for (const auto &[y, title] : {std::pair(5, "column"), std::pair(cell.Top + 2, "form")}) {
        const QPoint at(cell.Left + 20, y);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, grid->mapToGlobal(at));
        QCoreApplication::sendEvent(grid, &event);
        auto *shown = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(shown, nullptr) << title;
        EXPECT_EQ(shown->actions().first()->text() == "cut", std::string(title) == "form");
        shown->close();
    }
}

TEST(FormImages, AreNumberedInTheOrderOfTheirNames)
{
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("red.png"));
    ASSERT_TRUE(picture.save(file));
    const QByteArray text = TNamedImages::TextOf({"no-such-icon", file});
    TzuGant chart;
    TzuGrid grid;
    TzuTree tree;
    for (const auto &[component, name] : {std::pair<QWidget *, const char *>(&chart, "ImageList"),
                                          {&grid, "ImageList"},
                                          {&tree, "Images"}}) {
        component->setProperty(name, text);
        EXPECT_EQ(component->property(name).toByteArray(), text);
    }
    for (const TImageList *list :
         {chart.ImageList(), grid.ImageList(), static_cast<const TImageList *>(tree.Images())}) {
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->Count(), 2);
        const auto &images = dynamic_cast<const TzuImageList &>(*list);
        EXPECT_EQ(images.Pixmap(1, {16, 16}, 1).toImage().pixelColor(1, 1), QColor(Qt::red));
    }
    chart.SetImageListText({});
    EXPECT_EQ(chart.ImageList(), nullptr);
}

/// Translates a word of the form "Plan".
class TSwedish : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char * /*comment*/,
                      int /*count*/) const override
    {
        QString result = QString::fromUtf8(text);
        result.replace(QLatin1String("Task"), QLatin1String("Uppgift"));
        return qstrcmp(context, "Plan") == 0 ? result : QString();
    }
};

TEST(FormCaptions, AreTranslatedWithTheForm)
{
    QUiLoader loader;
    loader.addPluginPath(QStringLiteral(KORVANE_PLUGINS));
    loader.setLanguageChangeEnabled(true);
    QBuffer form;
    form.setData(R"(<ui version="4.0"><class>Plan</class>
<widget class="korvane::TzuGrid" name="grid">
 <property name="Columns" stdset="0"><cstring>[{"HeaderText":"Task","Width":70},{},{}]</cstring></property>
 <property name="HeaderTexts" stdset="0"><string>Task
Start\nof\\n it</string></property>
</widget></ui>)");
    form.open(QIODevice::ReadOnly);
    const std::unique_ptr<QWidget> loaded(loader.load(&form));
    ASSERT_NE(loaded, nullptr);
    const auto captions = [&] { return loaded->property("HeaderTexts").toString(); };
    EXPECT_EQ(captions(), "Task\nStart\\nof\\\\n it\n");
    TSwedish swedish;
    QCoreApplication::installTranslator(&swedish);
    QCoreApplication::processEvents();
    EXPECT_EQ(captions(), "Uppgift\nStart\\nof\\\\n it\n");
    QCoreApplication::removeTranslator(&swedish);

    TzuGrid grid;
    grid.Columns().Add();
    grid.SetHeaderTexts(QStringLiteral("a\\nb\\\\n\nbeyond"));
    EXPECT_EQ(grid.Columns().At(0).HeaderText(), "a\nb\\n");
}

} // namespace
} // namespace korvane::test
