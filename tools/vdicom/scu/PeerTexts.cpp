#include "scu/PeerTexts.h"

#include <fmt/format.h>

#include <array>

namespace program {

namespace {

struct StatusRow {
    unsigned short mask;
    unsigned short value;
    const char* text;
};

// PS3.7 C, for all services.
constexpr std::array kGeneral = std::to_array<StatusRow>({
    {0xFFFF, 0x0105, "the peer knows no such attribute"},
    {0xFFFF, 0x0106, "an attribute has a value that the peer does not take"},
    {0xFFFF, 0x0107, "some attributes were not taken"},
    {0xFFFF, 0x0110, "the peer failed to process it; its own log says why"},
    {0xFFFF, 0x0111, "the peer has an object with this SOP Instance UID already"},
    {0xFFFF, 0x0112, "the peer has no such object"},
    {0xFFFF, 0x0115, "an argument has a value that the peer does not take"},
    {0xFFFF, 0x0116, "a value was out of range and was changed by the peer"},
    {0xFFFF, 0x0117, "the peer takes this for no SOP Instance UID"},
    {0xFFFF, 0x0118, "the peer does not know the SOP class"},
    {0xFFFF, 0x0119, "the object is of another SOP class at the peer"},
    {0xFFFF, 0x0120, "an attribute is missing"},
    {0xFFFF, 0x0121, "an attribute that needs a value has none"},
    {0xFFFF, 0x0122, "the peer does not support the SOP class"},
    {0xFFFF, 0x0124, "the peer does not allow it to this AE title; --calling names another one"},
    {0xFFFF, 0x0210, "the Message ID is in use"},
    {0xFFFF, 0x0211, "the peer does not know this operation"},
    {0xFFFF, 0x0212, "the peer does not expect this message"},
    {0xFFFF, 0x0213, "the peer is at a limit of its resources; try again later"},
});

// PS3.4 B.2.3
constexpr std::array kStore = std::to_array<StatusRow>({
    {0xFF00, 0xA700, "the peer is out of resources; look for its free disk space, or try again later"},
    {0xFF00, 0xA900, "the data set does not fit its SOP class; 'vdicom check' shows where"},
    {0xFFFF, 0xB000, "the peer changed elements when it stored the object"},
    {0xFFFF, 0xB006, "the peer left elements out when it stored the object"},
    {0xFFFF, 0xB007, "stored, though the data set does not fit its SOP class; 'vdicom check' shows where"},
    {0xF000, 0xC000, "the peer cannot understand the object; 'vdicom check' may show why"},
});

// PS3.4 C.4.1.1.4
constexpr std::array kFind = std::to_array<StatusRow>({
    {0xFFFF, 0xA700, "the peer is out of resources; ask for less, or try again later"},
    {0xFFFF, 0xA900, "the keys do not fit the level and the model; a level needs the unique keys of those above it"},
    {0xFFFF, 0xFF01, "a match, though the peer does not support all of the keys"},
    {0xF000, 0xC000, "the peer cannot process the query"},
});

// PS3.4 C.4.2.1.5, C.4.3.1.4
constexpr std::array kRetrieve = std::to_array<StatusRow>({
    {0xFFFF, 0xA701, "the peer lacks the resources to count what matches; ask for less, or try again later"},
    {0xFFFF, 0xA702, "the peer lacks the resources to send the objects; ask for less, or try again later"},
    {0xFFFF, 0xA801, "the peer does not know the destination; enter its AE title, host and port there"},
    {0xFFFF, 0xA900, "the keys do not fit the level and the model; a level needs the unique keys of those above it"},
    {0xFFFF, 0xB000, "some objects failed or were stored with a warning"},
    {0xF000, 0xC000, "the peer cannot process the request"},
});

template <std::size_t size> const char* Find(const std::array<StatusRow, size>& rows, unsigned short status) {
    for (const StatusRow& row : rows) {
        if ((status & row.mask) == row.value)
            return row.text;
    }
    return nullptr;
}

const char* TextOfService(Service service, unsigned short status) {
    switch (service) {
    case Service::store:
        return Find(kStore, status);
    case Service::find:
        return Find(kFind, status);
    case Service::get:
    case Service::move:
        return Find(kRetrieve, status);
    case Service::echo:
        break;
    }
    return nullptr;
}

const char* TextOfKind(StatusKind kind) {
    switch (kind) {
    case StatusKind::success:
        return "success";
    case StatusKind::pending:
        return "more is to come";
    case StatusKind::cancelled:
        return "ended on request";
    case StatusKind::warning:
        return "done, with a warning that the standard does not define";
    case StatusKind::failure:
        break;
    }
    return "refused, for a reason that the standard does not define; the peer's own log says more";
}

} // namespace

StatusKind KindOfStatus(unsigned short status) {
    if (status == 0)
        return StatusKind::success;
    if (status == 0xFF00 || status == 0xFF01)
        return StatusKind::pending;
    if (status == 0xFE00)
        return StatusKind::cancelled;
    if ((status & 0xF000) == 0xB000 || status == 0x0001 || status == 0x0107 || status == 0x0116)
        return StatusKind::warning;
    return StatusKind::failure;
}

std::string StatusText(Service service, unsigned short status, const std::string& comment) {
    const char* text = TextOfService(service, status);
    if (!text)
        text = Find(kGeneral, status);
    if (!text)
        text = TextOfKind(KindOfStatus(status));
    std::string sentence = fmt::format("status {:04X}, {}", status, text);
    if (!comment.empty())
        sentence += fmt::format(" (the peer says: {})", comment);
    return sentence;
}

std::string RejectText(unsigned char result, unsigned char source, unsigned char reason) {
    const unsigned int code = source * 256U + reason;
    const char* text = nullptr;
    switch (code) {
    case 0x101:
        text = "it gives no reason; its own log may";
        break;
    case 0x102:
        text = "it does not support the application context";
        break;
    case 0x103:
        text = "it does not know the calling AE title; give one that it knows with --calling";
        break;
    case 0x107:
        text = "it does not have the called AE title; give its own with --called";
        break;
    case 0x201:
        text = "it gives no reason; its own log may";
        break;
    case 0x202:
        text = "it does not support version 1 of the protocol";
        break;
    case 0x301:
        text = "it is busy; try again later";
        break;
    case 0x302:
        text = "it has as many associations as it takes; try again later";
        break;
    default:
        break;
    }
    std::string sentence = "the peer rejected the association";
    sentence +=
        text ? fmt::format(": {}", text)
             : fmt::format(" for a reason that the standard does not define (source {}, reason {})", source, reason);
    // A busy peer is not for ever; where the sentence does not tell it, the result does.
    if (result == 2 && source != 3)
        sentence += "; it may take it later";
    return sentence;
}

std::string AbortText(unsigned char source, unsigned char reason) {
    if (source == 0)
        return "the peer's application aborted the association; its own log may say why";
    const char* text = "it gives no reason; its own log may";
    switch (reason) {
    case 1:
        text = "it did not know a PDU";
        break;
    case 2:
        text = "it did not expect a PDU";
        break;
    case 4:
        text = "it did not know a parameter of a PDU";
        break;
    case 5:
        text = "it did not expect a parameter of a PDU";
        break;
    case 6:
        text = "a parameter of a PDU had a value that it does not take";
        break;
    default:
        break;
    }
    return fmt::format("the peer's protocol machine aborted the association: {}", text);
}

std::string ContextText(unsigned char result) {
    switch (result) {
    case 0:
        return "accepted";
    case 1:
        return "the peer refused it";
    case 2:
        return "the peer refused it without a reason";
    case 3:
        return "the peer does not support the SOP class";
    case 4:
        return "the peer supports none of the transfer syntaxes";
    default:
        return fmt::format("the peer refused it (result {})", result);
    }
}

} // namespace program
