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
    virtual bool HasTreeButton() const = 0;
    virtual bool IsTreeExpanded() const = 0;
    virtual void SetTreeExpanded(bool expanded) = 0;
    /// Nil for rows without parent.
    virtual TAxisContentItem *ParentRow() const = 0;
    /// The row is about to be dropped.
    virtual void RowGoes() = 0;
};

} // namespace korvane
