// Editors of single values of an item.
#pragma once

#include "design/qt/zuItemProperties.h"

#include <QJsonValue>
#include <QStringList>
#include <QWidget>

#include <functional>

namespace korvane {

/// Names that properties may refer to.
struct TItemNames
{
    /// As the grid has them, in its order.
    QStringList Layouts;
    QStringList SubGrids;
};

/// A control for one value. The value has the form of GridToJson.
struct TValueEditor
{
    QWidget *Widget = nullptr; ///< owned by whoever takes it
    /// Shows a value without telling of a change.
    std::function<void(const QJsonValue &)> Show;
};

/// `changed` is called with what the user enters.
TValueEditor CreateValueEditor(const TItemProperty &property, const TItemNames &names,
                               const std::function<void(const QJsonValue &)> &changed);

} // namespace korvane
