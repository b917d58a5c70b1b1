#include "foundation/qt/zuNamedImages.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtDebug>

namespace korvane {

void TNamedImages::SetText(const QByteArray &text)
{
    if (text == m_text) {
        return;
    }
    if (!text.trimmed().isEmpty() && !QJsonDocument::fromJson(text).isArray()) {
        qWarning("ImageList: a list of names is expected");
        return;
    }
    m_text = text;
    m_list.Clear();
    for (const QString &name : NamesOf(text)) {
        m_list.Add(IconOf(name));
    }
}

QStringList TNamedImages::NamesOf(const QByteArray &text)
{
    QStringList names;
    for (const QJsonValue &name : QJsonDocument::fromJson(text).array()) {
        names.append(name.toString());
    }
    return names;
}

QByteArray TNamedImages::TextOf(const QStringList &names)
{
    return names.isEmpty()
               ? QByteArray()
               : QJsonDocument(QJsonArray::fromStringList(names)).toJson(QJsonDocument::Compact);
}

QIcon TNamedImages::IconOf(const QString &name)
{
    if (!name.contains(u'/')) {
        return QIcon::fromTheme(name);
    }
    return QFile::exists(name) ? QIcon(name) : QIcon(); // which would complain at every drawing
}

} // namespace korvane
