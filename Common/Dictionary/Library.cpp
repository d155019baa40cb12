// Makes the process-wide tables when the library is loaded and empties them when it is unloaded. Every table class
// refers to the lists defined here, so a static library never loses this file.
#include "Library.h"

#include <new>

namespace vdicom {

constinit ListStorage<VRList> g_vrs;
constinit ListStorage<UIDList> g_uids;
constinit ListStorage<TagList> g_tags;
constinit ListStorage<IODTree> g_iods;
constinit ListStorage<ContextGroupTree> g_contextGroups;

namespace {

struct Library {
    Library() {
        new (&g_vrs.list) VRList;
        new (&g_uids.list) UIDList;
        new (&g_tags.list) TagList;
        new (&g_iods.list) IODTree;                                       // builds itself on first use
        new (&g_contextGroups.list) ContextGroupTree(kContextGroupTable); // filled and emptied by applications alone
        g_vrs.list.Fill();
        g_uids.list.Fill();
        g_tags.list.Fill();
    }
    ~Library() {
        g_vrs.list.Reset();
        g_uids.list.Reset();
        g_tags.list.Reset();
        g_iods.list.Reset();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

// Before all constructors of ordinary priority, and after all their destructors: linked statically, the tables must be
// there for an application's own static objects.
[[gnu::init_priority(101)]] Library g_library;

} // namespace

} // namespace vdicom

constinit VDicomTree& VDicomVR::m_InfoVR = vdicom::g_vrs.list;
constinit VDicomTree& VDicomUID::m_InfoUID = vdicom::g_uids.list;
constinit VDicomTree& VDicomTag::m_InfoTag = vdicom::g_tags.list;
constinit VDicomTreeEx& VDicomIOD::m_InfoIOD = vdicom::g_iods.list;
constinit VDicomTreeEx& VDicomContextGroup::m_ContextGroupsTable = vdicom::g_contextGroups.list;
