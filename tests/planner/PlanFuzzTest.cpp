#include "PlanText.h"
#include "plan/GanttProjectReader.h"
#include "plan/MspdiReader.h"

#include <random>

namespace korvane::planner::test {
namespace {

const QByteArray kGanttProject =
    "<project name='P'><calendars><day-types><default-week sun='1' sat='1'/></day-types>"
    "<date year='' month='12' date='25' type='HOLIDAY'/></calendars><tasks>"
    "<task id='1' name='A' start='2026-11-02' duration='5' "
    "complete='20'><notes><![CDATA[n]]></notes>"
    "<task id='2' name='B' start='2026-11-02' duration='2'><depend id='3' type='2' difference='1'/>"
    "</task></task><task id='3' meeting='true' start='2026-11-06' duration='0'/></tasks>"
    "<resources><resource id='0' name='R'/></resources>"
    "<allocations><allocation task-id='2' resource-id='0' load='50'/></allocations></project>";

QByteArray SamplePlan()
{
    QFile file(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// What a reader may rely on, whatever the bytes were.
void ExpectSound(const PlanResult &result)
{
    if (result.Status != PlanStatus::Loaded) {
        EXPECT_EQ(result.Status, PlanStatus::Refused);
        EXPECT_FALSE(result.Error.Reason.isEmpty());
        return;
    }
    const Plan &plan = result.Value;
    const int count = int(plan.Tasks.size());
    for (int i = 0; i < count; ++i) {
        const PlanTask &task = plan.Tasks[i];
        ASSERT_LT(task.Parent, i);
        ASSERT_EQ(task.Level, task.Parent < 0 ? 1 : plan.Tasks[task.Parent].Level + 1);
        if (task.Dates) {
            ASSERT_LE(task.Dates->Start, task.Dates->Finish);
            ASSERT_TRUE(IsPlanDate(task.Dates->Start) && IsPlanDate(task.Dates->Finish));
        }
    }
    for (const PlanLink &link : plan.Links) {
        ASSERT_TRUE(link.Predecessor >= 0 && link.Predecessor < count);
        ASSERT_TRUE(link.Successor >= 0 && link.Successor < count);
    }
    for (const PlanAssignment &assignment : plan.Assignments) {
        ASSERT_TRUE(assignment.Task >= 0 && assignment.Task < count);
        ASSERT_LT(assignment.Resource, int(plan.Resources.size()));
    }
    ASSERT_LT(plan.Calendar, int(plan.Calendars.size()));
}

/// Positions of the digits and of the names between angle brackets are hit more often than others.
QByteArray Mutated(QByteArray text, std::mt19937 &random)
{
    static constexpr char kBytes[] = "<>/&;\"'=0123456789-:TZ[]! \xFF\x80";
    const int changes = 1 + int(random() % 8);
    for (int i = 0; i < changes && !text.isEmpty(); ++i) {
        const auto at = qsizetype(random() % std::size_t(text.size()));
        const auto length = qsizetype(random() % 40);
        switch (random() % 6) {
        case 0:
            text[at] = char(random());
            break;
        case 1:
            text[at] = kBytes[random() % (sizeof kBytes - 1)];
            break;
        case 2:
            text.remove(at, length);
            break;
        case 3:
            text.insert(at, text.mid(qsizetype(random() % std::size_t(text.size())), length));
            break;
        case 4:
            // Other digits leave the document well-formed.
            for (qsizetype k = at; k < text.size() && k < at + 200; ++k) {
                if (text[k] >= '0' && text[k] <= '9' && random() % 4 == 0) {
                    text[k] = char('0' + random() % 10);
                }
            }
            break;
        default:
            if (random() % 8 == 0) {
                text.truncate(at);
            }
        }
    }
    return text;
}

template <typename Reader>
void Fuzz(const QByteArray &text, int rounds, unsigned seed)
{
    std::mt19937 random(seed);
    int loaded = 0;
    for (int i = 0; i < rounds; ++i) {
        const PlanResult result = ReadText(Reader(), Mutated(text, random));
        loaded += result.Status == PlanStatus::Loaded ? 1 : 0;
        ASSERT_NO_FATAL_FAILURE(ExpectSound(result)) << "round " << i;
    }
    // Both outcomes have to be met, or the changes are of the wrong size.
    EXPECT_GT(loaded, rounds / 20);
    EXPECT_LT(loaded, rounds);
}

TEST(PlanFuzz, ChangedProjectXmlIsLoadedSoundlyOrRefused)
{
    Fuzz<MspdiReader>(SamplePlan(), 400, 1);
}

TEST(PlanFuzz, ChangedGanttProjectIsLoadedSoundlyOrRefused)
{
    Fuzz<GanttProjectReader>(kGanttProject, 20'000, 2);
}

TEST(PlanFuzz, ChangedGzipIsLoadedSoundlyOrRefused)
{
    std::mt19937 random(3);
    const PlanFolder folder;
    const QByteArray packed = Gzip(SamplePlan());
    NoProgress progress;
    for (int i = 0; i < 300; ++i) {
        const QString path = folder.Write(u"plan.xml.gz"_s, Mutated(packed, random));
        ASSERT_NO_FATAL_FAILURE(ExpectSound(LoadPlan(path, PlanReaders::Builtin(), progress)));
    }
}

} // namespace
} // namespace korvane::planner::test
