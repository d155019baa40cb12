/// @file IODTree.h
/// The tree behind VDicomIOD.
#pragma once

#include "EntryTree.h"
#include "TableList.h"
#include "VDicomIOD.h"

#include <atomic>
#include <mutex>

namespace vdicom {

/// Built-in nodes stand in two blocks, one for classes and modules (with a header each, for the index) and one for
/// elements (without), and point to the built-in texts themselves; nodes inserted later own their texts.
///
/// A new tree is pending: the first operation that needs its nodes builds the built-in ones, unless Reset came before.
class IODTree final : public EntryTree {
public:
    ~IODTree() override { Reset(); }

    /// Builds the built-in tree anew, with the names that the tag dictionary has now. False when memory ran out; what
    /// could be made is there.
    bool Fill();
    /// Builds a pending tree, with the built-in names. Many threads may come here at the same time.
    void Prepare() const override {
        if (m_pending.load(std::memory_order_acquire))
            const_cast<IODTree*>(this)->FillPending();
    }
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

    void FillPending();
    bool Fill(const Filling& filling);
    bool FillLevel(const Filling& filling, DICOMLINK* parent, DICOMLINK* root, std::size_t array);
    DICOMIOD* TakeNode(signed char type);
    bool MergeLevel(DICOMIOD* parent, const DICOMIODROW* rows, const Merging* above);
    bool IndexInOrder(DICOMIOD* node);
    DICOMIOD* FindModule(DICOMLINK* root, VDicomULong number) const;
    const char* OwnText(const char* text);
    void FreeNodeText(DICOMLINK* node, const char* text) const;

    RowBlock m_heads;
    RowBlock m_elements;
    std::atomic<bool> m_pending = true; ///< not built yet, and not reset
    std::mutex m_building;
    bool m_ownsMore = false; ///< there may be nodes or texts that do not stand in the blocks
};

} // namespace vdicom
