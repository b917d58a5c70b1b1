// File > Print and Print preview.
#pragma once

#include <QList>
#include <QObject>

#include <functional>
#include <memory>

class QAction;
class QMenu;
class QPrinter;
class QPrintPreviewDialog;

namespace korvane::planner {

class PrintJob;

/// Prints a document as it is shown at that time. Paper, orientation, margins and the number of
/// pages to fit on are remembered for each file.
class PrintActions : public QObject
{
    Q_OBJECT

public:
    /// Adds the actions to the menu. `makeJob` is called for each print; `window` is observed.
    PrintActions(QMenu &menu, std::function<std::unique_ptr<PrintJob>()> makeJob, QWidget &window);

    QList<QAction *> Actions() const { return m_actions; }

private:
    void Preview();
    void Print();
    void AddPageFields(QPrintPreviewDialog &dialog, PrintJob &job);
    /// Puts the print on the printer's paper; what goes wrong is told to the user.
    void PrintOn(QPrinter &printer, PrintJob &job, bool preview);
    void Restore(QPrinter &printer, PrintJob &job) const;
    void Remember(const QPrinter &printer, PrintJob &job) const;

    std::function<std::unique_ptr<PrintJob>()> m_makeJob;
    QWidget &m_window;
    QList<QAction *> m_actions;
};

} // namespace korvane::planner
