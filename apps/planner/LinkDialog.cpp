#include "LinkDialog.h"

#include "PlanEdits.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace korvane::planner {

namespace {

/// Shows no more decimals than there are.
class LagBox : public QDoubleSpinBox
{
public:
    QString textFromValue(double value) const override
    {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

QLabel *NewNameLabel(const QString &name)
{
    constexpr int kNameWidth = 320;
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(label->fontMetrics().elidedText(name, Qt::ElideRight, kNameWidth));
    label->setToolTip(name.toHtmlEscaped());
    return label;
}

} // namespace

LinkDialog::LinkDialog(PlanEdits &edits, int link, QWidget *parent)
    : QDialog(parent)
    , m_edits(edits)
    , m_link(link)
    , m_type(new QComboBox)
    , m_lag(new LagBox)
    , m_measure(new QComboBox)
{
    setWindowTitle(tr("Link properties"));
    for (const PlanLinkType type : kOfferedLinkTypes) {
        m_type->addItem(LinkTypeName(type), QVariant::fromValue(int(type)));
    }
    m_type->setCurrentIndex(m_type->findData(int(Link().Type)));
    MakeLag();
    auto *lag = new QHBoxLayout;
    lag->addWidget(m_lag, 1);
    lag->addWidget(m_measure);
    auto *form = new QFormLayout(this);
    const auto nameOf = [this](int task) {
        return NewNameLabel(QuotedName(m_edits.GetPlan().Tasks.at(std::size_t(task))));
    };
    form->addRow(tr("From"), nameOf(Link().Predecessor));
    form->addRow(tr("To"), nameOf(Link().Successor));
    form->addRow(tr("&Type"), m_type);
    auto *lagLabel = new QLabel(tr("&Lag"));
    lagLabel->setBuddy(m_lag);
    form->addRow(lagLabel, lag);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton *remove = buttons->addButton(tr("&Delete"), QDialogButtonBox::DestructiveRole);
    remove->setAutoDefault(false);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &LinkDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &LinkDialog::reject);
    connect(remove, &QPushButton::clicked, this, [this] {
        m_edits.RemoveLinks({m_link});
        QDialog::accept();
    });
    m_type->setFocus();
}

const PlanLink &LinkDialog::Link() const
{
    return m_edits.GetPlan().Links.at(static_cast<std::size_t>(m_link));
}

int LinkDialog::DayMinutes() const
{
    return m_edits.GetPlan().ProjectCalendar().DayMinutes();
}

void LinkDialog::MakeLag()
{
    constexpr double kMost = 1e6;
    for (int measure = 0; measure < kLagMeasures; ++measure) {
        m_measure->addItem(LagMeasureName(LagMeasure(measure)));
    }
    const ShownLag shown = ShownLagOf(Link().Lag, DayMinutes());
    m_measure->setCurrentIndex(int(shown.Measure));
    FitDecimals();
    // Not beyond what files hold, except where the lag is that already.
    m_lag->setRange(std::min(-kMost, shown.Number), std::max(kMost, shown.Number));
    m_lag->setValue(shown.Number);
    m_lag->setToolTip(tr("Negative where the tasks overlap."));
    connect(m_measure, &QComboBox::currentIndexChanged, this, &LinkDialog::FitDecimals);
}

void LinkDialog::FitDecimals()
{
    const auto measure = LagMeasure(m_measure->currentIndex());
    const bool isPercent = measure == LagMeasure::Percent || measure == LagMeasure::ElapsedPercent;
    const bool isMinutes = measure == LagMeasure::Minutes || measure == LagMeasure::ElapsedMinutes;
    m_lag->setDecimals(isPercent ? 0 : isMinutes ? 1 : 2);
}

void LinkDialog::accept()
{
    m_lag->interpretText();
    const PlanLag former = Link().Lag;
    const ShownLag shown = ShownLagOf(former, DayMinutes());
    const auto measure = LagMeasure(m_measure->currentIndex());
    const bool isTouched =
        measure != shown.Measure || m_lag->text() != m_lag->textFromValue(shown.Number);
    m_edits.ChangeLink(m_link, PlanLinkType(m_type->currentData().toInt()),
                       isTouched ? LagOf({m_lag->value(), measure}, DayMinutes()) : former);
    QDialog::accept();
}

} // namespace korvane::planner
