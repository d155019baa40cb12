/// @file VDicomUID.h
/// VDicomUID: the process-wide table of well-known UIDs.
#pragma once

#include "VDicomTree.h"

/// What a UID names (DICOMUID::nType).
enum DICOMUIDTYPE : VDicomLong {
    DICOM_UID_OTHER = 0,               ///< no defined kind
    DICOM_UID_TRANSFER_SYNTAX = 1,     ///< transfer syntax, uncompressed
    DICOM_UID_TRANSFER_COMPRESSED = 2, ///< transfer syntax, compressed
    DICOM_UID_SOP_CLASS = 3,
    DICOM_UID_META_SOP_CLASS = 4,
    DICOM_UID_SOP_INSTANCE = 5, ///< well-known SOP instance
    DICOM_UID_APPLICATION_CONTEXT = 6
};

#pragma pack(push, 1)
/// One well-known UID (PS3.6 A).
struct DICOMUID {
    DICOMLINK Link;
    char* pszCode;    ///< the UID; owned by the entry
    char* pszName;    ///< owned by the entry
    VDicomLong nType; ///< DICOMUIDTYPE
};
#pragma pack(pop)

/// A UID of today's edition of the standard. Read-only; lives for ever.
struct DICOMCURRENTUID {
    const char* pszCode;
    const char* pszName;
    const char* pszType;    ///< "SOP Class", "Transfer Syntax", ...
    const char* pszKeyword; ///< PS3.6 keyword; empty where there is none
    unsigned int bRetired;
};

/// The table of UIDs: 160 built-in rows, first match. Rules as for VDicomTag.
class VDICOM_API VDicomUID {
public:
    /// Empties the table and inserts the built-in rows. @return the last entry inserted, or null when that failed
    static DICOMUID* Default();
    static void Reset();
    /// Appends an entry. @return the entry, or null (a null text, no memory)
    static DICOMUID* Insert(const char* pszCode, const char* pszName, VDicomLong nType);
    /// @return the entry that followed, else the one before, else null
    static DICOMUID* Delete(DICOMUID* entry);
    static DICOMUID* GetFirst();
    static DICOMUID* GetNext(DICOMUID* entry);
    static DICOMUID* GetPrev(DICOMUID* entry);
    /// The first entry with exactly this text (padding counts), or null; null for null. Constant time.
    static DICOMUID* Find(const char* pszCode);
    static unsigned int SetName(DICOMUID* entry, const char* pszName);

    /// A UID of today's edition (490 rows), for UIDs that the table lacks. @return non-zero when found
    static unsigned int FindCurrent(const char* uid, DICOMCURRENTUID* out);
    /// Row `index` of today's edition. @return non-zero when there is such a row
    static unsigned int GetCurrent(VDicomULong index, DICOMCURRENTUID* out);

    /// Makes a new unique identifier: "2.25." and a random UUID as a decimal number (PS3.5 B.2).
    /// @param uid receives at most 64 characters and a zero @return non-zero on success
    static unsigned int Generate(char uid[65]);

    static VDicomTree& m_InfoUID; ///< the list itself; change it only through this class
};
