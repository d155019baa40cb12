/// @file VDicomVR.h
/// VDicomVR: the process-wide table of value representations.
#pragma once

#include "VDicomTree.h"

/// @name Bits of DICOMVR::nRestrict
/// @{
constexpr unsigned short DICOM_VR_MAXIMUM = 0x0001;  ///< nLength is an upper bound, not the exact length
constexpr unsigned short DICOM_VR_SPECIAL = 0x0002;  ///< set on PN, OB, OW and UN
constexpr unsigned short DICOM_VR_SEQUENCE = 0x0004; ///< the sequence VR
constexpr unsigned short DICOM_VR_BINARY = 0x0100;   ///< binary numbers
constexpr unsigned short DICOM_VR_STRING = 0x0200;   ///< text of values separated by backslashes
constexpr unsigned short DICOM_VR_TEXT = 0x0400;     ///< text of one value
/// @}

#pragma pack(push, 1)
/// One value representation (PS3.5 6.2).
struct DICOMVR {
    DICOMLINK Link;
    unsigned short nCode;     ///< VDicomVRCode
    char* pszName;            ///< owned by the entry
    VDicomULong nLength;      ///< length limit of one value in bytes; 0 where the table sets none
    unsigned short nRestrict; ///< DICOM_VR_... bits
    unsigned short nUnitSize; ///< bytes of one binary unit
};
#pragma pack(pop)

/// The table of value representations: 27 built-in rows, first match. Rules as for VDicomTag.
class VDICOM_API VDicomVR {
public:
    /// Empties the table and inserts the built-in rows. @return the last entry inserted, or null when that failed
    static DICOMVR* Default();
    static void Reset();
    /// Appends an entry. @return the entry, or null (null name, no memory)
    static DICOMVR* Insert(unsigned short nCode, const char* pszName, VDicomULong nLength, unsigned short nRestrict,
                           unsigned short nUnitSize);
    /// @return the entry that followed, else the one before, else null
    static DICOMVR* Delete(DICOMVR* entry);
    static DICOMVR* GetFirst();
    static DICOMVR* GetNext(DICOMVR* entry);
    static DICOMVR* GetPrev(DICOMVR* entry);
    /// The first entry with this code, or null. Constant time.
    static DICOMVR* Find(unsigned short nCode);
    static unsigned int SetName(DICOMVR* entry, const char* pszName);

    static VDicomTree& m_InfoVR; ///< the list itself; change it only through this class
};
