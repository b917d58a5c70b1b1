#include "PlanText.h"
#include "plan/GzipDevice.h"
#include "plan/PlanFile.h"
#include "plan/XmlGuard.h"

#include <QStringEncoder>

#include <random>

namespace korvane::planner::test {
namespace {

const QByteArray kTinyPlan = "<Project xmlns='http://schemas.microsoft.com/project'><Tasks><Task>"
                             "<UID>1</UID><Name>Größe</Name></Task></Tasks></Project>";

PlanResult Load(const QString &path)
{
    NoProgress progress;
    return LoadPlan(path, PlanReaders::Builtin(), progress);
}

struct BadFile
{
    const char *Name;
    QByteArray Content;
    qint64 Line;
    const char *Reason;
};

QByteArray ManyAttributes()
{
    QByteArray text = "<Project>\n<a";
    for (int i = 0; i <= XmlGuard::kMaxAttributes; ++i) {
        text += " a" + QByteArray::number(i) + "=''";
    }
    return text + "/></Project>";
}

std::vector<BadFile> BadFiles()
{
    const QByteArray packed = Gzip(kTinyPlan);
    QByteArray damaged = packed;
    damaged[damaged.size() - 6] = char(damaged[damaged.size() - 6] ^ 0x55);
    return {
        {"empty.xml", "", 0, "the file is empty"},
        {"blank.xml", " \n \n", 3, "no XML element"},
        {"text.xml", "hello", 1, "not well-formed XML"},
        {"binary.xml", QByteArray("\x80\x00\x01\xFE\x93", 5), 1, "not well-formed XML"},
        {"binary.dat", QByteArray("\x80\x00\x01\xFE\x93", 5), 0, "not a plan of a known format"},
        {"cut.xml", kTinyPlan.left(90), 1, "the file ends too early"},
        {"cut.gan", "<project>\n<tasks>\n<task id='1'", 3, "the file ends too early"},
        {"tags.xml", "<Project>\n<Tasks>\n</Task></Project>", 3, "not well-formed XML"},
        {"entity.xml", "<Project>\n<Tasks>&nothing;</Tasks></Project>", 2, "not well-formed XML"},
        {"bomb.xml",
         "<?xml version='1.0'?>\n<!DOCTYPE P [\n<!ENTITY a 'ha'><!ENTITY b '&a;&a;'>]>"
         "<Project><Tasks>&b;</Tasks></Project>",
         2, "document type"},
        {"schema.xml", "\n<schedule/>", 2, "root element is <schedule>"},
        {"namespace.xml", "<Project xmlns='urn:other'><Tasks/></Project>", 1, "another schema"},
        {"build.xml", "<Project Sdk='x'/>", 0, "no <Tasks>"},
        {"pom.gan", "<project xmlns='http://maven.apache.org/POM/4.0.0'/>", 1,
         "without a namespace"},
        {"ant.gan", "<project name='ant'><target/></project>", 0, "no <tasks>"},
        {"deep.xml", "<Project>\n" + QByteArray("<a>").repeated(XmlGuard::kMaxDepth), 2, "nested"},
        {"attributes.xml", ManyAttributes(), 2, "attributes"},
        {"tag.xml", "<Project a='" + QByteArray(XmlGuard::kMaxTag, 'x') + "'/>", 1,
         "a tag of more"},
        {"cut.xml.gz", packed.left(packed.size() / 2), 0, "ends too early"},
        {"damaged.xml.gz", damaged, 0, "damaged"},
        {"empty.xml.gz", Gzip(""), 1, "no XML element"},
    };
}

TEST(PlanFile, RefusesUnusableFilesWithLineAndReason)
{
    const PlanFolder folder;
    for (const BadFile &bad : BadFiles()) {
        const PlanResult result = Load(folder.Write(QString::fromUtf8(bad.Name), bad.Content));
        EXPECT_EQ(result.Status, PlanStatus::Refused) << bad.Name;
        EXPECT_EQ(result.Error.Line, bad.Line) << bad.Name;
        EXPECT_TRUE(result.Error.Reason.contains(QString::fromUtf8(bad.Reason)))
            << bad.Name << ": " << result.Error.Reason.toStdString();
    }
    EXPECT_EQ(Load(folder.Path()).Error.Reason, u"a folder, not a file");
    EXPECT_EQ(Load(folder.Path(u"none.xml"_s)).Error.Reason, u"no such file");
}

TEST(PlanFile, TellsFormatsByContentBeforeTheName)
{
    const PlanFolder folder;
    const QByteArray gantt = "<?xml version='1.0'?><!-- -->\n<project><tasks/></project>";
    const std::pair<QString, QByteArray> cases[] = {
        {u"plan.xml"_s, kTinyPlan},
        {u"plan"_s, kTinyPlan},
        {u"plan.gan"_s, kTinyPlan},
        {u"plan.xml"_s, gantt},
        {u"plan.bin"_s, gantt},
        {u"plan.xml.gz"_s, Gzip(kTinyPlan)},
        {u"plan.xml"_s, Gzip(gantt)},
        {u"plan.xml"_s, "<!--" + QByteArray(9000, ' ') + "-->" + kTinyPlan},
        {u"PLAN.XML"_s, "<!--" + QByteArray(9000, ' ') + "-->" + kTinyPlan},
    };
    for (const auto &[name, content] : cases) {
        const PlanResult result = Load(folder.Write(name, content));
        EXPECT_EQ(result.Status, PlanStatus::Loaded)
            << name.toStdString() << result.Error.Reason.toStdString();
    }
}

TEST(PlanFile, ReadsUtf16AndByteOrderMarks)
{
    const PlanFolder folder;
    using Flag = QStringConverter::Flag;
    QStringEncoder marked(QStringConverter::Utf16, Flag::WriteBom);
    QStringEncoder bigEndian(QStringConverter::Utf16BE, Flag::WriteBom);
    QStringEncoder unmarked(QStringConverter::Utf16LE);
    const QString text = QString::fromUtf8(kTinyPlan).replace(u"Größe"_s, u"\u4e3c\u3c3e"_s);
    for (const QByteArray &content :
         {QByteArray(marked(text)), QByteArray(bigEndian(text)), QByteArray(unmarked(text))}) {
        const PlanResult result = Load(folder.Write(u"plan.xml"_s, content));
        ASSERT_EQ(result.Status, PlanStatus::Loaded) << result.Error.Reason.toStdString();
        EXPECT_EQ(result.Value.Tasks.at(0).Name, u"\u4e3c\u3c3e");
    }
    const PlanResult utf8 = Load(folder.Write(u"plan.xml"_s, "\xEF\xBB\xBF" + kTinyPlan));
    EXPECT_EQ(utf8.Value.Tasks.at(0).Name, u"Größe"_s);
}

TEST(PlanFile, MarkupInsideTextsAndQuotesIsNoMarkup)
{
    // More of each than the limits allow, were they taken for elements.
    const QByteArray text =
        "<?xml version='1.0'?><?pi <a> ?><!DOCTYPE Project SYSTEM 'x[>]'>\n"
        "<Project a='>' b=\"'!--\" c='/'><!-- <a> - > <b ' --><Tasks><Task><UID>1</UID><Notes>"
        + QByteArray("<![CDATA[<a>]] ]>]]>").repeated(2000) + QByteArray("<a/>").repeated(3000)
        + QByteArray("<!--<a>-->").repeated(2000) + "' \" > </Notes></Task></Tasks></Project>";
    const PlanFolder folder;
    const PlanResult result = Load(folder.Write(u"tricky.xml"_s, text));
    EXPECT_EQ(result.Status, PlanStatus::Loaded) << result.Error.Reason.toStdString();
}

TEST(GzipDevice, JoinsMembersAndStopsAtTheLimit)
{
    const QByteArray big(300'000, 'k');
    QByteArray packed = Gzip("one ") + Gzip(big) + QByteArray(512, '\0');
    QBuffer buffer(&packed);
    buffer.open(QIODevice::ReadOnly);
    GzipDevice device(buffer);
    EXPECT_EQ(device.readAll(), "one " + big);

    buffer.seek(0);
    GzipDevice limited(buffer, 100'000);
    EXPECT_LE(limited.readAll().size(), 100'000);
    char byte = 0;
    EXPECT_EQ(limited.read(&byte, 1), -1);
    EXPECT_TRUE(limited.errorString().contains(u"after decompression"));
}

/// Cancels once that much has been read, and checks that the reports grow.
class CancelAfter final : public IProgress
{
public:
    explicit CancelAfter(qint64 limit)
        : m_limit(limit)
    {
    }

    void Report(qint64 done, qint64 total) override
    {
        EXPECT_GE(done, Done);
        EXPECT_LE(done, total);
        Done = done;
        Total = total;
    }
    bool IsCanceled() const override { return Done >= m_limit; }

    qint64 Done = 0;
    qint64 Total = 0;

private:
    qint64 m_limit = 0;
};

TEST(PlanFile, ReportsProgressAndEndsWhenCanceled)
{
    QByteArray text = "<Project><Tasks>";
    std::mt19937 random(11);
    for (int i = 1; i < 40'000; ++i) {
        text += "<Task><UID>" + QByteArray::number(random()) + "</UID></Task>";
    }
    text += "</Tasks></Project>";
    const PlanFolder folder;
    for (const QByteArray &content : {text, Gzip(text)}) {
        const QString path = folder.Write(u"plan.xml"_s, content);
        CancelAfter never(content.size() + 1);
        EXPECT_EQ(LoadPlan(path, PlanReaders::Builtin(), never).Status, PlanStatus::Loaded);
        EXPECT_EQ(never.Done, content.size());
        EXPECT_EQ(never.Total, content.size());

        CancelAfter halfway(content.size() / 2);
        EXPECT_EQ(LoadPlan(path, PlanReaders::Builtin(), halfway).Status, PlanStatus::Canceled);
        EXPECT_LT(halfway.Done, content.size());

        CancelAfter atOnce(0);
        EXPECT_EQ(LoadPlan(path, PlanReaders::Builtin(), atOnce).Status, PlanStatus::Canceled);
    }
}

TEST(PlanFile, AReaderAloneEndsWhenCanceled)
{
    QByteArray text =
        "<Project><Tasks>" + QByteArray("<Task/>").repeated(5000) + "</Tasks></Project>";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    CancelAfter atOnce(0);
    const PlanReaders readers = PlanReaders::Builtin();
    const IPlanReader *reader = readers.Find(text.left(4096), {});
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->Read(buffer, atOnce).Status, PlanStatus::Canceled);
}

TEST(PlanFile, ErrorsAreOneLine)
{
    EXPECT_EQ(ErrorLine(u"a\nb.xml"_s, {12, u"x\r\ny\x1b[0m"_s}), u"a b.xml:12: x  y [0m");
    EXPECT_EQ(ErrorLine(u"plan.xml"_s, {0, u"no such file"_s}), u"plan.xml: no such file");
}

TEST(PlanFile, TheDialogFilterNamesEveryFormat)
{
    EXPECT_EQ(PlanReaders::Builtin().DialogFilter(),
              u"All plans (*.xml *.xml.gz *.gan *.gan.gz *.zip trips.txt *.swf *.swf.gz);;"
              "Project XML (*.xml *.xml.gz);;GanttProject (*.gan *.gan.gz);;"
              "Timetable (*.zip trips.txt);;Job trace (*.swf *.swf.gz);;All files (*)");
}

} // namespace
} // namespace korvane::planner::test
