// What the steps of a schedule cost, from ten thousand to a million times: in a thousand columns,
// ten a day in each, in a window of 1400x900 pixels drawn offscreen that shows a day.
#include "schema/qt/zuSchema.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace korvane;

constexpr int kColumns = 1000;
constexpr int kTimesPerDay = 10;
constexpr TDateTime kFirstDay = 40000;

class TSchedule
{
public:
    explicit TSchedule(int times)
        : m_days(times / (kColumns * kTimesPerDay))
        , m_count(times)
    {
        m_schema.resize(1400, 900);
        m_schema.BeginUpdate();
        for (int column = 0; column < kColumns; ++column) {
            m_schema.AddColumn()->SetText("Room " + std::to_string(column));
        }
        for (int day = 0; day < m_days; ++day) {
            for (int column = 0; column < kColumns; ++column) {
                AddDay(column, kFirstDay + day);
            }
        }
        Show(kFirstDay + m_days / 2);
        m_schema.EndUpdate();
        m_schema.show();
        Settle();
    }

    TzuSchema &Schema() { return m_schema; }
    int Count() const { return m_count; }
    TDateTime MiddleDay() const { return kFirstDay + m_days / 2; }
    void Show(TDateTime start) { m_schema.DateScaler().SetRange(start, start + 1); }
    /// Handles everything that is due, paints included.
    static void Settle() { QCoreApplication::processEvents(); }

private:
    void AddDay(int column, TDateTime day)
    {
        for (int i = 0; i < kTimesPerDay; ++i) {
            TzuDataEntity_SchemaTime *time = m_schema.AddSchemaTime(0);
            time->SetCol(column);
            time->SetStartDateTime(day + (i + column % 3 * 0.2) / kTimesPerDay);
            time->SetStopDateTime(time->GetStartDateTime() + 0.12);
            time->SetColor(Rgb(90, 140, 200));
        }
    }

    TzuSchema m_schema;
    int m_days;
    int m_count;
};

/// Kept between benchmarks of one size, since a large schedule takes a while to build.
std::unique_ptr<TSchedule> &KeptSchedule()
{
    static std::unique_ptr<TSchedule> schedule;
    return schedule;
}

TSchedule &ScheduleOf(int times)
{
    std::unique_ptr<TSchedule> &schedule = KeptSchedule();
    if (schedule == nullptr || schedule->Count() != times) {
        schedule.reset();
        schedule = std::make_unique<TSchedule>(times);
    }
    return *schedule;
}

int SizeOf(const benchmark::State &state)
{
    return static_cast<int>(state.range(0));
}

void ScrollTime(benchmark::State &state)
{
    TSchedule &schedule = ScheduleOf(SizeOf(state));
    int step = 0;
    for (auto _ : state) {
        schedule.Show(schedule.MiddleDay() + 0.05 * (++step & 1));
        TSchedule::Settle();
    }
    schedule.Show(schedule.MiddleDay());
    TSchedule::Settle();
}

void ScrollColumns(benchmark::State &state)
{
    TSchedule &schedule = ScheduleOf(SizeOf(state));
    schedule.Schema().Columns().SetTopLeftCol(kColumns / 2);
    int step = 0;
    for (auto _ : state) {
        schedule.Schema().ScrollColumns((++step & 1) != 0 ? 1 : -1);
        TSchedule::Settle();
    }
}

void ZoomStep(benchmark::State &state)
{
    TSchedule &schedule = ScheduleOf(SizeOf(state));
    TzuDateScaler &scaler = schedule.Schema().DateScaler();
    int step = 0;
    for (auto _ : state) {
        scaler.ZoomAround((++step & 1) != 0 ? 1 : -1, scaler.GetScaleLen() / 2);
        TSchedule::Settle();
    }
    schedule.Show(schedule.MiddleDay());
    TSchedule::Settle();
}

/// A mouse that moves over times, with everything that follows.
void Hover(benchmark::State &state)
{
    TSchedule &schedule = ScheduleOf(SizeOf(state));
    QWidget &area = schedule.Schema().SchemaArea();
    int step = 0;
    for (auto _ : state) {
        step = (step + 37) % 800;
        const QPointF at(100 + step, 50 + step);
        QMouseEvent event(QEvent::MouseMove, at, area.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                          {});
        QCoreApplication::sendEvent(&area, &event);
    }
}

void ChangeOneTime(benchmark::State &state)
{
    TSchedule &schedule = ScheduleOf(SizeOf(state));
    auto &time = DataEntity_Schema(
        *schedule.Schema().DataLists().GetDataList(0)->GetItems(SizeOf(state) / 2));
    const TDateTime start = time.GetStartDateTime();
    int step = 0;
    for (auto _ : state) {
        time.SetStartDateTime(start + 0.01 * (++step & 1));
        TSchedule::Settle();
    }
}

void LoadAndFirstPaint(benchmark::State &state)
{
    for (auto _ : state) {
        auto schedule = std::make_unique<TSchedule>(SizeOf(state));
        state.PauseTiming();
        schedule.reset();
        state.ResumeTiming();
    }
    state.counters["per_time"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::pair<const char *, void (*)(benchmark::State &)> steps[] = {
        {"ScrollTime", ScrollTime}, {"ScrollColumns", ScrollColumns}, {"ZoomStep", ZoomStep},
        {"Hover", Hover},           {"ChangeOneTime", ChangeOneTime},
    };
    // By size, so that each schedule is built once.
    for (const int size : {10'000, 100'000, 1'000'000}) {
        for (const auto &[name, step] : steps) {
            benchmark::RegisterBenchmark(name, step)->Arg(size)->Unit(benchmark::kMicrosecond);
        }
    }
    for (const int size : {10'000, 100'000, 1'000'000}) {
        benchmark::RegisterBenchmark("LoadAndFirstPaint", LoadAndFirstPaint)
            ->Arg(size)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    KeptSchedule().reset(); // not after the application
    return 0;
}
