#include "agenda/ProgrammeReader.h"

#include "agenda/LoadAttempt.h"
#include "agenda/ProgrammeBuilder.h"
#include "plan/FileText.h"
#include "plan/PlanXml.h"
#include "plan/PlannerText.h"

#include <QBuffer>
#include <QFileInfo>

namespace korvane::planner {

namespace {

class XmlProgramme
{
public:
    XmlProgramme(QIODevice &source, IProgress &progress)
        : m_xml(source, progress)
    {
    }

    Programme Read()
    {
        m_xml.EnterRoot();
        if (!m_xml.Is(u"schedule")) {
            throw PlanRefusal(m_xml.Line(), PlannerText::tr("not a conference programme"));
        }
        while (m_xml.NextChild()) {
            if (m_xml.Is(u"conference")) {
                ReadConference();
            } else if (m_xml.Is(u"day")) {
                ReadDay();
            } else {
                m_xml.Skip();
            }
        }
        if (!m_builder.HasDays()) {
            throw PlanRefusal(m_xml.Line(), PlannerText::tr("a programme without days"));
        }
        if (!m_xml.LeaveRoot()) {
            m_builder.Remark(m_xml.Line(),
                             PlannerText::tr("what follows the programme is ignored"));
        }
        return m_builder.Finish();
    }

private:
    void ReadConference()
    {
        while (m_xml.NextChild()) {
            if (m_xml.Is(u"title")) {
                m_builder.SetName(m_xml.Text().simplified());
            } else if (m_xml.Is(u"day_change")) {
                m_builder.SetDayChange(m_xml.Text());
            } else if (m_xml.Is(u"track")) {
                m_builder.AddTrack(m_xml.Attribute(u"name").toString(),
                                   m_xml.Attribute(u"color").toString());
                m_xml.Skip();
            } else {
                m_xml.Skip();
            }
        }
    }

    void ReadDay()
    {
        m_builder.AddDay(m_xml.Attribute(u"date").toString(), m_xml.Line());
        while (m_xml.NextChild()) {
            if (!m_xml.Is(u"room")) {
                m_xml.Skip();
                continue;
            }
            const QString room = m_xml.Attribute(u"name").toString();
            m_builder.AddRoom(room);
            while (m_xml.NextChild()) {
                if (m_xml.Is(u"event")) {
                    ReadTalk(room);
                } else {
                    m_xml.Skip();
                }
            }
        }
    }

    void ReadTalk(const QString &room)
    {
        const qint64 line = m_xml.Line();
        TalkTexts texts;
        texts.Room = room;
        ProgrammeTalk talk;
        const std::pair<QStringView, QString *> fields[] = {
            {u"date", &texts.Date},        {u"start", &texts.Start}, {u"duration", &texts.Duration},
            {u"track", &texts.Track},      {u"title", &talk.Title},  {u"subtitle", &talk.Subtitle},
            {u"abstract", &talk.Abstract}, {u"type", &talk.Type},    {u"language", &talk.Language},
        };
        while (m_xml.NextChild()) {
            const auto field =
                std::ranges::find_if(fields, [&](auto &entry) { return m_xml.Is(entry.first); });
            if (field != std::end(fields)) {
                *field->second = m_xml.Text().trimmed();
            } else if (m_xml.Is(u"persons")) {
                while (m_xml.NextChild()) {
                    talk.Persons.append(m_xml.Text().simplified());
                }
            } else {
                m_xml.Skip();
            }
        }
        m_builder.AddTalk(texts, std::move(talk), line);
    }

    PlanXml m_xml;
    ProgrammeBuilder m_builder;
};

bool IsJson(const QByteArray &head)
{
    return head.trimmed().startsWith('{');
}

} // namespace

Programme ReadProgrammeXml(const QByteArray &text, IProgress &progress)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return XmlProgramme(buffer, progress).Read();
}

bool IsProgrammeFile(const QString &fileName)
{
    const QByteArray head = HeadOfFile(fileName);
    if (IsJson(head)) {
        return head.contains("\"schedule\"");
    }
    const XmlRoot root = RootOf(head);
    return root.Name == u"schedule" && root.Namespace.isEmpty();
}

ProgrammeResult LoadProgramme(const QString &fileName, IProgress &progress)
{
    return AttemptLoad<ProgrammeResult>([&](ProgrammeResult &result) {
        const QByteArray text = TextOfFile(fileName, progress);
        result.Value = IsJson(text.left(64)) ? ReadProgrammeJson(text, progress)
                                             : ReadProgrammeXml(text, progress);
        if (result.Value.Name.isEmpty()) {
            result.Value.Name = QFileInfo(fileName).completeBaseName();
        }
    });
}

} // namespace korvane::planner
