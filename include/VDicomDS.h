/// @file VDicomDS.h
/// VDicomDS: a DICOM data set.
#pragma once

#include "VDicomFile.h"
#include "VDicomIOD.h"
#include "VDicomTypes.h"

namespace vdicom {
class DataSetState;
struct SavePlan;
} // namespace vdicom

/// A DICOM data set: an ordered tree of data elements with sequences (VR "SQ") and items (FFFE,E000) as inner nodes.
///
/// Values are not read when a data set is loaded: each element remembers where its bytes stand in the source stream,
/// which must stay open and unchanged while the data set uses it. Values set by the application go to a scratch
/// stream of the data set's own.
///
/// Elements and all pointers that getters return belong to the data set. They stay valid until the value changes, the
/// element is deleted, or the data set is reset, loaded or destroyed. One thread at a time may use a data set.
///
/// Every operation that takes an element first checks, when SetDebugDS has set a callback, that the element is one of
/// this data set's; if not, the callback is called with code 256 and the operation fails. A null element means the top
/// level where the operation allows it. Walks take two flags: `siblingOnly` (non-zero: only among the children of one
/// parent; zero: the whole tree depth first) and `includeVolatile` (zero: skip the elements that IsVolatileElement
/// names).
class VDICOM_API VDicomDS {
public:
    /// Needs no memory but for the path. @param tempPath folder for temporary files; null, empty, or too long for the
    /// memory there is: the platform's
    explicit VDicomDS(const char* tempPath = nullptr);
    /// Deletes every element and closes the streams.
    virtual ~VDicomDS();
    VDicomDS(const VDicomDS&) = delete;
    VDicomDS& operator=(const VDicomDS&) = delete;

    /// @name Life
    /// @{

    /// ResetDS(1).
    void ResetDS();
    /// Deletes every element, empties the scratch stream, sets the flags word to 0x25, empties the identification
    /// text and the list of faults. @param closeSource non-zero: the source stream is closed too
    void ResetDS(unsigned int closeSource);
    /// Makes an empty object of a class: resets the data set, replaces each of the fields of the flags word (bits 0-1,
    /// 2-3, 4-5) that is non-zero in `flags` and takes over 0x400 and 0x1000; then sets the class (SetClass) and
    /// inserts its modules, or the elements of a query level, without values. With DICOM_FLAG_NO_OPTIONAL these are
    /// elements of types 1 and 2 (and unique keys) alone, but of all modules.
    /// @param classId number in VDicomIOD; DICOM_NO_CLASS: the data set stays empty
    /// @return 0; DICOM_ERROR_PARAMETER (no such class); DICOM_ERROR_DEPTH; DICOM_ERROR_MEMORY; DICOM_ERROR_WRITE.
    ///         After a failure the data set is empty, and its flags are set.
    unsigned int InitDS(VDicomULong classId, unsigned short flags);
    /// The class (GetClass) and the flags word. Null pointers are skipped.
    void GetInfoDS(VDicomULong* classId, unsigned short* flags);
    /// Finds the class whose UIDs hold `uid`, or (null) the text of (0002,0002) Media Storage SOP Class UID, or where
    /// that is missing or empty, of (0008,0016) SOP Class UID. @param classId receives its number in VDicomIOD, the
    /// first match, or DICOM_NO_CLASS; may be null
    /// @return 1 when there was a UID, whether the table has its class or not; else 0
    unsigned int GetClass(VDicomULong* classId, const char* uid);
    /// Writes the UID of a class into (0002,0002) and, but for directories (which have none), (0008,0016). Where the
    /// class has several UIDs, the one that the data set carries stays, else the first is taken; a class without any (a
    /// query level) deletes both elements.
    /// @return 0; DICOM_ERROR_PARAMETER (no such class); DICOM_ERROR_MEMORY; DICOM_ERROR_WRITE
    unsigned int SetClass(VDicomULong classId);
    /// Sets the callback for invalid elements (null: none) and what is passed back to it.
    void SetDebugDS(VDicomElementCallback callback, void* userData);
    /// Copies an element of another data set with all below it, or (null `srcElement`) its whole tree. Into an empty
    /// data set the source's flags word, identification text and preamble are copied first. Values are converted to
    /// this data set's byte order. @param dstParent the parent of the copy; null: top level
    /// @return 0; DICOM_ERROR_PARAMETER (null source); DICOM_ERROR_STRUCTURE (the element cannot stand there);
    ///         DICOM_ERROR_DEPTH; DICOM_ERROR_MEMORY; DICOM_ERROR_READ; DICOM_ERROR_WRITE. What was copied before a
    ///         failure stays.
    unsigned int CopyDS(DICOMELEMENT* dstParent, VDicomDS* src, DICOMELEMENT* srcElement);
    /// The identification text, at most 64 characters; emptied by ResetDS and copied by CopyDS.
    const char* GetIdentification() const;
    /// @return 0, or DICOM_ERROR_PARAMETER (null or longer than 64 characters)
    unsigned int SetIdentification(const char* text);
    /// Whether image operations leave the pixel data as they are. The flag is kept for them and for the application.
    void SetKeepPixelDataIntactFlag(VDicomULong flag);
    VDicomULong GetKeepPixelDataIntactFlag() const;
    /// How deeply sequences may be nested, for loading and inserting; 128 unless set. 1 to 1000; others are ignored.
    void SetDepthLimit(VDicomULong sequences);
    /// @}

    /// @name Walking the tree
    /// @{

    /// The top-level ancestor of `e`.
    DICOMELEMENT* GetRootElement(DICOMELEMENT* e);
    DICOMELEMENT* GetParentElement(DICOMELEMENT* e);
    /// The first child; with includeVolatile zero the first that is not volatile.
    DICOMELEMENT* GetChildElement(DICOMELEMENT* e, unsigned int includeVolatile);
    /// Number of ancestors: 0 for a top-level element.
    VDicomULong GetLevelElement(DICOMELEMENT* e);
    DICOMELEMENT* GetFirstElement(DICOMELEMENT* parent, unsigned int siblingOnly, unsigned int includeVolatile);
    DICOMELEMENT* GetLastElement(DICOMELEMENT* parent, unsigned int siblingOnly, unsigned int includeVolatile);
    DICOMELEMENT* GetNextElement(DICOMELEMENT* e, unsigned int siblingOnly, unsigned int includeVolatile);
    DICOMELEMENT* GetPrevElement(DICOMELEMENT* e, unsigned int siblingOnly, unsigned int includeVolatile);
    /// First element with exactly this tag, in the order of GetFirstElement and GetNextElement. Logarithmic time with
    /// siblingOnly.
    DICOMELEMENT* FindFirstElement(DICOMELEMENT* parent, VDicomULong tag, unsigned int siblingOnly);
    DICOMELEMENT* FindLastElement(DICOMELEMENT* parent, VDicomULong tag, unsigned int siblingOnly);
    /// The next element with the same tag as `e`.
    DICOMELEMENT* FindNextElement(DICOMELEMENT* e, unsigned int siblingOnly);
    DICOMELEMENT* FindPrevElement(DICOMELEMENT* e, unsigned int siblingOnly);
    /// Child number `index` (0 is the first) of `parent`, or null. Constant time on wide levels of items.
    DICOMELEMENT* GetIndexElement(DICOMELEMENT* parent, VDicomULong index);
    /// Number of children of `parent`. Constant time on wide levels.
    VDicomULong GetCountElement(DICOMELEMENT* parent);
    /// 1 when `e` is an element of this data set. Safe to ask about any pointer.
    unsigned int ExistsElement(const DICOMELEMENT* e);
    /// 1 when `e` is one of the elements that the library computes itself when it writes images, file meta information
    /// or directories, or an item of Pixel Data (7FE0,0010).
    unsigned int IsVolatileElement(DICOMELEMENT* e);
    /// @}

    /// @name Inserting and deleting
    /// @{

    /// Inserts an element without a value.
    /// @param neighbour with `child` zero the element beside which, with `child` non-zero the parent under which the
    ///        new element is put; null: top level
    /// @param vr 0 or "UN": the dictionary's VR where it has the tag
    /// @param sequence non-zero: undefined length whatever the VR ("SQ" always has it)
    /// @param index for an item: how many items it comes behind (large: the last); other elements stand in the
    ///        order of their tags
    /// @return the element, or null: a tag that only the writer makes (group lengths, delimiters, (FFFC,FFFC)); a
    ///         second element of this tag at this level; a parent of defined length that has children already; the
    ///         depth limit; no memory
    DICOMELEMENT* InsertElement(DICOMELEMENT* neighbour, unsigned int child, VDicomULong tag, unsigned short vr,
                                unsigned int sequence, VDicomULong index);
    /// Deletes an element with all below it. @return its next sibling, else its previous one, else its parent
    DICOMELEMENT* DeleteElement(DICOMELEMENT* e);
    /// Stores again, padded to even length, the values that were recorded as bad while loading.
    /// @return 0 (the list then is empty), DICOM_ERROR_MEMORY, DICOM_ERROR_READ or DICOM_ERROR_WRITE
    unsigned int FixBadElements();
    /// @}

    /// @name Modules (PS3.3 C, by VDicomIOD)
    /// Modules are numbered as in VDicomIOD. A number means the module as the data set's class (GetClass) holds it, or
    /// where that does not, as the first class of the table that does.
    ///
    /// The data set holds a module when it has an element that no other module beside it lists, or all of the module's
    /// elements of types 1 and 2, or (of a module that has neither) any. Elements of curves and overlays count in every
    /// repeating group.
    ///
    /// Insertions keep what is there, and keep out of sequences that are there. They insert elements without values,
    /// and where the table has something below a sequence, one item with that; the Directory Record Sequence stays
    /// empty. `withOptional` zero: elements of types 1 and 2 and unique keys alone. An insertion that fails has
    /// inserted nothing. Codes: 0; DICOM_ERROR_PARAMETER (unknown module, null entry); DICOM_ERROR_STRUCTURE (the
    /// module does not belong at that level); DICOM_ERROR_DEPTH; DICOM_ERROR_MEMORY.
    /// @{

    /// Inserts a module at the top level. @return FindModule of it; null as well for the modules of the directory class
    DICOMIOD* InsertModule(VDicomULong moduleId, unsigned int withOptional);
    /// Inserts a module where VerifyModule allows it. `parent` is an item; null: the top level; a sequence: the module
    /// goes into its item number `index`, which is made (as the last one) where there are not so many. @return a code
    unsigned int InsertModule(DICOMELEMENT* parent, VDicomULong moduleId, VDicomULong index, unsigned int withOptional);
    /// Inserts what stands below a class or module of the table, or an element entry with all below it, whether it
    /// belongs there or not. `parent` is an item; null: the top level. @return a code
    unsigned int InsertModule(DICOMELEMENT* parent, DICOMIOD* iod, unsigned int withOptional);
    /// Inserts a module of the directory class. @param key the record (or an element in it) that a module with keys
    /// goes to; null: the top level. With the Directory Information module the offsets and the File-set Consistency
    /// Flag (0004,1212) have their values at once. @return a code
    unsigned int InsertModuleKey(DICOMELEMENT* key, VDicomULong moduleId, unsigned int withOptional);
    /// Deletes a module's elements at the top level, but for those that another module of the class lists as well, of
    /// which alone an element is there; and a module that is not mandatory leaves what a mandatory one lists.
    /// @return 1; 0: nothing was deleted, an unknown module, one of the directory class, no memory
    unsigned int DeleteModule(VDicomULong moduleId);
    /// The module's entry in the table when the data set holds it, else null.
    DICOMIOD* FindModule(VDicomULong moduleId);
    /// Entry number `index` among those modules of its class that the data set holds, in the order of the class; or
    /// null.
    DICOMIOD* FindIndexModule(VDicomULong index);
    /// How many of the modules of its class the data set holds; 0 without a class.
    VDicomULong GetCountModule();
    /// Whether a module may stand at the level of `e` (null: the top level): 1 when the sequence that encloses `e` is
    /// the one that encloses the module in the table, or neither has one; else 0.
    unsigned int VerifyModule(DICOMELEMENT* e, VDicomULong moduleId);
    /// How many elements the table has below an entry, in sequences too; 0 for null. With `withOptional` zero only
    /// those of types 1 and 2 and unique keys, and only below such.
    static VDicomULong GetCountElementIOD(DICOMIOD* iod, unsigned int withOptional);
    /// @}

    /// @name Directory records (keys, PS3.3 F)
    /// A key is an item of the Directory Record Sequence (0004,1220) with a key number. The offset elements
    /// ((0004,1200), (0004,1202), (0004,1400), (0004,1420)) carry the number of the record that they refer to;
    /// SaveDS turns the numbers into byte offsets and loading turns them back. Every step takes constant time.
    /// A null element means the root of the directory.
    /// @{

    /// Makes a record of the given type with (0004,1400), (0004,1410), (0004,1420) and (0004,1430), inserting
    /// (0004,1200), (0004,1202), (0004,1212) and (0004,1220) where they are missing, and links it.
    /// @param neighbour the record under which (`child` non-zero, as its last) or behind which it is put; null: the
    ///        last of the root. @param type Directory Record Type, at most 16 characters
    /// @return the record's item, or null (no record, no type, no memory)
    DICOMELEMENT* InsertKey(DICOMELEMENT* neighbour, unsigned int child, const char* type);
    /// InsertKey, and what the table has for the record, without values: the elements of any record, and the module of
    /// the directory class that is named for the type ("Patient Keys"). With `withOptional` zero these are elements of
    /// types 1 and 2 alone.
    DICOMELEMENT* InsertKey(DICOMELEMENT* neighbour, unsigned int child, const char* type, unsigned int withOptional);
    /// Deletes a record and all records below it. @return the next record, else the previous, else the parent record
    DICOMELEMENT* DeleteKey(DICOMELEMENT* e);
    /// The record at the top of the directory above `e`.
    DICOMELEMENT* GetRootKey(DICOMELEMENT* e);
    DICOMELEMENT* GetParentKey(DICOMELEMENT* e);
    /// The first record below `e`; null `e`: the first of the root.
    DICOMELEMENT* GetChildKey(DICOMELEMENT* e);
    /// The first record of `e`'s level; null `e`: the first of the root.
    DICOMELEMENT* GetFirstKey(DICOMELEMENT* e);
    DICOMELEMENT* GetLastKey(DICOMELEMENT* e);
    DICOMELEMENT* GetPrevKey(DICOMELEMENT* e);
    DICOMELEMENT* GetNextKey(DICOMELEMENT* e);
    /// The first record of this type: below `e` with `child` non-zero, else of `e`'s level. Case does not count.
    DICOMELEMENT* FindFirstKey(DICOMELEMENT* e, const char* type, unsigned int child);
    DICOMELEMENT* FindLastKey(DICOMELEMENT* e, const char* type, unsigned int child);
    /// The next record of this type on `e`'s level.
    DICOMELEMENT* FindNextKey(DICOMELEMENT* e, const char* type);
    DICOMELEMENT* FindPrevKey(DICOMELEMENT* e, const char* type);
    /// The Directory Record Type of the record that holds `e`, trimmed of blanks; null when there is none.
    const char* GetValueKey(DICOMELEMENT* e);
    /// The smallest key number from 1 up that no record uses.
    VDicomULong GetAvailableKey();
    /// The record that holds `e`, which may be the record itself; null outside (0004,1220).
    DICOMELEMENT* GetItemKey(DICOMELEMENT* e);
    /// The record with this key number, or null.
    DICOMELEMENT* GetNumberKey(VDicomULong key);
    /// The next element after `from` (null: from the start) with this tag among the directory's records.
    DICOMELEMENT* FindAttachKey(DICOMELEMENT* from, VDicomULong tag);
    /// Builds the key numbers anew: after loading from the offsets read, later from the numbers as they stand.
    /// References to nothing become 0. Loading and CopyDS call it.
    void RefreshKeys();
    /// @}

    /// @name Lengths and offsets
    /// `flags` are save flags; what they say is exactly what SaveDS with the same flags writes.
    /// @{

    /// Size of an element's header: 8, or 12 with explicit VR for the VRs with 32-bit lengths.
    VDicomULong GetLengthElement(VDicomULong tag, unsigned short vr, VDicomULong length, unsigned int explicitVR);
    /// Encoded size of `e`'s group at its level, its group length element left out. DICOM_UNDEFINED when the size
    /// needs more than 32 bits or `e` is null.
    VDicomULong GetLengthGroup(DICOMELEMENT* e, unsigned short flags);
    /// Encoded size of all below a sequence or item, without the closing delimiter of `e` itself.
    VDicomULong GetLengthSequence(DICOMELEMENT* e, unsigned short flags);
    /// Where the header of `e` stands in the stream that SaveDS would write; in a deflated one as if it were not
    /// deflated. Null: the size of the whole stream.
    VDicomULong GetOffsetElement(DICOMELEMENT* e, unsigned short flags);
    /// GetOffsetElement for streams of any size.
    VDicomUInt64 GetOffsetElement64(DICOMELEMENT* e, unsigned short flags);
    /// Where the header of `e` stood when the data set was read with DICOM_FLAG_OFFSETS; else 0.
    VDicomULong GetElementOffset(DICOMELEMENT* e);
    VDicomUInt64 GetElementOffset64(DICOMELEMENT* e);
    /// @}

    /// @name Raw values
    /// Bytes come and go in the host's order. Elements of undefined length have no value of their own.
    /// @{

    /// Raw bytes from the start, or from `offset`; fewer than `length` where the value ends.
    /// @return 1 on success (also for an empty value), 0: null, undefined length, offset behind the end, read failed
    unsigned int GetBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong length);
    unsigned int GetBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong offset, VDicomULong length);
    unsigned int GetFileBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong offset, VDicomULong length);
    /// Replaces the whole value. An odd number of bytes is padded: zero for "UI" and binary VRs, else a blank.
    /// @return 1 on success, 0: null, undefined length, no memory, the scratch stream cannot be written
    unsigned int SetBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong length);
    /// Overwrites the value from `offset` on and extends it where it is too short; no padding.
    /// @return 1, or 0 (as above, or `offset` behind the end)
    unsigned int SetFileBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong offset, VDicomULong length);
    /// Inserts bytes before `offset`. @return 1, or 0
    unsigned int InsertBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong offset, VDicomULong length);
    /// Inserts a range of a stream before `offset` as a piece, without copying: the stream must stay open and
    /// unchanged while the data set uses it. The bytes must be in the data set's byte order. @return 1, or 0
    unsigned int InsertFileBinaryValue(DICOMELEMENT* e, VDicomULong offset, VDicomFile* stream,
                                       VDicomUInt64 streamOffset, VDicomULong length);
    /// Takes `length` bytes (DICOM_UNDEFINED: all) out of the value from `offset` on. @return 1, or 0
    unsigned int DeleteFileBinaryValue(DICOMELEMENT* e, VDicomULong offset, VDicomULong length);
    /// Replaces the value of `e` by a copy of the value of `source`, an element of `src`, through a bounded buffer;
    /// the byte order is converted. @return 0 or a result code
    unsigned int CopyFileBinaryValue(DICOMELEMENT* e, VDicomDS* src, DICOMELEMENT* source);
    /// The piece that holds byte `*offset` of the value; `*offset` becomes the place within that piece. An offset
    /// behind the end is first moved to the last byte.
    VDicomULong GetFileBinaryIndex(DICOMELEMENT* e, VDicomULong* offset);
    /// @}

    /// @name Typed values
    /// `index` is the first value wanted, `count` how many (DICOM_UNDEFINED: all from there on). Getters return null
    /// when the VR is not of the type, when the values are not there, or when the text is no such value.
    /// @{

    /// The number of values; parses the value when that has not been done. 0 on failure.
    VDicomULong GetCountValue(DICOMELEMENT* e);
    /// Whether `e` is of this type (see VerifyVR) and has the values; `*count` DICOM_UNDEFINED becomes their number.
    unsigned int VerifyTypeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong* count, unsigned short type);
    char* GetCharValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);       ///< "OB", "SQ", "UN"
    short* GetShortValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);     ///< "OW", "SS", "US"
    VDicomLong* GetLongValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count); ///< "AT", "IS", "SL", "UL", "OL"
    float* GetFloatValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);     ///< "FL", "OF"
    double* GetDoubleValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);   ///< "DS", "FD", "OD"
    /// Value number `index` as a zero-terminated text in the data set's character set, the following ones behind it.
    char* GetStringValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);
    VALUEAGE* GetAgeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);           ///< "AS"
    VALUEDATE* GetDateValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);         ///< "DA"; null when empty
    VALUETIME* GetTimeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count);         ///< "TM"; null when empty
    VALUEDATETIME* GetDateTimeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count); ///< "DT"
    /// @return 0 on success, DICOM_ERROR_PARAMETER otherwise
    unsigned int GetDateRangeValue(DICOMELEMENT* e, VDicomULong index, VALUEDATERANGE* range);
    unsigned int GetTimeRangeValue(DICOMELEMENT* e, VDicomULong index, VALUETIMERANGE* range);
    unsigned int GetDateTimeRangeValue(DICOMELEMENT* e, VDicomULong index, VALUEDATETIMERANGE* range);
    /// The three above by type (7, 8, 9).
    unsigned int GetXRangeValue(DICOMELEMENT* e, VDicomULong index, void* range, unsigned short type);
    /// 64-bit integers of "IS", "SV", "UV" and "OV". @return 1, or 0 (out of bounds, no number)
    unsigned int GetLong64Value(DICOMELEMENT* e, VDicomUInt64* out, VDicomULong index, VDicomULong count);

    /// Setters replace the whole value. @return 1, or 0: the VR is not of the type, an argument is null, a value
    /// cannot be encoded, no memory, the scratch stream cannot be written
    unsigned int SetCharValue(DICOMELEMENT* e, const char* values, VDicomULong count);
    unsigned int SetShortValue(DICOMELEMENT* e, const short* values, VDicomULong count);
    unsigned int SetLongValue(DICOMELEMENT* e, const VDicomLong* values, VDicomULong count);
    unsigned int SetFloatValue(DICOMELEMENT* e, const float* values, VDicomULong count);
    unsigned int SetDoubleValue(DICOMELEMENT* e, const double* values, VDicomULong count);
    /// `count` zero-terminated texts, one behind the other.
    unsigned int SetStringValue(DICOMELEMENT* e, const char* values, VDicomULong count);
    unsigned int SetAgeValue(DICOMELEMENT* e, const VALUEAGE* values, VDicomULong count);
    unsigned int SetDateValue(DICOMELEMENT* e, const VALUEDATE* values, VDicomULong count);
    unsigned int SetTimeValue(DICOMELEMENT* e, const VALUETIME* values, VDicomULong count);
    unsigned int SetDateTimeValue(DICOMELEMENT* e, const VALUEDATETIME* values, VDicomULong count);
    unsigned int SetDateRangeValue(DICOMELEMENT* e, const VALUEDATERANGE* values, VDicomULong count);
    unsigned int SetTimeRangeValue(DICOMELEMENT* e, const VALUETIMERANGE* values, VDicomULong count);
    unsigned int SetDateTimeRangeValue(DICOMELEMENT* e, const VALUEDATETIMERANGE* values, VDicomULong count);
    /// 64-bit integers of "IS", "SV", "UV" and "OV" (signed ones in two's complement).
    unsigned int SetLong64Value(DICOMELEMENT* e, const VDicomUInt64* values, VDicomULong count);

    /// Parses the raw value into the typed buffer and sets the value count. @return 1, or 0
    unsigned int GetTypeValue(DICOMELEMENT* e);
    /// Encodes typed values of `e`'s VR and replaces the raw value. @param range non-zero: `values` are ranges
    unsigned int SetTypeValue(DICOMELEMENT* e, const void* values, VDicomULong count, unsigned int range);
    /// Finds an element by tag among the children of `parent` and copies its first value.
    /// @param type the value type (see VerifyVR); 5: a zero-terminated text
    /// @param size bytes that `out` holds @return 1, or 0: no such element, no value, another type, `out` too small
    unsigned int FindGetValue(DICOMELEMENT* parent, VDicomULong tag, unsigned short type, void* out, VDicomULong size);
    /// Finds an element by tag among the children of `parent`, inserts it where it is missing, and sets its values.
    /// @param vr for an element that has to be inserted; 0: the dictionary's @return 1, or 0
    unsigned int FindSetValue(DICOMELEMENT* parent, VDicomULong tag, unsigned short vr, const void* values,
                              VDicomULong count);
    /// The text of all values joined by backslashes: dates as month/day/year, times as hours:minutes:seconds.fraction,
    /// ages as "34 years", tags as 0010:0020, bytes in hexadecimal. @param out receives it with a zero; may be null
    /// @return the bytes it needs with all zeros; 0: null, undefined length, no values
    VDicomULong GetConvertValue(DICOMELEMENT* e, char* out);
    /// Parses a text in the formats of GetConvertValue and sets the values.
    /// @param count how many values the text holds; DICOM_UNDEFINED: as many as backslashes divide it into
    /// @return 1, or 0: nothing is changed when the text is no such value
    unsigned int SetConvertValue(DICOMELEMENT* e, const char* text, VDicomULong count);
    /// Ends `s` at `length`, moves it over blanks at its start and replaces blanks at its end by zeros.
    static void DelSpaces(char* s, VDicomULong length);
    static void DelSpaces(char* s);
    /// Frees the typed buffer; the value count becomes DICOM_UNDEFINED.
    void FreeValue(DICOMELEMENT* e);
    /// Bytes of one binary value of a VR; 1 when the VR is unknown.
    static unsigned short GetSizeVR(unsigned short vr);
    /// Whether `e` has a VR of this value type: 0 char, 1 short, 2 long, 3 float, 4 double, 5 string, 6 age, 7 date,
    /// 8 time, 9 date-time, 10 64-bit integer; larger types pass always.
    unsigned int VerifyVR(DICOMELEMENT* e, unsigned short type);
    /// @}

    /// @name Texts in UTF-8
    /// By the Specific Character Set (0008,0005) that holds for the element: that of its item or of the nearest
    /// enclosing level, with code extensions (PS3.5 6.1).
    /// @{

    /// The whole text of a string element in UTF-8, backslashes between values, padding at the end left out. Bytes
    /// that are no text of the character set become U+FFFD.
    /// @param out receives at most `size` bytes with the zero, cut between characters; may be null when size is 0
    /// @return the bytes that the whole text needs with its zero; 0: no string VR, or the value cannot be read
    VDicomULong GetUtf8Value(DICOMELEMENT* e, char* out, VDicomULong size);
    /// Sets a string element from UTF-8. @return 1; 0: no string VR, malformed UTF-8, no memory, or a character that
    /// the character set in force cannot express (nothing is changed)
    unsigned int SetUtf8Value(DICOMELEMENT* e, const char* text);
    /// @}

    /// @name Loading
    /// After a failure the elements read so far stay. Each call resets the data set first.
    /// @return of all: 0; DICOM_ERROR_OPEN; DICOM_ERROR_READ (truncated: the part that is there was kept);
    ///         DICOM_ERROR_END (the stream ends inside a sequence); DICOM_ERROR_STRUCTURE; DICOM_ERROR_LENGTH;
    ///         DICOM_ERROR_PARAMETER; DICOM_ERROR_FORMAT; DICOM_ERROR_DEPTH; DICOM_ERROR_DEFLATE; DICOM_ERROR_WRITE
    ///         (the temporary storage is full); DICOM_ERROR_MEMORY. GetFault says where and why.
    /// @{

    /// @param path UTF-8 @param flags 0, DICOM_FLAG_CARRY, DICOM_FLAG_OFFSETS
    unsigned int LoadDS(const char* path, unsigned short flags);
    /// Parses a buffer in place; it must outlive the data set's use of it.
    unsigned int LoadDSMemory(const unsigned char* buffer, VDicomULong size, unsigned short flags);
    /// Parses an open stream, which becomes the source stream and must stay open while values are read.
    /// @param transferSyntax DICOM_TS_... of a stream without preamble when it is known (network); 0: detected
    unsigned int LoadDS(VDicomFile* stream, unsigned short flags, unsigned short transferSyntax);
    /// Reads elements from the current position of a stream into `parent` (null: top level) until the stream ends, a
    /// delimiter closes the level, or `*length` bytes (null or DICOM_UNDEFINED: no limit) are used up; `*length`
    /// becomes the number of bytes read. @param tsCode DICOM_TS_...; an empty data set takes it over, in another its
    /// byte order must be the data set's (else DICOM_ERROR_PARAMETER). The stream becomes the source of the elements.
    unsigned int ReadSequence(VDicomFile* stream, DICOMELEMENT* parent, unsigned short tsCode, VDicomULong* length);
    /// Reads one header. `*vr` is 0xFFFF for implicit VR. @return 0; DICOM_ERROR_END; DICOM_ERROR_READ;
    ///         DICOM_ERROR_LENGTH (odd, and the data set is not in Part 10 form or has 50 bad elements)
    unsigned int ReadElement(VDicomFile* stream, VDicomULong* tag, unsigned short* vr, VDicomULong* length,
                             unsigned int littleEndian, unsigned int explicitVR);
    /// Reads bytes into host order, value by value of the VR's size. @return non-zero on success
    unsigned int Read(VDicomFile* stream, void* buffer, VDicomULong size, unsigned short vr, unsigned int littleEndian);
    /// The VR of an element read with implicit VR (PS3.5 A.1, and what the data set itself says).
    /// @param compressed non-zero: the pixel data are encapsulated
    unsigned short GetDefaultVR(DICOMELEMENT* parent, VDicomULong tag, unsigned int compressed);
    /// Loading stops, without an error and without reading on, at the first top-level element whose tag is greater
    /// than `tag`; DICOM_UNDEFINED (as after construction): never. Stays set for later loads.
    void SetLoadLimit(VDicomULong tag);
    /// How many bytes deflated data may inflate to (they are kept in temporary storage); 16 GiB unless set.
    void SetInflateLimit(VDicomUInt64 bytes);
    /// What the last load found wrong, in stream order; the last one is the reason when the load failed. At most 50
    /// are kept, and the one that ended the load.
    VDicomULong GetCountFault() const;
    /// @return non-zero when there is a fault `index`
    unsigned int GetFault(VDicomULong index, DICOMFAULT* fault) const;
    /// The platform's number (errno, GetLastError) for what made the last load or save fail to open, read or write a
    /// file; 0 when there was none.
    int GetError() const;
    /// Counts the frames of Pixel Data that cannot be obtained. Null pointers are skipped.
    /// @return 1 when there is no Pixel Data or a frame is bad, else 0
    unsigned int IsBadPixelData(VDicomULong* bad, VDicomULong* good);
    /// @}

    /// @name Saving
    /// A field of the save flags left 0 is taken from the flags word. Compressed data sets are always written in
    /// explicit VR little endian. The file meta elements are filled: (0002,0000), (0002,0001), (0002,0002), (0002,0003)
    /// and (0002,0010); (0002,0012) and (0002,0013) where they are missing.
    /// @return of all: 0; DICOM_ERROR_OPEN (in use, or cannot be created); DICOM_ERROR_WRITE; DICOM_ERROR_READ (a
    ///         value could not be read from the source); DICOM_ERROR_PARAMETER (big endian with implicit VR; group
    ///         0002 would have to be filled while ConformanceDS runs); DICOM_ERROR_CANCELLED (SetProgressDS);
    ///         DICOM_ERROR_SIZE (a value too long for a 16-bit length); DICOM_ERROR_STRUCTURE (an element with a value
    ///         has elements below it); DICOM_ERROR_MEMORY
    /// @{

    /// Saves to a file. The file appears whole or not at all: it is written beside its place, flushed and renamed, so
    /// that a full disk or a killed process leaves an old file as it was. Saving over the file that the data set was
    /// loaded from works. Pipes and devices are written directly.
    unsigned int SaveDS(const char* path, unsigned short flags);
    /// Saves to an open stream from its current position on; an error closes the stream.
    unsigned int SaveDS(VDicomFile* stream, unsigned short flags);
    /// Sets what SaveDS calls on the saving thread after every MiB or more and at the end (null: nothing), with the
    /// bytes written so far and those of the whole file (both before deflating). When it returns 0 the save ends with
    /// DICOM_ERROR_CANCELLED as after any other failure: an old file stays as it was. The callback must not use the
    /// data set. Stays set for later saves. @param userData passed on to it
    void SetProgressDS(VDicomProgressCallback callback, void* userData);
    /// Writes every child of `parent` (null: top level). @param flags byte order and VR encoding
    unsigned int WriteSequence(VDicomFile* stream, DICOMELEMENT* parent, unsigned short flags);
    /// Writes one header. @return 0 or DICOM_ERROR_WRITE; DICOM_ERROR_SIZE
    unsigned int WriteElement(VDicomFile* stream, VDicomULong tag, unsigned short vr, VDicomULong length,
                              unsigned int littleEndian, unsigned int explicitVR);
    /// Writes bytes given in host order. @return non-zero on success
    unsigned int Write(VDicomFile* stream, const void* buffer, VDicomULong size, unsigned short vr,
                       unsigned int littleEndian);
    /// Copies at most 128 bytes of the preamble. @return the number copied
    unsigned short GetPreamble(char* buffer, unsigned short size);
    unsigned short SetPreamble(const char* buffer, unsigned short size);
    /// The transfer syntax that (0002,0010) names, or `uid` when it is not null: `*code` DICOM_TS_..., `*compression`
    /// 0 none, 1 RLE, 2 lossless JPEG, 3 lossy JPEG, 4 and 5 JPEG-LS, 6 and 7 JPEG 2000, 8 MPEG2, 9 another
    /// encapsulated one. Null pointers are skipped. @return non-zero when there was a UID
    unsigned int GetTS(unsigned short* code, VDicomLong* compression, const char* uid);
    /// Re-encodes the values in memory for another uncompressed transfer syntax, and sets the flags word and
    /// (0002,0010). @return 0; DICOM_ERROR_PARAMETER; DICOM_ERROR_UNSUPPORTED (the pixel data are compressed, or should
    ///         be); read and write errors
    unsigned int SetTS(unsigned short code, VDicomLong compression);
    /// SetTS by UID; a compressed syntax is possible when it is the data set's own. `quality` and `flags` are for
    /// codecs and play no part in this.
    unsigned int ChangeTransferSyntax(const char* uid, VDicomLong quality, VDicomULong flags);
    /// The UID of the transfer syntax that was found when loading or set since, which may differ from (0002,0010).
    const char* GetTransferSyntaxUID() const;
    /// @}

    /// @name Conformance (PS3.3, PS3.5)
    /// Walks the data set and reports where it breaks the standard's rules: against the dictionary, its VRs, its
    /// character set and, where VDicomIOD has the class, against the modules of the class.
    ///
    /// A class's mandatory modules must be there. A conditional or optional module counts as there when more than half
    /// of its own type 1 elements are, those that no other module of the class holds: elements that several modules
    /// share say nothing. Where fewer are there, what is missing is a warning. Conditions (types 1C, 2C) are judged
    /// where the data set itself tells; the others are not reported. Elements newer than the table are not called
    /// foreign to their class.
    ///
    /// While it runs the tree is frozen: InsertElement and DeleteElement do nothing. The findings of one level come
    /// before those of the items in it: first what is missing, then element by element.
    /// @{

    /// @param callback gets each finding; its non-zero return ends the walk
    /// @return 0, also when the callback ended the walk; DICOM_ERROR_PARAMETER (null callback, called by its own
    ///         callback); DICOM_ERROR_MEMORY
    unsigned int ConformanceDS(VDicomElementCallback callback, void* userData);
    /// The same with whole records. @param classId check against this class of VDicomIOD instead of the one that the
    /// data set names; DICOM_UNDEFINED: that one @return as above; DICOM_ERROR_PARAMETER also: no such class
    unsigned int ConformanceDS(VDicomFindingCallback callback, void* userData, VDicomULong classId);
    /// The finding that the callback has been called for. @return non-zero while a callback of ConformanceDS runs
    unsigned int GetFinding(DICOMFINDING* finding) const;
    /// @}

    /// @name Names
    /// @{

    /// The name of an element: from the dictionary, today's edition, or the private creator's. Empty when unknown.
    const char* GetNameElement(DICOMELEMENT* e);
    /// Its keyword (PS3.6); empty when there is none.
    const char* GetKeywordElement(DICOMELEMENT* e);
    /// @}

protected:
    /// The state behind the interface; for the library's own derived classes.
    vdicom::DataSetState* m_pState;

private:
    /// Where the state stands: a data set can be made without memory, and ten thousand short-lived ones cost nothing.
    alignas(8) unsigned char m_state[sizeof(void*) == 8 ? 2816 : 1792];

    unsigned int FinishLoad(unsigned int code);
    bool StoreReferences(VDicomULong key);
    unsigned int PrepareMeta(const vdicom::SavePlan& plan);
    bool FillMeta(const vdicom::SavePlan& plan);
    unsigned int WriteAll(VDicomFile& stream, unsigned short flags);
    unsigned int CopyTreeDS(DICOMELEMENT* dstParent, VDicomDS& src, const DICOMELEMENT* source, bool withKeys);
};
