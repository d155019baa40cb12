#include "VDicomContextGroup.h"

#include "ContextGroupTree.h"
#include "Library.h"

#include <algorithm>
#include <new>

static_assert(sizeof(VALUEDATETIME) == 6 * 2 + 4 + 4, "declared size");
static_assert(sizeof(void*) != 4 || sizeof(DICOMCONTEXTGROUP) == 20 + 4 + 4 + 4 + 4, "declared size");
static_assert(sizeof(void*) != 4 || sizeof(DICOMCODEDCONCEPT) == 20 + 6 * 4, "declared size");

namespace vdicom {

namespace {

DICOMCONTEXTGROUP* GroupOf(DICOMLINK* node) { return reinterpret_cast<DICOMCONTEXTGROUP*>(node); }
DICOMCODEDCONCEPT* ConceptOf(DICOMLINK* node) { return reinterpret_cast<DICOMCODEDCONCEPT*>(node); }
DICOMLINK* LinkOf(DICOMCONTEXTGROUP* group) { return reinterpret_cast<DICOMLINK*>(group); }
DICOMLINK* LinkOf(DICOMCODEDCONCEPT* codedConcept) { return reinterpret_cast<DICOMLINK*>(codedConcept); }

// The same in every locale.
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

/// Hash of a text in lower case and a zero, continuing another.
std::uint64_t HashText(std::string_view text, std::uint64_t hash = 0xCBF29CE484222325U) {
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(Lower(c))) * 0x100000001B3U;
    return hash * 0x100000001B3U;
}

std::uint64_t GroupKey(std::string_view cid) { return HashText(cid); }

std::uint64_t ConceptKey(const DICOMCONTEXTGROUP* group, std::string_view designator, std::string_view value) {
    return HashText(value, HashText(designator, reinterpret_cast<std::uintptr_t>(group)));
}

std::size_t PlaceSize(std::string_view text) { return text.data() == nullptr ? 0 : text.size() + 1; }

/// Copies a text to `place`; null for no text.
const char* Place(char*& place, std::string_view text) {
    return text.data() == nullptr ? nullptr : PlaceText(place, text.data(), text.size());
}

const VALUEDATETIME* Place(char*& place, const VALUEDATETIME* version) {
    if (version == nullptr)
        return nullptr;
    auto* copy = new (place) VALUEDATETIME(*version);
    place += sizeof *version;
    return copy;
}

} // namespace

std::string_view TrimSpaces(const char* text) {
    if (text == nullptr)
        return {};
    std::string_view trimmed = text;
    while (!trimmed.empty() && trimmed.front() == ' ')
        trimmed.remove_prefix(1);
    while (!trimmed.empty() && trimmed.back() == ' ')
        trimmed.remove_suffix(1);
    return trimmed;
}

// ---------------------------------------------------------------- groups and concepts

void ContextGroupTree::FreeTexts(DICOMLINK* node) {
    // Everything else stands behind the record.
    if (HeaderOf(node)->isSecondKind)
        FreeText(node, ConceptOf(node)->pszCodeMeaning);
}

DICOMCONTEXTGROUP* ContextGroupTree::Add(std::string_view cid, std::string_view name, unsigned int extensible,
                                         const VALUEDATETIME& version) {
    const std::size_t size = sizeof(DICOMCONTEXTGROUP) + PlaceSize(cid) + PlaceSize(name) + sizeof version;
    DICOMLINK* node = Insert(nullptr, size, DICOM_TREE_LAST_SIBLING);
    if (node == nullptr)
        return nullptr;
    DICOMCONTEXTGROUP* group = GroupOf(node);
    char* place = reinterpret_cast<char*>(group + 1);
    group->pszContextIdentifier = Place(place, cid);
    group->pszName = Place(place, name);
    group->bExtensible = extensible;
    group->pVersion = Place(place, &version);
    HeaderOf(node)->isEntry = true;
    if (Index(node, GroupKey(cid)))
        return group;
    Delete(node);
    return nullptr;
}

DICOMCODEDCONCEPT* ContextGroupTree::AddConcept(DICOMCONTEXTGROUP* group, const ConceptTexts& texts,
                                                const VALUEDATETIME* localVersion) {
    std::size_t size = sizeof(DICOMCODEDCONCEPT) + (localVersion == nullptr ? 0 : sizeof *localVersion);
    for (const std::string_view text : {texts.designator, texts.version, texts.value, texts.meaning, texts.creator})
        size += PlaceSize(text);
    DICOMLINK* node = Insert(LinkOf(group), size, DICOM_TREE_LAST_CHILD);
    if (node == nullptr)
        return nullptr;
    DICOMCODEDCONCEPT* codedConcept = ConceptOf(node);
    char* place = reinterpret_cast<char*>(codedConcept + 1);
    codedConcept->pszCodingSchemeDesignator = Place(place, texts.designator);
    codedConcept->pszCodingSchemeVersion = Place(place, texts.version);
    codedConcept->pszCodeValue = Place(place, texts.value);
    codedConcept->pszCodeMeaning = Place(place, texts.meaning);
    codedConcept->pContextGroupLocalVersion = Place(place, localVersion);
    codedConcept->pszContextGroupExtensionCreatorUID = Place(place, texts.creator);
    HeaderOf(node)->isEntry = true;
    HeaderOf(node)->isSecondKind = true;
    if (Index(node, ConceptKey(group, texts.designator, texts.value)))
        return codedConcept;
    Delete(node);
    return nullptr;
}

DICOMCONTEXTGROUP* ContextGroupTree::Remove(DICOMCONTEXTGROUP* group) {
    if (group == nullptr)
        return nullptr;
    DICOMLINK* const node = LinkOf(group);
    while (node->pFirstChild != nullptr)
        Delete(node->pFirstChild);
    DICOMLINK* const neighbour = node->pNext != nullptr ? node->pNext : node->pPrev;
    Delete(node);
    return GroupOf(neighbour);
}

DICOMCODEDCONCEPT* ContextGroupTree::RemoveConcept(DICOMCODEDCONCEPT* codedConcept) {
    if (codedConcept == nullptr)
        return nullptr;
    DICOMLINK* const node = LinkOf(codedConcept);
    DICOMLINK* const neighbour = node->pNext != nullptr ? node->pNext : node->pPrev;
    Delete(node);
    return ConceptOf(neighbour);
}

bool ContextGroupTree::SetMeaning(DICOMCODEDCONCEPT* codedConcept, std::string_view meaning) {
    char* copy = new (std::nothrow) char[meaning.size() + 1];
    if (copy == nullptr)
        return false;
    char* place = copy;
    Place(place, meaning);
    FreeText(LinkOf(codedConcept), codedConcept->pszCodeMeaning);
    codedConcept->pszCodeMeaning = copy;
    return true;
}

DICOMCONTEXTGROUP* ContextGroupTree::Find(std::string_view cid) const {
    // Different texts may have the same hash.
    IndexLink* link = m_index.Find(GroupKey(cid));
    while (link != nullptr &&
           (NodeOf(link)->pParent != nullptr || !EqualIgnoringCase(GroupOf(NodeOf(link))->pszContextIdentifier, cid)))
        link = link->nextSameKey;
    return GroupOf(NodeOf(link));
}

DICOMCODEDCONCEPT* ContextGroupTree::FindConcept(DICOMCONTEXTGROUP* group, std::string_view designator,
                                                 std::string_view value) const {
    const auto matches = [&](DICOMLINK* node) {
        return node->pParent == LinkOf(group) &&
               EqualIgnoringCase(ConceptOf(node)->pszCodingSchemeDesignator, designator) &&
               EqualIgnoringCase(ConceptOf(node)->pszCodeValue, value);
    };
    IndexLink* link = m_index.Find(ConceptKey(group, designator, value));
    while (link != nullptr && !matches(NodeOf(link)))
        link = link->nextSameKey;
    return ConceptOf(NodeOf(link));
}

// ---------------------------------------------------------------- built-in groups

std::size_t ContextGroupTree::RowOf(std::string_view cid) const {
    std::size_t row = 0;
    while (row < m_builtIn.count && !EqualIgnoringCase(BuiltInCID(row), cid))
        ++row;
    return row;
}

unsigned int ContextGroupTree::Load(const char* cid) {
    if (cid == nullptr) {
        for (std::size_t row = 0; row < m_builtIn.count; ++row) {
            if (Find(BuiltInCID(row)) == nullptr && !LoadConcepts(row, nullptr, true))
                return DICOM_ERROR_MEMORY;
        }
        return DICOM_OK;
    }
    const std::string_view trimmed = TrimSpaces(cid);
    if (Find(trimmed) != nullptr)
        return DICOM_OK;
    const std::size_t row = RowOf(trimmed);
    if (row == m_builtIn.count)
        return DICOM_ERROR_PARAMETER;
    return LoadConcepts(row, nullptr, true) ? DICOM_OK : DICOM_ERROR_MEMORY;
}

bool ContextGroupTree::LoadConcepts(std::size_t row, DICOMCONTEXTGROUP* group, bool deleteOnFailure) {
    if (row >= m_builtIn.count)
        return false;
    if (group == nullptr) {
        const ContextGroupRow& facts = m_builtIn.rows[row];
        VALUEDATETIME version{};
        version.nYear = facts.year;
        version.nMonth = facts.month;
        version.nDay = facts.day;
        const std::string_view cid = BuiltInCID(row);
        group = Add(cid, cid.data() + cid.size() + 1, facts.extensible, version);
        if (group == nullptr)
            return false;
        deleteOnFailure = true;
    }
    return LoadRow(row, group, deleteOnFailure, nullptr);
}

/// The groups whose inclusion led here.
struct ContextGroupTree::Inclusion {
    std::size_t row;
    const Inclusion* within;
};

bool ContextGroupTree::LoadRow(std::size_t row, DICOMCONTEXTGROUP* group, bool deleteOnFailure,
                               const Inclusion* within) {
    const ContextGroupRow& facts = m_builtIn.rows[row];
    for (std::size_t i = 0; i < facts.concepts; ++i) {
        const std::string_view designator = m_builtIn.texts + m_builtIn.concepts[facts.firstConcept + i];
        const std::string_view value = designator.data() + designator.size() + 1;
        const std::string_view meaning = value.data() + value.size() + 1;
        if (AddConcept(group, {designator, {}, value, meaning, {}}, nullptr) == nullptr) {
            if (deleteOnFailure)
                Remove(group);
            return false;
        }
    }
    const Inclusion here{row, within};
    for (const std::uint8_t number : facts.included) {
        if (number == 0)
            break;
        const std::size_t included = number - std::size_t{1};
        // A group that would include itself is taken once.
        const Inclusion* above = &here;
        while (above != nullptr && above->row != included)
            above = above->within;
        if (above == nullptr && !LoadRow(included, group, deleteOnFailure, &here))
            return false;
    }
    return true;
}

bool ContextGroupTree::Restore(DICOMCONTEXTGROUP* group) {
    const std::size_t row = RowOf(group->pszContextIdentifier);
    if (row == m_builtIn.count)
        return true;
    while (group->Link.pFirstChild != nullptr)
        Delete(group->Link.pFirstChild);
    return LoadConcepts(row, group, false);
}

} // namespace vdicom

using vdicom::ConceptOf;
using vdicom::ContextGroups;
using vdicom::GroupOf;
using vdicom::TrimSpaces;

unsigned int VDicomContextGroup::Load(const char* pszContextIdentifier) {
    return ContextGroups().Load(pszContextIdentifier);
}

unsigned int VDicomContextGroup::LoadCodedConcepts(VDicomULong row, DICOMCONTEXTGROUP* group,
                                                   unsigned int deleteOnFailure) {
    return ContextGroups().LoadConcepts(row, group, deleteOnFailure != 0) ? 1 : 0;
}

void VDicomContextGroup::Reset() { ContextGroups().Reset(); }

unsigned int VDicomContextGroup::Default(DICOMCONTEXTGROUP* group) {
    if (group != nullptr)
        return ContextGroups().Restore(group) ? 1 : 0;
    for (group = GetFirst(); group != nullptr; group = GetNext(group)) {
        if (!ContextGroups().Restore(group))
            return 0;
    }
    return 1;
}

DICOMCONTEXTGROUP* VDicomContextGroup::Insert(const char* pszContextIdentifier, const char* pszName,
                                              unsigned int bExtensible, const VALUEDATETIME* pVersion,
                                              unsigned short nFlags) {
    const std::string_view cid = TrimSpaces(pszContextIdentifier);
    const std::string_view name = TrimSpaces(pszName);
    if (pVersion == nullptr || cid.empty() || name.empty())
        return nullptr;
    if ((nFlags & DICOM_CONTEXT_GROUP_UNIQUE) != 0 && ContextGroups().Find(cid) != nullptr)
        return nullptr;
    return ContextGroups().Add(cid, name, bExtensible, *pVersion);
}

DICOMCONTEXTGROUP* VDicomContextGroup::Delete(DICOMCONTEXTGROUP* group) { return ContextGroups().Remove(group); }

unsigned int VDicomContextGroup::Exists(const DICOMCONTEXTGROUP* group) {
    const DICOMCONTEXTGROUP* other = GetFirst();
    while (other != nullptr && other != group)
        other = GroupOf(other->Link.pNext);
    return other != nullptr ? 1 : 0;
}

DICOMCONTEXTGROUP* VDicomContextGroup::GetFirst() { return GroupOf(ContextGroups().GetFirst(nullptr, 1)); }

DICOMCONTEXTGROUP* VDicomContextGroup::GetLast() { return GroupOf(ContextGroups().GetLast(nullptr, 1)); }

DICOMCONTEXTGROUP* VDicomContextGroup::GetNext(DICOMCONTEXTGROUP* group) {
    return group == nullptr ? nullptr : GroupOf(group->Link.pNext);
}

DICOMCONTEXTGROUP* VDicomContextGroup::GetPrev(DICOMCONTEXTGROUP* group) {
    return group == nullptr ? nullptr : GroupOf(group->Link.pPrev);
}

VDicomULong VDicomContextGroup::GetCount() { return ContextGroups().GetCount(nullptr, 1); }

DICOMCONTEXTGROUP* VDicomContextGroup::Find(const char* pszContextIdentifier) {
    return ContextGroups().Find(TrimSpaces(pszContextIdentifier));
}

DICOMCONTEXTGROUP* VDicomContextGroup::FindIndex(VDicomULong index) {
    return GroupOf(ContextGroups().FindIndex(nullptr, 1, index));
}

DICOMCODEDCONCEPT* VDicomContextGroup::GetFirstCodedConcept(DICOMCONTEXTGROUP* group) {
    return group == nullptr ? nullptr : ConceptOf(group->Link.pFirstChild);
}

DICOMCODEDCONCEPT* VDicomContextGroup::GetLastCodedConcept(DICOMCONTEXTGROUP* group) {
    return group == nullptr ? nullptr : ConceptOf(group->Link.pLastChild);
}

DICOMCODEDCONCEPT* VDicomContextGroup::GetNextCodedConcept(DICOMCODEDCONCEPT* codedConcept) {
    return codedConcept == nullptr ? nullptr : ConceptOf(codedConcept->Link.pNext);
}

DICOMCODEDCONCEPT* VDicomContextGroup::GetPrevCodedConcept(DICOMCODEDCONCEPT* codedConcept) {
    return codedConcept == nullptr ? nullptr : ConceptOf(codedConcept->Link.pPrev);
}

VDicomULong VDicomContextGroup::GetCountCodedConcept(DICOMCONTEXTGROUP* group) {
    VDicomULong count = 0;
    for (DICOMCODEDCONCEPT* at = GetFirstCodedConcept(group); at != nullptr; at = GetNextCodedConcept(at))
        ++count;
    return count;
}

DICOMCONTEXTGROUP* VDicomContextGroup::GetContextGroup(DICOMCODEDCONCEPT* codedConcept) {
    return codedConcept == nullptr ? nullptr : GroupOf(codedConcept->Link.pParent);
}

DICOMCODEDCONCEPT* VDicomContextGroup::InsertCodedConcept(DICOMCONTEXTGROUP* group, const char* pszDesignator,
                                                          const char* pszVersion, const char* pszValue,
                                                          const char* pszMeaning, const VALUEDATETIME* pLocalVersion,
                                                          const char* pszCreatorUID, unsigned short nFlags) {
    const vdicom::ContextGroupTree::ConceptTexts texts = {TrimSpaces(pszDesignator), TrimSpaces(pszVersion),
                                                          TrimSpaces(pszValue), TrimSpaces(pszMeaning),
                                                          TrimSpaces(pszCreatorUID)};
    if (group == nullptr || texts.designator.empty() || texts.value.empty() || texts.meaning.empty())
        return nullptr;
    if ((pszVersion != nullptr && texts.version.empty()) || (pszCreatorUID != nullptr && texts.creator.empty()))
        return nullptr;
    if ((nFlags & DICOM_CONTEXT_GROUP_UNIQUE) != 0 &&
        ContextGroups().FindConcept(group, texts.designator, texts.value) != nullptr)
        return nullptr;
    return ContextGroups().AddConcept(group, texts, pLocalVersion);
}

DICOMCODEDCONCEPT* VDicomContextGroup::DeleteCodedConcept(DICOMCODEDCONCEPT* codedConcept) {
    return ContextGroups().RemoveConcept(codedConcept);
}

unsigned int VDicomContextGroup::ExistsCodedConcept(const DICOMCODEDCONCEPT* codedConcept) {
    for (DICOMCONTEXTGROUP* group = GetFirst(); group != nullptr; group = GetNext(group)) {
        for (DICOMCODEDCONCEPT* at = GetFirstCodedConcept(group); at != nullptr; at = GetNextCodedConcept(at)) {
            if (at == codedConcept)
                return 1;
        }
    }
    return 0;
}

DICOMCODEDCONCEPT* VDicomContextGroup::FindCodedConcept(DICOMCONTEXTGROUP* group, const char* pszDesignator,
                                                        const char* pszValue) {
    return group == nullptr ? nullptr
                            : ContextGroups().FindConcept(group, TrimSpaces(pszDesignator), TrimSpaces(pszValue));
}

DICOMCODEDCONCEPT* VDicomContextGroup::FindIndexCodedConcept(DICOMCONTEXTGROUP* group, VDicomULong index) {
    DICOMCODEDCONCEPT* at = GetFirstCodedConcept(group);
    for (; at != nullptr && index != 0; --index)
        at = GetNextCodedConcept(at);
    return at;
}

unsigned int VDicomContextGroup::SetCodeMeaning(DICOMCODEDCONCEPT* codedConcept, const char* pszMeaning) {
    const std::string_view meaning = TrimSpaces(pszMeaning);
    return codedConcept != nullptr && !meaning.empty() && ContextGroups().SetMeaning(codedConcept, meaning) ? 1 : 0;
}

VDicomULong VDicomContextGroup::GetCountBuiltIn() { return static_cast<VDicomULong>(ContextGroups().BuiltIn().count); }

const char* VDicomContextGroup::GetBuiltIn(VDicomULong row) {
    return row < GetCountBuiltIn() ? ContextGroups().BuiltInCID(row) : nullptr;
}

const char* VDicomContextGroup::GetIncluded(VDicomULong row, VDicomULong index) {
    if (row >= GetCountBuiltIn())
        return nullptr;
    const auto& included = ContextGroups().BuiltIn().rows[row].included;
    for (VDicomULong i = 0; i < sizeof included && included[i] != 0; ++i) {
        if (i == index)
            return GetBuiltIn(included[i] - VDicomULong{1});
    }
    return nullptr;
}
