// What a grid view has to know of a row that is a node of a tree.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

class TAxisContentItem;

/// In a grid that shows a tree, the Value of a row is of this class, too.
class KORVANE_CORE_API IBabTreeRow
{
public:
    virtual ~IBabTreeRow() = default;

    /// 0 for rows without parent.
    virtual int TreeLevel() const = 0;
    /// Whether the node can be expanded or collapsed, and whether it is expanded.
    virtual bool HasTreeButton() const = 0;
    virtual bool IsTreeExpanded() const = 0;
    /// Shows or hides the rows below, which may be made only then.
    virtual void SetTreeExpanded(bool expanded) = 0;
    /// Expands the node and all below it that are there.
    virtual void ExpandTreeBelow() = 0;
    /// Whether a row that is shown, of the same parent, stands below.
    virtual bool HasNextTreeRow() const = 0;
    /// Whether the row can be shown by expanding what it is below.
    virtual bool CanShowTreeRow() const = 0;
    /// Expands what the row is below.
    virtual void ShowTreeRow() = 0;
    /// A cell of the row was selected, or none is any longer.
    virtual void TreeRowSelected(bool selected) = 0;
    /// Nil for rows without parent.
    virtual TAxisContentItem *ParentRow() const = 0;
    /// The row is about to be dropped.
    virtual void RowGoes() = 0;
};

} // namespace korvane
