/// @file Worklist.h
/// Modality worklist (PS3.4 K) from a folder of worklist files: data sets as DICOM files, one per requested procedure,
/// with one or several items in Scheduled Procedure Step Sequence. Every file in the folder counts, those whose names
/// begin with a dot aside: write a file under such a name and rename it.
///
/// The files are kept in memory and looked at again, by time and size, before each query.
#pragma once

#include "Find.h"
#include "Matching.h"

#include <functional>
#include <map>
#include <memory>

namespace archive {

/// What a worklist query says of one attribute.
struct WorklistKey {
    VDicomULong tag = 0;
    unsigned short vr = 0;
    bool isSequence = false;
    Key key;
    std::vector<WorklistKey> item; ///< of a sequence; empty: all of it is asked for
};

struct WorklistEntry;
using WorklistEntries = std::vector<std::shared_ptr<WorklistEntry>>;

/// A query under way: one match for each scheduled procedure step.
class WorklistFind {
public:
    WorklistFind(WorklistEntries entries, std::vector<WorklistKey> keys, std::string characterSet);

    /// As Find::Next; what was asked for is answered. @throw std::bad_alloc
    Step Next(VDicomDS& match);

private:
    bool Fill(VDicomDS& match, WorklistEntry& entry, DICOMELEMENT* step);

    WorklistEntries m_entries;
    std::vector<WorklistKey> m_keys;
    std::string m_characterSet;
    std::size_t m_entry = 0;
    VDicomULong m_step = 0; ///< of the entry: the next item to look at
};

class Worklist {
public:
    /// Called for a file that cannot be used, once for each state of it.
    using Complaint = std::function<void(const std::string& path, const std::string& reason)>;

    Worklist(std::string folder, Complaint complaint)
        : m_folder(std::move(folder)), m_complaint(std::move(complaint)) {}

    /// @return 0; C000: a key cannot be understood; A700: the folder cannot be read
    Outcome Start(VDicomDS& identifier, std::unique_ptr<WorklistFind>& find);

private:
    Outcome Scan();

    std::string m_folder;
    Complaint m_complaint;
    std::map<std::string, std::shared_ptr<WorklistEntry>> m_entries; ///< by path
};

} // namespace archive
