/// @file CommandTable.h
/// DIMSE messages (PS3.7 9.3, 10.3, E): one table from each message to the elements of its command set. It drives
/// building, reading and showing of command sets. Knows no connection.
///
/// Each Send... function of the connection fills a CommandValues, calls WriteCommand into the connection's command data
/// set, and sends that and the data set. Its ReceiveData calls ReadCommand, OnReceiveData, and the notification that
/// the enumeration Command names; the notifications stand in the virtual table in this order.
#pragma once

#include "VDicomDS.h"

#include <string>
#include <vector>

namespace vdicom {

enum class Command : unsigned char {
    cStoreRequest,
    cStoreResponse,
    cFindRequest,
    cFindResponse,
    cGetRequest,
    cGetResponse,
    cMoveRequest,
    cMoveResponse,
    cCancelRequest,
    cEchoRequest,
    cEchoResponse,
    nReportRequest,
    nReportResponse,
    nGetRequest,
    nGetResponse,
    nSetRequest,
    nSetResponse,
    nActionRequest,
    nActionResponse,
    nCreateRequest,
    nCreateResponse,
    nDeleteRequest,
    nDeleteResponse,
    unknown
};
constexpr std::size_t kCommands = 23;

/// What a command set says beside its Command Field and Command Data Set Type.
struct CommandValues {
    unsigned short messageId = 0;
    unsigned short respondedTo = 0;
    unsigned short priority = 0;
    unsigned short status = 0;
    unsigned short eventType = 0;
    unsigned short actionType = 0;
    unsigned short remaining = 0; ///< sub-operations
    unsigned short completed = 0;
    unsigned short failed = 0;
    unsigned short warning = 0;
    unsigned short moveMessageId = 0;
    const char* affectedClass = nullptr;
    const char* affectedInstance = nullptr;
    const char* requestedClass = nullptr;
    const char* requestedInstance = nullptr;
    const char* moveDestination = nullptr;
    const char* moveOriginator = nullptr; ///< read; no message writes it
    const VDicomULong* attributes = nullptr;
    VDicomULong attributeCount = 0;
};

/// One element that command sets may hold. Exactly one of the last three says where its value is; the list of
/// attributes has none of them.
struct CommandElement {
    VDicomULong tag;
    unsigned short vr;
    const char* name; ///< PS3.7 E
    unsigned short CommandValues::*number;
    const char* CommandValues::*text;
};

/// All elements beside (0000,0100) and (0000,0800), by ascending tag.
constexpr std::size_t kCommandElements = 18;
const CommandElement* CommandElements();

struct CommandRow {
    Command command;
    unsigned short field;       ///< (0000,0100)
    const char* name;           ///< "C-STORE-RQ"
    unsigned short withDataSet; ///< (0000,0800) when a data set follows; kNoDataSet: the message never has one
    bool requested;             ///< class and instance of its notification are the requested ones, not the affected
    unsigned short elements[7]; ///< element numbers in the order of writing, up to the first 0
    unsigned char optional;     ///< how many of them, the last ones, are left out when their text is null
};

/// (0000,0800) when no data set follows.
constexpr unsigned short kNoDataSet = 0x0101;

/// Null for Command::unknown.
const CommandRow* FindCommand(Command command);
/// By Command Field; null when no message has it.
const CommandRow* FindCommandField(unsigned short field);

/// Builds a command set in `out`, which is emptied first and becomes implicit VR little endian.
/// @param hasData whether a data set follows; it is not asked for messages that never have one
/// @return 0; DICOM_ERROR_PARAMETER (unknown message, or a text that the message needs is null; `out` is untouched);
///         DICOM_ERROR_MEMORY
unsigned int WriteCommand(Command command, const CommandValues& values, bool hasData, VDicomDS& out);

/// A command set that was received. Its texts and its list point into the object itself.
struct ReceivedCommand : CommandValues {
    ReceivedCommand() = default;
    ReceivedCommand(const ReceivedCommand&) = delete;
    ReceivedCommand& operator=(const ReceivedCommand&) = delete;

    static constexpr std::size_t kTextSize = 65; ///< 64 characters and the zero

    Command command = Command::unknown;
    unsigned short field = 0;
    unsigned short dataSetType = 0;
    /// For the notification: the affected or the requested ones, by the message.
    const char* classUID = "";
    const char* instanceUID = "";

    char texts[kCommandElements][kTextSize] = {};
    std::vector<VDicomULong> list;
};

/// Reads every element; one that is missing, empty or no such value is 0 or an empty text, a text beyond 64 characters
/// is cut. Without memory for the list of attributes its pointer is null and its count stands.
void ReadCommand(VDicomDS& set, ReceivedCommand& out);

/// One line for logs: "C-STORE-RQ, Message ID 7, Priority 0, Affected SOP Class UID 1.2.3, data set". Elements that are
/// not there are left out; characters that do not belong into a log become '?'.
std::string DescribeCommand(VDicomDS& set);

} // namespace vdicom
