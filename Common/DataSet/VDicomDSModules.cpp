// VDicomDS: the class of a data set, and its modules, by the table of information object definitions.
#include "Guarded.h"
#include "ModuleElements.h"
#include "SavePlan.h"

#include <string_view>

using namespace vdicom;

namespace {

constexpr VDicomULong kMediaClass = 0x00020002, kSOPClass = 0x00080016, kFileSetConsistency = 0x00041212;
constexpr char kUIDSeparator = '\\';

// Whether a class's backslash-separated list holds exactly this UID.
bool HoldsUID(std::string_view list, std::string_view uid) {
    for (;;) {
        const std::size_t end = std::min(list.find(kUIDSeparator), list.size());
        if (list.substr(0, end) == uid)
            return true;
        if (end == list.size())
            return false;
        list.remove_prefix(end + 1);
    }
}

DICOMIOD* FindClass(VDicomULong classId) {
    DICOMIOD* node = VDicomIOD::FindClass(classId);
    return node != nullptr && node->nType == DICOM_IOD_CLASS ? node : nullptr;
}

// The data set's own word for its class; empty where it has none.
std::string ClassUIDOf(const DataSetState& state) {
    std::string uid = TextOf(state, state.tree.FindChild(nullptr, kMediaClass));
    return uid.empty() ? TextOf(state, state.tree.FindChild(nullptr, kSOPClass)) : uid;
}

bool SetUID(VDicomDS& dataSet, VDicomULong tag, const std::string& uid) {
    // One whose VR cannot hold a text gives way.
    if (DICOMELEMENT* e = dataSet.FindFirstElement(nullptr, tag, 1); e != nullptr && e->nVR != vr::UI)
        dataSet.DeleteElement(e);
    return dataSet.FindSetValue(nullptr, tag, vr::UI, uid.c_str(), 1) != 0;
}

// The module as the data set's class holds it, else as the first class that does.
DICOMIOD* ModuleOf(VDicomDS& dataSet, VDicomULong moduleId) {
    VDicomULong classId = DICOM_NO_CLASS;
    dataSet.GetClass(&classId, nullptr);
    DICOMIOD* module = VDicomIOD::FindModule(classId, moduleId);
    for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 1); module == nullptr && node != nullptr;
         node = VDicomIOD::GetNext(node, 1))
        module = VDicomIOD::FindInClass(node, moduleId, DICOM_IOD_MODULE);
    return module;
}

// The entry below which the modules stand that a module shares its level with.
DICOMIOD* SurroundingsOf(VDicomDS& dataSet, DICOMIOD* module) {
    VDicomULong classId = DICOM_NO_CLASS;
    dataSet.GetClass(&classId, nullptr);
    DICOMIOD* definition = FindClass(classId);
    return definition != nullptr && EnclosingSequence(module) == 0 ? definition : VDicomIOD::GetParent(module);
}

bool IsOfDirectory(VDicomULong moduleId) {
    return VDicomIOD::FindModule(DICOM_CLASS_BASIC_DIRECTORY, moduleId) != nullptr;
}

} // namespace

// ---------------------------------------------------------------- class

unsigned int VDicomDS::InitDS(VDicomULong classId, unsigned short flags) {
    DataSetState& state = *m_pState;
    if (state.frozen)
        return DICOM_ERROR_PARAMETER;
    const auto reset = [&] {
        ResetDS(1);
        state.flags = static_cast<unsigned short>(state.flags & ~0x00C0);
        for (const int field : {0x0003, 0x000C, 0x0030}) {
            if ((flags & field) != 0)
                state.flags = static_cast<unsigned short>((state.flags & ~field) | (flags & field));
        }
        state.flags = static_cast<unsigned short>(state.flags | (flags & (DICOM_FLAG_READ | DICOM_FLAG_NO_OPTIONAL)));
    };
    const auto finish = [&](unsigned int code) {
        if (code != DICOM_OK)
            reset();
        return code;
    };
    reset();
    if (classId == DICOM_NO_CLASS)
        return DICOM_OK;
    DICOMIOD* definition = FindClass(classId);
    if (definition == nullptr)
        return DICOM_ERROR_PARAMETER;
    const unsigned int withOptional = (flags & DICOM_FLAG_NO_OPTIONAL) == 0 ? 1 : 0;
    unsigned int code = SetClass(classId);
    DICOMIOD* child = VDicomIOD::GetChild(definition);
    const bool isDirectory = classId == DICOM_CLASS_BASIC_DIRECTORY;
    if (code == DICOM_OK && child != nullptr && child->nType != DICOM_IOD_MODULE && !isDirectory)
        return finish(InsertModule(nullptr, definition, withOptional));
    for (; code == DICOM_OK && child != nullptr; child = VDicomIOD::GetNext(child, 1)) {
        if (child->nType == DICOM_IOD_MODULE)
            code = isDirectory ? InsertModuleKey(nullptr, child->nCode, withOptional)
                               : InsertModule(nullptr, child, withOptional);
    }
    return finish(code);
}

void VDicomDS::GetInfoDS(VDicomULong* classId, unsigned short* flags) {
    if (classId != nullptr)
        GetClass(classId, nullptr);
    if (flags != nullptr)
        *flags = m_pState->flags;
}

unsigned int VDicomDS::GetClass(VDicomULong* classId, const char* uid) {
    if (classId != nullptr)
        *classId = DICOM_NO_CLASS;
    return Guarded<unsigned int>(0, [&]() -> unsigned int {
        const std::string wanted = uid != nullptr ? uid : ClassUIDOf(*m_pState);
        if (wanted.empty())
            return 0;
        if (classId == nullptr)
            return 1;
        for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 1); node != nullptr; node = VDicomIOD::GetNext(node, 1)) {
            if (node->nType == DICOM_IOD_CLASS && HoldsUID(node->pszDescription, wanted)) {
                *classId = node->nCode;
                break;
            }
        }
        return 1;
    });
}

unsigned int VDicomDS::SetClass(VDicomULong classId) {
    const DICOMIOD* definition = FindClass(classId);
    if (definition == nullptr || m_pState->frozen)
        return DICOM_ERROR_PARAMETER;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const std::string_view list = definition->pszDescription;
        std::string uid = ClassUIDOf(*m_pState);
        if (uid.empty() || !HoldsUID(list, uid))
            uid = list.substr(0, list.find(kUIDSeparator));
        if (uid.empty()) {
            for (const VDicomULong tag : {kMediaClass, kSOPClass})
                DeleteElement(FindFirstElement(nullptr, tag, 1));
            return DICOM_OK;
        }
        // A directory is no SOP instance of its own: group 0002 alone names its class (PS3.3 F.3).
        if (SetUID(*this, kMediaClass, uid) &&
            (classId == DICOM_CLASS_BASIC_DIRECTORY || SetUID(*this, kSOPClass, uid)))
            return DICOM_OK;
        return m_pState->Scratch() == nullptr ? DICOM_ERROR_WRITE : DICOM_ERROR_MEMORY;
    });
}

// ---------------------------------------------------------------- inserting and deleting modules

unsigned int VDicomDS::InsertModule(DICOMELEMENT* parent, DICOMIOD* iod, unsigned int withOptional) {
    DataSetState& state = *m_pState;
    if (iod == nullptr || state.frozen || !state.Check(parent))
        return DICOM_ERROR_PARAMETER;
    if (parent != nullptr && !IsUndefinedLength(parent))
        return DICOM_ERROR_STRUCTURE;
    return ModuleInserter(*this, state).Insert(parent, iod, withOptional != 0);
}

unsigned int VDicomDS::InsertModule(DICOMELEMENT* parent, VDicomULong moduleId, VDicomULong index,
                                    unsigned int withOptional) {
    DataSetState& state = *m_pState;
    if (state.frozen || !state.Check(parent))
        return DICOM_ERROR_PARAMETER;
    DICOMIOD* module = ModuleOf(*this, moduleId);
    if (module == nullptr)
        return DICOM_ERROR_PARAMETER;
    if (EnclosingSequence(module) != SequenceOfLevel(parent) || (parent != nullptr && !IsUndefinedLength(parent)))
        return DICOM_ERROR_STRUCTURE;
    if (parent == nullptr || parent->nTag == kItem)
        return InsertModule(parent, module, withOptional);
    // A sequence: one of its items, or one more. Records are made by InsertKey alone.
    DICOMELEMENT* item = state.tree.ChildAt(parent, index);
    const bool isNew = item == nullptr;
    if (isNew && parent->nTag == kDirectoryRecords)
        return DICOM_ERROR_STRUCTURE;
    if (isNew)
        item = InsertElement(parent, 1, kItem, 0, 1, DICOM_UNDEFINED);
    if (item == nullptr)
        return DICOM_ERROR_MEMORY;
    const unsigned int code = InsertModule(item, module, withOptional);
    if (code != DICOM_OK && isNew)
        DeleteElement(item);
    return code;
}

DICOMIOD* VDicomDS::InsertModule(VDicomULong moduleId, unsigned int withOptional) {
    if (IsOfDirectory(moduleId) || InsertModule(nullptr, moduleId, 0, withOptional) != DICOM_OK)
        return nullptr;
    return FindModule(moduleId);
}

unsigned int VDicomDS::InsertModuleKey(DICOMELEMENT* key, VDicomULong moduleId, unsigned int withOptional) {
    DataSetState& state = *m_pState;
    if (state.frozen || !state.Check(key))
        return DICOM_ERROR_PARAMETER;
    DICOMIOD* module = VDicomIOD::FindModule(DICOM_CLASS_BASIC_DIRECTORY, moduleId);
    if (module == nullptr)
        return DICOM_ERROR_PARAMETER;
    DICOMELEMENT* record = key == nullptr ? nullptr : GetItemKey(key);
    if ((key != nullptr && record == nullptr) || EnclosingSequence(module) != SequenceOfLevel(record))
        return DICOM_ERROR_STRUCTURE;
    const unsigned int code = InsertModule(record, module, withOptional);
    if (code != DICOM_OK || record != nullptr || state.tree.FindChild(nullptr, kFirstRecord) == nullptr)
        return code;
    // What the library knows of a directory has its values from the start.
    const DICOMELEMENT* consistency = state.tree.FindChild(nullptr, kFileSetConsistency);
    const short consistent = 0;
    const bool done = StoreReferences(0) && (consistency == nullptr || consistency->nLength != 0 ||
                                             FindSetValue(nullptr, kFileSetConsistency, vr::US, &consistent, 1) != 0);
    return done ? DICOM_OK : DICOM_ERROR_MEMORY;
}

DICOMELEMENT* VDicomDS::InsertKey(DICOMELEMENT* neighbour, unsigned int child, const char* type,
                                  unsigned int withOptional) {
    DICOMELEMENT* record = InsertKey(neighbour, child, type);
    DICOMIOD* records =
        VDicomIOD::FindInClass(VDicomIOD::FindClass(DICOM_CLASS_BASIC_DIRECTORY), kDirectoryRecords, DICOM_IOD_ELEMENT);
    if (record == nullptr || records == nullptr)
        return record;
    unsigned int code = ModuleInserter(*this, *m_pState).InsertRecord(record, records, withOptional != 0);
    if (DICOMIOD* keys = FindKeysModule(records, type); keys != nullptr && code == DICOM_OK)
        code = InsertModule(record, keys, withOptional);
    if (code == DICOM_OK)
        return record;
    DeleteKey(record);
    return nullptr;
}

unsigned int VDicomDS::DeleteModule(VDicomULong moduleId) {
    DataSetState& state = *m_pState;
    DICOMIOD* module = state.frozen || IsOfDirectory(moduleId) ? nullptr : ModuleOf(*this, moduleId);
    if (module == nullptr || EnclosingSequence(module) != 0)
        return 0;
    return Guarded<unsigned int>(0, [&]() -> unsigned int {
        const ModulesBeside modules(SurroundingsOf(*this, module));
        std::vector<DICOMELEMENT*> going;
        for (DICOMIOD* entry = VDicomIOD::GetChild(module); entry != nullptr; entry = VDicomIOD::GetNext(entry, 1)) {
            if (entry->nType != DICOM_IOD_ELEMENT || modules.IsNeeded(state, module, entry->nCode))
                continue;
            for (VDicomULong group = 0; group < CountGroups(entry->nCode); ++group) {
                if (DICOMELEMENT* e = state.tree.FindChild(nullptr, InGroup(entry->nCode, group)))
                    going.push_back(e);
            }
        }
        for (DICOMELEMENT* e : going)
            DeleteElement(e);
        return going.empty() ? 0 : 1;
    });
}

// ---------------------------------------------------------------- finding modules

DICOMIOD* VDicomDS::FindModule(VDicomULong moduleId) {
    DICOMIOD* module = ModuleOf(*this, moduleId);
    if (module == nullptr)
        return nullptr;
    return Guarded<DICOMIOD*>(nullptr, [&] {
        return ModulesBeside(SurroundingsOf(*this, module)).Holds(*this, *m_pState, module) ? module : nullptr;
    });
}

DICOMIOD* VDicomDS::FindIndexModule(VDicomULong index) {
    VDicomULong classId = DICOM_NO_CLASS;
    GetClass(&classId, nullptr);
    DICOMIOD* definition = FindClass(classId);
    if (definition == nullptr)
        return nullptr;
    return Guarded<DICOMIOD*>(nullptr, [&]() -> DICOMIOD* {
        const ModulesBeside modules(definition);
        for (DICOMIOD* node = VDicomIOD::GetChild(definition); node != nullptr; node = VDicomIOD::GetNext(node, 1)) {
            if (node->nType == DICOM_IOD_MODULE && modules.Holds(*this, *m_pState, node) && index-- == 0)
                return node;
        }
        return nullptr;
    });
}

VDicomULong VDicomDS::GetCountModule() {
    VDicomULong classId = DICOM_NO_CLASS;
    GetClass(&classId, nullptr);
    DICOMIOD* definition = FindClass(classId);
    if (definition == nullptr)
        return 0;
    return Guarded<VDicomULong>(0, [&] {
        const ModulesBeside modules(definition);
        VDicomULong count = 0;
        for (DICOMIOD* node = VDicomIOD::GetChild(definition); node != nullptr; node = VDicomIOD::GetNext(node, 1))
            count += node->nType == DICOM_IOD_MODULE && modules.Holds(*this, *m_pState, node) ? 1 : 0;
        return count;
    });
}

unsigned int VDicomDS::VerifyModule(DICOMELEMENT* e, VDicomULong moduleId) {
    if (!m_pState->Check(e))
        return 0;
    DICOMIOD* module = ModuleOf(*this, moduleId);
    const DICOMELEMENT* parent = e == nullptr ? nullptr : ParentOf(e);
    return module != nullptr && EnclosingSequence(module) == SequenceOfLevel(parent) ? 1 : 0;
}

VDicomULong VDicomDS::GetCountElementIOD(DICOMIOD* iod, unsigned int withOptional) {
    VDicomULong count = 0;
    DICOMIOD* at = VDicomIOD::GetChild(iod);
    while (at != nullptr) {
        const bool isElement = at->nType == DICOM_IOD_ELEMENT;
        const bool counts = !isElement || withOptional != 0 || IsMandatory(at);
        count += isElement && counts ? 1 : 0;
        if (counts && VDicomIOD::GetChild(at) != nullptr) {
            at = VDicomIOD::GetChild(at);
            continue;
        }
        while (at != iod && VDicomIOD::GetNext(at, 1) == nullptr)
            at = VDicomIOD::GetParent(at);
        at = at == iod ? nullptr : VDicomIOD::GetNext(at, 1);
    }
    return count;
}
