/// @file Settings.h
/// What `vdicom serve` was told.
#pragma once

#include "VDicomTypes.h"

#include <string>

namespace program {

struct ServeSettings {
    std::string folder;
    std::string address;          ///< to listen at; empty: all
    unsigned int port = 0;        ///< 0: the system chooses
    std::string title = "VDICOM"; ///< our AE title
    std::string peersFile;        ///< empty: none
    std::string worklist;         ///< folder of worklist files; empty: none
    bool knownCallers = false;    ///< refuse callers that the peers file does not name
    bool checkCalled = false;     ///< refuse requests that name another AE title than ours
    bool sync = false;            ///< what was acknowledged outlasts a power failure
    VDicomULong maxPdu = 131072;
    VDicomULong timeout = 30'000;     ///< milliseconds for a connection to a peer, and for its association; 0: for ever
    VDicomULong idle = 600'000;       ///< milliseconds; 0: idle associations live for ever
    unsigned int mostSessions = 1200; ///< associations at a time
};

} // namespace program
