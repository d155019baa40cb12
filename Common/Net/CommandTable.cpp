#include "CommandTable.h"

#include "Guarded.h"
#include "VRTraits.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace vdicom {

namespace {

using Values = CommandValues;

constexpr VDicomULong kField = 0x00000100, kDataSetType = 0x00000800, kAttributes = 0x00001005, kStatus = 0x00000900;
constexpr unsigned short kShort = 1; // value type of FindGetValue

constexpr CommandElement kElements[kCommandElements] = {
    {0x0002, vr::UI, "Affected SOP Class UID", nullptr, &Values::affectedClass},
    {0x0003, vr::UI, "Requested SOP Class UID", nullptr, &Values::requestedClass},
    {0x0110, vr::US, "Message ID", &Values::messageId, nullptr},
    {0x0120, vr::US, "Message ID Being Responded To", &Values::respondedTo, nullptr},
    {0x0600, vr::AE, "Move Destination", nullptr, &Values::moveDestination},
    {0x0700, vr::US, "Priority", &Values::priority, nullptr},
    {kStatus, vr::US, "Status", &Values::status, nullptr},
    {0x1000, vr::UI, "Affected SOP Instance UID", nullptr, &Values::affectedInstance},
    {0x1001, vr::UI, "Requested SOP Instance UID", nullptr, &Values::requestedInstance},
    {0x1002, vr::US, "Event Type ID", &Values::eventType, nullptr},
    {kAttributes, vr::AT, "Attribute Identifier List", nullptr, nullptr},
    {0x1008, vr::US, "Action Type ID", &Values::actionType, nullptr},
    {0x1020, vr::US, "Number of Remaining Sub-operations", &Values::remaining, nullptr},
    {0x1021, vr::US, "Number of Completed Sub-operations", &Values::completed, nullptr},
    {0x1022, vr::US, "Number of Failed Sub-operations", &Values::failed, nullptr},
    {0x1023, vr::US, "Number of Warning Sub-operations", &Values::warning, nullptr},
    {0x1030, vr::AE, "Move Originator Application Entity Title", nullptr, &Values::moveOriginator},
    {0x1031, vr::US, "Move Originator Message ID", &Values::moveMessageId, nullptr},
};

// A data set follows: identifiers are announced by another value than the rest.
constexpr unsigned short kFollows = 0x0000, kIdentifier = 0x0102;

constexpr CommandRow kRows[kCommands] = {
    {Command::cStoreRequest, 0x0001, "C-STORE-RQ", kFollows, false, {0x0110, 0x0700, 0x1031, 0x0002, 0x1000}, 2},
    {Command::cStoreResponse, 0x8001, "C-STORE-RSP", kNoDataSet, false, {0x0120, 0x0900, 0x0002, 0x1000}, 0},
    {Command::cFindRequest, 0x0020, "C-FIND-RQ", kIdentifier, false, {0x0110, 0x0700, 0x0002}, 0},
    {Command::cFindResponse, 0x8020, "C-FIND-RSP", kFollows, false, {0x0120, 0x0900, 0x0002}, 0},
    {Command::cGetRequest, 0x0010, "C-GET-RQ", kIdentifier, false, {0x0110, 0x0700, 0x0002}, 0},
    {Command::cGetResponse,
     0x8010,
     "C-GET-RSP",
     kFollows,
     false,
     {0x0120, 0x0900, 0x1020, 0x1021, 0x1022, 0x1023, 0x0002},
     0},
    {Command::cMoveRequest, 0x0021, "C-MOVE-RQ", kIdentifier, false, {0x0110, 0x0700, 0x0002, 0x0600}, 0},
    {Command::cMoveResponse,
     0x8021,
     "C-MOVE-RSP",
     kFollows,
     false,
     {0x0120, 0x0900, 0x1020, 0x1021, 0x1022, 0x1023, 0x0002},
     0},
    {Command::cCancelRequest, 0x0FFF, "C-CANCEL-RQ", kNoDataSet, false, {0x0120}, 0},
    {Command::cEchoRequest, 0x0030, "C-ECHO-RQ", kNoDataSet, false, {0x0110, 0x0002}, 0},
    {Command::cEchoResponse, 0x8030, "C-ECHO-RSP", kNoDataSet, false, {0x0120, 0x0900, 0x0002}, 0},
    {Command::nReportRequest, 0x0100, "N-EVENT-REPORT-RQ", kFollows, false, {0x0110, 0x1002, 0x0002, 0x1000}, 0},
    {Command::nReportResponse,
     0x8100,
     "N-EVENT-REPORT-RSP",
     kFollows,
     false,
     {0x0120, 0x0900, 0x1002, 0x0002, 0x1000},
     0},
    {Command::nGetRequest, 0x0110, "N-GET-RQ", kNoDataSet, true, {0x0110, 0x1005, 0x0003, 0x1001}, 0},
    {Command::nGetResponse, 0x8110, "N-GET-RSP", kFollows, false, {0x0120, 0x0900, 0x0002, 0x1000}, 0},
    {Command::nSetRequest, 0x0120, "N-SET-RQ", kFollows, true, {0x0110, 0x0003, 0x1001}, 0},
    {Command::nSetResponse, 0x8120, "N-SET-RSP", kFollows, false, {0x0120, 0x0900, 0x0002, 0x1000}, 0},
    {Command::nActionRequest, 0x0130, "N-ACTION-RQ", kFollows, true, {0x0110, 0x1008, 0x0003, 0x1001}, 0},
    {Command::nActionResponse, 0x8130, "N-ACTION-RSP", kFollows, false, {0x0120, 0x0900, 0x1008, 0x0002, 0x1000}, 0},
    {Command::nCreateRequest, 0x0140, "N-CREATE-RQ", kFollows, false, {0x0110, 0x0002, 0x1000}, 0},
    {Command::nCreateResponse, 0x8140, "N-CREATE-RSP", kFollows, false, {0x0120, 0x0900, 0x0002, 0x1000}, 0},
    {Command::nDeleteRequest, 0x0150, "N-DELETE-RQ", kNoDataSet, true, {0x0110, 0x0003, 0x1001}, 0},
    {Command::nDeleteResponse, 0x8150, "N-DELETE-RSP", kNoDataSet, false, {0x0120, 0x0900, 0x0002, 0x1000}, 0},
};

constexpr bool TablesAreInOrder() {
    for (std::size_t i = 0; i < kCommands; ++i) {
        if (kRows[i].command != static_cast<Command>(i))
            return false;
    }
    for (std::size_t i = 1; i < kCommandElements; ++i) {
        if (kElements[i - 1].tag >= kElements[i].tag)
            return false;
    }
    return true;
}
static_assert(TablesAreInOrder(), "rows are found by their message, elements by their tag");

constexpr const CommandElement& ElementOf(VDicomULong tag) {
    std::size_t i = 0;
    while (kElements[i].tag != tag)
        ++i;
    return kElements[i];
}

bool IsComplete(const CommandRow& row, const CommandValues& values) {
    std::size_t count = 0;
    while (count < std::size(row.elements) && row.elements[count] != 0)
        ++count;
    return std::all_of(row.elements, row.elements + count - row.optional, [&](unsigned short number) {
        const CommandElement& element = ElementOf(number);
        return element.text == nullptr || values.*element.text != nullptr;
    });
}

bool SetNumber(VDicomDS& set, VDicomULong tag, unsigned short number) {
    return set.FindSetValue(nullptr, tag, vr::US, &number, 1) != 0;
}

bool SetElement(VDicomDS& set, const CommandElement& element, const CommandValues& values) {
    if (element.number != nullptr)
        return SetNumber(set, element.tag, values.*element.number);
    const void* value = values.attributes;
    VDicomULong count = values.attributes == nullptr ? 0 : values.attributeCount;
    if (element.text != nullptr) {
        value = values.*element.text;
        if (value == nullptr)
            return true;
        count = *(values.*element.text) == '\0' ? 0 : 1;
    }
    if (count == 0)
        return set.InsertElement(nullptr, 1, element.tag, element.vr, 0, 0) != nullptr;
    return set.FindSetValue(nullptr, element.tag, element.vr, value, count) != 0;
}

unsigned short NumberOf(VDicomDS& set, VDicomULong tag) {
    unsigned short number = 0;
    return set.FindGetValue(nullptr, tag, kShort, &number, sizeof number) != 0 ? number
                                                                               : static_cast<unsigned short>(0);
}

void ReadList(VDicomDS& set, ReceivedCommand& out) {
    DICOMELEMENT* e = set.FindFirstElement(nullptr, kAttributes, 1);
    const VDicomULong count = e == nullptr ? 0 : set.GetCountValue(e);
    const VDicomLong* tags = count == 0 ? nullptr : set.GetLongValue(e, 0, count);
    out.attributeCount = count;
    if (tags == nullptr)
        return;
    Guarded(0, [&] {
        out.list.assign(tags, tags + count);
        out.attributes = out.list.data();
        return 0;
    });
}

} // namespace

const CommandElement* CommandElements() { return kElements; }

const CommandRow* FindCommand(Command command) {
    return command < Command::unknown ? &kRows[static_cast<std::size_t>(command)] : nullptr;
}

const CommandRow* FindCommandField(unsigned short field) {
    const auto* row =
        std::find_if(std::begin(kRows), std::end(kRows), [field](const auto& r) { return r.field == field; });
    return row == std::end(kRows) ? nullptr : row;
}

unsigned int WriteCommand(Command command, const CommandValues& values, bool hasData, VDicomDS& out) {
    const CommandRow* row = FindCommand(command);
    if (row == nullptr || !IsComplete(*row, values))
        return DICOM_ERROR_PARAMETER;
    out.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BARE | DICOM_TS_IMPLICIT_LITTLE);
    bool done =
        SetNumber(out, kField, row->field) && SetNumber(out, kDataSetType, hasData ? row->withDataSet : kNoDataSet);
    for (const unsigned short number : row->elements) {
        if (!done || number == 0)
            break;
        done = SetElement(out, ElementOf(number), values);
    }
    return done ? DICOM_OK : DICOM_ERROR_MEMORY;
}

void ReadCommand(VDicomDS& set, ReceivedCommand& out) {
    out.field = NumberOf(set, kField);
    out.dataSetType = NumberOf(set, kDataSetType);
    for (std::size_t i = 0; i < kCommandElements; ++i) {
        const CommandElement& element = kElements[i];
        if (element.number != nullptr) {
            out.*element.number = NumberOf(set, element.tag);
        } else if (element.text != nullptr) {
            char* text = out.texts[i];
            DICOMELEMENT* e = set.FindFirstElement(nullptr, element.tag, 1);
            const char* value = e == nullptr ? nullptr : set.GetStringValue(e, 0, 1);
            const std::size_t size =
                value == nullptr ? 0 : std::min(std::strlen(value), ReceivedCommand::kTextSize - 1);
            std::memcpy(text, size == 0 ? "" : value, size);
            text[size] = '\0';
            out.*element.text = text;
        }
    }
    out.list.clear();
    out.attributes = nullptr;
    out.attributeCount = 0;
    ReadList(set, out);
    const CommandRow* row = FindCommandField(out.field);
    out.command = row == nullptr ? Command::unknown : row->command;
    const bool requested = row != nullptr && row->requested;
    out.classUID = requested ? out.requestedClass : out.affectedClass;
    out.instanceUID = requested ? out.requestedInstance : out.affectedInstance;
}

std::string DescribeCommand(VDicomDS& set) {
    ReceivedCommand command;
    ReadCommand(set, command);
    char number[16];
    const CommandRow* row = FindCommandField(command.field);
    std::snprintf(number, sizeof number, "0x%04X", static_cast<unsigned int>(command.field));
    std::string line = row != nullptr ? std::string(row->name) : std::string("unknown command ") + number;
    for (const CommandElement& element : kElements) {
        if (set.FindFirstElement(nullptr, element.tag, 1) == nullptr)
            continue;
        line += std::string(", ") + element.name + " ";
        if (element.text != nullptr) {
            for (const char* c = command.*element.text; *c != '\0'; ++c)
                line += *c >= ' ' && *c <= '~' ? *c : '?';
        } else if (element.number != nullptr) {
            const unsigned int value = command.*element.number;
            std::snprintf(number, sizeof number, element.tag == kStatus ? "0x%04X" : "%u", value);
            line += number;
        } else {
            for (std::size_t i = 0; i < command.list.size(); ++i) {
                std::snprintf(number, sizeof number, "%s(%04X,%04X)", i == 0 ? "" : " ",
                              static_cast<unsigned int>(command.list[i] >> 16),
                              static_cast<unsigned int>(command.list[i] & 0xFFFF));
                line += number;
            }
        }
    }
    const bool hasData = set.FindFirstElement(nullptr, kDataSetType, 1) != nullptr && command.dataSetType != kNoDataSet;
    return line + (hasData ? ", data set" : "");
}

} // namespace vdicom
