// File > Print and Print preview.
#pragma once

#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QPrinter;
class QPrintPreviewDialog;

namespace korvane::planner {

class PlanDocument;
class PlanPrint;

/// Prints the document's plan as it is at that time. Paper, orientation, margins and the number of
/// pages to fit on are remembered for each file.
class PrintActions : public QObject
{
    Q_OBJECT

public:
    /// Adds the actions to the menu. `document` and `window` are observed.
    PrintActions(QMenu &menu, const PlanDocument &document, QWidget &window);

    QList<QAction *> Actions() const { return m_actions; }

private:
    void Preview();
    void Print();
    void AddPageFields(QPrintPreviewDialog &dialog, PlanPrint &print);
    /// Puts the print on the printer's paper; what goes wrong is told to the user.
    void PrintOn(QPrinter &printer, PlanPrint &print, bool preview);
    void Restore(QPrinter &printer, PlanPrint &print) const;
    void Remember(const QPrinter &printer, PlanPrint &print) const;
    QString SettingsKey() const;

    const PlanDocument &m_document;
    QWidget &m_window;
    QList<QAction *> m_actions;
};

} // namespace korvane::planner
