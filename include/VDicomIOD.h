/// @file VDicomIOD.h
/// VDicomIOD: the process-wide table of information object definitions: classes, their modules, their elements.
#pragma once

#include "VDicomTree.h"

/// What a node of the table is (DICOMIOD::nType).
enum DICOMIODTYPE : signed char {
    DICOM_IOD_CLASS = 0,  ///< a SOP class, or a level of the query/retrieve models
    DICOM_IOD_MODULE = 1, ///< a module (PS3.3 C) of the class above it
    DICOM_IOD_ELEMENT = 2 ///< an attribute of the module, sequence or query level above it
};

/// What DICOMIOD::nUsage says, by the kind of the node.
enum DICOMIODUSAGE : unsigned short {
    DICOM_MODULE_MANDATORY = 0,   ///< module: M (PS3.3 A.1.3)
    DICOM_MODULE_CONDITIONAL = 1, ///< module: C
    DICOM_MODULE_USER = 2,        ///< module: U
    DICOM_KEY_UNIQUE = 0,         ///< element of a query level: unique key (PS3.4 C.2.2.1)
    DICOM_KEY_REQUIRED = 1,       ///< element of a query level: required key
    DICOM_KEY_OPTIONAL = 2,       ///< element of a query level: optional key
    DICOM_ELEMENT_1 = 3,          ///< element: type 1, present with a value (PS3.5 7.4)
    DICOM_ELEMENT_1C = 4,         ///< element: type 1C
    DICOM_ELEMENT_2 = 5,          ///< element: type 2, present, may be empty
    DICOM_ELEMENT_2C = 6,         ///< element: type 2C
    DICOM_ELEMENT_3 = 7,          ///< element: type 3, optional
    DICOM_CLASS_USAGE = 2         ///< every built-in class carries it; it means nothing
};

/// "No class": an unknown UID, or none (VDicomDS::GetClass).
constexpr VDicomULong DICOM_NO_CLASS = 65535;
/// The class number of the media storage directory.
constexpr VDicomULong DICOM_CLASS_BASIC_DIRECTORY = 71;

#pragma pack(push, 1)
/// One class, module or element (PS3.3). Its texts are the table's: they stay as they are until SetName,
/// SetDescription or the deletion of the node, and are changed through those alone (nodes may share equal texts).
struct DICOMIOD {
    DICOMLINK Link;
    VDicomULong nCode;          ///< class number, module number or tag
    const char* pszName;        ///< name of the class, module or attribute
    signed char nType;          ///< DICOMIODTYPE
    unsigned short nUsage;      ///< DICOMIODUSAGE
    const char* pszDescription; ///< never null. Class: its SOP Class UID (several: separated by backslashes; empty for
                                ///< a query level). Element: values, number of items and context group where known
};
#pragma pack(pop)

/// One row of an array for VDicomIOD::Default. An array ends with a row whose name is empty (or null).
struct DICOMIODROW {
    signed char nType;            ///< DICOMIODTYPE
    const DICOMIODROW* pChildren; ///< the rows one level down, or null
    VDicomULong nCode;
    const char* pszName;
    unsigned short nUsage;      ///< DICOMIODUSAGE
    const char* pszDescription; ///< must not be null
};

/// The table of information object definitions: one tree, classes at the top. All members are static.
///
/// A class's children are its modules, or elements where it is a query level; a module's children are its elements; a
/// sequence's children are the elements of its items. Classes are numbered from 0 on (112 built-in ones), modules too
/// (228 of them); a module has the same number in every class that holds it.
///
/// The built-in tree is built by the first operation that needs it (0.5 to 2 ms and 3 MB, once; a process that never
/// asks pays nothing), as if it had been there since the library was loaded: its elements have the built-in names,
/// whatever VDicomTag says by then. Where memory runs out meanwhile nodes are missing; Default() tells, and tries
/// again. Nodes are pointers into the tree, valid until deleted or until Reset. Many threads may look up and walk at
/// the same time, the first ones too; changes must not overlap with that. Walks take the flag of VDicomTree: set
/// (non-zero) they stay among siblings, clear they visit the whole tree, a node before its children.
class VDICOM_API VDicomIOD {
public:
    /// Empties the table and builds it from the built-in rows; elements take the names that VDicomTag has now.
    /// @return 1, or 0 when memory ran out: nodes then are missing
    static unsigned int Default();
    /// Merges an array of rows, and the arrays below it, below a node: of rows that are there already (same type and
    /// code among the node's children) only the missing children are added. The rows are copied.
    /// @param node null: the top level; every class row then makes a new class, and other rows are refused
    /// @return 1, or 0: a row was refused or memory ran out (the other rows are there), or `rows` is null; arrays that
    ///         contain themselves are followed once
    static unsigned int Default(DICOMIOD* node, const DICOMIODROW* rows);
    /// Deletes every class. The table then stays empty until Default or Insert.
    static void Reset();

    /// Inserts a node. A class always becomes the last one of the top level. A module whose reference is a class
    /// becomes that class's last child. Everything else becomes the last child of the reference (`child` set) or the
    /// last of its siblings (clear).
    /// @param reference a node of the table; null for a class alone
    /// @param pszName copied; for an element that VDicomTag knows, the name there is taken instead
    /// @param pszDescription copied; must not be null
    /// @return the node, or null (no reference, a null text, no memory)
    static DICOMIOD* Insert(DICOMIOD* reference, unsigned int child, VDicomULong nCode, const char* pszName,
                            signed char nType, unsigned short nUsage, const char* pszDescription);
    /// Deletes a node and everything below it.
    /// @return the next sibling, else the previous one, else the parent, else null; null for null
    static DICOMIOD* Delete(DICOMIOD* node);

    /// The class that the node belongs to; a class itself.
    static DICOMIOD* GetRoot(DICOMIOD* node);
    static DICOMIOD* GetParent(DICOMIOD* node);
    /// The first child, or null.
    static DICOMIOD* GetChild(DICOMIOD* node);
    static DICOMIOD* GetFirst(DICOMIOD* node, unsigned int siblingOnly);
    static DICOMIOD* GetLast(DICOMIOD* node, unsigned int siblingOnly);
    static DICOMIOD* GetPrev(DICOMIOD* node, unsigned int siblingOnly);
    static DICOMIOD* GetNext(DICOMIOD* node, unsigned int siblingOnly);
    /// 1 when `node` is in the table, else 0. Compares addresses: a stale pointer is safe to ask about.
    static unsigned int Exists(const DICOMIOD* node);

    /// The first node with this code and type, or null. Walks.
    /// @param siblingOnly set: from the first of `node`'s siblings on (null: of the classes); clear: in the whole tree
    static DICOMIOD* Find(DICOMIOD* node, VDicomULong nCode, signed char nType, unsigned int siblingOnly);
    /// The first top-level node with this number, or null. Constant time.
    static DICOMIOD* FindClass(VDicomULong nClass);
    /// The first node below `node`, at any depth, with this code and type, or null: a node before its children, those
    /// before its next sibling. Constant time for the modules of a class, else a walk.
    static DICOMIOD* FindInClass(DICOMIOD* node, VDicomULong nCode, signed char nType);
    /// The first module with this number in a class, or null. Constant time.
    static DICOMIOD* FindModule(VDicomULong nClass, VDicomULong nModule);
    /// The child of a class at which `index` modules have been passed (0: the first child), or null. Among children
    /// that are all modules that is module number `index`.
    static DICOMIOD* FindIndexModule(VDicomULong nClass, VDicomULong index);
    /// How many children of a class are modules; 0 for an unknown class.
    static VDicomULong GetCountModule(VDicomULong nClass);

    /// Replaces the name by a copy. @return 1, or 0 (null argument, no memory: the old name stays)
    static unsigned int SetName(DICOMIOD* node, const char* pszName);
    /// Replaces the description by a copy. @return 1, or 0 (null argument, no memory: the old one stays)
    static unsigned int SetDescription(DICOMIOD* node, const char* pszDescription);

    static VDicomTreeEx&
        m_InfoIOD; ///< the tree itself, for walks with the container's operations; change it only through this class
};
