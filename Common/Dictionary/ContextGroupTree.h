/// @file ContextGroupTree.h
/// The tree behind VDicomContextGroup.
#pragma once

#include "ContextGroupRows.h"
#include "EntryTree.h"
#include "VDicomContextGroup.h"

#include <string_view>

namespace vdicom {

/// Groups at the top, concepts below them; both in the index. Texts are passed in without the spaces at their ends.
class ContextGroupTree final : public EntryTree {
public:
    explicit ContextGroupTree(const ContextGroupTable& table) : m_builtIn(table) {}
    ~ContextGroupTree() override { Reset(); }

    struct ConceptTexts {
        std::string_view designator;
        std::string_view version; ///< no data: none
        std::string_view value;
        std::string_view meaning;
        std::string_view creator; ///< no data: none
    };

    unsigned int Load(const char* cid);
    bool LoadConcepts(std::size_t row, DICOMCONTEXTGROUP* group, bool deleteOnFailure);
    bool Restore(DICOMCONTEXTGROUP* group);
    void Reset() { Clear(); }

    DICOMCONTEXTGROUP* Add(std::string_view cid, std::string_view name, unsigned int extensible,
                           const VALUEDATETIME& version);
    DICOMCODEDCONCEPT* AddConcept(DICOMCONTEXTGROUP* group, const ConceptTexts& texts,
                                  const VALUEDATETIME* localVersion);
    DICOMCONTEXTGROUP* Remove(DICOMCONTEXTGROUP* group);
    DICOMCODEDCONCEPT* RemoveConcept(DICOMCODEDCONCEPT* codedConcept);
    bool SetMeaning(DICOMCODEDCONCEPT* codedConcept, std::string_view meaning);

    DICOMCONTEXTGROUP* Find(std::string_view cid) const;
    DICOMCODEDCONCEPT* FindConcept(DICOMCONTEXTGROUP* group, std::string_view designator, std::string_view value) const;

    const ContextGroupTable& BuiltIn() const { return m_builtIn; }
    const char* BuiltInCID(std::size_t row) const { return m_builtIn.texts + m_builtIn.rows[row].text; }

protected:
    void FreeTexts(DICOMLINK* node) override;

private:
    struct Inclusion;

    /// The built-in group with this CID, or the number of groups.
    std::size_t RowOf(std::string_view cid) const;
    bool LoadRow(std::size_t row, DICOMCONTEXTGROUP* group, bool deleteOnFailure, const Inclusion* within);

    const ContextGroupTable& m_builtIn;
};

/// A text without the spaces (0x20 alone) at its ends; no data for null.
std::string_view TrimSpaces(const char* text);

} // namespace vdicom
