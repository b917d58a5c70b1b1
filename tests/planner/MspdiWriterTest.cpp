#include "PlanCompare.h"
#include "PlanText.h"
#include "plan/GanttProjectReader.h"
#include "plan/GzipDevice.h"
#include "plan/MspdiReader.h"
#include "plan/MspdiWriter.h"
#include "plan/PlanSaver.h"

#include <QDir>
#include <QMap>
#include <QSet>
#include <QStringEncoder>
#include <QXmlStreamReader>

#include <functional>

namespace korvane::planner::test {
namespace {

constexpr TDateTime kHour = 1.0 / 24;

QByteArray Written(const Plan &plan, const QByteArray &source = {})
{
    PlanSourceRecorder recorder;
    recorder.Add(source.constData(), source.size());
    const auto kept = recorder.Finish();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto error = WriteMspdi(plan, source.isEmpty() ? nullptr : kept.get(), buffer);
    EXPECT_EQ(error.value_or(QString()), QString());
    return buffer.data();
}

using Edit = std::function<void(Plan &)>;

/// Takes a task and what refers to it out of the plan.
void Remove(Plan &plan, int task)
{
    const auto shift = [task](int &index) { index -= index > task ? 1 : 0; };
    std::erase_if(plan.Links, [task](const PlanLink &link) {
        return link.Predecessor == task || link.Successor == task;
    });
    std::erase_if(plan.Assignments,
                  [task](const PlanAssignment &item) { return item.Task == task; });
    plan.Tasks.erase(plan.Tasks.begin() + task);
    for (PlanTask &other : plan.Tasks) {
        shift(other.Parent);
    }
    for (PlanLink &link : plan.Links) {
        shift(link.Predecessor);
        shift(link.Successor);
    }
    for (PlanAssignment &item : plan.Assignments) {
        shift(item.Task);
    }
}

/// Dates of the plan as a whole follow from those of its tasks.
void UpdateExtremes(Plan &plan)
{
    plan.LeastStart.reset();
    plan.GreatestFinish.reset();
    for (const PlanTask &task : plan.Tasks) {
        if (task.Dates) {
            plan.LeastStart =
                std::min(task.Dates->Start, plan.LeastStart.value_or(task.Dates->Start));
            plan.GreatestFinish =
                std::max(task.Dates->Finish, plan.GreatestFinish.value_or(task.Dates->Finish));
        }
    }
}

/// Texts of all elements that the plan knows nothing of, by the item and the element; a plain walk
/// that shares nothing with the writer.
QMap<QString, QStringList> UnknownTexts(const QByteArray &text)
{
    static const QMap<QString, QSet<QString>> kKnown{
        {u"Task"_s,
         {u"ID"_s,
          u"Name"_s,
          u"WBS"_s,
          u"OutlineNumber"_s,
          u"OutlineLevel"_s,
          u"Start"_s,
          u"Finish"_s,
          u"Duration"_s,
          u"ManualStart"_s,
          u"ManualFinish"_s,
          u"ManualDuration"_s,
          u"DurationFormat"_s,
          u"Manual"_s,
          u"Notes"_s,
          u"PercentComplete"_s,
          u"ActualStart"_s,
          u"ActualFinish"_s,
          u"ActualDuration"_s,
          u"RemainingDuration"_s,
          u"Stop"_s,
          u"Resume"_s,
          u"PredecessorLink"_s,
          u"Summary"_s}},
        {u"Assignment"_s, {u"Start"_s, u"Finish"_s, u"TimephasedData"_s}}};
    QMap<QString, QStringList> texts;
    QStringList path;
    QString item;
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            path.append(xml.name().toString());
            if (path.size() == 3) {
                item.clear();
            }
        } else if (xml.isEndElement()) {
            path.removeLast();
        } else if (xml.isCharacters() && !xml.isWhitespace()) {
            const QString kind = path.value(2);
            if (path.size() == 4 && path.last() == u"UID") {
                item = kind + xml.text().toString();
            }
            if (path.size() < 4 || !kKnown.value(kind).contains(path[3])) {
                texts[item].append(path.join(u'/') + u'=' + xml.text().toString());
            }
        }
    }
    return texts;
}

/// Reads, edits, writes, reads; the second plan is the edited one.
QByteArray ExpectKept(const QByteArray &text, const Edit &edit)
{
    Plan plan = Loaded<MspdiReader>(text);
    edit(plan);
    UpdateExtremes(plan);
    const QByteArray written = Written(plan, text);
    EXPECT_EQ(Difference(plan, Loaded<MspdiReader>(written)), "") << written.toStdString();
    return written;
}

// A plan with blank rows, unknown elements, comments, an outline, links of all sorts, and CRLF.
const QByteArray kText = QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- made elsewhere -->
<Project xmlns="http://schemas.microsoft.com/project" xmlns:x="urn:x">
  <Title>Works</Title>
  <StartDate>2026-11-02T08:00:00</StartDate>
  <Unheard a="1>2"><![CDATA[<of>]]> &amp; kept</Unheard>
  <ExtendedAttributes>
    <ExtendedAttribute><FieldID>188744016</FieldID><Alias>Mine</Alias></ExtendedAttribute>
  </ExtendedAttributes>
  <Tasks>
    <Task><UID>0</UID><ID>0</ID><Name>Summary</Name></Task>
    <Task>
      <UID>10</UID><ID>1</ID>
      <Name>Phase</Name>
      <WBS>1</WBS>
      <OutlineNumber>1</OutlineNumber>
      <OutlineLevel>1</OutlineLevel>
      <Start>2026-11-02T08:00:00</Start>
      <Finish>2026-11-06T17:00:00</Finish>
      <Summary>1</Summary>
    </Task>
    <Task>
      <UID>11</UID>
      <ID>2</ID>
      <Name>Dig</Name>
      <WBS>own.code</WBS>
      <OutlineNumber>1.1</OutlineNumber>
      <OutlineLevel>2</OutlineLevel>
      <Start>2026-11-02T08:00:00</Start>
      <Finish>2026-11-03T17:00:00</Finish>
      <Duration>PT16H0M0S</Duration>
      <x:Foreign><UID>99</UID></x:Foreign>
      <Cost>17.5</Cost>
      <!-- about the notes -->
      <Notes>Mind the pipes</Notes>
      <Unheard/>
    </Task>
    <!-- a blank row -->
    <Task><UID>20</UID><ID>3</ID><IsNull>1</IsNull></Task>
    <Task>
      <UID>12</UID>
      <ID>4</ID>
      <Name>Build</Name>
      <WBS>1.2</WBS>
      <OutlineNumber>1.2</OutlineNumber>
      <OutlineLevel>2</OutlineLevel>
      <Start>2026-11-04T08:00:00</Start>
      <Finish>2026-11-06T17:00:00</Finish>
      <PredecessorLink>
        <PredecessorUID>11</PredecessorUID>
        <Type>1</Type>
        <CrossProject>0</CrossProject>
        <LinkLag>4800</LinkLag>
        <LagFormat>9</LagFormat>
      </PredecessorLink>
      <PredecessorLink><PredecessorUID>77</PredecessorUID></PredecessorLink>
      <Baseline><Number>1</Number><Cost>3</Cost><Start>2026-11-03T08:00:00</Start><Finish>2026-11-05T17:00:00</Finish></Baseline>
    </Task>
    <Task><UID>13</UID><Name>Open</Name><OutlineLevel>1</OutlineLevel><Start>2026-11-06T17:00:00</Start><Finish>2026-11-06T17:00:00</Finish><Milestone>1</Milestone></Task>
  </Tasks>
  <Resources>
    <Resource><UID>1</UID><Name>Ann</Name><Cost>5</Cost></Resource>
    <Resource><UID>2</UID><Name>Bob</Name></Resource>
  </Resources>
  <Assignments>
    <Assignment><UID>1</UID><TaskUID>11</TaskUID><ResourceUID>1</ResourceUID><Units>1</Units><Cost>2</Cost></Assignment>
    <Assignment><UID>2</UID><TaskUID>12</TaskUID><ResourceUID>1</ResourceUID></Assignment>
    <Assignment><UID>3</UID><TaskUID>12</TaskUID><ResourceUID>2</ResourceUID></Assignment>
  </Assignments>
</Project>
)")
                             .replace("\n", "\r\n");

enum : int { kPhase, kDig, kBuild, kOpen };

TEST(MspdiWriter, AnUnchangedPlanIsWrittenToTheByte)
{
    EXPECT_EQ(ExpectKept(kText, [](Plan &) {}), kText.chopped(2) + '\n');
    // Without line breaks, with a prefix, with a byte order mark.
    const QByteArray dense = "<p:Project xmlns:p='http://schemas.microsoft.com/project'><p:Tasks>"
                             "<p:Task><p:UID>1</p:UID></p:Task></p:Tasks></p:Project>";
    EXPECT_EQ(ExpectKept("\xEF\xBB\xBF" + dense, [](Plan &) {}), dense + '\n');
}

TEST(MspdiWriter, EditsComeBackAndLeaveTheRest)
{
    struct Case
    {
        const char *What;
        Edit Change;
        bool AreUnknownTextsKept = true;
    };
    const std::vector<Case> cases{
        {"renamed",
         [](Plan &plan) {
             plan.Tasks[kDig].Name = u"A < B & \"C\" ]]> Ü 挖 😀"_s;
             plan.Resources[1].Name = u"<Bob>"_s;
         },
         false},
        {"moved",
         [](Plan &plan) {
             plan.Tasks[kDig].Dates = PlanSpan{46'336 + 9 * kHour, 46'338};
         }},
        {"to the second",
         [](Plan &plan) {
             plan.Tasks[kDig].Dates = PlanSpan{*ParseIsoDateTime(u"2026-11-02T08:00:01"),
                                               *ParseIsoDateTime(u"2026-11-02T08:07:59")};
         }},
        {"notes with line breaks and entities",
         [](Plan &plan) { plan.Tasks[kDig].Notes = u"a\n\tb\r\nc &lt; <d> 'e' \"f\""_s; }},
        {"notes removed", [](Plan &plan) { plan.Tasks[kDig].Notes.clear(); }},
        {"half done", [](Plan &plan) { plan.Tasks[kBuild].PercentComplete = 50; }},
        {"done", [](Plan &plan) { plan.Tasks[kBuild].PercentComplete = 100; }},
        {"by hand", [](Plan &plan) { plan.Tasks[kBuild].Manual = true; }},
        {"other lag",
         [](Plan &plan) {
             plan.Links[0].Lag = {-90.5, PlanLagUnit::WorkingMinutes};
         }},
        {"other unit of lag",
         [](Plan &plan) {
             plan.Links[0].Lag = {25, PlanLagUnit::Percent};
         }},
        {"other type", [](Plan &plan) { plan.Links[0].Type = PlanLinkType::StartToFinish; }},
        {"links added",
         [](Plan &plan) {
             plan.Links.insert(plan.Links.begin(),
                               {kPhase, kBuild, {30, PlanLagUnit::ElapsedMinutes}});
             plan.Links.push_back({kBuild, kOpen, {}, PlanLinkType::StartToStart});
             plan.Links.push_back({kBuild, kOpen, {}, PlanLinkType::FinishToFinish});
         }},
        {"link removed", [](Plan &plan) { plan.Links.clear(); }},
        {"limits",
         [](Plan &plan) {
             plan.Tasks[kOpen].Deadline = 46'340.5;
             plan.Tasks[kOpen].Constraint = PlanConstraint::MustFinishOn;
             plan.Tasks[kOpen].ConstraintDate = 46'330.25;
             plan.Tasks[kOpen].Baseline = PlanSpan{46'330, 46'331};
         },
         false},
        {"baseline changed", [](Plan &plan) { plan.Tasks[kBuild].Baseline->Finish += 1; }, false},
        {"baseline removed", [](Plan &plan) { plan.Tasks[kBuild].Baseline.reset(); }, false},
        {"looks",
         [](Plan &plan) {
             plan.Tasks[kDig].Color = TColor(0x00204060);
             plan.Tasks[kPhase].Collapsed = true;
         },
         false},
        {"split",
         [](Plan &plan) {
             PlanTask &task = plan.Tasks[kBuild];
             const TDateTime day = std::floor(task.Dates->Start);
             task.Dates->Finish = day + 9 + 17 * kHour;
             task.Parts = {{task.Dates->Start, day + 17 * kHour},
                           {day + 2 + 8 * kHour, day + 5 + 12 * kHour},
                           {day + 8 + 13 * kHour, task.Dates->Finish}};
         }},
        {"split of a task without assignments",
         [](Plan &plan) {
             PlanTask &task = plan.Tasks[kOpen];
             task.Milestone = false;
             task.Dates = PlanSpan{46'329 + 8 * kHour, 46'331 + 17 * kHour};
             task.Parts = {{task.Dates->Start, 46'329 + 17 * kHour},
                           {46'331 + 8 * kHour, task.Dates->Finish}};
         },
         false},
        {"assignments",
         [](Plan &plan) {
             plan.Assignments[0].Units = 0.5;
             plan.Assignments.push_back({kOpen, 1, 2});
             std::erase_if(plan.Assignments,
                           [](const PlanAssignment &item) { return item.Task == kBuild; });
         },
         false},
        {"resources",
         [](Plan &plan) {
             plan.Resources.push_back({3, u"Cy"_s});
             plan.Assignments.push_back({kOpen, 2, 1});
             plan.Resources[0].Name = u"Anne"_s;
         },
         false},
        {"project",
         [](Plan &plan) {
             plan.Name = u"Other"_s;
             plan.Start = 46'000;
             plan.Finish = 47'000;
         },
         false},
        {"calendar",
         [](Plan &plan) {
             WorkCalendar::Week week = WorkCalendar::OfficeWeek();
             week[0] = DayTimes::WholeDay();
             week[1] = DayTimes({{0, 100}, {1300, 1440}});
             plan.Calendars = {{1, u"Own"_s,
                                WorkCalendar(week, {{46'330, 46'340, DayTimes()},
                                                    {46'350, 46'350, DayTimes({{60, 120}})}})}};
             plan.Calendar = 0;
         },
         false},
    };
    for (const Case &item : cases) {
        SCOPED_TRACE(item.What);
        const QByteArray written = ExpectKept(kText, item.Change);
        if (item.AreUnknownTextsKept) {
            EXPECT_EQ(UnknownTexts(written), UnknownTexts(kText));
        }
        for (const char *kept :
             {"<!-- made elsewhere -->", "<![CDATA[<of>]]> &amp; kept", "<!-- about the notes -->",
              "<!-- a blank row -->", "<x:Foreign><UID>99</UID></x:Foreign>", "<Unheard/>",
              "<Alias>Mine</Alias>"}) {
            EXPECT_TRUE(written.contains(kept)) << kept;
        }
    }
}

TEST(MspdiWriter, ADeletedTaskTakesItsAssignmentsAndLinksAlong)
{
    const QByteArray written = ExpectKept(kText, [](Plan &plan) { Remove(plan, kDig); });
    EXPECT_FALSE(written.contains("<UID>11</UID>"));
    EXPECT_FALSE(written.contains("<TaskUID>11</TaskUID>"));
    EXPECT_FALSE(written.contains("<PredecessorUID>11</PredecessorUID>"));
    EXPECT_TRUE(written.contains("<UID>20</UID><ID>2</ID>")) << "the blank row moves up";
    EXPECT_TRUE(written.contains("<OutlineNumber>1.1</OutlineNumber>"));
    EXPECT_TRUE(written.contains("<PredecessorUID>77</PredecessorUID>"));
}

TEST(MspdiWriter, NewTasksStandInTheOutline)
{
    const auto insert = [](Plan &plan) {
        PlanTask task = plan.Tasks[kBuild];
        task.Uid = 30;
        task.Name = u"Paint"_s;
        task.Parent = 1;
        task.Level = 3;
        plan.Tasks[kDig].HasChildren = true;
        plan.Tasks[kDig].MarkedSummary = true;
        plan.Tasks.insert(plan.Tasks.begin() + kBuild, task);
        for (PlanLink &link : plan.Links) {
            ++link.Successor;
        }
        for (PlanAssignment &item : plan.Assignments) {
            item.Task += item.Task >= kBuild ? 1 : 0;
        }
        plan.Links.push_back({kBuild, kBuild + 1, {}});
        plan.Tasks.back().Parent = 0;
        plan.Tasks.back().Level = 2;
    };
    const QByteArray written = ExpectKept(kText, insert);
    for (const char *part : {"<OutlineNumber>1.1.1</OutlineNumber>", "<WBS>own.code</WBS>",
                             "<PredecessorUID>30</PredecessorUID>", "<ID>5</ID>"}) {
        EXPECT_TRUE(written.contains(part)) << part;
    }
    // Indented like its neighbours.
    EXPECT_TRUE(written.contains("\r\n    <Task>\r\n      <UID>30</UID>\r\n      <ID>"))
        << written.toStdString();
}

TEST(MspdiWriter, TasksMayChangePlacesAndParents)
{
    const auto reorder = [](Plan &plan) {
        std::rotate(plan.Tasks.begin(), plan.Tasks.begin() + kOpen, plan.Tasks.end());
        for (PlanTask &task : plan.Tasks) {
            task.Parent += task.Parent == kNoIndex ? 0 : 1;
        }
        for (PlanLink &link : plan.Links) {
            ++link.Predecessor;
            ++link.Successor;
        }
        for (PlanAssignment &item : plan.Assignments) {
            ++item.Task;
        }
        PlanTask &build = plan.Tasks[kBuild + 1];
        build.Parent = 2;
        build.Level = 3;
        plan.Tasks[2].HasChildren = true;
        plan.Tasks[2].MarkedSummary = true;
    };
    ExpectKept(kText, reorder);
}

TEST(MspdiWriter, TextsThatXmlCannotHoldAreCleaned)
{
    Plan plan = Loaded<MspdiReader>(kText);
    plan.Tasks[kDig].Name = u"a"_s + QChar(0x01) + QChar(0xD800) + u"b"_s + QChar(0xFFFE);
    plan.Tasks[kDig].Notes = u"c"_s + QChar(0x0B) + QChar(0) + u"d"_s;
    const Plan again = Loaded<MspdiReader>(Written(plan, kText));
    EXPECT_EQ(again.Tasks[kDig].Name, u"a\uFFFDb"_s);
    EXPECT_EQ(again.Tasks[kDig].Notes, u"cd"_s);
}

TEST(MspdiWriter, OddUidsStayUntilSomethingRefersToThem)
{
    const QByteArray text =
        "<Project xmlns='http://schemas.microsoft.com/project'><Tasks>"
        "<Task><UID>5</UID><Name>a</Name><X>1</X></Task><Task><Name>b</Name><X>2</X></Task>"
        "<Task><UID>5</UID><Name>c</Name><X>3</X></Task></Tasks></Project>";
    EXPECT_EQ(ExpectKept(text, [](Plan &) {}), text + '\n');
    Plan plan = Loaded<MspdiReader>(text);
    plan.Links = {{1, 0, {}}, {2, 1, {}}};
    const Plan again = Loaded<MspdiReader>(Written(plan, text));
    ASSERT_EQ(again.Links.size(), 2U);
    EXPECT_EQ(again.Links[0].Predecessor, 1);
    EXPECT_EQ(again.Links[1].Predecessor, 2);
    // A task that is used twice keeps what the plan does not know of each.
    plan = Loaded<MspdiReader>(text);
    std::swap(plan.Tasks[0], plan.Tasks[1]);
    EXPECT_TRUE(Written(plan, text).contains("<Name>b</Name><X>2</X>"));
}

TEST(MspdiWriter, EncodingsBecomeUtf8)
{
    const QString text = u"<?xml version='1.0' encoding='%1'?><Project><Title>Größe</Title>"
                         "<Tasks/></Project>"_s;
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    for (const QByteArray &bytes :
         {text.arg(u"ISO-8859-1"_s).toLatin1(), QByteArray(utf16(text.arg(u"UTF-16"_s)))}) {
        EXPECT_TRUE(ExpectKept(bytes, [](Plan &) {})
                        .contains("encoding=\"UTF-8\"?><Project><Title>Gr\xC3\xB6\xC3\x9F"
                                  "e<"));
    }
}

TEST(MspdiWriter, APlanOfAnotherFormatBecomesAWholeDocument)
{
    const QByteArray text =
        "<project name='House'><calendars><day-types><default-week sun='1' mon='0' tue='0' wed='0' "
        "thu='0' fri='0' sat='1'/></day-types><date year='2026' month='12' date='25'/></calendars>"
        "<tasks><task id='0' name='A' color='#99ccff' start='2026-11-02' duration='3' "
        "complete='40' expand='false'><notes>&lt;n&gt;</notes><task id='1' name='B' "
        "start='2026-11-02' duration='2'><depend id='2' type='2' difference='1'/></task></task>"
        "<task id='2' name='C' meeting='true' start='2026-11-06' duration='0'/></tasks>"
        "<resources><resource id='0' name='Ann'/></resources><allocations><allocation task-id='0' "
        "resource-id='0' load='50'/></allocations></project>";
    Plan plan = Loaded<GanttProjectReader>(text);
    const QByteArray written = Written(plan);
    const Plan again = Loaded<MspdiReader>(written);
    EXPECT_TRUE(again.Remarks.IsEmpty()) << AllRemarks(again);
    // Numbers that the format cannot use are others now, and the project has dates.
    plan.Start = again.Start;
    plan.Finish = again.Finish;
    plan.Tasks[0].Uid = again.Tasks[0].Uid;
    plan.Resources[0].Uid = again.Resources[0].Uid;
    plan.Calendars[0].Uid = again.Calendars[0].Uid;
    plan.Calendars[0].Name = again.Calendars[0].Name;
    EXPECT_EQ(Difference(plan, again), "") << written.toStdString();
    EXPECT_EQ(Written(again, written), written);
}

class PlanRoundTrip : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString folder = qEnvironmentVariable("KORVANE_DATA", u"/nowhere"_s);
        if (!QDir(folder).exists()) {
            GTEST_SKIP() << "KORVANE_DATA names no folder";
        }
        for (const QString &name : {u"/mspdi"_s, u"/ganttproject"_s}) {
            const QDir dir(folder + name);
            for (const QString &file :
                 dir.entryList({u"*.xml"_s, u"*.xml.gz"_s, u"*.gan"_s}, QDir::Files)) {
                m_paths.append(dir.filePath(file));
            }
        }
        EXPECT_FALSE(m_paths.isEmpty());
    }

    static PlanResult Load(const QString &path)
    {
        NoProgress progress;
        PlanResult result = LoadPlan(path, PlanReaders::Builtin(), progress);
        EXPECT_EQ(result.Status, PlanStatus::Loaded) << path.toStdString();
        return result;
    }
    QString Saved(const PlanResult &result, const QString &name) const
    {
        const QString path = m_folder.Path(name);
        EXPECT_EQ(SavePlan(result.Value, result.Source.get(), path).value_or(QString()), QString());
        return path;
    }
    static QByteArray Content(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return GzipDevice::IsGzip(file.peek(2)) ? GzipDevice(file).readAll() : file.readAll();
    }

    QStringList m_paths;
    PlanFolder m_folder;
};

TEST_F(PlanRoundTrip, EveryPlanIsReadBackAsItWas)
{
    for (const QString &path : m_paths) {
        SCOPED_TRACE(path.toStdString());
        PlanResult result = Load(path);
        const QString copy = Saved(result, path.endsWith(u".gz") ? u"a.xml.gz"_s : u"a.xml"_s);
        const PlanResult again = Load(copy);
        if (result.Source != nullptr) {
            EXPECT_EQ(UnknownTexts(Content(copy)), UnknownTexts(Content(path)));
        } else {
            result.Value.Start = again.Value.Start;
            result.Value.Finish = again.Value.Finish;
            for (std::size_t i = 0; i < result.Value.Tasks.size(); ++i) {
                result.Value.Tasks[i].Uid = again.Value.Tasks.at(i).Uid;
            }
            for (std::size_t i = 0; i < result.Value.Resources.size(); ++i) {
                result.Value.Resources[i].Uid = again.Value.Resources.at(i).Uid;
            }
            result.Value.Calendars[0].Uid = again.Value.Calendars.at(0).Uid;
            result.Value.Calendars[0].Name = again.Value.Calendars.at(0).Name;
        }
        EXPECT_EQ(Difference(result.Value, again.Value), "");
    }
}

/// Every third task is moved by a day, renamed and moved on, every fifth one goes.
TEST_F(PlanRoundTrip, EditsOfEveryPlanComeBack)
{
    for (const QString &path : m_paths) {
        SCOPED_TRACE(path.toStdString());
        PlanResult result = Load(path);
        if (result.Source == nullptr) {
            continue;
        }
        Plan &plan = result.Value;
        const QByteArray source = Content(path);
        auto unknown = UnknownTexts(source);
        for (int task = static_cast<int>(plan.Tasks.size()); task-- > 0;) {
            PlanTask &item = plan.Tasks[task];
            if (task % 3 == 0 && item.Dates) {
                item.Name = (u"<&> "_s + item.Name).simplified();
                item.Dates = PlanSpan{item.Dates->Start + 7, item.Dates->Finish + 7};
                item.PercentComplete = 30;
                for (PlanSpan &part : item.Parts) {
                    part = {part.Start + 7, part.Finish + 7};
                }
            } else if (task % 5 == 0 && !item.HasChildren) {
                unknown.remove(u"Task"_s + QString::number(item.Uid));
                const bool wasLast =
                    item.Parent != kNoIndex
                    && std::ranges::count(plan.Tasks, item.Parent, &PlanTask::Parent) == 1;
                if (wasLast) {
                    plan.Tasks[item.Parent].HasChildren = false;
                }
                Remove(plan, task);
            }
        }
        UpdateExtremes(plan);
        const PlanResult again = Load(Saved(result, u"b.xml"_s));
        plan.LeastStart = again.Value.LeastStart; // also of tasks with a start alone
        plan.GreatestFinish = again.Value.GreatestFinish;
        // A summary task without dates of its own spans its subtasks.
        for (std::size_t i = 0; i < std::min(plan.Tasks.size(), again.Value.Tasks.size()); ++i) {
            if (plan.Tasks[i].HasChildren) {
                plan.Tasks[i].Dates = again.Value.Tasks[i].Dates;
            }
        }
        EXPECT_EQ(Difference(plan, again.Value), "");
        const auto present = UnknownTexts(Content(m_folder.Path(u"b.xml"_s)));
        for (auto item = unknown.begin(); item != unknown.end(); ++item) {
            if (item.key().startsWith(u"Task") || item.key().startsWith(u"Resource")) {
                EXPECT_EQ(present[item.key()], item.value()) << item.key().toStdString();
            }
        }
    }
}

} // namespace
} // namespace korvane::planner::test
