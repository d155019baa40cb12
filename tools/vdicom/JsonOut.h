/// @file JsonOut.h
/// Data sets in the DICOM JSON Model (PS3.18 F).
#pragma once

#include "Selection.h"
#include "TextReader.h"

#include <memory>
#include <string>

namespace program {

class Output;

struct JsonOptions {
    bool pretty = false;                         ///< indented
    bool meta = false;                           ///< with group 0002
    std::uint64_t bulkLimit = ~std::uint64_t{0}; ///< larger binary values are left out
    std::size_t depth = ~std::size_t{0};         ///< items of deeper sequences are empty objects
};

/// Writes data sets as they are walked; nothing is kept, and large values pass through a bounded buffer.
class JsonOut {
public:
    /// @param array the data sets stand in one array
    JsonOut(VDicomDS& ds, Output& out, const JsonOptions& options, bool array);
    ~JsonOut();
    JsonOut(const JsonOut&) = delete;
    JsonOut& operator=(const JsonOut&) = delete;

    /// Writes the data set as it stands. @param paths what to show; empty: all
    /// @param path where it was read from, for the URI of values that are left out; empty: they get none
    /// @return how many values could not be read
    std::size_t Write(const std::vector<TagPath>& paths, const std::string& path);
    /// Ends the array and the last line.
    void End();

    class Base;

private:
    std::unique_ptr<Base> m_writer;
};

} // namespace program
