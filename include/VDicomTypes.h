/// @file VDicomTypes.h
/// Types, records and result codes that every class of the toolkit shares.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)
#if defined(VDICOM_STATIC)
#define VDICOM_API
#elif defined(VDICOM_BUILD)
#define VDICOM_API __declspec(dllexport)
#else
#define VDICOM_API __declspec(dllimport)
#endif
#define VDICOM_CALLBACK __stdcall
#else
#define VDICOM_API __attribute__((visibility("default")))
#define VDICOM_CALLBACK
#endif

/// @name Numbers
/// Quantities of the interface are 32 bits wide on every platform.
/// @{
#if defined(_WIN32)
using VDicomULong = unsigned long;
using VDicomLong = long;
#else
using VDicomULong = std::uint32_t;
using VDicomLong = std::int32_t;
#endif
static_assert(sizeof(VDicomULong) == 4 && sizeof(VDicomLong) == 4, "the interface is 32 bits wide");

/// A position in a stream or its size where 32 bits are not enough.
using VDicomUInt64 = std::uint64_t;
/// A signed distance in a stream.
using VDicomInt64 = std::int64_t;
/// The offset of a piece in its stream: as wide as a pointer, so that 64-bit builds reach beyond 4 GiB.
using VDicomOffset = std::uintptr_t;
/// @}

/// Undefined length, "all values", "not yet parsed", "no offset yet": all bits set.
constexpr VDicomULong DICOM_UNDEFINED = 0xFFFFFFFFu;

class VDicomFile;

/// A VR code: two letters packed into 16 bits, the first in the high byte ("OB" is 0x4F42).
constexpr unsigned short VDicomVRCode(char first, char second) {
    return static_cast<unsigned short>((static_cast<unsigned char>(first) << 8) | static_cast<unsigned char>(second));
}

/// The VRs of the standard (PS3.5 6.2).
namespace vdicom::vr {
constexpr unsigned short AE = VDicomVRCode('A', 'E'), AS = VDicomVRCode('A', 'S'), AT = VDicomVRCode('A', 'T'),
                         CS = VDicomVRCode('C', 'S'), DA = VDicomVRCode('D', 'A'), DS = VDicomVRCode('D', 'S'),
                         DT = VDicomVRCode('D', 'T'), FD = VDicomVRCode('F', 'D'), FL = VDicomVRCode('F', 'L'),
                         IS = VDicomVRCode('I', 'S'), LO = VDicomVRCode('L', 'O'), LT = VDicomVRCode('L', 'T'),
                         OB = VDicomVRCode('O', 'B'), OD = VDicomVRCode('O', 'D'), OF = VDicomVRCode('O', 'F'),
                         OL = VDicomVRCode('O', 'L'), OV = VDicomVRCode('O', 'V'), OW = VDicomVRCode('O', 'W'),
                         PN = VDicomVRCode('P', 'N'), SH = VDicomVRCode('S', 'H'), SL = VDicomVRCode('S', 'L'),
                         SQ = VDicomVRCode('S', 'Q'), SS = VDicomVRCode('S', 'S'), ST = VDicomVRCode('S', 'T'),
                         SV = VDicomVRCode('S', 'V'), TM = VDicomVRCode('T', 'M'), UC = VDicomVRCode('U', 'C'),
                         UI = VDicomVRCode('U', 'I'), UL = VDicomVRCode('U', 'L'), UN = VDicomVRCode('U', 'N'),
                         UR = VDicomVRCode('U', 'R'), US = VDicomVRCode('U', 'S'), UT = VDicomVRCode('U', 'T'),
                         UV = VDicomVRCode('U', 'V');
} // namespace vdicom::vr

/// A tag from its group and element number.
constexpr VDicomULong VDicomTagCode(unsigned int group, unsigned int element) {
    return (static_cast<VDicomULong>(group & 0xFFFFu) << 16) | (element & 0xFFFFu);
}

#pragma pack(push, 1)

/// The link that heads every node of every tree and list.
struct DICOMLINK {
    DICOMLINK* pParent;     ///< the enclosing node; null at the top level
    DICOMLINK* pFirstChild; ///< the first node one level down
    DICOMLINK* pLastChild;  ///< the last node one level down
    DICOMLINK* pPrev;       ///< the previous sibling
    DICOMLINK* pNext;       ///< the next sibling
};

#pragma pack(pop)

/// One data element of a data set. Owned by its data set; callers never free one and never write to its fields.
struct DICOMELEMENT {
    DICOMLINK Link;             ///< place in the tree; an element pointer is also a link pointer
    VDicomULong nTag;           ///< group in the high 16 bits, element number in the low 16 bits
    unsigned short nVR;         ///< value representation (VDicomVRCode); 0 when unknown
    VDicomULong nLength;        ///< bytes of the value; DICOM_UNDEFINED for sequences and items
    VDicomULong nCountValue;    ///< value multiplicity; DICOM_UNDEFINED until the value has been parsed
    void* pTypeValue;           ///< parsed values (VDicomDS::GetTypeValue); null until parsed
    VDicomULong nKey;           ///< directory record item: its key number; offset element: the record it refers to
    VDicomOffset* pPieceOffset; ///< of each piece of the raw value: its byte offset in its stream
    VDicomFile** pPieceStream;  ///< of each piece: the stream that holds it
    VDicomULong* pPieceSize;    ///< of each piece: its size in bytes
    VDicomULong nCountPiece;    ///< number of pieces, at least 1
    VDicomULong nPieceSize;     ///< where pPieceSize points while there is one piece
};

#pragma pack(push, 1)

/// The value of VR "AS" (PS3.5 6.2).
struct VALUEAGE {
    unsigned short nNumber; ///< how many units
    char cUnit;             ///< 'D' days, 'W' weeks, 'M' months, 'Y' years
};

/// The value of VR "DA". All three fields 65535: an empty date.
struct VALUEDATE {
    unsigned short nYear;
    unsigned short nMonth;
    unsigned short nDay;
};

/// The value of VR "TM". Hours, minutes and seconds 65535 with a fraction of 65535: an empty time.
///
/// The fraction holds the digits behind the point as they stand, as a number in its low 24 bits ("123" is 123), and
/// in its high 8 bits how many zeros stand before them ("000123" is 0x0300007B), so that no digit is lost. A fraction
/// without leading zeros is therefore simply its number. Parts that the text leaves out are 0.
struct VALUETIME {
    unsigned short nHours;
    unsigned short nMinutes;
    unsigned short nSeconds;
    VDicomULong nFraction;
};

/// The value of VR "DT". Month and day are 0 where the text ends before them. The fraction is as in VALUETIME.
struct VALUEDATETIME {
    unsigned short nYear;
    unsigned short nMonth;
    unsigned short nDay;
    unsigned short nHours;
    unsigned short nMinutes;
    unsigned short nSeconds;
    VDicomULong nFraction;
    VDicomLong nOffsetUTC; ///< as written: +0130 is 130, -0500 is -500; 0 when absent
};

/// Which bounds a range has.
enum VALUERANGETYPE : VDicomULong {
    DICOM_RANGE_SINGLE = 0, ///< one value, the lower one; no hyphen
    DICOM_RANGE_LOWER = 1,  ///< lower bound only: the text ends with the hyphen
    DICOM_RANGE_UPPER = 2,  ///< upper bound only: the text begins with the hyphen
    DICOM_RANGE_BOTH = 3    ///< both bounds
};

/// A range of dates, as in queries (PS3.4 C.2.2.2.5).
struct VALUEDATERANGE {
    VDicomULong nType; ///< VALUERANGETYPE
    VALUEDATE Lower;
    VALUEDATE Upper;
};

/// A range of times.
struct VALUETIMERANGE {
    VDicomULong nType; ///< VALUERANGETYPE
    VALUETIME Lower;
    VALUETIME Upper;
};

/// A range of date-times.
struct VALUEDATETIMERANGE {
    VDicomULong nType; ///< VALUERANGETYPE
    VALUEDATETIME Lower;
    VALUEDATETIME Upper;
};

#pragma pack(pop)

static_assert(sizeof(VALUEAGE) == 3 && sizeof(VALUEDATE) == 6 && sizeof(VALUETIME) == 10, "declared sizes");

/// @name Flags word of a data set, load flags and save flags
/// @{
constexpr unsigned short DICOM_FLAG_PART10 = 0x0001;   ///< 128-byte preamble, "DICM", file meta information
constexpr unsigned short DICOM_FLAG_BARE = 0x0002;     ///< save flag: neither preamble nor group 0002
constexpr unsigned short DICOM_FLAG_LITTLE = 0x0004;   ///< little endian
constexpr unsigned short DICOM_FLAG_BIG = 0x0008;      ///< big endian
constexpr unsigned short DICOM_FLAG_IMPLICIT = 0x0010; ///< implicit VR
constexpr unsigned short DICOM_FLAG_EXPLICIT = 0x0020; ///< explicit VR
/// Save flag: leave (0002,0010) Transfer Syntax UID as it stands.
constexpr unsigned short DICOM_FLAG_KEEP_UID = 0x0100;
constexpr unsigned short DICOM_FLAG_CARRY = 0x0200; ///< load flag that is carried over into the flags word
constexpr unsigned short DICOM_FLAG_READ = 0x0400;  ///< set by the reader, and by InitDS when asked
/// Load flag: record the stream offset of each element (VDicomDS::GetElementOffset).
constexpr unsigned short DICOM_FLAG_OFFSETS = 0x0800;
/// InitDS: modules are inserted without their optional elements.
constexpr unsigned short DICOM_FLAG_NO_OPTIONAL = 0x1000;
/// Everything behind group 0002 is deflated (PS3.5 A.5).
constexpr unsigned short DICOM_FLAG_DEFLATED = 0x2000;

constexpr unsigned short DICOM_TS_IMPLICIT_LITTLE = 0x14; ///< implicit VR little endian
constexpr unsigned short DICOM_TS_EXPLICIT_LITTLE = 0x24; ///< explicit VR little endian
constexpr unsigned short DICOM_TS_EXPLICIT_BIG = 0x28;    ///< explicit VR big endian
/// @}

/// Result codes of the whole library; GetErrorText gives a sentence for each.
enum DICOMERROR : unsigned int {
    DICOM_OK = 0,
    DICOM_ERROR_MEMORY = 2,          ///< memory could not be allocated
    DICOM_ERROR_OPEN = 3,            ///< a file could not be opened or created
    DICOM_ERROR_READ = 4,            ///< a header or value could not be read completely
    DICOM_ERROR_WRITE = 5,           ///< a write to a stream failed
    DICOM_ERROR_STRUCTURE = 6,       ///< sequences, items and delimiters do not fit together
    DICOM_ERROR_END = 7,             ///< the stream ended where the next element was expected
    DICOM_ERROR_LENGTH = 8,          ///< an odd value length was refused
    DICOM_ERROR_PARAMETER = 9,       ///< an argument is wrong
    DICOM_ERROR_FORMAT = 10,         ///< the stream is no DICOM data set
    DICOM_ERROR_CANCELLED = 11,      ///< the application's progress callback asked to stop
    DICOM_ERROR_DEPTH = 13,          ///< sequences are nested more deeply than the limit allows
    DICOM_ERROR_SIZE = 14,           ///< a stream is too large for this build, or a value for the encoding
    DICOM_ERROR_DEFLATE = 15,        ///< deflated data are damaged or inflate beyond the limit
    DICOM_ERROR_UNSUPPORTED = 16,    ///< the pixel data would have to be compressed or decompressed
    DICOM_ERROR_ITEM_TYPE = 17,      ///< an A-ASSOCIATE PDU holds an item of unknown type
    DICOM_ERROR_ITEM_LENGTH = 18,    ///< lengths in an A-ASSOCIATE PDU do not fit together
    DICOM_ERROR_NO_SYNTAX = 19,      ///< a data set arrived on a presentation context without a transfer syntax
    DICOM_ERROR_PDU_LENGTH = 20,     ///< a PDU is longer than the application accepts
    DICOM_ERROR_DATA_VALUE = 21,     ///< a presentation data value runs past the end of its PDU
    DICOM_ERROR_COMMAND_LENGTH = 22, ///< a command set is longer than the limit
    DICOM_ERROR_TIMEOUT = 23,        ///< a wait that was given an end lasted too long

    /// Codes 29 to 65 stand for errors of the socket library (VDicomNet::GetError).
    DICOM_ERROR_SOCKET = 29,               ///< one that has no code of its own
    DICOM_ERROR_SOCKET_ACCESS = 30,        ///< the address or port may not be used by this user
    DICOM_ERROR_SOCKET_ADDRESS_USED = 31,  ///< another program uses the address and port
    DICOM_ERROR_SOCKET_ADDRESS = 32,       ///< the address is none of this machine, or no address to connect to
    DICOM_ERROR_SOCKET_FAMILY = 33,        ///< the kind of address is not supported
    DICOM_ERROR_SOCKET_ABORTED = 34,       ///< the connection was aborted
    DICOM_ERROR_SOCKET_REFUSED = 35,       ///< nobody listens at the peer's address and port
    DICOM_ERROR_SOCKET_RESET = 36,         ///< the peer reset the connection
    DICOM_ERROR_SOCKET_DESTINATION = 37,   ///< an address is missing
    DICOM_ERROR_SOCKET_FAULT = 38,         ///< a bad pointer reached the system
    DICOM_ERROR_SOCKET_IN_PROGRESS = 39,   ///< another operation is under way
    DICOM_ERROR_SOCKET_INTERRUPTED = 40,   ///< the operation was interrupted
    DICOM_ERROR_SOCKET_ARGUMENT = 41,      ///< the system refused an argument
    DICOM_ERROR_SOCKET_CONNECTED = 42,     ///< it is connected or listens already
    DICOM_ERROR_SOCKET_HANDLES = 43,       ///< there are no more sockets or descriptors
    DICOM_ERROR_SOCKET_MESSAGE_SIZE = 44,  ///< a message is too long
    DICOM_ERROR_SOCKET_NETWORK_DOWN = 45,  ///< the network does not work
    DICOM_ERROR_SOCKET_NETWORK_RESET = 46, ///< the network dropped the connection
    DICOM_ERROR_SOCKET_UNREACHABLE = 47,   ///< there is no way to the network or host
    DICOM_ERROR_SOCKET_BUFFERS = 48,       ///< the system has no more buffers
    DICOM_ERROR_SOCKET_NOT_CONNECTED = 49, ///< there is no connection
    DICOM_ERROR_SOCKET_NO_SOCKET = 50,     ///< what should be a socket is none
    DICOM_ERROR_SOCKET_OPERATION = 51,     ///< the operation is not supported
    DICOM_ERROR_SOCKET_PROTOCOL = 52,      ///< the protocol is not supported
    DICOM_ERROR_SOCKET_PROTOCOL_TYPE = 53, ///< the protocol does not fit the socket
    DICOM_ERROR_SOCKET_SHUT_DOWN = 54,     ///< the connection has been shut down
    DICOM_ERROR_SOCKET_TYPE = 55,          ///< the kind of socket is not supported
    DICOM_ERROR_SOCKET_TIMED_OUT = 56,     ///< the peer does not answer
    DICOM_ERROR_SOCKET_WOULD_BLOCK = 57,   ///< the operation would have to wait
    DICOM_ERROR_SOCKET_HOST = 58,          ///< there is no such host
    DICOM_ERROR_SOCKET_HOST_DATA = 59,     ///< the host has no address
    DICOM_ERROR_SOCKET_NAME_SERVICE = 60,  ///< the name service failed
    DICOM_ERROR_SOCKET_NOT_STARTED = 61,   ///< the socket library is not there; VDicomNet::StartUp
    DICOM_ERROR_SOCKET_SYSTEM = 62,        ///< the network is not ready
    DICOM_ERROR_SOCKET_HOST_LATER = 63,    ///< the name service does not answer now
    DICOM_ERROR_SOCKET_VERSION = 64,       ///< the socket library has another version
    DICOM_ERROR_SOCKET_OTHER = 65,         ///< the socket library's error number 65

    DICOM_ERROR_NO_TLS = 69,         ///< a TLS operation on a connection that is not in TLS mode
    DICOM_ERROR_SOCKET_OPTION = 151, ///< the keep-alive option of a socket could not be set
    DICOM_ERROR_CONNECT = 152        ///< a connection could not be started
};

/// What a reader found and went on from; see VDicomDS::GetFault. Result codes stand there as well.
enum DICOMFAULTCODE : unsigned int {
    DICOM_BAD_ELEMENT = 12,               ///< odd value length, padded after loading
    DICOM_FAULT_TRANSFER_SYNTAX = 401,    ///< the headers contradict (0002,0010); read as the headers show
    DICOM_FAULT_NO_TRANSFER_SYNTAX = 402, ///< a Part 10 file without (0002,0010)
    DICOM_FAULT_META = 403,               ///< group 0002 is not as PS3.10 7.1 has it (length, VR, order)
    DICOM_FAULT_ORDER = 404,              ///< tags out of ascending order; sorted
    DICOM_FAULT_DOUBLED = 405,            ///< a tag twice at one level; both kept
    DICOM_FAULT_VR = 406,                 ///< an unknown VR in an explicit header
    DICOM_FAULT_DELIMITER = 407,          ///< a delimiter is missing or one too many
    DICOM_FAULT_ITEM = 408,               ///< an item without a sequence, or something else where an item must stand
    DICOM_FAULT_LENGTH = 409,             ///< a length runs past the end of the enclosing element
    DICOM_FAULT_TRUNCATED = 410           ///< a value runs past the end of the stream; what is there was kept
};

/// One fault found while loading. The texts belong to the data set and live until it is loaded or reset again.
struct DICOMFAULT {
    unsigned int nCode;   ///< DICOMFAULTCODE or DICOMERROR
    VDicomUInt64 nOffset; ///< stream offset of the header concerned
    VDicomULong nTag;     ///< its tag; 0 when there is none
    const char* pszText;  ///< one sentence for people, without offset and tag
};

/// How much a finding of VDicomDS::ConformanceDS matters.
enum DICOMSEVERITY : unsigned short {
    DICOM_SEVERITY_NOTE = 1,    ///< allowed, but worth knowing
    DICOM_SEVERITY_WARNING = 2, ///< wrong, but harmless or not certain
    DICOM_SEVERITY_ERROR = 3    ///< breaks a rule of the standard
};

/// What VDicomDS::ConformanceDS finds; GetErrorText has a sentence for each.
enum DICOMCONFORMANCECODE : unsigned short {
    DICOM_CHECK_MISSING_1 = 501,             ///< an element of type 1 (or 1C, its condition holds) is missing
    DICOM_CHECK_EMPTY_1 = 502,               ///< an element of type 1 or 1C has no value
    DICOM_CHECK_MISSING_2 = 503,             ///< an element of type 2 (or 2C, its condition holds) is missing
    DICOM_CHECK_FORBIDDEN = 504,             ///< an element is there although its condition forbids it
    DICOM_CHECK_ENUMERATED = 505,            ///< a value is none of the enumerated values
    DICOM_CHECK_DEFINED_TERM = 506,          ///< a value is none of the defined terms, which is allowed
    DICOM_CHECK_MULTIPLICITY = 507,          ///< more or fewer values than the dictionary allows
    DICOM_CHECK_VR = 508,                    ///< another VR than the dictionary's
    DICOM_CHECK_CHARACTER = 509,             ///< a character that the VR does not allow
    DICOM_CHECK_VALUE_LENGTH = 510,          ///< a value longer than the VR allows, or a broken binary number
    DICOM_CHECK_FORM = 511,                  ///< no date, time, date-time, age, number or name
    DICOM_CHECK_UID = 512,                   ///< no UID
    DICOM_CHECK_ODD_LENGTH = 513,            ///< an odd number of bytes
    DICOM_CHECK_PADDING = 514,               ///< padded with another character than the VR's
    DICOM_CHECK_EXTENDED = 515,              ///< no module of the class holds the element (standard extended class)
    DICOM_CHECK_PRIVATE_OWNER = 516,         ///< a private element without creator, or a malformed creator
    DICOM_CHECK_PRIVATE_BLOCK = 517,         ///< a private block whose creator is in no table
    DICOM_CHECK_NESTING = 518,               ///< an element stands where it does not belong
    DICOM_CHECK_FEW_ITEMS = 519,             ///< a sequence has too few items
    DICOM_CHECK_MANY_ITEMS = 520,            ///< a sequence has too many items
    DICOM_CHECK_CHARACTER_SET = 521,         ///< a text is not in the declared character set
    DICOM_CHECK_UNKNOWN_CHARACTER_SET = 522, ///< (0008,0005) is no defined term
    DICOM_CHECK_RETIRED = 523,               ///< the standard has retired the element
    DICOM_CHECK_CLASS = 524,                 ///< no class, or one that is not in the table: modules were not checked
    DICOM_CHECK_META = 525,                  ///< file meta information is missing or contradicts the data set
    DICOM_CHECK_INCONSISTENT = 526,          ///< elements contradict each other
    DICOM_CHECK_UNREADABLE = 527             ///< a value cannot be read from its stream
};

/// One finding of VDicomDS::ConformanceDS. Valid during the callback alone; no text is null.
struct DICOMFINDING {
    unsigned short nCode;     ///< DICOMCONFORMANCECODE
    unsigned short nSeverity; ///< DICOMSEVERITY
    DICOMELEMENT* pElement;   ///< the element concerned; null when it is missing
    DICOMELEMENT* pParent;    ///< the item that holds it, or should; null: the top level
    VDicomULong nTag;         ///< its tag
    VDicomULong nValue;       ///< number of the value concerned, from 0 on; DICOM_UNDEFINED: the element as a whole
    unsigned short nUsage;    ///< DICOMIODUSAGE of the element in the module; 0 where there is no module
    const char* pszPath;      ///< the tag path: "(0040,0275)[0].(0040,0007)"
    const char* pszName;      ///< the attribute's name; empty when it is not known
    const char* pszModule;    ///< the module (PS3.3 C) that makes the demand; empty where none does
    const char* pszValue;     ///< the value found, UTF-8, cut behind 64 characters; may be empty
    const char* pszAllowed;   ///< what is allowed: values, characters, a number; may be empty
    const char* pszSection;   ///< where the standard says so: "PS3.5 7.4.1"; may be empty
    const char* pszText;      ///< all in one sentence for people, without the path
};

/// A clear English sentence for a result or fault code; never null. Unknown codes get a sentence that says so.
VDICOM_API const char* GetErrorText(unsigned int code);

/// SetDebugDS: called with an element that an operation refused: it is not of this data set (code 256), or its value is
/// an empty date or time (code 256 too). The return value is not used.
/// ConformanceDS: called with each finding, its code (DICOMCONFORMANCECODE) and the element; for a missing element with
/// the item that should hold it, null at the top level. VDicomDS::GetFinding tells the rest. Non-zero ends the walk.
using VDicomElementCallback = VDicomULong(VDICOM_CALLBACK*)(DICOMELEMENT* element, unsigned short code, void* userData);

/// Called now and then while a data set is saved (VDicomDS::SetProgressDS). @return non-zero to go on, 0 to stop
using VDicomProgressCallback = unsigned int(VDICOM_CALLBACK*)(VDicomUInt64 done, VDicomUInt64 total, void* userData);

/// Called by VDicomDS::ConformanceDS with each finding. @return non-zero ends the walk
using VDicomFindingCallback = VDicomULong(VDICOM_CALLBACK*)(const DICOMFINDING* finding, void* userData);

/// Code passed to VDicomElementCallback.
constexpr unsigned short DICOM_INVALID_ELEMENT = 256;
