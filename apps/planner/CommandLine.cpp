#include "CommandLine.h"

#include "PictureFormat.h"
#include "plan/PlanDates.h"
#include "plan/PlanFile.h"
#include "plan/PlanSaver.h"
#include "plan/PlanSummary.h"
#include "plan/PlannerText.h"

#include <QCommandLineParser>
#include <QHash>
#include <QJsonDocument>

#include <cstdio>
#include <utility>

namespace korvane::planner {

namespace {

constexpr int kLeastSide = 100;
constexpr int kGreatestSide = 20'000;
constexpr double kLeastRatio = 0.25;
constexpr double kGreatestRatio = 8;
constexpr double kMostPixels = 4e8;
constexpr int kMostPages = 1000;
constexpr double kLeastPercent = 5;
constexpr double kMostPercent = 400;

QStringList Languages()
{
    return {QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("sv")};
}

struct Options
{
    QCommandLineOption Summary{QStringLiteral("summary"),
                               PlannerText::tr("Print the plan's figures as JSON and exit.")};
    QCommandLineOption Convert{
        QStringLiteral("convert"),
        PlannerText::tr("Write the plan as project XML (.xml or .xml.gz) and exit."),
        PlannerText::tr("output", "value of an option")};
    QCommandLineOption Render{
        QStringLiteral("render"),
        PlannerText::tr("Draw the plan into a .png, .pdf or .svg file and exit."),
        PlannerText::tr("picture", "value of an option")};
    QCommandLineOption Size{QStringLiteral("size"),
                            PlannerText::tr("Size of the picture in pixels, by default 1400x900."),
                            QStringLiteral("WxH")};
    QCommandLineOption View{
        QStringLiteral("view"),
        PlannerText::tr(
            "What the rows of picture or print are: tasks or resources; by default tasks for "
            "plans, resources for timetables and job traces."),
        PlannerText::tr("kind", "value of an option")};
    QCommandLineOption Table{
        QStringLiteral("table"),
        PlannerText::tr("Show the table of tasks beside the chart in picture or print.")};
    QCommandLineOption From{QStringLiteral("from"),
                            PlannerText::tr("First date or date-time in the picture, or of the "
                                            "occurrences to count (ISO 8601)."),
                            PlannerText::tr("date", "value of an option")};
    QCommandLineOption To{
        QStringLiteral("to"),
        PlannerText::tr("Where the picture, or what is counted, ends (ISO 8601)."),
        PlannerText::tr("date", "value of an option")};
    QCommandLineOption Ratio{QStringLiteral("dpr"),
                             PlannerText::tr("Device pixels per pixel of a .png picture."),
                             PlannerText::tr("ratio", "value of an option")};
    QCommandLineOption Print{QStringLiteral("print"),
                             PlannerText::tr("Print the plan or calendar into a .pdf file, or into "
                                             ".svg or .png files, one for each page, and exit."),
                             PlannerText::tr("pages", "value of an option")};
    QCommandLineOption Paper{QStringLiteral("paper"),
                             PlannerText::tr("Paper to print on: A0 to A6, letter, legal, tabloid, "
                                             "or WIDTHxHEIGHT in millimetres; by default A4."),
                             PlannerText::tr("size", "value of an option")};
    QCommandLineOption Landscape{QStringLiteral("landscape"),
                                 PlannerText::tr("Print on paper turned on its side.")};
    QCommandLineOption Fit{QStringLiteral("fit"),
                           PlannerText::tr("Pages to print on at most, ACROSSxDOWN; 0 for as many "
                                           "as it takes, by default 1x0 for plans, 0x1 for "
                                           "calendars."),
                           PlannerText::tr("pages", "value of an option")};
    QCommandLineOption Scale{
        QStringLiteral("scale"),
        PlannerText::tr("Print at so many percent of the size on screen, instead of --fit."),
        PlannerText::tr("percent", "value of an option")};
    QCommandLineOption Enlarge{QStringLiteral("enlarge"),
                               PlannerText::tr("Enlarge what is smaller than its pages.")};
    QCommandLineOption Rows{
        QStringLiteral("rows"),
        PlannerText::tr(
            "What a row stands for. Timetables (a folder or .zip of GTFS tables): block, "
            "route; by default blocks where trips name any. Job traces (.swf): node "
            "(default), partition, queue, user, group."),
        PlannerText::tr("kind", "value of an option")};
    QCommandLineOption Day{
        QStringLiteral("day"),
        PlannerText::tr("The service day of a timetable (ISO 8601). By default the week in which "
                        "most trips run is shown, every trip once, on its first day there."),
        PlannerText::tr("date", "value of an option")};
    QCommandLineOption Lang{
        QStringLiteral("lang"),
        PlannerText::tr("Language of texts, dates and numbers: %1; by default the user's.")
            .arg(Languages().join(QStringLiteral(", "))),
        PlannerText::tr("language", "value of an option")};
    QCommandLineOption Dark{QStringLiteral("dark"), PlannerText::tr("Use dark colours.")};
};

void PrintLine(std::FILE *stream, const QByteArray &text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stream);
    std::fputc('\n', stream);
}

/// Two whole numbers, not negative, with an x between them.
std::optional<QSize> ParsePair(const QString &text)
{
    const QStringList sides = text.toLower().split(u'x');
    bool isWidth = false;
    bool isHeight = false;
    const QSize size(sides.value(0).toInt(&isWidth), sides.value(1).toInt(&isHeight));
    return sides.size() == 2 && isWidth && isHeight && !size.isNull() && size.width() >= 0
                   && size.height() >= 0
               ? std::optional(size)
               : std::nullopt;
}

std::optional<QSize> ParseSize(const QString &text)
{
    const auto size = ParsePair(text);
    const auto fits = [](int side) { return side >= kLeastSide && side <= kGreatestSide; };
    return size && fits(size->width()) && fits(size->height()) ? size : std::nullopt;
}

/// In millimetres; the sizes of ISO 216 and of North America by name.
std::optional<QSize> ParsePaper(const QString &text)
{
    constexpr int kLeastMillimetres = 50;
    constexpr int kMostMillimetres = 5000;
    static const QHash<QString, QSize> kPapers = {
        {QStringLiteral("a0"), {841, 1189}},   {QStringLiteral("a1"), {594, 841}},
        {QStringLiteral("a2"), {420, 594}},    {QStringLiteral("a3"), {297, 420}},
        {QStringLiteral("a4"), {210, 297}},    {QStringLiteral("a5"), {148, 210}},
        {QStringLiteral("a6"), {105, 148}},    {QStringLiteral("letter"), {216, 279}},
        {QStringLiteral("legal"), {216, 356}}, {QStringLiteral("tabloid"), {279, 432}}};
    const auto known = kPapers.constFind(text.toLower());
    const auto size = known != kPapers.cend() ? std::optional(*known) : ParsePair(text);
    const auto fits = [](int side) {
        return side >= kLeastMillimetres && side <= kMostMillimetres;
    };
    return size && fits(size->width()) && fits(size->height()) ? size : std::nullopt;
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(PlannerText::tr(
        "Shows project plans, timetables and job traces as Gantt charts, calendars and "
        "conference programmes as schedules."));
    parser.addPositionalArgument(
        QStringLiteral("file"),
        PlannerText::tr("The plan to open: a file, or a folder of GTFS tables."),
        QStringLiteral("[file]"));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const Options options;
    parser.addOptions({options.Rows, options.Day, options.Summary, options.Convert, options.Render,
                       options.View, options.Table, options.Print, options.Paper, options.Landscape,
                       options.Fit, options.Scale, options.Enlarge, options.Size, options.From,
                       options.To, options.Ratio, options.Lang, options.Dark});

    const bool isParsed = parser.parse(arguments);
    m_helpText =
        parser.helpText().replace(QLatin1String("<executable_name>"), QLatin1String("planner"));
    m_dark = parser.isSet(options.Dark);
    m_language = parser.value(options.Lang);
    const QStringList files = parser.positionalArguments();
    m_fileName = files.value(0);
    if (!isParsed) {
        m_action = Fail(parser.errorText());
    } else if (parser.isSet(help)) {
        m_action = Action::PrintHelp;
    } else if (parser.isSet(version)) {
        m_action = Action::PrintVersion;
    } else if (parser.isSet(options.Lang) && !Languages().contains(m_language)) {
        m_action = Fail(
            PlannerText::tr("--lang needs one of %1").arg(Languages().join(QStringLiteral(", "))));
    } else if (files.size() > 1) {
        m_action = Fail(PlannerText::tr("only one file can be opened"));
    } else if (ReadFileOptions(parser) == Action::ReportError) {
        m_action = Action::ReportError;
    } else if (parser.isSet(options.Render)) {
        m_action = m_fileName.isEmpty() ? Fail(PlannerText::tr("--render needs a file"))
                                        : ReadRequest(parser);
    } else if (parser.isSet(options.Print)) {
        m_action = m_fileName.isEmpty() ? Fail(PlannerText::tr("--print needs a file"))
                                        : ReadPrintRequest(parser);
    } else if (parser.isSet(options.Convert)) {
        m_output = parser.value(options.Convert);
        m_action = m_fileName.isEmpty() ? Fail(PlannerText::tr("--convert needs a file"))
                                        : Action::Convert;
    } else if (parser.isSet(options.Summary)) {
        m_action = m_fileName.isEmpty() ? Fail(PlannerText::tr("--summary needs a file"))
                                        : ReadRange(parser, Action::PrintSummary);
    }
}

QString CommandLine::LanguageIn(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(Options().Lang);
    parser.parse(arguments); // what else there is, is unknown to it and passed over
    const QString language = parser.value(QStringLiteral("lang"));
    return Languages().contains(language) ? language : QString();
}

CommandLine::Action CommandLine::Fail(const QString &error)
{
    m_error = error;
    return Action::ReportError;
}

/// Anything but ReportError when the options make sense.
CommandLine::Action CommandLine::ReadFileOptions(const QCommandLineParser &parser)
{
    static const QStringList kRows = {QStringLiteral("block"), QStringLiteral("route"),
                                      QStringLiteral("node"),  QStringLiteral("partition"),
                                      QStringLiteral("queue"), QStringLiteral("user"),
                                      QStringLiteral("group")};
    const Options options;
    m_reading.Rows = parser.value(options.Rows);
    if (parser.isSet(options.Rows) && !kRows.contains(m_reading.Rows)) {
        return Fail(
            PlannerText::tr("--rows needs one of %1").arg(kRows.join(QStringLiteral(", "))));
    }
    if (parser.isSet(options.Day)) {
        const auto day = ParseIsoDateTime(parser.value(options.Day));
        if (!day || !IsPlanDate(*day)) {
            return Fail(PlannerText::tr("--day needs a date like 2026-11-02, from 1900 to 4000"));
        }
        m_reading.Day = static_cast<int>(*day);
    }
    return m_action;
}

CommandLine::Action CommandLine::ReadRequest(const QCommandLineParser &parser)
{
    const Options options;
    m_request.Picture = parser.value(options.Render);
    if (!PictureFormatOf(m_request.Picture)) {
        return Fail(PlannerText::tr("--render needs a .png, .pdf or .svg file to write"));
    }
    if (!ReadView(parser)) {
        return Action::ReportError;
    }
    if (parser.isSet(options.Size)) {
        const auto size = ParseSize(parser.value(options.Size));
        if (!size) {
            return Fail(PlannerText::tr("--size needs WIDTHxHEIGHT, each from %1 to %2")
                            .arg(kLeastSide)
                            .arg(kGreatestSide));
        }
        m_request.Size = *size;
    }
    if (parser.isSet(options.Ratio)) {
        m_request.Ratio = parser.value(options.Ratio).toDouble();
        if (!(m_request.Ratio >= kLeastRatio && m_request.Ratio <= kGreatestRatio)) {
            return Fail(PlannerText::tr("--dpr needs a number from %1 to %2")
                            .arg(kLeastRatio)
                            .arg(kGreatestRatio));
        }
    }
    const double pixels = static_cast<double>(m_request.Size.width()) * m_request.Size.height()
                          * m_request.Ratio * m_request.Ratio;
    return pixels > kMostPixels ? Fail(PlannerText::tr("the picture would be too large"))
                                : ReadRange(parser, Action::RenderPicture);
}

/// False when the option makes no sense.
bool CommandLine::ReadView(const QCommandLineParser &parser)
{
    const Options options;
    if (parser.isSet(options.View)) {
        const QString view = parser.value(options.View);
        if (view != u"tasks" && view != u"resources") {
            Fail(PlannerText::tr("--view needs tasks or resources"));
            return false;
        }
        m_request.View = view == u"tasks" ? ViewKind::Tasks : ViewKind::Resources;
    }
    m_request.Table = parser.isSet(options.Table);
    if (m_request.Table && m_request.View == ViewKind::Resources) {
        Fail(PlannerText::tr("--table goes with --view tasks"));
        return false;
    }
    return true;
}

CommandLine::Action CommandLine::ReadPrintRequest(const QCommandLineParser &parser)
{
    const Options options;
    m_pages.File = parser.value(options.Print);
    if (!PictureFormatOf(m_pages.File)) {
        return Fail(PlannerText::tr("--print needs a .pdf, .svg or .png file to write"));
    }
    if (!ReadView(parser)) {
        return Action::ReportError;
    }
    if (parser.isSet(options.Paper)) {
        const auto paper = ParsePaper(parser.value(options.Paper));
        if (!paper) {
            return Fail(PlannerText::tr("--paper needs A0 to A6, letter, legal, tabloid, or "
                                        "WIDTHxHEIGHT in millimetres, each from 50 to 5000"));
        }
        m_pages.Paper = *paper;
    }
    m_pages.Landscape = parser.isSet(options.Landscape);
    if (parser.isSet(options.Fit)) {
        const auto pages = ParsePair(parser.value(options.Fit));
        if (!pages || pages->width() > kMostPages || pages->height() > kMostPages) {
            return Fail(
                PlannerText::tr("--fit needs ACROSSxDOWN, each from 0 to %1").arg(kMostPages));
        }
        m_pages.Pages = pages;
    }
    return ReadScale(parser) ? ReadRange(parser, Action::PrintPages) : Action::ReportError;
}

bool CommandLine::ReadScale(const QCommandLineParser &parser)
{
    const Options options;
    m_pages.Enlarge = parser.isSet(options.Enlarge);
    if (!parser.isSet(options.Scale)) {
        return true;
    }
    bool isNumber = false;
    const double percent = parser.value(options.Scale).toDouble(&isNumber);
    if (!isNumber || !(percent >= kLeastPercent && percent <= kMostPercent)) {
        Fail(PlannerText::tr("--scale needs percent, from %1 to %2")
                 .arg(kLeastPercent)
                 .arg(kMostPercent));
        return false;
    }
    if (m_pages.Pages || m_pages.Enlarge) {
        Fail(PlannerText::tr("--scale goes neither with --fit nor with --enlarge"));
        return false;
    }
    m_pages.Percent = percent;
    return true;
}

CommandLine::Action CommandLine::ReadRange(const QCommandLineParser &parser, Action action)
{
    const Options options;
    const std::pair<const QCommandLineOption *, std::optional<TDateTime> *> ends[] = {
        {&options.From, &m_request.From}, {&options.To, &m_request.To}};
    for (const auto &[option, end] : ends) {
        if (parser.isSet(*option)) {
            *end = ParseIsoDateTime(parser.value(*option));
            if (!*end || !IsPlanDate(**end)) {
                return Fail(PlannerText::tr("--%1 needs a date like 2026-11-02, from 1900 to 4000")
                                .arg(option->names().value(0)));
            }
        }
    }
    if (m_request.From && m_request.To && *m_request.From >= *m_request.To) {
        return Fail(PlannerText::tr("--from must lie before --to"));
    }
    return action;
}

void PrintError(const QString &line)
{
    PrintLine(stderr, "planner: " + line.toLocal8Bit());
}

std::optional<PlanResult> LoadOrPrintError(const QString &fileName, const ReadOptions &options)
{
    NoProgress progress;
    PlanResult result = LoadPlan(fileName, PlanReaders::Builtin(options), progress);
    if (result.Status != PlanStatus::Loaded) {
        PrintError(ErrorLine(fileName, result.Error));
        return std::nullopt;
    }
    return result;
}

ExitCode PrintSummary(const QString &fileName, const ReadOptions &options)
{
    const auto result = LoadOrPrintError(fileName, options);
    if (!result) {
        return ExitCode::UnusableFile;
    }
    PrintLine(stdout, QJsonDocument(Summarize(result->Value)).toJson(QJsonDocument::Compact));
    return ExitCode::Ok;
}

ExitCode Convert(const QString &fileName, const ReadOptions &options, const QString &output)
{
    const auto result = LoadOrPrintError(fileName, options);
    if (!result) {
        return ExitCode::UnusableFile;
    }
    if (const auto error = SavePlan(result->Value, result->Source.get(), output)) {
        PrintError(ErrorLine(output, {0, *error}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

} // namespace korvane::planner
