#include "FormProperties.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QUiLoader>
#include <QtDesigner/QFormBuilder>

#include <gtest/gtest.h>
#include <memory>

namespace korvane::test {
namespace {

/// Stores components without the controls that they are made of.
class TFormBuilder : public QFormBuilder
{
public:
    TFormBuilder() { setPluginPath({QStringLiteral(KORVANE_PLUGINS)}); }

protected:
    using QFormBuilder::createDom;
    DomWidget *createDom(QWidget *widget, DomWidget *parent, bool /*recursive*/) override
    {
        return QFormBuilder::createDom(widget, parent, false);
    }
    /// It writes enumerations as numbers only, and does not ask what is to be stored.
    DomProperty *createProperty(QObject *object, const QString &name,
                                const QVariant &value) override
    {
        const QMetaObject *meta = object->metaObject();
        const QByteArray latinName = name.toLatin1();
        if (!meta->property(meta->indexOfProperty(latinName)).isStored()) {
            return nullptr;
        }
        const bool isEnum = value.metaType().flags().testFlag(QMetaType::IsEnumeration)
                            || QByteArray(value.typeName()).startsWith("QFlags<");
        return QFormBuilder::createProperty(object, name, isEnum ? value.toInt() : value);
    }
};

class FormTest : public testing::TestWithParam<const char *>
{
protected:
    FormTest() { m_loader.addPluginPath(QStringLiteral(KORVANE_PLUGINS)); }

    QUiLoader m_loader;
    TFormBuilder m_builder;
};

TEST_P(FormTest, EveryPropertyComesBackFromAFormWhateverReadsIt)
{
    const std::unique_ptr<QWidget> component(
        m_loader.createWidget(QString::fromLatin1(GetParam())));
    ASSERT_NE(component, nullptr);
    ASSERT_STREQ(component->metaObject()->className(), GetParam());
    component->setObjectName(QStringLiteral("component"));
    const std::vector<QMetaProperty> properties = StoredProperties(*component);
    EXPECT_GT(properties.size(), 5U);

    std::vector<std::string> defaults;
    for (const QMetaProperty &property : properties) {
        defaults.push_back(Readable(property.read(component.get())));
    }
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const QMetaProperty &property = properties[i];
        for (const QVariant &other : OtherValues(property, property.read(component.get()))) {
            if (Readable(property.read(component.get())) == defaults[i]) {
                property.write(component.get(), other);
                QCoreApplication::processEvents(); // layouts are late
            }
        }
    }

    QBuffer form;
    form.open(QIODevice::ReadWrite);
    m_builder.save(&form, component.get());
    form.seek(0);
    const std::unique_ptr<QWidget> loaded(m_loader.load(&form));
    form.seek(0);
    const std::unique_ptr<QWidget> built(m_builder.load(&form));
    ASSERT_TRUE(loaded && built) << form.data().toStdString();
    QCoreApplication::processEvents();
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const QMetaProperty &property = properties[i];
        const std::string stored = Readable(property.read(component.get()));
        EXPECT_NE(stored, defaults[i]) << property.name();
        EXPECT_EQ(Readable(property.read(loaded.get())), stored) << property.name();
        EXPECT_EQ(Readable(property.read(built.get())), stored) << property.name();
    }
}

INSTANTIATE_TEST_SUITE_P(, FormTest, testing::ValuesIn(kClasses), [](const auto &test) {
    return std::string(test.param).substr(sizeof("korvane::") - 1);
});

} // namespace
} // namespace korvane::test
