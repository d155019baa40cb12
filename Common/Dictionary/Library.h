/// @file Library.h
/// The process-wide tables' lists. They are filled when the library is loaded (the tree of information
/// object definitions: on first use) and emptied when it is unloaded.
#pragma once

#include "ContextGroupTree.h"
#include "IODTree.h"
#include "TableList.h"

namespace vdicom {

/// A list that lives as long as its storage: it is made by Library.cpp before any static constructor of an application
/// runs, and never destroyed, so that an application's last destructors still find an empty list.
template <class List> union ListStorage {
    constexpr ListStorage() : none() {}
    ~ListStorage() {} // NOLINT(modernize-use-equals-default): the list's own destructor would make it deleted
    char none;
    List list;
};

extern ListStorage<VRList> g_vrs;
extern ListStorage<UIDList> g_uids;
extern ListStorage<TagList> g_tags;
extern ListStorage<IODTree> g_iods;
extern ListStorage<ContextGroupTree> g_contextGroups;

inline VRList& VRs() { return g_vrs.list; }
inline UIDList& UIDs() { return g_uids.list; }
inline TagList& Tags() { return g_tags.list; }
/// Built, if this is its first use.
inline IODTree& IODs() {
    g_iods.list.Prepare();
    return g_iods.list;
}
inline ContextGroupTree& ContextGroups() { return g_contextGroups.list; }

} // namespace vdicom
