// A print that shows its progress.
#pragma once

#include "foundation/qt/zuConvert.h"
#include "plan/PlannerText.h"
#include "printing/qt/zuPrintDocument.h"

#include <QMessageBox>
#include <QProgressDialog>
#include <QScopeGuard>

#include <exception>

namespace korvane::planner {

/// Calls `print()`, with a dialog that tells the pages done and can cancel. Returns what it
/// returns; what goes wrong is told to the user in a message of the window, and false is returned.
template <typename Function>
bool RunPrint(QWidget &window, TzuPrintDocument &document, const Function &print)
{
    QString error;
    bool complete = false;
    {
        QProgressDialog progress(PlannerText::tr("Printing"), PlannerText::tr("Cancel"), 0, 0,
                                 &window);
        progress.setWindowModality(Qt::WindowModal);
        document.OnProgress = [&progress](int page, int pages, bool &cancel) {
            progress.setMaximum(pages);
            progress.setValue(page - 1);
            cancel = progress.wasCanceled();
        };
        const auto quiet = qScopeGuard([&] { document.OnProgress = nullptr; });
        try {
            complete = print();
        } catch (const std::exception &failure) {
            error = ToQt(failure.what());
        }
    }
    if (!error.isEmpty()) {
        auto *box = new QMessageBox(QMessageBox::Warning, PlannerText::tr("Printing"), error,
                                    QMessageBox::Ok, &window);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
    return complete;
}

} // namespace korvane::planner
