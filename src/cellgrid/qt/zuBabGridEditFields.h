// The fields in which cells are edited.
#pragma once

#include "cellgrid/zuBabGridEditHost.h"
#include "foundation/zuExport.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <functional>
#include <memory>

class QCalendarWidget;

namespace korvane {

/// A widget that edits one text.
class KORVANE_WIDGETS_API IGridField
{
public:
    virtual ~IGridField() = default;

    /// What the keyboard goes to.
    virtual QWidget &Widget() = 0;
    /// What it holds now.
    virtual QString Text() const = 0;
    /// Shows a text, with selection and caret as `how` says.
    virtual void Begin(const QString &text, TEditBegin how) = 0;
    /// How large the field has to be for its text; a width of 0 takes that of the cell.
    virtual QSize WantedSize(int cellWidth) const = 0;
    /// A key that neither finishes the edit nor is the field's already; true when it was used.
    virtual bool OwnKey(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) { return false; }

    std::function<void()> OnResizeWanted; ///< its text asks for another size
    std::function<void()> OnPicked;       ///< a choice was made that finishes the edit
};

/// The field for a kind of column, owned by the parent. `right` places its text at the right edge.
KORVANE_WIDGETS_API IGridField *CreateGridField(const TEditStart &start, bool right,
                                                QWidget *parent);

} // namespace korvane
