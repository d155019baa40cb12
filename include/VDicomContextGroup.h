/// @file VDicomContextGroup.h
/// VDicomContextGroup: the process-wide table of context groups and their coded concepts.
#pragma once

#include "VDicomTree.h"

/// Flag of Insert and InsertCodedConcept: an entry that the table holds already is refused.
constexpr unsigned short DICOM_CONTEXT_GROUP_UNIQUE = 0x0001;

#pragma pack(push, 1)

/// One context group (PS3.16). A top-level node; its children are its concepts. Texts and version are the group's.
struct DICOMCONTEXTGROUP {
    DICOMLINK Link;
    const char* pszContextIdentifier; ///< the CID, as "CID 2"
    const char* pszName;
    VDicomULong bExtensible;       ///< non-zero: applications may extend the group (PS3.16 6.1.2)
    const VALUEDATETIME* pVersion; ///< the group's version
};

/// One coded concept (PS3.3 8). A child of its group. Texts and version are the concept's; only SetCodeMeaning changes
/// them.
struct DICOMCODEDCONCEPT {
    DICOMLINK Link;
    const char* pszCodingSchemeDesignator;
    const char* pszCodingSchemeVersion; ///< null: none
    const char* pszCodeValue;
    const char* pszCodeMeaning;
    const VALUEDATETIME* pContextGroupLocalVersion; ///< null: none
    const char* pszContextGroupExtensionCreatorUID; ///< null: none
};

#pragma pack(pop)

/// Context groups with their coded concepts. All members are static.
///
/// The table starts empty: Load brings in built-in groups (197 of the standard's, versions of 2002 to 2004), Insert an
/// application's own. It keeps them until Reset; unloading the library does not empty it. Groups and concepts stand in
/// the order of their insertion; pointers to them are valid until they are deleted. Look-ups take the first match and
/// constant time. Many threads may look up at the same time; changes must not overlap with that.
///
/// Every text that is passed in is used without the spaces (0x20) at its ends, and must not be empty then. CIDs,
/// designators and values are compared without regard to the case of the letters A to Z.
class VDICOM_API VDicomContextGroup {
public:
    /// Brings in a built-in group with its concepts, behind them those of the groups it includes.
    /// @param pszContextIdentifier the CID; null: every built-in group that is not in the table yet
    /// @return DICOM_OK, also when the group is there already; DICOM_ERROR_PARAMETER (empty, or not built in);
    ///         DICOM_ERROR_MEMORY: the group is not in the table (of all groups, those before it are)
    static unsigned int Load(const char* pszContextIdentifier);
    /// Appends the concepts of built-in group number `row` (from 0 on), then those of the groups it includes.
    /// @param group the group that gets them; null: a new one, made of the row
    /// @param deleteOnFailure non-zero: the whole group is deleted when that fails; always so for a new group
    /// @return 1, or 0 (no such row, no memory)
    static unsigned int LoadCodedConcepts(VDicomULong row, DICOMCONTEXTGROUP* group, unsigned int deleteOnFailure);
    /// Deletes every group.
    static void Reset();
    /// Gives a group its built-in concepts again, and no others; its name, flag and version stay. A group that is not
    /// built in stays as it is.
    /// @param group null: every group of the table @return 1, or 0 when memory ran out: concepts are missing
    static unsigned int Default(DICOMCONTEXTGROUP* group);

    /// @name Groups
    /// @{

    /// Appends a group without concepts.
    /// @param pVersion copied @param nFlags DICOM_CONTEXT_GROUP_UNIQUE: a CID that is there already is refused; other
    ///        bits have no meaning
    /// @return the group, or null (a null or empty argument, refused, no memory)
    static DICOMCONTEXTGROUP* Insert(const char* pszContextIdentifier, const char* pszName, unsigned int bExtensible,
                                     const VALUEDATETIME* pVersion, unsigned short nFlags);
    /// Deletes a group with its concepts. @return the one that followed, else the one before, else null
    static DICOMCONTEXTGROUP* Delete(DICOMCONTEXTGROUP* group);
    /// 1 when `group` is in the table, else 0. Compares addresses: a stale pointer is safe to ask about.
    static unsigned int Exists(const DICOMCONTEXTGROUP* group);
    static DICOMCONTEXTGROUP* GetFirst();
    static DICOMCONTEXTGROUP* GetLast();
    static DICOMCONTEXTGROUP* GetNext(DICOMCONTEXTGROUP* group);
    static DICOMCONTEXTGROUP* GetPrev(DICOMCONTEXTGROUP* group);
    static VDicomULong GetCount();
    /// The first group with this CID, or null.
    static DICOMCONTEXTGROUP* Find(const char* pszContextIdentifier);
    /// The group at a position (from 0 on), or null.
    static DICOMCONTEXTGROUP* FindIndex(VDicomULong index);
    /// @}

    /// @name Coded concepts of a group
    /// Null for a null group or concept.
    /// @{
    static DICOMCODEDCONCEPT* GetFirstCodedConcept(DICOMCONTEXTGROUP* group);
    static DICOMCODEDCONCEPT* GetLastCodedConcept(DICOMCONTEXTGROUP* group);
    static DICOMCODEDCONCEPT* GetNextCodedConcept(DICOMCODEDCONCEPT* codedConcept);
    static DICOMCODEDCONCEPT* GetPrevCodedConcept(DICOMCODEDCONCEPT* codedConcept);
    static VDicomULong GetCountCodedConcept(DICOMCONTEXTGROUP* group);
    /// The group that holds a concept.
    static DICOMCONTEXTGROUP* GetContextGroup(DICOMCODEDCONCEPT* codedConcept);
    /// Appends a concept to a group.
    /// @param pszVersion coding scheme version; null: none @param pLocalVersion copied; null: none
    /// @param pszCreatorUID context group extension creator UID; null: none
    /// @param nFlags DICOM_CONTEXT_GROUP_UNIQUE: a designator and value that the group holds already are refused
    /// @return the concept, or null (a null argument that is needed, an empty text, refused, no memory)
    static DICOMCODEDCONCEPT* InsertCodedConcept(DICOMCONTEXTGROUP* group, const char* pszDesignator,
                                                 const char* pszVersion, const char* pszValue, const char* pszMeaning,
                                                 const VALUEDATETIME* pLocalVersion, const char* pszCreatorUID,
                                                 unsigned short nFlags);
    /// Deletes a concept. @return the one that followed in its group, else the one before, else null
    static DICOMCODEDCONCEPT* DeleteCodedConcept(DICOMCODEDCONCEPT* codedConcept);
    /// 1 when the concept is in the table, else 0. Compares addresses.
    static unsigned int ExistsCodedConcept(const DICOMCODEDCONCEPT* codedConcept);
    /// The first concept of a group with this designator and value, or null.
    static DICOMCODEDCONCEPT* FindCodedConcept(DICOMCONTEXTGROUP* group, const char* pszDesignator,
                                               const char* pszValue);
    /// The concept at a position in its group (from 0 on), or null.
    static DICOMCODEDCONCEPT* FindIndexCodedConcept(DICOMCONTEXTGROUP* group, VDicomULong index);
    /// Replaces the meaning by a copy. @return 1, or 0 (null argument, empty text, no memory: the old one stays)
    static unsigned int SetCodeMeaning(DICOMCODEDCONCEPT* codedConcept, const char* pszMeaning);
    /// @}

    /// @name What is built in
    /// @{

    /// Number of built-in groups: the rows that LoadCodedConcepts takes are smaller.
    static VDicomULong GetCountBuiltIn();
    /// CID of built-in group number `row`, or null. It lives for ever.
    static const char* GetBuiltIn(VDicomULong row);
    /// CID of inclusion number `index` (from 0 on) of built-in group number `row`, or null.
    static const char* GetIncluded(VDicomULong row, VDicomULong index);
    /// @}

    /// The tree itself, for walks with the container's operations; change it only through this class.
    static VDicomTreeEx& m_ContextGroupsTable;
};
