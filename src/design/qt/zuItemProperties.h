// The properties of the items in a grid's collections, as their editor shows them.
#pragma once

#include <QString>

#include <span>

namespace korvane {

/// Which editor a property needs.
enum class TItemPropertyKind {
    Flag,
    Number,
    Text,
    ColumnKind,
    FrameKind,
    FrameSides,
    TextFlags,
    Color,
    Font,
    LayoutName,
    SubGridName,
    Columns
};

/// A property of an item, as the editor shows it.
struct TItemProperty
{
    /// By which GridToJson knows it; and with what it is edited.
    const char *Name;
    TItemPropertyKind Kind;
    const char *Hint; ///< what it does, for the user
};

/// In the order of the editor; empty for a name that is no collection.
std::span<const TItemProperty> ItemProperties(const QString &collection);

} // namespace korvane
