#include "scaler/qt/zuScalerAccessible.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuReport.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <array>
#include <exception>
#include <optional>

namespace korvane {

namespace {

struct TAction
{
    const char *Name;
    const char *Description;
    TScalerCommand Command;
};

constexpr const char *kContext = "TzuDateScaler";
constexpr std::array kActions{
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Zoom in"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows less time"), TScalerCommand::ZoomIn},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Zoom out"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows more time"), TScalerCommand::ZoomOut},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Scroll earlier"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows earlier times"), TScalerCommand::Earlier},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Scroll later"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows later times"), TScalerCommand::Later},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Page earlier"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows the time before"),
            TScalerCommand::PageEarlier},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Page later"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows the time after"), TScalerCommand::PageLater},
    TAction{QT_TRANSLATE_NOOP("TzuDateScaler", "Today"),
            QT_TRANSLATE_NOOP("TzuDateScaler", "Shows the present"), TScalerCommand::Today},
};

const TAction *FindAction(const QString &name)
{
    const auto found = std::ranges::find_if(
        kActions, [&](const TAction &action) { return name == QLatin1String(action.Name); });
    return found == kActions.end() ? nullptr : &*found;
}

/// The period in the user's language, by its days when it consists of whole ones.
QString PeriodText(TDateTime start, TDateTime stop)
{
    const QLocale locale;
    const bool days = TimeOf(start) == 0 && TimeOf(stop) == 0 && stop > start;
    const auto text = [&](TDateTime date) {
        const QDateTime moment = ToQDateTime(date);
        return days ? locale.toString(moment.date(), QLocale::ShortFormat)
                    : locale.toString(moment, QLocale::ShortFormat);
    };
    const QString from = text(start);
    const QString to = text(days ? stop - 1 : stop);
    return from == to ? from : from + QStringLiteral(" \u2013 ") + to;
}

QString VisibleTime(const TzuDateScaler &scaler)
{
    return PeriodText(scaler.GetStart(), scaler.GetStop() + scaler.HiddenSpan());
}

/// A period of the major row.
class TPeriodAccessible : public QAccessibleInterface
{
public:
    TPeriodAccessible(const TScalerAccessible &axis, int index)
        : m_axis(axis)
        , m_index(index)
    {
    }

    int Index() const { return m_index; }

    bool isValid() const override { return m_axis.isValid() && Mark() != nullptr; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_axis.window(); }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_axis.object());
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QRect rect() const override { return m_axis.PeriodRect(m_index); }
    QAccessible::Role role() const override { return QAccessible::StaticText; }
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}

    QString text(QAccessible::Text text) const override
    {
        const TScaleMark *mark = Mark();
        if (mark == nullptr) {
            return {};
        }
        if (text == QAccessible::Name && !mark->Text.empty()) {
            return ToQt(mark->Text);
        }
        const TTimePeriod period = m_axis.Scaler().PeriodAt(TScaleRow::Major, mark->Date);
        return text == QAccessible::Name || text == QAccessible::Description
                   ? PeriodText(period.Start, period.Stop)
                   : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.readOnly = true;
        state.invisible = !isValid() || rect().isEmpty();
        return state;
    }

private:
    const TScaleMark *Mark() const { return m_axis.PeriodMark(m_index); }

    const TScalerAccessible &m_axis; // owns this
    int m_index;
};

} // namespace

TScalerAccessible::TScalerAccessible(TzuDateScaler &scaler)
    : QAccessibleWidget(&scaler, QAccessible::Slider)
{
}

void *TScalerAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QString TScalerAccessible::text(QAccessible::Text text) const
{
    if (text == QAccessible::Value) {
        return VisibleTime(Scaler());
    }
    const QString own = QAccessibleWidget::text(text);
    return text == QAccessible::Name && own.isEmpty() ? VisibleTime(Scaler()) : own;
}

int TScalerAccessible::PixelAfter(int mark) const
{
    const TScaleMarkList &marks = Scaler().SecondaryMarks();
    const auto next = static_cast<std::size_t>(mark) + 1;
    return next < marks.size() ? marks[next].Pixel : Scaler().GetScaleLen();
}

TScalerAccessible::TMarkRange TScalerAccessible::VisibleMarks() const
{
    const TScaleMarkList &marks = Scaler().SecondaryMarks();
    TMarkRange range;
    const int count = static_cast<int>(marks.size());
    while (range.Begin < count && PixelAfter(range.Begin) <= 0) {
        ++range.Begin;
    }
    range.End = range.Begin;
    const int length = Scaler().GetScaleLen();
    while (range.End < count && marks[static_cast<std::size_t>(range.End)].Pixel < length) {
        ++range.End;
    }
    return range;
}

const TScaleMark *TScalerAccessible::PeriodMark(int index) const
{
    const TMarkRange visible = VisibleMarks();
    const int mark = visible.Begin + index;
    return index >= 0 && mark < visible.End
               ? &Scaler().SecondaryMarks()[static_cast<std::size_t>(mark)]
               : nullptr;
}

QRect TScalerAccessible::PeriodRect(int index) const
{
    const TScaleMark *mark = PeriodMark(index);
    if (mark == nullptr) {
        return {};
    }
    const TzuDateScaler &scaler = Scaler();
    const int from = std::max(mark->Pixel, 0);
    const int to = std::min(PixelAfter(VisibleMarks().Begin + index), scaler.GetScaleLen());
    const int near = scaler.RowOffset(TScaleRow::Major);
    const int far = scaler.RowOffset(TScaleRow::Minor);
    const QRect area = scaler.Horizontal() ? QRect(from, near, to - from, far - near)
                                           : QRect(near, from, far - near, to - from);
    return {scaler.mapToGlobal(area.topLeft()), area.size()};
}

int TScalerAccessible::childCount() const
{
    const TMarkRange visible = VisibleMarks();
    return visible.End - visible.Begin;
}

QAccessibleInterface *TScalerAccessible::child(int index) const
{
    return PeriodMark(index) == nullptr
               ? nullptr
               : m_periods.At(index, [this](int at) { return new TPeriodAccessible(*this, at); });
}

QAccessibleInterface *TScalerAccessible::childAt(int x, int y) const
{
    const int count = childCount();
    for (int index = 0; index < count; ++index) {
        if (PeriodRect(index).contains(x, y)) {
            return child(index);
        }
    }
    return nullptr;
}

int TScalerAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *period = dynamic_cast<const TPeriodAccessible *>(child);
    return period == nullptr ? -1 : period->Index();
}

QStringList TScalerAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    for (const TAction &action : kActions) {
        names << QLatin1String(action.Name);
    }
    return names;
}

QString TScalerAccessible::localizedActionName(const QString &name) const
{
    const TAction *action = FindAction(name);
    return action == nullptr ? QAccessibleWidget::localizedActionName(name)
                             : QCoreApplication::translate(kContext, action->Name);
}

QString TScalerAccessible::localizedActionDescription(const QString &name) const
{
    const TAction *action = FindAction(name);
    return action == nullptr ? QAccessibleWidget::localizedActionDescription(name)
                             : QCoreApplication::translate(kContext, action->Description);
}

void TScalerAccessible::doAction(const QString &name)
{
    const TAction *action = FindAction(name);
    if (action == nullptr) {
        QAccessibleWidget::doAction(name);
        return;
    }
    try {
        Scaler().Execute(action->Command);
    } catch (const std::exception &error) {
        Report(error.what());
    }
}

void TScalerAccessible::setCurrentValue(const QVariant &value)
{
    try {
        Scaler().MoveTo(value.toDouble());
    } catch (const std::exception &error) {
        Report(error.what());
    }
}

QVariant TScalerAccessible::maximumValue() const
{
    return LatestStop() - (Scaler().GetStop() - Scaler().GetStart());
}

void TellVisibleTime(TzuDateScaler &scaler)
{
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent value(&scaler, scaler.GetStart());
        QAccessible::updateAccessibility(&value);
        QAccessibleEvent name(&scaler, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&name);
    }
}

} // namespace korvane
