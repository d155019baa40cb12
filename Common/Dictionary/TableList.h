/// @file TableList.h
/// The lists behind the process-wide tables: entries with an index link, and one block of memory for built-in rows.
#pragma once

#include "BuiltInRows.h"
#include "TableIndex.h"
#include "VDicomTag.h"
#include "VDicomUID.h"
#include "VDicomVR.h"

#include <cstring>

namespace vdicom {

/// Memory for the nodes and texts of all built-in rows in one allocation. It is given back with its last node; a text
/// lives as long as its block.
class RowBlock {
public:
    RowBlock() = default;
    ~RowBlock() { Release(); }
    RowBlock(const RowBlock&) = delete;
    RowBlock& operator=(const RowBlock&) = delete;

    /// Makes room for `nodes` nodes of `nodeSize` bytes and copies the texts. False when memory is exhausted, or while
    /// nodes of an earlier block are in use.
    bool Reserve(std::size_t nodes, std::size_t nodeSize, const char* texts, std::size_t textSize);
    /// No further node is taken: the block lives by those that were.
    void Close();
    /// The next node, 8-byte aligned, or null when there is none left or it would be too small.
    void* TakeNode(std::size_t size);
    void GiveBackNode();
    /// Gives back everything, nodes in use among it.
    void Release();
    bool Holds(const void* place) const;
    char* Texts() const { return m_texts; }

private:
    unsigned char* m_begin = nullptr;
    unsigned char* m_next = nullptr;
    char* m_texts = nullptr; ///< behind the nodes
    const char* m_end = nullptr;
    std::size_t m_nodeSize = 0;
    std::size_t m_used = 0; ///< nodes in use, and one while the block is open
};

/// What stands before every record of a table.
struct alignas(8) EntryHeader {
    IndexLink index;
    bool isEntry; ///< the record is filled: its texts are the list's to free
};

/// A copy of a text, or null when memory is exhausted.
char* CopyText(const char* text);

/// A list of records that begin with a DICOMLINK and have a pszName.
template <class Record> class TableList : public VDicomTree {
public:
    Record* First() const { return RecordOf(m_pFirst); }
    static Record* Next(Record* entry) { return entry == nullptr ? nullptr : RecordOf(entry->Link.pNext); }
    static Record* Previous(Record* entry) { return entry == nullptr ? nullptr : RecordOf(entry->Link.pPrev); }

    Record* Remove(Record* entry) {
        if (entry == nullptr)
            return nullptr;
        Record* neighbour = Next(entry) != nullptr ? Next(entry) : Previous(entry);
        Delete(&entry->Link);
        return neighbour;
    }

    void Reset() {
        while (m_pFirst != nullptr)
            Delete(m_pFirst);
    }

    bool SetName(Record* entry, const char* name) {
        if (entry == nullptr || name == nullptr)
            return false;
        char* copy = CopyText(name);
        if (copy == nullptr)
            return false;
        FreeText(entry->pszName);
        entry->pszName = copy;
        return true;
    }

protected:
    static EntryHeader* HeaderOf(Record* entry) { return reinterpret_cast<EntryHeader*>(entry) - 1; }
    static Record* RecordOf(DICOMLINK* link) { return reinterpret_cast<Record*>(link); }
    static Record* RecordOf(IndexLink* link) {
        return link == nullptr ? nullptr : reinterpret_cast<Record*>(reinterpret_cast<EntryHeader*>(link) + 1);
    }

    /// Takes an entry out of the index.
    virtual void Unindex(Record* entry) = 0;
    virtual void FreeTexts(Record* entry) { FreeText(entry->pszName); }

    /// Appends a node; fill its record and call Finish.
    Record* Append() {
        Record* entry = RecordOf(Insert(nullptr, sizeof(Record), DICOM_TREE_LAST_SIBLING));
        if (entry != nullptr)
            HeaderOf(entry)->index.order = ++m_order;
        return entry;
    }
    /// Makes a filled record an entry, or deletes its node when it could not be indexed.
    Record* Finish(Record* entry, bool indexed) {
        HeaderOf(entry)->isEntry = true;
        if (indexed)
            return entry;
        Delete(&entry->Link);
        return nullptr;
    }

    /// Opens a block for the rows of a table; without memory for it every row takes its own.
    template <class Row> void OpenBlock(const BuiltInTable<Row>& table) {
        m_block.Reserve(table.count, NodeSize(sizeof(Record)), table.texts, table.textSize);
    }
    void CloseBlock() { m_block.Close(); }
    /// The text at `offset` of a table's texts: the block's copy, else one of its own. Null when memory is exhausted.
    char* RowText(const char* texts, std::size_t offset) {
        return m_block.Texts() != nullptr ? m_block.Texts() + offset : CopyText(texts + offset);
    }

    void FreeText(char* text) {
        if (!m_block.Holds(text))
            delete[] text; // NOLINT(clang-analyzer-cplusplus.NewDelete): cannot tell that the block's texts differ
    }

    void* Allocate(std::size_t size) override {
        void* block = m_block.TakeNode(NodeSize(size));
        if (block == nullptr)
            block = VDicomTree::Allocate(NodeSize(size));
        return block == nullptr ? nullptr : new (block) EntryHeader{} + 1;
    }

    void Free(void* node) override {
        auto* entry = static_cast<Record*>(node);
        EntryHeader* header = HeaderOf(entry);
        if (header->index.IsIndexed())
            Unindex(entry);
        if (header->isEntry)
            FreeTexts(entry);
        if (m_block.Holds(header))
            m_block.GiveBackNode();
        else
            VDicomTree::Free(header);
    }

private:
    static constexpr std::size_t NodeSize(std::size_t size) {
        constexpr std::size_t alignment = alignof(EntryHeader);
        return (sizeof(EntryHeader) + size + alignment - 1) / alignment * alignment;
    }

    RowBlock m_block;
    std::uint64_t m_order = 0;
};

class TagList final : public TableList<DICOMTAG> {
public:
    ~TagList() override { Reset(); }
    DICOMTAG* Add(VDicomULong code, VDicomULong mask, const char* name, unsigned short vr, VDicomULong minVM,
                  VDicomULong maxVM, VDicomULong divideVM);
    DICOMTAG* Fill();
    DICOMTAG* Find(VDicomULong tag) const { return RecordOf(m_index.Find(tag)); }

protected:
    void Unindex(DICOMTAG* entry) override;

private:
    /// Appends an entry that takes over `name`.
    DICOMTAG* AddOwned(const TagRow& row, char* name);
    MaskedIndex m_index;
};

class VRList final : public TableList<DICOMVR> {
public:
    ~VRList() override { Reset(); }
    DICOMVR* Add(unsigned short code, const char* name, VDicomULong length, unsigned short restrict,
                 unsigned short unitSize);
    DICOMVR* Fill();
    DICOMVR* Find(unsigned short code) const { return RecordOf(m_index.Find(code)); }

protected:
    void Unindex(DICOMVR* entry) override;

private:
    DICOMVR* AddOwned(const VRRow& row, char* name);
    TableIndex m_index;
};

class UIDList final : public TableList<DICOMUID> {
public:
    ~UIDList() override { Reset(); }
    DICOMUID* Add(const char* code, const char* name, VDicomLong type);
    DICOMUID* Fill();
    DICOMUID* Find(const char* code) const;

protected:
    void Unindex(DICOMUID* entry) override;
    void FreeTexts(DICOMUID* entry) override;

private:
    DICOMUID* AddOwned(const UIDRow& row, char* code, char* name);
    TableIndex m_index; ///< by hash of the text
};

} // namespace vdicom
