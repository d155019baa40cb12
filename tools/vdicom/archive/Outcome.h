/// @file Outcome.h
/// How an operation of the archive ended, as the peer is told: a DIMSE status and an Error Comment.
#pragma once

#include <string>

namespace archive {

/// Statuses of PS3.4 B.2.3 (storage), C.4.1.1.4 (find), C.4.2.1.5 (move) and C.4.3.1.4 (get).
namespace status {
constexpr unsigned short kSuccess = 0x0000, kPending = 0xFF00, kPendingUnsupportedKeys = 0xFF01, kCancelled = 0xFE00,
                         kOutOfResources = 0xA700, kDoesNotMatchClass = 0xA900, kUnableToProcess = 0xC000;
} // namespace status

struct Outcome {
    unsigned short status = status::kSuccess;
    std::string comment; ///< one sentence, at most 64 characters go into (0000,0902)

    bool IsSuccess() const { return status == status::kSuccess; }
};

} // namespace archive
