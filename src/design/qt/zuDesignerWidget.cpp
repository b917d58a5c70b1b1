#include "design/qt/zuDesignerWidget.h"

#include "design/qt/zuSample.h"
#include "design/qt/zuTaskMenu.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuTranslations.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QCoreApplication>
#include <QIcon>
#include <QtDesigner/QDesignerFormEditorInterface>

#include <array>
#include <stdexcept>
#include <string>

namespace korvane {

namespace {

/// A component of a class, filled where the class has something to fill.
template <typename T>
QWidget *Create(QWidget *parent, bool withSample)
{
    auto *component = new T(parent);
    if constexpr (requires { ShowSample(*component); }) {
        if (withSample) {
            ShowSample(*component);
        }
    }
    return component;
}

/// What belongs to a class on a form besides its name and size.
struct TFormClass
{
    std::string_view ClassName;
    QWidget *(*Create)(QWidget *parent, bool withSample);
    const char *ObjectName;
    const char *Properties; ///< that differ from the defaults
};

constexpr std::array kFormClasses{
    TFormClass{"TzuSchema", &Create<TzuSchema>, "schema", ""},
    TFormClass{"TzuGant", &Create<TzuGant>, "gant", ""},
    TFormClass{"TzuDateScaler", &Create<TzuDateScaler>, "dateScaler",
               R"(<property name="Horizontal" stdset="0"><bool>true</bool></property>)"},
    TFormClass{"TzuTree", &Create<TzuTree>, "tree", ""},
    TFormClass{"TzuGrid", &Create<TzuGrid>, "grid", ""},
};

const TFormClass &FormClass(std::string_view className)
{
    for (const TFormClass &each : kFormClasses) {
        if (each.ClassName == className) {
            return each;
        }
    }
    throw std::invalid_argument("No such component: " + std::string(className));
}

} // namespace

TDesignerWidget::TDesignerWidget(std::string_view page, const TPaletteComponent &component)
    : m_page(ToQt(page))
    , m_component(component)
    , m_create(FormClass(component.ClassName).Create)
{
}

QString TDesignerWidget::name() const
{
    return QStringLiteral("korvane::") + ToQt(m_component.ClassName);
}

QString TDesignerWidget::toolTip() const
{
    return QCoreApplication::translate("TzuDesign", m_component.ToolTip.data());
}

QString TDesignerWidget::whatsThis() const
{
    return QCoreApplication::translate("TzuDesign", m_component.WhatsThis.data());
}

QString TDesignerWidget::includeFile() const
{
    return ToQt(m_component.Header);
}

QIcon TDesignerWidget::icon() const
{
    const QIcon drawing(
        QStringLiteral(":/korvane/designer/%1.svg").arg(ToQt(m_component.ClassName)));
    QIcon icon; // the designer shows icons only that tell their sizes
    for (const int size : {16, 24, 32, 48, 64, 96}) {
        icon.addPixmap(drawing.pixmap(QSize(size, size), 1.0));
    }
    return icon;
}

QWidget *TDesignerWidget::createWidget(QWidget *parent)
{
    return m_create(parent, isInitialized());
}

void TDesignerWidget::initialize(QDesignerFormEditorInterface *designer)
{
    if (designer == nullptr || designer == m_designer) {
        return;
    }
    m_designer = designer;
    LoadComponentTexts();
    if (m_hasGridEditor) {
        TTaskMenuFactory::Install(*designer);
    }
}

QString TDesignerWidget::domXml() const
{
    const TFormClass &form = FormClass(m_component.ClassName);
    return QStringLiteral(R"(<ui language="c++" displayname="%1">
 <widget class="%2" name="%3">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>%4</width><height>%5</height></rect>
  </property>
  %6
 </widget>
 <customwidgets>
  <customwidget>
   <class>%2</class>
   <extends>QFrame</extends>
  </customwidget>
 </customwidgets>
</ui>)")
        .arg(ToQt(m_component.ClassName), name(), QString::fromLatin1(form.ObjectName))
        .arg(m_component.Size.Width)
        .arg(m_component.Size.Height)
        .arg(QString::fromLatin1(form.Properties));
}

} // namespace korvane
