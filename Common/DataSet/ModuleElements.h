/// @file ModuleElements.h
/// The elements of a data set as the modules of its class list them.
#pragma once

#include "DataSetState.h"
#include "VDicomIOD.h"

#include <utility>
#include <vector>

namespace vdicom {

/// The tag of the sequence in whose items a module stands, by the table; 0: it stands at the top level.
VDicomULong EnclosingSequence(DICOMIOD* module);
/// The tag of the sequence whose items the elements below `parent` are part of; 0: of none.
VDicomULong SequenceOfLevel(const DICOMELEMENT* parent);
/// Among the modules below the entry of the directory record sequence: the one with the keys of this type of record.
DICOMIOD* FindKeysModule(DICOMIOD* records, const char* type);
/// Whether an entry belongs to an object without its optional elements: types 1 and 2, unique keys.
bool IsMandatory(const DICOMIOD* entry);

/// How many groups repeat an element of the table: 16 for curves and overlays (PS3.5 7.6), else 1.
inline VDicomULong CountGroups(VDicomULong tag) {
    const VDicomULong high = tag & 0xFF000000;
    return high == 0x50000000 || high == 0x60000000 ? 16 : 1;
}
/// The tag of an element in one of those groups.
inline VDicomULong InGroup(VDicomULong tag, VDicomULong group) { return tag + (group << 17); }

/// Inserts entries of the table into a data set. What is there already stays as it is, with all below it; what an
/// insertion that fails has inserted is deleted again.
class ModuleInserter {
public:
    ModuleInserter(VDicomDS& dataSet, DataSetState& state) : m_dataSet(dataSet), m_state(state) {}

    /// What stands below a class or module, or an element entry itself with all below it, into `parent`.
    /// @return a result code
    unsigned int Insert(DICOMELEMENT* parent, DICOMIOD* entry, bool withOptional);
    /// The elements below a sequence's entry into an item; the modules that stand there are left out.
    unsigned int InsertRecord(DICOMELEMENT* item, DICOMIOD* sequence, bool withOptional);

private:
    unsigned int Run(DICOMELEMENT* parent, DICOMIOD* top, bool itself, bool withOptional, bool withModules);
    unsigned int Add(DICOMELEMENT* parent, DICOMIOD* entry, DICOMELEMENT*& item);

    VDicomDS& m_dataSet;
    DataSetState& m_state;
    DICOMELEMENT* m_base = nullptr;    ///< what the insertion began at
    std::vector<DICOMELEMENT*> m_made; ///< the elements made there
};

/// Which of the modules that stand side by side below an entry of the table a data set holds.
class ModulesBeside {
public:
    explicit ModulesBeside(DICOMIOD* parent);

    /// Whether an element is there that `module` alone lists, or all of its elements of types 1 and 2, or (of a module
    /// that has neither) any.
    bool Holds(VDicomDS& dataSet, const DataSetState& state, DICOMIOD* module) const;
    /// Whether an element at the top level stays when `module` is deleted: another one that has an element of its own
    /// there lists it too, or a mandatory one, and `module` is none.
    bool IsNeeded(const DataSetState& state, const DICOMIOD* module, VDicomULong tag) const;

private:
    using Entry = std::pair<VDicomULong, DICOMIOD*>;
    using Position = std::vector<Entry>::const_iterator;
    struct Findings {
        bool hasOwn = false; ///< an element that the module alone lists
        bool holds = false;
    };
    std::pair<Position, Position> ListersOf(VDicomULong tag) const;
    bool IsShared(const DICOMIOD* module, VDicomULong tag) const;
    Findings LookAt(const DataSetState& state, const DICOMELEMENT* parent, DICOMIOD* module) const;

    std::vector<Entry> m_entries; ///< tags with the modules that list them, in the order of the tags
};

} // namespace vdicom
