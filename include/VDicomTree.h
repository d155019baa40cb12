/// @file VDicomTree.h
/// VDicomTree and VDicomTreeEx: the container of every list and tree of the library.
#pragma once

#include "VDicomTypes.h"

/// Where VDicomTree::Insert puts a new node, seen from the reference node.
enum DICOMTREEPOSITION : unsigned int {
    DICOM_TREE_FIRST_CHILD = 0,   ///< first child (null reference: first of the top level)
    DICOM_TREE_LAST_CHILD = 1,    ///< last child (null reference: last of the top level)
    DICOM_TREE_FIRST_SIBLING = 2, ///< first of the reference node's level
    DICOM_TREE_LAST_SIBLING = 3,  ///< last of the reference node's level
    DICOM_TREE_AFTER = 4,         ///< directly behind the reference node
    DICOM_TREE_BEFORE = 5         ///< directly before the reference node
};

/// A tree of nodes that begin with a DICOMLINK. A null reference node means the top level.
///
/// Walks take a flag. Set (non-zero): only among siblings. Clear: the whole tree in pre-order, a node before its
/// children. No operation locks; one thread at a time may change a tree, and nobody may read it meanwhile.
class VDICOM_API VDicomTree {
public:
    VDicomTree();
    /// Frees every node.
    virtual ~VDicomTree();
    VDicomTree(const VDicomTree&) = delete;
    VDicomTree& operator=(const VDicomTree&) = delete;

    /// Makes a zero-filled node of `size` bytes (at least a DICOMLINK) and links it.
    /// @param position DICOMTREEPOSITION @return the node, owned by the tree; null when memory is exhausted or an
    ///        argument is wrong (size too small, unknown position)
    DICOMLINK* Insert(DICOMLINK* reference, std::size_t size, unsigned int position);
    /// Unlinks a node and frees it. Its children are not touched: delete them first. Null is ignored.
    void Delete(DICOMLINK* node);

    /// First node: of the reference node's level (flag set) or of the tree.
    DICOMLINK* GetFirst(DICOMLINK* reference, unsigned int siblingOnly) const;
    /// Last node: of the reference node's level (flag set), or the last in pre-order.
    DICOMLINK* GetLast(DICOMLINK* reference, unsigned int siblingOnly) const;
    /// The node after `node`, or null.
    DICOMLINK* GetNext(DICOMLINK* node, unsigned int siblingOnly) const;
    /// The node before `node`, or null.
    DICOMLINK* GetPrev(DICOMLINK* node, unsigned int siblingOnly) const;
    /// The ancestor at the top level; `node` itself when it stands there.
    DICOMLINK* GetRoot(DICOMLINK* node) const;
    /// The enclosing node, or null.
    DICOMLINK* GetParent(DICOMLINK* node) const;
    /// The first child, or null.
    DICOMLINK* GetChild(DICOMLINK* node) const;
    /// 1 when `node` is in this tree, else 0. Compares addresses only: a stale pointer is safe to ask about.
    virtual unsigned int Exists(const DICOMLINK* node) const;
    /// Number of ancestors: 0 at the top level, and for null.
    VDicomULong GetLevel(const DICOMLINK* node) const;
    /// Number of nodes that a walk from GetFirst(reference, siblingOnly) visits.
    VDicomULong GetCount(DICOMLINK* reference, unsigned int siblingOnly) const;
    /// The node reached after `index` steps of that walk (0 is the first), or null.
    DICOMLINK* FindIndex(DICOMLINK* reference, unsigned int siblingOnly, VDicomULong index) const;

protected:
    /// Memory for one node; the base class takes it from `operator new`.
    virtual void* Allocate(std::size_t size);
    /// Gives back what Allocate returned.
    virtual void Free(void* block);
    /// Called before an operation reads or changes the top level: a tree that is filled on first use fills itself here.
    /// The base class does nothing.
    virtual void Prepare() const;

    /// Links a node that is in no tree; false when `position` is unknown.
    bool Link(DICOMLINK* node, DICOMLINK* reference, unsigned int position);
    /// Takes a node out of its level; it keeps its children.
    void Unlink(DICOMLINK* node);
    /// Frees every node of the tree through Free. A derived class that overrides Free calls it in its destructor.
    void Clear();

    DICOMLINK* m_pFirst; ///< first top-level node
    DICOMLINK* m_pLast;  ///< last top-level node
};

/// The same container with nodes from the ordinary process heap (malloc and free).
class VDICOM_API VDicomTreeEx : public VDicomTree {
public:
    ~VDicomTreeEx() override;

protected:
    void* Allocate(std::size_t size) override;
    void Free(void* block) override;
};
