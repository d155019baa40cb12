/// @file Selection.h
/// Which elements a walk over a data set shows: all, or those that paths name.
#pragma once

#include "TagPath.h"

#include <vector>

namespace program {

/// The paths that are still open at one level of a walk. An empty one at the top means: everything.
class Selection {
public:
    struct Open {
        const TagPath* path;
        std::size_t step;
    };
    using Level = std::vector<Open>;

    enum class Hit { none, below, whole };

    /// The level that a walk starts with.
    static Level Start(const std::vector<TagPath>& paths);
    /// Whether a child of `parent` is shown. @param inside receives the paths that go on in its items
    static Hit Match(VDicomDS& ds, const Level& level, DICOMELEMENT* parent, const DICOMELEMENT* e, Level& inside);
    /// Whether item `number` of an element that was hit "below" is shown.
    /// @param inside what Match gave @param children receives the level of the item's children
    static Hit MatchItem(const Level& inside, VDicomULong number, Level& children);
};

} // namespace program
