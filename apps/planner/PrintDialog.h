// Page setup beside a preview.
#pragma once

#include <QDialog>
#include <QTimer>

#include <memory>

class QComboBox;
class QLabel;

namespace korvane {
class TzuPrintPreview;
}

namespace korvane::planner {

class PrintForm;
class PrintJob;

/// Shows how the job will look while its options are changed, prints it, and exports it into a
/// file. The options are remembered for the job's file.
class PrintDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PrintDialog(std::unique_ptr<PrintJob> job, QWidget *parent = nullptr);
    ~PrintDialog() override;

    PrintJob &Job() { return *m_job; }
    TzuPrintPreview &Preview() { return *m_preview; }
    PrintForm &Form() { return *m_form; }
    /// Brings the preview up to date with the fields, as it is soon after each change.
    void ShowChanges();
    /// Saves the pages as the file's suffix says, with progress. What goes wrong is told to the
    /// user; false then, and when cancelled.
    bool ExportTo(const QString &fileName);

public Q_SLOTS:
    /// Asks for a printer.
    void Print();
    /// Asks for a file.
    void Export();
    void done(int result) override;

private:
    QWidget *MakeBar();
    void ShowPage();
    void ChooseZoom(int index);

    std::unique_ptr<PrintJob> m_job;
    PrintForm *m_form;
    TzuPrintPreview *m_preview;
    QComboBox *m_zoom = nullptr;
    QLabel *m_page = nullptr;
    QComboBox *m_resolution = nullptr;
    QTimer m_changes;
};

} // namespace korvane::planner
