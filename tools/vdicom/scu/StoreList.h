/// @file StoreList.h
/// The files of a store command: a short record of each, from a look at its first elements.
#pragma once

#include "scu/StorePlan.h"

#include "VDicomDS.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace program {

class StoreReport;

struct StoreFile {
    std::string path;
    std::uint64_t bytes = 0;
    std::uint32_t kind = 0;
    bool isOver = false; ///< it cannot be sent, and that has been told
};

/// What a data set says of itself as an object.
struct ObjectNames {
    std::string classUid;
    std::string instanceUid;
    std::string syntaxUid;
};
ObjectNames NamesOf(VDicomDS& ds);

/// Why the last load of a data set failed, at its place in the file.
std::string LoadFailure(const VDicomDS& ds, unsigned int code);

class StoreList {
public:
    /// Looks at files, and at those in folders and below. What cannot be sent is told to the report; what is found in a
    /// folder and is no DICOM object is counted there.
    /// @return false: a folder could not be read, which has been said
    bool Scan(const std::vector<std::string>& arguments, StoreReport& report);

    std::vector<StoreFile>& Files() { return m_files; }
    const std::vector<ObjectKind>& Kinds() const { return m_kinds; }
    std::uint64_t Bytes() const { return m_bytes; }

private:
    void Look(const std::string& path, bool inFolder, StoreReport& report);
    std::uint32_t KindOf(const ObjectNames& names);

    VDicomDS m_ds;
    std::vector<StoreFile> m_files;
    std::vector<ObjectKind> m_kinds;
    std::map<std::pair<std::string, std::string>, std::uint32_t> m_kindNumbers;
    std::uint64_t m_bytes = 0;
};

} // namespace program
