/// @file ElementEditor.h
/// Changes to a data set as the command line names them: --set PATH=VALUE, --delete PATH.
#pragma once

#include "TagPath.h"

#include <string>

namespace program {

struct Change {
    bool set = true; ///< or delete
    TagPath path;
    std::string value;
};

/// Reads what stands behind --set (PATH=VALUE) or --delete (PATH). @return what is wrong with it; empty: all is well
std::string ParseChange(bool set, const std::string& text, Change& change);

/// Makes changes to one data set, with the sequences, items and private blocks on the way.
class ElementEditor {
public:
    explicit ElementEditor(VDicomDS& ds) : m_ds(ds) {}

    /// @return what went wrong; empty: it is done
    std::string Apply(const Change& change) { return change.set ? Set(change, nullptr, 0) : Delete(change); }

private:
    std::string Set(const Change& change, DICOMELEMENT* parent, std::size_t number);
    std::string SetInItems(const Change& change, DICOMELEMENT* sequence, std::size_t number);
    std::string SetElement(const Change& change, DICOMELEMENT* parent, VDicomULong tag);
    VDicomULong MakePrivateBlock(DICOMELEMENT* parent, const PathStep& step);
    bool IsBlockUsed(DICOMELEMENT* parent, VDicomULong first);
    std::string Delete(const Change& change);

    VDicomDS& m_ds;
};

} // namespace program
