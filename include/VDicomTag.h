/// @file VDicomTag.h
/// VDicomTag: the process-wide dictionary of attributes.
#pragma once

#include "VDicomTree.h"

#pragma pack(push, 1)
/// One attribute definition (PS3.6).
struct DICOMTAG {
    DICOMLINK Link;
    VDicomULong nCode;     ///< the tag
    VDicomULong nMask;     ///< which bits of a searched tag must match nCode
    char* pszName;         ///< owned by the entry
    unsigned short nVR;    ///< value representation (VDicomVRCode)
    VDicomULong nMinVM;    ///< smallest value multiplicity
    VDicomULong nMaxVM;    ///< largest; DICOM_UNDEFINED is unbounded
    VDicomULong nDivideVM; ///< the multiplicity must be a multiple of this
};
#pragma pack(pop)

/// An attribute that is newer than the built-in dictionary, or a vendor's private one. Read-only; lives for ever.
struct DICOMCURRENTTAG {
    VDicomULong nCode;
    VDicomULong nMask;
    unsigned short nVR;      ///< the VR; of several possible ones the first ("US or SS" is US)
    unsigned short nVROther; ///< the second possible VR, or 0
    VDicomULong nMinVM;
    VDicomULong nMaxVM;
    VDicomULong nDivideVM;
    const char* pszName;
    const char* pszKeyword; ///< PS3.6 keyword ("PatientName"); empty where there is none
    unsigned int bRetired;
};

/// The data dictionary: a list of attribute definitions with first-match look-up. All members are static.
///
/// The list is filled when the library is loaded. Entries are pointers into the list, valid until deleted or until
/// Reset. Many threads may look up at the same time; changes must not overlap with look-ups.
class VDICOM_API VDicomTag {
public:
    /// Empties the list and inserts the 2,178 built-in rows. @return the last entry inserted, or null when that failed
    static DICOMTAG* Default();
    /// Deletes every entry.
    static void Reset();
    /// Appends an entry; nothing is checked. @return the entry, or null (null name, no memory)
    static DICOMTAG* Insert(VDicomULong nCode, VDicomULong nMask, const char* pszName, unsigned short nVR,
                            VDicomULong nMinVM, VDicomULong nMaxVM, VDicomULong nDivideVM);
    /// Deletes an entry. @return the one that followed it, else the one before it, else null
    static DICOMTAG* Delete(DICOMTAG* entry);
    static DICOMTAG* GetFirst();
    static DICOMTAG* GetNext(DICOMTAG* entry);
    static DICOMTAG* GetPrev(DICOMTAG* entry);
    /// The first entry in list order for which (tag AND nMask) equals nCode, or null. Constant time.
    static DICOMTAG* Find(VDicomULong tag);
    /// Replaces the name by a copy. @return 1, or 0 (null argument, no memory: the old name stays)
    static unsigned int SetName(DICOMTAG* entry, const char* pszName);

    /// @name Today's edition of the standard, and private attributes
    /// Read-only tables beside the list: asked only where the list has no answer.
    /// @{

    /// The attribute of today's edition with this tag. @return non-zero when found; `*out` then is filled
    static unsigned int FindCurrent(VDicomULong tag, DICOMCURRENTTAG* out);
    /// The attribute with this keyword ("PatientName"; upper and lower case count). @return non-zero when found
    static unsigned int FindKeyword(const char* keyword, DICOMCURRENTTAG* out);
    /// A vendor's attribute by the private creator of its block; the block byte of `tag` plays no part.
    /// @param creator the text of the (gggg,00bb) element; blanks at its end play no part
    /// @param length its length in bytes @return non-zero when found
    static unsigned int FindPrivate(const char* creator, VDicomULong length, VDicomULong tag, DICOMCURRENTTAG* out);
    /// Row `index` of today's edition (5,277 rows), for searches. @return non-zero when there is such a row
    static unsigned int GetCurrent(VDicomULong index, DICOMCURRENTTAG* out);
    /// @}

    static VDicomTree&
        m_InfoTag; ///< the list itself, for walks with the container's operations; change it only through this class
};
