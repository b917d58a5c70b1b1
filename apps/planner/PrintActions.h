// File > Print and Print preview.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>
#include <memory>

class QAction;
class QMenu;

namespace korvane::planner {

class PrintDialog;
class PrintJob;

/// Prints a document as it is shown at that time, with the options that are remembered for its
/// file.
class PrintActions : public QObject
{
    Q_OBJECT

public:
    /// `makeJob` is called for each print; `window` is observed.
    PrintActions(std::function<std::unique_ptr<PrintJob>()> makeJob, QWidget &window);

    /// Preview, print, export.
    const QList<QAction *> &Actions() const { return m_actions; }

private:
    void AddAction(const QString &text, const QKeySequence &keys, void (PrintActions::*method)());
    PrintDialog *MakeDialog();
    void Preview();
    void Print();
    void Export();

    std::function<std::unique_ptr<PrintJob>()> m_makeJob;
    QWidget &m_window;
    QList<QAction *> m_actions;
};

} // namespace korvane::planner
