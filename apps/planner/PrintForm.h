// The fields for how a document is printed.
#pragma once

#include <QTabWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDateTimeEdit;
class QDoubleSpinBox;
class QFormLayout;
class QLineEdit;
class QListWidget;
class QSpinBox;
class QTimeEdit;

namespace korvane::planner {

struct PrintFeatures;
struct PrintOptions;

/// Paper and scale, what is printed, and the texts around it, on a page each. Fields that mean
/// nothing for the document are not there.
class PrintForm : public QTabWidget
{
    Q_OBJECT

public:
    PrintForm(const PrintOptions &options, const PrintFeatures &features,
              QWidget *parent = nullptr);

    PrintOptions Options() const;

Q_SIGNALS:
    void changed();

private:
    QWidget *PaperPage(const PrintOptions &options);
    QWidget *ContentPage(const PrintOptions &options, const PrintFeatures &features);
    QWidget *TextPage(const PrintOptions &options);
    void AddMargins(QFormLayout &form, const PrintOptions &options);
    void AddScaling(QFormLayout &form, const PrintOptions &options);
    void AddDays(QFormLayout &form, const PrintOptions &options, const PrintFeatures &features);
    void AddHours(QFormLayout &form, const PrintOptions &options, const PrintFeatures &features);
    void AddEnds(QFormLayout &form, QCheckBox &check, std::array<QDateTimeEdit *, 2> ends);
    void AddRows(QFormLayout &form, const PrintOptions &options, const PrintFeatures &features);
    QCheckBox *AddCheck(QFormLayout &form, const QString &text, bool checked);
    QSpinBox *AddCount(QWidget &row, int value, int least, int most);
    void ShowPaperFields();
    void ShowScalingFields();

    QComboBox *m_paper = nullptr;
    QDoubleSpinBox *m_width = nullptr;
    QDoubleSpinBox *m_height = nullptr;
    QComboBox *m_orientation = nullptr;
    std::array<QDoubleSpinBox *, 4> m_margins{}; ///< left, top, right, bottom
    QComboBox *m_fit = nullptr;
    QDoubleSpinBox *m_percent = nullptr;
    QWidget *m_pages = nullptr;
    QSpinBox *m_across = nullptr;
    QSpinBox *m_down = nullptr;
    QCheckBox *m_enlarge = nullptr;
    QCheckBox *m_someDays = nullptr;
    QDateEdit *m_from = nullptr;
    QDateEdit *m_to = nullptr;
    QCheckBox *m_someHours = nullptr;
    QTimeEdit *m_fromHour = nullptr;
    QTimeEdit *m_toHour = nullptr;
    QCheckBox *m_someRows = nullptr;
    QSpinBox *m_firstRow = nullptr;
    QSpinBox *m_lastRow = nullptr;
    QCheckBox *m_selection = nullptr;
    QCheckBox *m_axisAtBothEdges = nullptr;
    QCheckBox *m_headings = nullptr;
    QListWidget *m_columns = nullptr;
    std::array<QLineEdit *, 6> m_texts{}; ///< header, then footer: left, centre, right
    QCheckBox *m_cropMarks = nullptr;
    QCheckBox *m_glueMarks = nullptr;
};

} // namespace korvane::planner
