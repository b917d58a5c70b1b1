#include "PrintForm.h"

#include "PrintOptions.h"
#include "plan/PlannerText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPageSize>
#include <QSpinBox>
#include <QTimeEdit>

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

constexpr int kMostPages = 99;
constexpr QPageSize::PageSizeId kPapers[] = {
    QPageSize::A6, QPageSize::A5, QPageSize::A4,     QPageSize::A3,    QPageSize::A2,
    QPageSize::A1, QPageSize::A0, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

bool IsSize(QSizeF a, QSizeF b)
{
    return std::abs(a.width() - b.width()) < 1 && std::abs(a.height() - b.height()) < 1;
}

QDoubleSpinBox *Millimetres(double value, double least, double most)
{
    auto *field = new QDoubleSpinBox;
    field->setDecimals(0);
    field->setRange(least, most);
    field->setValue(value);
    field->setSuffix(PlannerText::tr(" mm"));
    field->setKeyboardTracking(false);
    return field;
}

} // namespace

PrintForm::PrintForm(const PrintOptions &options, const PrintFeatures &features, QWidget *parent)
    : QTabWidget(parent)
{
    addTab(PaperPage(options), tr("Pap&er"));
    const bool choices = features.Days || features.Hours || features.Rows > 0
                         || !features.SelectionText.isEmpty() || !features.AxisText.isEmpty()
                         || !features.Columns.isEmpty();
    if (choices) {
        addTab(ContentPage(options, features), tr("Co&ntent"));
    }
    addTab(TextPage(options), tr("Texts and mar&ks"));
}

QCheckBox *PrintForm::AddCheck(QFormLayout &form, const QString &text, bool checked)
{
    auto *check = new QCheckBox(text);
    check->setChecked(checked);
    connect(check, &QCheckBox::toggled, this, &PrintForm::changed);
    form.addRow(check);
    return check;
}

QSpinBox *PrintForm::AddCount(QWidget &row, int value, int least, int most)
{
    auto *field = new QSpinBox;
    field->setRange(least, most);
    field->setValue(value);
    field->setKeyboardTracking(false);
    connect(field, &QSpinBox::valueChanged, this, &PrintForm::changed);
    row.layout()->addWidget(field);
    return field;
}

QWidget *PrintForm::PaperPage(const PrintOptions &options)
{
    constexpr double kLeastSide = 50;
    constexpr double kMostSide = 5000;
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    m_paper = new QComboBox;
    int chosen = -1;
    for (const QPageSize::PageSizeId id : kPapers) {
        const QSizeF size = QPageSize::size(id, QPageSize::Millimeter);
        chosen = chosen < 0 && IsSize(size, options.Paper) ? m_paper->count() : chosen;
        m_paper->addItem(QPageSize::name(id), size);
    }
    m_paper->addItem(tr("Other size"));
    m_paper->setCurrentIndex(chosen < 0 ? m_paper->count() - 1 : chosen);
    form->addRow(tr("Si&ze:"), m_paper);
    m_width = Millimetres(options.Paper.width(), kLeastSide, kMostSide);
    m_height = Millimetres(options.Paper.height(), kLeastSide, kMostSide);
    form->addRow(tr("&Width:"), m_width);
    form->addRow(tr("&Height:"), m_height);
    m_orientation = new QComboBox;
    m_orientation->addItems({tr("Portrait"), tr("Landscape")});
    m_orientation->setCurrentIndex(options.Landscape ? 1 : 0);
    form->addRow(tr("&Orientation:"), m_orientation);
    AddMargins(*form, options);
    AddScaling(*form, options);
    connect(m_paper, &QComboBox::currentIndexChanged, this, &PrintForm::ShowPaperFields);
    for (QDoubleSpinBox *field : {m_width, m_height}) {
        connect(field, &QDoubleSpinBox::valueChanged, this, &PrintForm::changed);
    }
    connect(m_orientation, &QComboBox::currentIndexChanged, this, &PrintForm::changed);
    ShowPaperFields();
    return page;
}

void PrintForm::AddMargins(QFormLayout &form, const PrintOptions &options)
{
    constexpr double kMost = 100;
    const double values[] = {options.Margins.left(), options.Margins.top(), options.Margins.right(),
                             options.Margins.bottom()};
    const QString names[] = {tr("Left margin"), tr("Top margin"), tr("Right margin"),
                             tr("Bottom margin")};
    auto *across = new QHBoxLayout;
    auto *down = new QHBoxLayout;
    for (std::size_t i = 0; i < m_margins.size(); ++i) {
        m_margins[i] = Millimetres(values[i], 0, kMost);
        m_margins[i]->setAccessibleName(names[i]);
        m_margins[i]->setToolTip(names[i]);
        connect(m_margins[i], &QDoubleSpinBox::valueChanged, this, &PrintForm::changed);
        (i % 2 == 0 ? across : down)->addWidget(m_margins[i]);
    }
    const auto add = [&form](const QString &text, QHBoxLayout *row) {
        auto *label = new QLabel(text);
        label->setBuddy(row->itemAt(0)->widget());
        form.addRow(label, row);
    };
    add(tr("Margins &left, right:"), across);
    add(tr("top, &bottom:"), down);
}

void PrintForm::AddScaling(QFormLayout &form, const PrintOptions &options)
{
    constexpr double kLeastPercent = 5;
    constexpr double kMostPercent = 400;
    const TPrintScaling &scaling = options.Scaling;
    m_fit = new QComboBox;
    // In the order of TPrintFit.
    m_fit->addItems({tr("Percent of the screen's"), tr("Fit to one page's width"),
                     tr("Fit to one page's height"), tr("Fit to pages")});
    m_fit->setCurrentIndex(static_cast<int>(scaling.Fit));
    form.addRow(tr("&Scale:"), m_fit);
    m_percent = new QDoubleSpinBox;
    m_percent->setDecimals(0);
    m_percent->setRange(kLeastPercent, kMostPercent);
    m_percent->setValue(scaling.Percent);
    m_percent->setSuffix(QStringLiteral(" %"));
    m_percent->setKeyboardTracking(false);
    form.addRow(tr("Pe&rcent:"), m_percent);
    m_pages = new QWidget;
    auto *row = new QHBoxLayout(m_pages);
    row->setContentsMargins(0, 0, 0, 0);
    m_across = AddCount(*m_pages, scaling.PagesAcross, 0, kMostPages);
    row->addWidget(new QLabel(tr("by")));
    m_down = AddCount(*m_pages, scaling.PagesDown, 0, kMostPages);
    m_across->setAccessibleName(tr("Pages across, at most"));
    m_down->setAccessibleName(tr("Pages down, at most"));
    for (QSpinBox *field : {m_across, m_down}) {
        field->setSpecialValueText(tr("any"));
        field->setToolTip(field->accessibleName());
    }
    auto *label = new QLabel(tr("Pages, &up to:"));
    label->setBuddy(m_across);
    form.addRow(label, m_pages);
    m_enlarge = AddCheck(form, tr("Enlar&ge as well"), scaling.Enlarge);
    connect(m_fit, &QComboBox::currentIndexChanged, this, &PrintForm::ShowScalingFields);
    connect(m_percent, &QDoubleSpinBox::valueChanged, this, &PrintForm::changed);
    ShowScalingFields();
}

void PrintForm::ShowPaperFields()
{
    const QSizeF size = m_paper->currentData().toSizeF();
    const bool other = !m_paper->currentData().isValid();
    m_width->setEnabled(other);
    m_height->setEnabled(other);
    if (!other) {
        const QSignalBlocker width(m_width);
        const QSignalBlocker height(m_height);
        m_width->setValue(size.width());
        m_height->setValue(size.height());
    }
    Q_EMIT changed();
}

void PrintForm::ShowScalingFields()
{
    const auto fit = static_cast<TPrintFit>(m_fit->currentIndex());
    m_percent->setEnabled(fit == TPrintFit::pfPercent);
    m_pages->setEnabled(fit == TPrintFit::pfPages);
    m_enlarge->setEnabled(fit != TPrintFit::pfPercent);
    Q_EMIT changed();
}

QWidget *PrintForm::ContentPage(const PrintOptions &options, const PrintFeatures &features)
{
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    if (features.Days) {
        AddDays(*form, options, features);
    }
    if (features.Hours) {
        AddHours(*form, options, features);
    }
    if (features.Rows > 0) {
        AddRows(*form, options, features);
    }
    if (!features.SelectionText.isEmpty()) {
        m_selection = AddCheck(*form, features.SelectionText, options.SelectionOnly);
    }
    if (!features.AxisText.isEmpty()) {
        m_axisAtBothEdges = AddCheck(*form, features.AxisText, options.AxisAtBothEdges);
    }
    if (features.Headings) {
        m_headings =
            AddCheck(*form, tr("Repeat &headings of groups on every page"), options.RepeatHeadings);
    }
    if (!features.Columns.isEmpty()) {
        m_columns = new QListWidget;
        for (const QString &title : features.Columns) {
            auto *item = new QListWidgetItem(title, m_columns);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
            item->setCheckState(options.HiddenColumns.contains(title) ? Qt::Unchecked
                                                                      : Qt::Checked);
        }
        connect(m_columns, &QListWidget::itemChanged, this, &PrintForm::changed);
        constexpr int kMostShown = 9;
        m_columns->setMaximumHeight((m_columns->sizeHintForRow(0) + 1)
                                        * std::min(m_columns->count() + 1, kMostShown)
                                    + 2 * m_columns->frameWidth());
        m_columns->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        form->addRow(tr("Co&lumns:"), m_columns);
    }
    return page;
}

void PrintForm::AddDays(QFormLayout &form, const PrintOptions &options,
                        const PrintFeatures &features)
{
    m_someDays = AddCheck(form, tr("&Days from, to:"), options.Days.has_value());
    const auto [from, to] = options.Days.value_or(*features.Days);
    m_from = new QDateEdit(from);
    m_to = new QDateEdit(to);
    m_from->setAccessibleName(tr("First day"));
    m_to->setAccessibleName(tr("Last day"));
    m_from->setCalendarPopup(true);
    m_to->setCalendarPopup(true);
    AddEnds(form, *m_someDays, {m_from, m_to});
}

void PrintForm::AddHours(QFormLayout &form, const PrintOptions &options,
                         const PrintFeatures &features)
{
    m_someHours = AddCheck(form, tr("Times of &day from, to:"), options.Hours.has_value());
    const auto [from, to] = options.Hours.value_or(*features.Hours);
    m_fromHour = new QTimeEdit(from);
    m_toHour = new QTimeEdit(to);
    // Seconds mean nothing on paper.
    const QString format = locale().timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss"));
    m_fromHour->setDisplayFormat(format);
    m_toHour->setDisplayFormat(format);
    m_fromHour->setAccessibleName(tr("Begins at"));
    m_toHour->setAccessibleName(tr("Ends at"));
    AddEnds(form, *m_someHours, {m_fromHour, m_toHour});
}

/// In a row below the check box that enables them.
void PrintForm::AddEnds(QFormLayout &form, QCheckBox &check, std::array<QDateTimeEdit *, 2> ends)
{
    auto *row = new QHBoxLayout;
    for (QDateTimeEdit *field : ends) {
        field->setEnabled(check.isChecked());
        field->setKeyboardTracking(false);
        row->addWidget(field);
        connect(&check, &QCheckBox::toggled, field, &QWidget::setEnabled);
        connect(field, &QDateTimeEdit::dateTimeChanged, this, &PrintForm::changed);
    }
    form.addRow(row);
}

void PrintForm::AddRows(QFormLayout &form, const PrintOptions &options,
                        const PrintFeatures &features)
{
    m_someRows = AddCheck(form, features.RowsText, options.Rows.has_value());
    auto *row = new QWidget;
    (new QHBoxLayout(row))->setContentsMargins(0, 0, 0, 0);
    row->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    const auto [first, last] = options.Rows.value_or(std::pair(1, features.Rows));
    m_firstRow = AddCount(*row, first, 1, features.Rows);
    m_lastRow = AddCount(*row, last, 1, features.Rows);
    m_firstRow->setAccessibleName(tr("The first one"));
    m_lastRow->setAccessibleName(tr("The last one"));
    row->setEnabled(options.Rows.has_value());
    connect(m_someRows, &QCheckBox::toggled, row, &QWidget::setEnabled);
    form.addRow(row);
}

QWidget *PrintForm::TextPage(const PrintOptions &options)
{
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    const std::pair<QString, const std::string &> texts[] = {
        {tr("Header &left:"), options.Header.Left}, {tr("cen&tre:"), options.Header.Center},
        {tr("ri&ght:"), options.Header.Right},      {tr("&Footer left:"), options.Footer.Left},
        {tr("cent&re:"), options.Footer.Center},    {tr("rig&ht:"), options.Footer.Right}};
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        m_texts[i] = new QLineEdit(QString::fromStdString(texts[i].second));
        connect(m_texts[i], &QLineEdit::textChanged, this, &PrintForm::changed);
        form->addRow(texts[i].first, m_texts[i]);
    }
    auto *fields = new QLabel(
        tr("{title}, {file}, {date}, {time}, {range}, {page} and {pages} are filled in."));
    fields->setWordWrap(true);
    form->addRow(fields);
    m_cropMarks = AddCheck(*form, tr("Cr&op marks"), options.CropMarks);
    m_glueMarks = AddCheck(*form, tr("Marks for gl&uing pages together"), options.GlueMarks);
    return page;
}

PrintOptions PrintForm::Options() const
{
    const auto checked = [](const QCheckBox *box, bool otherwise) {
        return box != nullptr ? box->isChecked() : otherwise;
    };
    const auto text = [this](std::size_t i) { return m_texts[i]->text().toStdString(); };
    PrintOptions options;
    options.Paper = {m_width->value(), m_height->value()};
    options.Landscape = m_orientation->currentIndex() == 1;
    options.Margins = {m_margins[0]->value(), m_margins[1]->value(), m_margins[2]->value(),
                       m_margins[3]->value()};
    options.Scaling = {.Fit = static_cast<TPrintFit>(m_fit->currentIndex()),
                       .Percent = m_percent->value(),
                       .PagesAcross = m_across->value(),
                       .PagesDown = m_down->value(),
                       .Enlarge = m_enlarge->isChecked()};
    options.Header = {text(0), text(1), text(2)};
    options.Footer = {text(3), text(4), text(5)};
    options.CropMarks = m_cropMarks->isChecked();
    options.GlueMarks = m_glueMarks->isChecked();
    if (checked(m_someDays, false)) {
        options.Days = std::minmax(m_from->date(), m_to->date());
    }
    if (checked(m_someHours, false)) {
        options.Hours.emplace(m_fromHour->time(), m_toHour->time());
    }
    if (checked(m_someRows, false)) {
        options.Rows = std::minmax(m_firstRow->value(), m_lastRow->value());
    }
    options.SelectionOnly = checked(m_selection, false);
    options.AxisAtBothEdges = checked(m_axisAtBothEdges, false);
    options.RepeatHeadings = checked(m_headings, true);
    for (int i = 0; m_columns != nullptr && i < m_columns->count(); ++i) {
        if (m_columns->item(i)->checkState() == Qt::Unchecked) {
            options.HiddenColumns.append(m_columns->item(i)->text());
        }
    }
    return options;
}

} // namespace korvane::planner
