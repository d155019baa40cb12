/// @file Socket.h
/// Sockets whose events come as messages to a window. Implemented in posix/ and in win32/ with one contract; nobody
/// outside these folders asks which platform it is.
///
/// Operations return 0 or an error, which is a number of Windows Sockets on every platform (10035: would block). No
/// operation waits, except ResolveAddress. A socket belongs to the thread of its window.
#pragma once

#include "MessageLoop.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vdicom::platform {

using SocketHandle = std::intptr_t;
constexpr SocketHandle kNoSocket = -1;

constexpr int kSocketWouldBlock = 10035;
constexpr int kSocketNotSupported = 10045;
constexpr int kSocketNoBuffers = 10055;
constexpr int kSocketsNotInitialised = 10093;

/// @name Events
/// @{
constexpr unsigned int kReadEvent = 0x01;
constexpr unsigned int kWriteEvent = 0x02;
constexpr unsigned int kAcceptEvent = 0x08;
constexpr unsigned int kConnectEvent = 0x10;
constexpr unsigned int kCloseEvent = 0x20;
/// @}

/// An address with its port, of IPv4 or IPv6.
struct SocketAddress {
    std::uint32_t size = 0; ///< of `bytes` that are used
    alignas(8) unsigned char bytes[128] = {};
};

/// Loads what is needed; calls may nest. @return 0, or the error: the library is missing or has another version
int StartSockets();
void StopSockets();

/// An error of the platform (errno) as the number of Windows Sockets; those numbers themselves stay as they are.
int SocketErrorOf(int platformError);

/// The addresses of a host, the preferred first.
/// @param host a name, or an address in text; null: every address of this machine when listening, else the loopback
int ResolveAddress(const char* host, unsigned int port, bool listening, std::vector<SocketAddress>& addresses);
/// The address in text ("127.0.0.1", "::1") and its port.
void DescribeAddress(const SocketAddress& address, std::string& text, unsigned int& port);

/// Raises what limits the descriptors of the process as far as it may. @return the limit; 0: there is none
std::uint64_t RaiseDescriptorLimit();

struct SocketOptions {
    bool keepAlive = true;
    int sendBuffer = 29696;    ///< bytes; 0: the system's own
    int receiveBuffer = 29696; ///< likewise
};
enum class OptionResult : unsigned char { done, keepAliveFailed, failed };

/// A stream socket for connecting to, or listening at, addresses of this kind.
int OpenSocket(const SocketAddress& kind, SocketHandle& socket);
/// Every option that the library sets, in one place. `error` is set when the result is not done.
OptionResult SetSocketOptions(SocketHandle socket, const SocketOptions& options, int& error);
int BindSocket(SocketHandle socket, const SocketAddress& address);
int ListenSocket(SocketHandle socket, int backlog);
/// Starts connecting: 0 when it goes on in the background, which ends with a connect event.
int ConnectSocket(SocketHandle socket, const SocketAddress& address);
/// Takes one waiting connection.
int AcceptSocket(SocketHandle listener, SocketHandle& socket);
void CloseSocket(SocketHandle socket);

/// Takes at most `size` bytes. `done` 0 without an error: the peer has closed, or `size` was 0.
int ReceiveFrom(SocketHandle socket, void* buffer, std::size_t size, std::size_t& done);
/// Bytes that can be received at once.
int CountWaiting(SocketHandle socket, std::size_t& bytes);

struct SendPart {
    const void* data;
    std::size_t size;
};
/// Gives as much as goes out at once, in one call of the system where it can.
int SendTo(SocketHandle socket, const SendPart* parts, std::size_t count, std::size_t& done);

int LocalAddress(SocketHandle socket, SocketAddress& address);
int PeerAddress(SocketHandle socket, SocketAddress& address);

/// Lets events come as messages to a window of this thread: first parameter the socket, second the event in the low
/// word and the error in the high word. A new selection replaces the old one; 0 ends it, but messages may be under way.
///
/// - connect: once, when connecting has ended, well or not; select before ConnectSocket.
/// - accept: when a connection is waiting; once more after AcceptSocket when another one is.
/// - read: when there are bytes; once more after ReceiveFrom when there still are. Who receives when it is not told to
///   may find that the bytes of an event that is under way are gone (10035).
/// - write: once when the socket is connected; once more after SendTo that would have blocked, when there is room.
/// - close: once, when the peer has closed or the connection is broken, and all bytes have been received.
int SelectSocketEvents(SocketHandle socket, WindowHandle window, unsigned int message, unsigned int events);

} // namespace vdicom::platform
