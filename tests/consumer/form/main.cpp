// Sets the compiled form up and compares the properties of its components with the file.
#include "ui_five.h"

#include <QApplication>
#include <QFile>
#include <QMetaProperty>
#include <QXmlStreamReader>
#include <QtDebug>

namespace {

/// A property of the file: its type, its text, and the numbers in it by their names.
struct TStored
{
    QString Type;
    QString Text;
    QMap<QString, int> Parts;
};

TStored ReadValue(QXmlStreamReader &xml)
{
    xml.readNextStartElement();
    TStored stored{xml.name().toString(), {}, {}};
    while (xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement()) {
            const QString part = xml.name().toString();
            stored.Parts[part] = xml.readElementText().toInt();
        } else {
            stored.Text += xml.text();
        }
    }
    return stored;
}

bool IsAs(const QMetaProperty &property, const QVariant &value, const TStored &stored)
{
    const QMap<QString, int> &part = stored.Parts;
    if (stored.Type == "enum") {
        const char *key = property.enumerator().valueToKey(value.toInt());
        return stored.Text.section(':', -1) == QLatin1String(key);
    }
    if (stored.Type == "bool") {
        return value.toBool() == (stored.Text == "true");
    }
    if (stored.Type == "number" || stored.Type == "double") {
        return qAbs(value.toDouble() - stored.Text.toDouble()) < 1e-9;
    }
    if (stored.Type == "color") {
        return value.value<QColor>() == QColor(part["red"], part["green"], part["blue"]);
    }
    if (stored.Type == "datetime") {
        return value.toDateTime()
               == QDateTime(QDate(part["year"], part["month"], part["day"]),
                            QTime(part["hour"], part["minute"], part["second"]));
    }
    if (stored.Type == "font") {
        return value.value<QFont>().pointSize() == part["pointsize"];
    }
    const bool isText = stored.Type == "string" || stored.Type == "cstring";
    return isText ? value.toString() == stored.Text
                  : stored.Type == "cursorShape"
                        && value.value<QCursor>().shape() == Qt::WhatsThisCursor;
}

/// A connection of the form and one of the program hear of the same item.
bool SignalsArrive(const Ui::Five &five)
{
    const korvane::TzuDataEntity_Spanbar *heard = nullptr;
    QObject::connect(five.TzuGant, &korvane::TzuGant::timeItemInserted,
                     [&heard](korvane::TzuDataEntity_Spanbar *item) { heard = item; });
    const auto *item = five.TzuGant->AddSpanbar(five.TzuGant->AddRootDataEntityTree("row"), 0);
    return heard != nullptr && heard == item && five.TzuTree->isHidden();
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QWidget form;
    Ui::Five five;
    five.setupUi(&form);
    QCoreApplication::processEvents();

    QFile file(QStringLiteral(FORM));
    if (!file.open(QIODevice::ReadOnly)) {
        return 1;
    }
    QXmlStreamReader xml(&file);
    const QWidget *component = nullptr;
    int compared = 0;
    int wrong = 0;
    while (!xml.atEnd() && xml.name() != u"customwidgets") {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"widget") {
            component = form.findChild<QWidget *>(xml.attributes().value("name").toString());
        } else if (xml.isStartElement() && xml.name() == u"property" && component != nullptr
                   && xml.attributes().value("name") != u"geometry") {
            const QByteArray name = xml.attributes().value("name").toLatin1();
            const QMetaObject *meta = component->metaObject();
            const QMetaProperty property = meta->property(meta->indexOfProperty(name));
            ++compared;
            if (!IsAs(property, property.read(component), ReadValue(xml))) {
                qWarning() << component->objectName() << name << property.read(component);
                ++wrong;
            }
        }
    }
    qInfo() << compared << "properties compared";
    if (!SignalsArrive(five)) {
        qWarning() << "a signal was lost";
        return 1;
    }
    return compared > 100 && wrong == 0 ? 0 : 1;
}
