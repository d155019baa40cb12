/// @file TagPath.h
/// Paths to elements: `(0040,0275)[0].(0040,0007)`, `RequestAttributesSequence[0].ScheduledProcedureStepID`,
/// `(0029,xx10,"CREATOR")`.
#pragma once

#include "VDicomDS.h"

#include <string>
#include <string_view>
#include <vector>

namespace program {

constexpr VDicomULong kEveryItem = DICOM_UNDEFINED;

/// One element on the way of a path.
struct PathStep {
    VDicomULong tag = 0;
    VDicomULong mask = DICOM_UNDEFINED; ///< bits of an element's tag that must equal `tag`
    std::string creator;                ///< private creator of the block; empty: the tag alone counts
    bool isPattern = false;             ///< digits were given as x
    bool hasItem = false;               ///< "[...]" was given
    VDicomULong item = kEveryItem;

    /// Whether the tag names one attribute only.
    bool IsExact() const { return mask == DICOM_UNDEFINED && creator.empty(); }
};

struct TagPath {
    std::string text; ///< as given
    std::vector<PathStep> steps;
    unsigned short vr = 0; ///< from ":VR" behind the path; 0: none given

    /// The largest top-level tag that the path can mean.
    VDicomULong LastTag() const;
};

/// Reads the path that stands at the start of `text`. @param end receives how many characters it took
/// @return a sentence that says what is wrong; empty: all is well
std::string ParseTagPath(std::string_view text, TagPath& path, std::size_t& end);
/// Reads a path that is the whole text.
std::string ParseTagPath(std::string_view text, TagPath& path);

/// Whether `e`, a child of `parent`, is what the step names.
bool StepMatches(VDicomDS& ds, DICOMELEMENT* parent, const DICOMELEMENT* e, const PathStep& step);

/// The tag of a private element by its creator at this level; 0 when the creator has no block there.
VDicomULong FindPrivateTag(VDicomDS& ds, DICOMELEMENT* parent, const PathStep& step);

/// Every element below `parent` (null: top level) that the path means from step `first` on, in order.
void CollectElements(VDicomDS& ds, DICOMELEMENT* parent, const TagPath& path, std::size_t first,
                     std::vector<DICOMELEMENT*>& found);

} // namespace program
