// The form designer itself, with the plug-in loaded.
#include "FormProperties.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QUndoStack>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerMemberSheetExtension>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/qdesigner_components.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace korvane::test {
namespace {

class DesignerTest : public testing::Test
{
protected:
    DesignerTest()
    {
        // It creates a widget of every kind.
        s_handler = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
                if (!message.startsWith(u"QOpenGLWidget is not supported")) {
                    s_handler(type, context, message);
                }
            });
        QCoreApplication::addLibraryPath(QStringLiteral(KORVANE_PLUGINS "/.."));
        QDesignerComponents::initializeResources();
        m_designer.reset(QDesignerComponents::createFormEditor(nullptr));
        m_designer->setTopLevel(&m_window);
        m_designer->setWidgetBox(QDesignerComponents::createWidgetBox(m_designer.get(), &m_window));
        m_designer->setPropertyEditor(
            QDesignerComponents::createPropertyEditor(m_designer.get(), &m_window));
        m_designer->setObjectInspector(
            QDesignerComponents::createObjectInspector(m_designer.get(), &m_window));
        m_designer->setActionEditor(
            QDesignerComponents::createActionEditor(m_designer.get(), &m_window));
        QDesignerComponents::initializePlugins(m_designer.get());
        new QDesignerIntegration(m_designer.get(), m_designer.get());
        m_designer->widgetBox()->load();
    }
    ~DesignerTest() override { qInstallMessageHandler(s_handler); }

    QDesignerWidgetBoxInterface::Category Page()
    {
        const QDesignerWidgetBoxInterface *box = m_designer->widgetBox();
        for (int i = 0; i < box->categoryCount(); ++i) {
            if (box->category(i).name() == u"Korvane") {
                return box->category(i);
            }
        }
        return {};
    }

    QDesignerFormWindowInterface *OpenForm(const QString &contents)
    {
        auto *form = m_designer->formWindowManager()->createFormWindow(&m_window);
        EXPECT_TRUE(form->setContents(contents)) << contents.toStdString();
        m_designer->formWindowManager()->setActiveFormWindow(form);
        return form;
    }

    /// A form with what the widget box offers for the five components.
    QDesignerFormWindowInterface *OpenFormOfFive()
    {
        QString widgets;
        for (const char *name : kClasses) {
            const QString className = QString::fromLatin1(name);
            widgets +=
                QStringLiteral(
                    R"(<widget class="%1" name="%2"><property name="geometry"><rect><x>0</x>)"
                    R"(<y>0</y><width>400</width><height>300</height></rect></property></widget>)")
                    .arg(className, className.section(u':', -1));
        }
        return OpenForm(
            QStringLiteral(
                R"(<ui version="4.0"><class>Five</class><widget class="QWidget" name="Five">)"
                R"(%1</widget></ui>)")
                .arg(widgets));
    }

    static QWidget *Component(QDesignerFormWindowInterface *form, const char *name)
    {
        return form->mainContainer()->findChild<QWidget *>(
            QString::fromLatin1(name).section(u':', -1));
    }

    /// The editor of actions leaves the menu of its button behind.
    struct TLeftMenus
    {
        ~TLeftMenus()
        {
            for (QWidget *each : QApplication::topLevelWidgets()) {
                if (qobject_cast<QMenu *>(each) != nullptr && each->parent() == nullptr) {
                    delete each;
                }
            }
        }
    };
    TLeftMenus m_menus; // goes last
    std::unique_ptr<QDesignerFormEditorInterface> m_designer;
    QWidget m_window;
    static inline QtMessageHandler s_handler = nullptr;
};

TEST_F(DesignerTest, ItsWidgetBoxHasAPageWithTheFiveComponentsInOrder)
{
    const auto page = Page();
    QStringList names;
    for (int i = 0; i < page.widgetCount(); ++i) {
        names.append(page.widget(i).name());
    }
    EXPECT_EQ(names.join(u' '), "TzuSchema TzuGant TzuDateScaler TzuTree TzuGrid");
}

TEST_F(DesignerTest, FormsKeepEveryPropertyAndNothingOfTheSample)
{
    QDesignerFormWindowInterface *form = OpenFormOfFive();
    for (const char *name : kClasses) {
        QWidget *component = Component(form, name);
        ASSERT_NE(component, nullptr) << name;
        for (const QMetaProperty &property : StoredProperties(*component)) {
            const std::string before = Readable(property.read(component));
            for (const QVariant &other : OtherValues(property, property.read(component))) {
                if (Readable(property.read(component)) == before) {
                    form->cursor()->setWidgetProperty(component,
                                                      QString::fromLatin1(property.name()), other);
                    QCoreApplication::processEvents(); // layouts are late
                }
            }
            EXPECT_NE(Readable(property.read(component)), before) << name << property.name();
        }
    }

    QString contents = form->contents();
    EXPECT_FALSE(contents.contains(u"Room A") || contents.contains(u"Another part"));
    contents.replace(
        QLatin1String("<connections/>"),
        QLatin1String(
            "<connections><connection><sender>TzuGant</sender>"
            "<signal>timeItemInserted(korvane::TzuDataEntity_Spanbar*)</signal>"
            "<receiver>TzuTree</receiver><slot>hide()</slot></connection></connections>"));
    // For the test that compiles it.
    QFile file(qEnvironmentVariable("KORVANE_FORM"));
    if (!file.fileName().isEmpty() && file.open(QIODevice::WriteOnly)) {
        file.write(contents.toUtf8());
    }
    QDesignerFormWindowInterface *other = OpenForm(contents);
    QCoreApplication::processEvents();
    for (const char *name : kClasses) {
        const QWidget *first = Component(form, name);
        const QWidget *second = Component(other, name);
        for (const QMetaProperty &property : StoredProperties(*first)) {
            EXPECT_EQ(Readable(property.read(second)), Readable(property.read(first)))
                << name << property.name();
        }
    }
}

TEST_F(DesignerTest, ItsSignalEditorOffersEverySignal)
{
    QDesignerFormWindowInterface *form = OpenFormOfFive();
    for (const char *name : kClasses) {
        QWidget *component = Component(form, name);
        const auto *members = qt_extension<QDesignerMemberSheetExtension *>(
            m_designer->extensionManager(), component);
        ASSERT_NE(members, nullptr) << name;
        QStringList offered;
        for (int i = 0; i < members->count(); ++i) {
            if (members->isSignal(i) && members->isVisible(i)) {
                offered.append(members->signature(i));
            }
        }
        const QMetaObject *meta = component->metaObject();
        for (int i = QFrame::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal) {
                EXPECT_TRUE(
                    offered.contains(QString::fromLatin1(meta->method(i).methodSignature())))
                    << name << meta->method(i).methodSignature().toStdString();
            }
        }
    }
}

TEST_F(DesignerTest, ImagesAndMenusHaveEditors)
{
    QDesignerFormWindowInterface *form = OpenFormOfFive();
    (new QAction(form->mainContainer()))->setObjectName(QStringLiteral("cut"));
    QWidget *chart = Component(form, "TzuGant");
    const auto *menu =
        qt_extension<QDesignerTaskMenuExtension *>(m_designer->extensionManager(), chart);
    ASSERT_NE(menu, nullptr);
    const auto run = [&](const QString &verb, const QString &typed) {
        QTimer::singleShot(0, qApp, [typed] {
            auto *dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto *line = dialog->findChild<QLineEdit *>();
            line->setText(typed);
            Q_EMIT line->returnPressed();
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        for (QAction *action : menu->taskActions()) {
            if (action->text() == verb) {
                action->trigger();
            }
        }
    };
    run(QStringLiteral("Images"), QStringLiteral(":/a.svg"));
    run(QStringLiteral("Images"), QStringLiteral("edit-copy"));
    EXPECT_EQ(chart->property("ImageList").toByteArray(), R"([":/a.svg","edit-copy"])");
    run(QStringLiteral("Menu: PopupMenuScaler"), QStringLiteral("cut"));
    EXPECT_EQ(chart->property("PopupMenuScaler").toByteArray(), "cut");
    form->commandHistory()->undo();
    EXPECT_EQ(chart->property("PopupMenuScaler").toByteArray(), "");
}

TEST_F(DesignerTest, TheFirstVerbOfAGridEditsItsColumnsInOneStep)
{
    QDesignerFormWindowInterface *form = OpenFormOfFive();
    QWidget *grid = Component(form, "TzuGrid");
    ASSERT_NE(grid, nullptr);
    const auto *menu =
        qt_extension<QDesignerTaskMenuExtension *>(m_designer->extensionManager(), grid);
    ASSERT_NE(menu, nullptr);
    QAction *columns = menu->taskActions().first();
    EXPECT_EQ(columns->text(), "Columns");
    EXPECT_EQ(menu->preferredEditAction(), columns);

    QTimer::singleShot(0, qApp, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        const auto press = [dialog](const char *text) {
            for (auto *button : dialog->findChildren<QToolButton *>()) {
                if (button->text() == QLatin1String(text)) {
                    button->click();
                }
            }
        };
        press("Add");
        press("Add");
        press("Add");
        press("Up");
        press("Remove");
        auto *caption = dialog->findChild<QLineEdit *>(QStringLiteral("HeaderText"));
        caption->selectAll();
        caption->insert(QStringLiteral("Last"));
        Q_EMIT caption->textEdited(caption->text());
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    columns->trigger();
    EXPECT_EQ(grid->property("Columns").toString(),
              R"([{"HeaderText":"Column 1","Width":90},{"HeaderText":"Last","Width":90}])");
    form->commandHistory()->undo();
    EXPECT_EQ(grid->property("Columns").toString(), "");
    form->commandHistory()->redo();
    EXPECT_TRUE(form->contents().contains(u"<string>Column 1\nLast</string>"))
        << "the captions, for translation";
}

} // namespace
} // namespace korvane::test
