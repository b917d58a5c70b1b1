// How a document is printed, as the user chose it.
#pragma once

#include "printing/qt/zuPrinting.h"

#include <QDate>
#include <QMarginsF>
#include <QSizeF>
#include <QStringList>
#include <QTime>

#include <optional>
#include <utility>

class QSettings;

namespace korvane::planner {

struct PrintOptions
{
    QSizeF Paper{210, 297}; ///< millimetres, upright
    bool Landscape = true;
    QMarginsF Margins{12, 12, 12, 12}; ///< millimetres
    TPrintScaling Scaling{.Fit = TPrintFit::pfPages, .PagesAcross = 1, .PagesDown = 0};
    TPrintLine Header{"{title}", {}, "{date}"};
    TPrintLine Footer{"{file}", "{range}", "{page} / {pages}"};
    bool CropMarks = false;
    bool GlueMarks = false;

    // What not every document has; see PrintFeatures.

    /// The first and the last day; all of the time without.
    std::optional<std::pair<QDate, QDate>> Days;
    /// Times of day, the second one on the next day unless it is later; all of the day without.
    std::optional<std::pair<QTime, QTime>> Hours;
    /// The first and the last row, from 1; all of them without.
    std::optional<std::pair<int, int>> Rows;
    bool SelectionOnly = false;
    bool AxisAtBothEdges = false;
    bool RepeatHeadings = true;
    /// Label columns left out, by title.
    QStringList HiddenColumns;
};

/// Which of the options mean something for a document.
struct PrintFeatures
{
    /// The first and the last day to choose from.
    std::optional<std::pair<QDate, QDate>> Days;
    /// Where the day begins and ends.
    std::optional<std::pair<QTime, QTime>> Hours = {};
    int Rows = 0;          ///< how many there are to choose from; 0 for no choice
    QString RowsText;      ///< of the choice of rows
    QString SelectionText; ///< of the choice of what is selected
    QString AxisText;      ///< of the choice of a second axis
    bool Headings = false;
    QStringList Columns; ///< titles of label columns to choose from
};

/// The settings of a file, by its name; what is missing or makes no sense is as in `standard`.
PrintOptions LoadPrintOptions(const QString &fileName, const PrintOptions &standard);
/// What is selected is not kept: it is something else next time.
void SavePrintOptions(const QString &fileName, const PrintOptions &options);

/// Paper, texts, marks and scale.
void ApplyPrintOptions(const PrintOptions &options, TzuPrinting &printing);

} // namespace korvane::planner
