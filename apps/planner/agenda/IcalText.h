// The text of an iCalendar file, cut into its components and lines.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace korvane::planner {

class PlanRemarks;

/// One property or mark of a component; folded over several lines of the file, perhaps.
struct IcalLine
{
    qsizetype Begin = 0; ///< bytes from the beginning of the text
    qsizetype End = 0;   ///< behind the line's end
    qint64 Number = 0;   ///< 1-based
    QByteArray Name;     ///< in upper case, without parameters
};

/// A component that stands in a calendar, and the calendars themselves. What is nested in it is
/// part of it.
struct IcalComponent
{
    QByteArray Name; ///< in upper case, for example "VEVENT"
    qsizetype Begin = 0;
    qsizetype End = 0; ///< behind its last line
    qint64 Line = 0;   ///< of its first line, 1-based
    int Calendar = 0;  ///< index among the calendars of the file; kNoIndex outside of them
};

struct IcalParts
{
    std::vector<IcalComponent> Calendars;
    std::vector<IcalComponent> Components; ///< in the order of the file
};

/// What is to stand in the place of a piece of a text; an empty piece is a place between bytes.
struct IcalPiece
{
    qsizetype Begin = 0; ///< bytes from the beginning of the text
    qsizetype End = 0;
    QByteArray Text;
};

/// The text with its pieces replaced, which do not overlap. What is inserted at a place, in the
/// order given, comes before what the piece that begins there becomes.
QByteArray WithPieces(const QByteArray &text, std::vector<IcalPiece> pieces);

/// Finds the components. What stands outside the calendars and marks that do not match are remarked
/// on. Throws PlanRefusal when there is no calendar or the text ends within one.
IcalParts FindIcalParts(const QByteArray &text, PlanRemarks &remarks);

/// The lines of a component itself, without those of components nested in it, but with its first
/// and last one. Positions count from the beginning of `text`, a component's.
std::vector<IcalLine> IcalLinesOf(QByteArrayView text);

/// The line without its folds and its end.
QByteArray Unfolded(QByteArrayView line);
/// Folded at 75 bytes, never within a character, and with the given line end.
QByteArray Folded(const QByteArray &line, const QByteArray &lineEnd);
/// Where the value of an unfolded line begins; behind its end when it has none.
qsizetype ValueOf(const QByteArray &unfolded);

} // namespace korvane::planner
