#include "agenda/ProgrammeBuilder.h"
#include "agenda/ProgrammeReader.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace korvane::planner {

namespace {

QJsonObject ParsedSchedule(const QByteArray &text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const QByteArrayView before =
            QByteArrayView(text).first(std::clamp<qsizetype>(error.offset, 0, text.size()));
        throw PlanRefusal(std::ranges::count(before, '\n') + 1, error.errorString());
    }
    const QJsonObject schedule = document.object()[u"schedule"].toObject();
    if (!schedule.contains(u"conference")) {
        throw PlanRefusal(0, PlannerText::tr("not a conference programme"));
    }
    return schedule[u"conference"].toObject();
}

/// The rooms of a day. Objects are sorted by their names; the file has them in an order of its own.
QStringList RoomsOf(const QJsonObject &rooms, const QByteArray &text)
{
    QStringList names = rooms.keys();
    const auto placeOf = [&](const QString &name) {
        const QByteArray quoted = QJsonDocument(QJsonArray{name}).toJson(QJsonDocument::Compact);
        const qsizetype place = text.indexOf(quoted.mid(1, quoted.size() - 2));
        return place < 0 ? text.size() : place;
    };
    std::vector<std::pair<qsizetype, QString>> placed;
    for (const QString &name : names) {
        placed.emplace_back(placeOf(name), name);
    }
    std::ranges::sort(placed);
    std::ranges::transform(placed, names.begin(), [](const auto &entry) { return entry.second; });
    return names;
}

void AddTalk(ProgrammeBuilder &builder, const QString &room, const QJsonObject &event)
{
    const auto text = [&](QStringView key) { return event[key].toString().trimmed(); };
    ProgrammeTalk talk;
    talk.Title = text(u"title");
    talk.Subtitle = text(u"subtitle");
    talk.Abstract = text(u"abstract");
    talk.Type = text(u"type");
    talk.Language = text(u"language");
    for (const QJsonValue person : event[u"persons"].toArray()) {
        const QString name = person[u"public_name"].toString();
        talk.Persons.append(name.isEmpty() ? person[u"name"].toString() : name);
    }
    builder.AddTalk({text(u"date"), text(u"start"), text(u"duration"), room, text(u"track")},
                    std::move(talk), 0);
}

} // namespace

Programme ReadProgrammeJson(const QByteArray &text, IProgress &progress)
{
    const QJsonObject conference = ParsedSchedule(text);
    ProgrammeBuilder builder;
    builder.SetName(conference[u"title"].toString().simplified());
    builder.SetDayChange(conference[u"day_change"].toString());
    for (const QJsonValue track : conference[u"tracks"].toArray()) {
        builder.AddTrack(track[u"name"].toString(), track[u"color"].toString());
    }
    for (const QJsonValue room : conference[u"rooms"].toArray()) {
        builder.AddRoom(room[u"name"].toString());
    }
    for (const QJsonValue day : conference[u"days"].toArray()) {
        if (progress.IsCanceled()) {
            throw PlanCanceled();
        }
        builder.AddDay(day[u"date"].toString(), 0);
        const QJsonObject rooms = day[u"rooms"].toObject();
        for (const QString &room : RoomsOf(rooms, text)) {
            builder.AddRoom(room);
            for (const QJsonValue event : rooms[room].toArray()) {
                AddTalk(builder, room, event.toObject());
            }
        }
    }
    if (!builder.HasDays()) {
        throw PlanRefusal(0, PlannerText::tr("a programme without days"));
    }
    return builder.Finish();
}

} // namespace korvane::planner
