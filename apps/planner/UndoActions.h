// The words of undo and redo actions.
#pragma once

#include "plan/PlannerText.h"

#include <QAction>
#include <QUndoStack>

namespace korvane::planner {

/// Undo and redo of the history, each named with the step that it is about.
inline std::pair<QAction *, QAction *> MakeUndoActions(const QUndoStack &history, QObject *parent)
{
    const auto make = [&](QAction *action, auto stepChanged, const char *text, const char *named) {
        const auto show = [action, text, named](const QString &step) {
            action->setText(step.isEmpty() ? PlannerText::tr(text)
                                           : PlannerText::tr(named).arg(step));
        };
        QObject::connect(&history, stepChanged, action, show);
        return std::pair(action, show);
    };
    const auto [undo, showUndo] =
        make(history.createUndoAction(parent, QStringLiteral(" ")), &QUndoStack::undoTextChanged,
             QT_TRANSLATE_NOOP("Planner", "&Undo"), QT_TRANSLATE_NOOP("Planner", "&Undo %1"));
    const auto [redo, showRedo] =
        make(history.createRedoAction(parent, QStringLiteral(" ")), &QUndoStack::redoTextChanged,
             QT_TRANSLATE_NOOP("Planner", "&Redo"), QT_TRANSLATE_NOOP("Planner", "&Redo %1"));
    showUndo(history.undoText());
    showRedo(history.redoText());
    return {undo, redo};
}

} // namespace korvane::planner
