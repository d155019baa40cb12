#include "VDicomUID.h"

#include "CurrentTables.h"
#include "Library.h"
#include "RandomUID.h"

#include <functional>
#include <string_view>

static_assert(sizeof(void*) != 4 || sizeof(DICOMUID) == 20 + 4 + 4 + 4, "declared size");

namespace vdicom {

namespace {

std::uint64_t KeyOf(const char* code) { return std::hash<std::string_view>{}(code); }

} // namespace

DICOMUID* UIDList::AddOwned(const UIDRow& row, char* code, char* name) {
    DICOMUID* entry = code == nullptr || name == nullptr ? nullptr : Append();
    if (entry == nullptr) {
        FreeText(code);
        FreeText(name);
        return nullptr;
    }
    entry->pszCode = code;
    entry->pszName = name;
    entry->nType = row.type;
    return Finish(entry, m_index.Add(KeyOf(code), &HeaderOf(entry)->index));
}

DICOMUID* UIDList::Add(const char* code, const char* name, VDicomLong type) {
    return code == nullptr || name == nullptr ? nullptr : AddOwned({type}, CopyText(code), CopyText(name));
}

DICOMUID* UIDList::Fill() {
    Reset();
    OpenBlock(kUIDTable);
    m_index.Reserve(kUIDTable.count);
    DICOMUID* last = nullptr;
    std::size_t code = 0;
    for (std::size_t i = 0; i < kUIDTable.count; ++i) {
        const std::size_t name = code + std::strlen(kUIDTable.texts + code) + 1;
        last = AddOwned(kUIDTable.rows[i], RowText(kUIDTable.texts, code), RowText(kUIDTable.texts, name));
        code = name + std::strlen(kUIDTable.texts + name) + 1;
    }
    CloseBlock();
    return last;
}

DICOMUID* UIDList::Find(const char* code) const {
    if (code == nullptr)
        return nullptr;
    // Different texts may have the same hash.
    IndexLink* link = m_index.Find(KeyOf(code));
    while (link != nullptr && std::strcmp(RecordOf(link)->pszCode, code) != 0)
        link = link->nextSameKey;
    return RecordOf(link);
}

void UIDList::Unindex(DICOMUID* entry) { m_index.Remove(KeyOf(entry->pszCode), &HeaderOf(entry)->index); }

void UIDList::FreeTexts(DICOMUID* entry) {
    FreeText(entry->pszCode);
    FreeText(entry->pszName);
}

} // namespace vdicom

using vdicom::UIDs;

DICOMUID* VDicomUID::Default() { return UIDs().Fill(); }

void VDicomUID::Reset() { UIDs().Reset(); }

DICOMUID* VDicomUID::Insert(const char* pszCode, const char* pszName, VDicomLong nType) {
    return UIDs().Add(pszCode, pszName, nType);
}

DICOMUID* VDicomUID::Delete(DICOMUID* entry) { return UIDs().Remove(entry); }

DICOMUID* VDicomUID::GetFirst() { return UIDs().First(); }

DICOMUID* VDicomUID::GetNext(DICOMUID* entry) { return vdicom::UIDList::Next(entry); }

DICOMUID* VDicomUID::GetPrev(DICOMUID* entry) { return vdicom::UIDList::Previous(entry); }

DICOMUID* VDicomUID::Find(const char* pszCode) { return UIDs().Find(pszCode); }

unsigned int VDicomUID::SetName(DICOMUID* entry, const char* pszName) { return UIDs().SetName(entry, pszName) ? 1 : 0; }

unsigned int VDicomUID::FindCurrent(const char* uid, DICOMCURRENTUID* out) {
    return vdicom::CurrentUID(vdicom::FindCurrentUID(uid), out) ? 1 : 0;
}

unsigned int VDicomUID::GetCurrent(VDicomULong index, DICOMCURRENTUID* out) {
    return vdicom::CurrentUID(index, out) ? 1 : 0;
}

unsigned int VDicomUID::Generate(char uid[65]) { return uid != nullptr && vdicom::MakeRandomUID(uid) ? 1 : 0; }
