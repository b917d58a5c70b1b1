// Properties of components on forms, found through the meta-object.
#pragma once

#include <QColor>
#include <QCursor>
#include <QDateTime>
#include <QFont>
#include <QMetaProperty>
#include <QVariant>
#include <QWidget>

#include <vector>

namespace korvane::test {

inline const char *const kClasses[] = {"korvane::TzuSchema", "korvane::TzuGant",
                                       "korvane::TzuDateScaler", "korvane::TzuTree",
                                       "korvane::TzuGrid"};

/// What the library's own classes publish of a component and forms store.
inline std::vector<QMetaProperty> StoredProperties(const QWidget &component)
{
    std::vector<QMetaProperty> result;
    for (const QMetaObject *meta = component.metaObject(); meta != nullptr;
         meta = meta->superClass()) {
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            const QMetaProperty property = meta->property(i);
            const bool ours = QByteArray(meta->className()).startsWith("korvane::");
            if (ours && property.isWritable() && property.isDesignable() && property.isStored()) {
                result.push_back(property);
            }
        }
    }
    return result;
}

/// Values of the same type that a property may take instead; the first one that it takes counts.
inline QVariantList OtherValues(const QMetaProperty &property, const QVariant &value)
{
    if (property.isFlagType()) {
        return {value.toInt() ^ property.enumerator().value(0), value.toInt() ^ 1};
    }
    if (property.isEnumType()) {
        const QMetaEnum enumerator = property.enumerator();
        return {enumerator.value(0), enumerator.value(1)};
    }
    switch (value.typeId()) {
    case QMetaType::Bool:
        return {!value.toBool()};
    case QMetaType::Int:
        return {value.toInt() + 3, 3};
    case QMetaType::Double:
        return {value.toDouble() / 2};
    case QMetaType::QString:
        return {QStringLiteral("yyyy 'å' <&>\"")};
    case QMetaType::QByteArray:
        return {QByteArray(
            R"([{"HeaderText":"Größe <a & b>","Kind":"tckDate","Name":"Loud","MinWidth":33,)"
            R"("Columns":[{"HeaderText":"In it"}]}])")};
    case QMetaType::QDateTime:
        return {value.toDateTime().addDays(1).addSecs(3661)};
    case QMetaType::QColor:
        return {QColor(18, 52, 86)};
    case QMetaType::QCursor:
        return {QCursor(Qt::WhatsThisCursor)};
    case QMetaType::QFont: {
        QFont font = value.value<QFont>();
        font.setFamily(QStringLiteral("Liberation Serif"));
        font.setPointSize(font.pointSize() + 5);
        font.setBold(!font.bold());
        font.setItalic(!font.italic());
        return {font};
    }
    default:
        return {};
    }
}

/// A value as it can be compared and read: what of it forms store.
inline QString ReadableText(const QVariant &value)
{
    if (value.canConvert<QCursor>()) {
        return QString::number(value.value<QCursor>().shape());
    }
    if (value.typeId() == QMetaType::QFont) {
        const QFont font = value.value<QFont>();
        return QStringLiteral("%1 %2 %3 %4 %5 %6")
            .arg(font.family())
            .arg(font.pointSize())
            .arg(font.bold())
            .arg(font.italic())
            .arg(font.underline())
            .arg(font.strikeOut());
    }
    if (value.typeId() == QMetaType::QDateTime) {
        return value.toDateTime().toString(Qt::ISODate);
    }
    if (value.typeId() == QMetaType::QColor) {
        return value.value<QColor>().name();
    }
    const bool isText =
        value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QByteArray;
    return isText ? value.toString() : QString::number(value.toDouble());
}

inline std::string Readable(const QVariant &value)
{
    return ReadableText(value).toStdString();
}

} // namespace korvane::test
