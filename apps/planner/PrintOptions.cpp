#include "PrintOptions.h"

#include <QCryptographicHash>
#include <QPageSize>
#include <QSettings>

#include <algorithm>
#include <array>

namespace korvane::planner {

namespace {

constexpr int kMostPages = 99;

QString SettingsGroup(const QString &fileName)
{
    constexpr int kDigits = 16;
    return QStringLiteral("print/")
           + QString::fromLatin1(
               QCryptographicHash::hash(fileName.toUtf8(), QCryptographicHash::Sha1)
                   .toHex()
                   .left(kDigits));
}

struct TextKey
{
    const char *Key;
    std::string &Text;
};

std::array<TextKey, 6> TextsOf(PrintOptions &options)
{
    return {{{"headerLeft", options.Header.Left},
             {"headerCenter", options.Header.Center},
             {"headerRight", options.Header.Right},
             {"footerLeft", options.Footer.Left},
             {"footerCenter", options.Footer.Center},
             {"footerRight", options.Footer.Right}}};
}

struct FlagKey
{
    const char *Key;
    bool &Flag;
};

std::array<FlagKey, 6> FlagsOf(PrintOptions &options)
{
    return {{{"landscape", options.Landscape},
             {"enlarge", options.Scaling.Enlarge},
             {"cropMarks", options.CropMarks},
             {"glueMarks", options.GlueMarks},
             {"axisAtBothEdges", options.AxisAtBothEdges},
             {"repeatHeadings", options.RepeatHeadings}}};
}

} // namespace

PrintOptions LoadPrintOptions(const QString &fileName, const PrintOptions &standard)
{
    PrintOptions options = standard;
    QSettings settings;
    settings.beginGroup(SettingsGroup(fileName));
    const auto value = [&](const char *key, const QVariant &otherwise) {
        return settings.value(QLatin1String(key), otherwise);
    };
    const QSizeF paper = value("paper", options.Paper).toSizeF();
    options.Paper = paper.isValid() && !paper.isEmpty() ? paper : options.Paper;
    const QVariantList margins = value("margins", {}).toList();
    if (margins.size() == 4) {
        options.Margins = {margins[0].toDouble(), margins[1].toDouble(), margins[2].toDouble(),
                           margins[3].toDouble()};
    }
    for (const auto &[key, flag] : FlagsOf(options)) {
        flag = value(key, flag).toBool();
    }
    for (const auto &[key, text] : TextsOf(options)) {
        text = value(key, QString::fromStdString(text)).toString().toStdString();
    }
    TPrintScaling &scaling = options.Scaling;
    const int fit = value("fit", static_cast<int>(scaling.Fit)).toInt();
    scaling.Fit = static_cast<TPrintFit>(std::clamp(fit, 0, static_cast<int>(TPrintFit::pfPages)));
    scaling.Percent = std::clamp(value("percent", scaling.Percent).toDouble(), 5.0, 400.0);
    scaling.PagesAcross = std::clamp(value("across", scaling.PagesAcross).toInt(), 0, kMostPages);
    scaling.PagesDown = std::clamp(value("down", scaling.PagesDown).toInt(), 0, kMostPages);
    options.HiddenColumns = value("hiddenColumns", {}).toStringList();
    const QVariantList days = value("days", {}).toList();
    if (days.size() == 2 && days[0].toDate().isValid() && days[1].toDate().isValid()) {
        options.Days = std::minmax(days[0].toDate(), days[1].toDate());
    }
    const QVariantList hours = value("hours", {}).toList();
    if (hours.size() == 2 && hours[0].toTime().isValid() && hours[1].toTime().isValid()) {
        options.Hours.emplace(hours[0].toTime(), hours[1].toTime());
    }
    const QVariantList rows = value("rows", {}).toList();
    if (rows.size() == 2 && rows[0].toInt() > 0 && rows[1].toInt() > 0) {
        options.Rows = std::minmax(rows[0].toInt(), rows[1].toInt());
    }
    return options;
}

void SavePrintOptions(const QString &fileName, const PrintOptions &options)
{
    QSettings settings;
    settings.beginGroup(SettingsGroup(fileName));
    const auto set = [&](const char *key, const QVariant &value) {
        settings.setValue(QLatin1String(key), value);
    };
    PrintOptions kept = options;
    set("paper", kept.Paper);
    set("margins", QVariantList{kept.Margins.left(), kept.Margins.top(), kept.Margins.right(),
                                kept.Margins.bottom()});
    for (const auto &[key, flag] : FlagsOf(kept)) {
        set(key, flag);
    }
    for (const auto &[key, text] : TextsOf(kept)) {
        set(key, QString::fromStdString(text));
    }
    set("fit", static_cast<int>(kept.Scaling.Fit));
    set("percent", kept.Scaling.Percent);
    set("across", kept.Scaling.PagesAcross);
    set("down", kept.Scaling.PagesDown);
    set("hiddenColumns", kept.HiddenColumns);
    set("days", kept.Days ? QVariantList{kept.Days->first, kept.Days->second} : QVariantList());
    set("hours", kept.Hours ? QVariantList{kept.Hours->first, kept.Hours->second} : QVariantList());
    set("rows", kept.Rows ? QVariantList{kept.Rows->first, kept.Rows->second} : QVariantList());
}

void ApplyPrintOptions(const PrintOptions &options, TzuPrinting &printing)
{
    TPrintPaper &paper = printing.Paper();
    paper.Layout() = QPageLayout(QPageSize(options.Paper, QPageSize::Millimeter),
                                 options.Landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                                 options.Margins, QPageLayout::Millimeter);
    paper.Header() = options.Header;
    paper.Footer() = options.Footer;
    paper.SetCropMarks(options.CropMarks);
    paper.SetGlueMarks(options.GlueMarks);
    printing.Scaling() = options.Scaling;
}

} // namespace korvane::planner
