/// @file Peer.h
/// The application entity at the other end, as the command line names it.
#pragma once

#include "Options.h"

#include "VDicomTypes.h"

#include <string>

namespace program {

/// What the program calls itself in associations and files (PS3.7 D.3.3.2), as the library does in files.
constexpr const char* kImplementationClass = "1.2.840.999001.1";
constexpr const char* kImplementationVersion = "CORVANTIS 13";

struct Peer {
    std::string host;
    unsigned int port = 0;
    std::string called = "ANY-SCP";
    std::string calling = "VDICOM";
    VDicomULong maxPdu = 131072;  ///< bytes of a PDU that the peer may send
    VDicomULong timeout = 60'000; ///< milliseconds for each wait; 0: for ever

    /// "ARCHIVE at host:104"
    std::string Name() const;
};

/// What every command takes that talks to a peer: HOST, PORT and the options of an association.
class PeerOptions {
public:
    explicit PeerOptions(Options& options);
    /// Reads what was given. @return what is wrong with it; empty: nothing
    std::string Read(Peer& peer) const;

private:
    std::string m_host;
    std::string m_port;
    std::string m_called;
    std::string m_calling;
    std::uint64_t m_maxPdu;
    std::uint64_t m_timeout;
};

/// Reads a TCP port. @return false when it is none
bool ParsePort(const std::string& text, unsigned int& port);
/// @return what is wrong with an AE title (PS3.5 6.2); empty: nothing
std::string WrongTitle(const std::string& title);

} // namespace program
