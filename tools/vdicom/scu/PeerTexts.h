/// @file PeerTexts.h
/// What a peer's numbers mean, in sentences that say what to do next. Pure: knows numbers and texts alone.
#pragma once

#include <string>

namespace program {

/// Services whose statuses differ.
enum class Service { echo, store, find, get, move };

/// What a status of a response means (PS3.7 C, E).
enum class StatusKind { success, pending, cancelled, warning, failure };
StatusKind KindOfStatus(unsigned short status);

/// "status A700, the peer is out of resources; ..."; `comment` is the peer's own (0000,0902), may be empty.
std::string StatusText(Service service, unsigned short status, const std::string& comment);

/// Why an association was rejected (PS3.8 Table 9-21).
std::string RejectText(unsigned char result, unsigned char source, unsigned char reason);
/// Why it was aborted (PS3.8 Table 9-26).
std::string AbortText(unsigned char source, unsigned char reason);
/// Why a presentation context was not accepted (PS3.8 Table 9-18).
std::string ContextText(unsigned char result);

} // namespace program
