// What components show while they are designed.
#pragma once

class QString;

namespace korvane {

class TzuGant;
class TzuGrid;
class TzuSchema;
class TzuTree;

/// Fills an empty component for the eye and marks it as a sample. It is content only, which forms
/// do not store: properties stay as they are. Times keep their places on the axis when its range
/// is changed.
void ShowSample(TzuSchema &schema);
void ShowSample(TzuGant &gant);
void ShowSample(TzuTree &tree);
/// Rows; columns are properties, so there are none until they are designed. Until then `hint` is
/// shown.
void ShowSample(TzuGrid &grid, const QString &hint);
/// The same with a hint that says how columns are added.
void ShowSample(TzuGrid &grid);

} // namespace korvane
