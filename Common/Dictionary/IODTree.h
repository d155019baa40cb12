/// @file IODTree.h
/// The tree behind VDicomIOD.
#pragma once

#include "EntryTree.h"
#include "TableList.h"
#include "VDicomIOD.h"

namespace vdicom {

/// Built-in nodes stand in two blocks, one for classes and modules (with a header each, for the index) and one for
/// elements (without), and point to the built-in texts themselves; nodes inserted later own their texts.
class IODTree final : public EntryTree {
public:
    ~IODTree() override { Reset(); }

    /// Builds the built-in tree. False when memory ran out; what could be made is there.
    bool Fill();
    void Reset();
    bool Merge(DICOMIOD* parent, const DICOMIODROW* rows);
    DICOMIOD* Add(DICOMIOD* reference, bool asChild, const DICOMIODROW& row);
    DICOMIOD* Remove(DICOMIOD* node);
    bool SetName(DICOMIOD* node, const char* name);
    bool SetDescription(DICOMIOD* node, const char* description);

    DICOMIOD* FindClass(VDicomULong number) const;
    DICOMIOD* FindBelow(DICOMIOD* node, VDicomULong code, signed char type) const;

    static DICOMIOD* RecordOf(DICOMLINK* node) { return reinterpret_cast<DICOMIOD*>(node); }
    static DICOMLINK* LinkOf(DICOMIOD* record) { return reinterpret_cast<DICOMLINK*>(record); }

protected:
    void* Allocate(std::size_t size) override;
    void Free(void* block) override;
    void FreeTexts(DICOMLINK* node) override;

private:
    struct Filling;
    struct Merging;

    bool FillLevel(const Filling& filling, DICOMLINK* parent, DICOMLINK* root, std::size_t array);
    DICOMIOD* TakeNode(signed char type);
    bool MergeLevel(DICOMIOD* parent, const DICOMIODROW* rows, const Merging* above);
    bool IndexInOrder(DICOMIOD* node);
    DICOMIOD* FindModule(DICOMLINK* root, VDicomULong number) const;
    const char* OwnText(const char* text);
    void FreeNodeText(DICOMLINK* node, const char* text) const;

    RowBlock m_heads;
    RowBlock m_elements;
    bool m_ownsMore = false; ///< there may be nodes or texts that do not stand in the blocks
};

} // namespace vdicom
