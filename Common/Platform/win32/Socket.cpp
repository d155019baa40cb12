// Sockets of Windows: the library is loaded at run time, its functions are taken by name.
#include "Socket.h"

#include <algorithm>
#include <cstring>
#include <memory>

#define WIN32_LEAN_AND_MEAN
#include <winsock2.h>
#include <ws2tcpip.h>

#include <windows.h>

namespace vdicom::platform {

namespace {

constexpr std::size_t kMostParts = 64;

static_assert(kReadEvent == FD_READ && kWriteEvent == FD_WRITE && kAcceptEvent == FD_ACCEPT &&
                  kConnectEvent == FD_CONNECT && kCloseEvent == FD_CLOSE,
              "events are the system's");
static_assert(kSocketWouldBlock == WSAEWOULDBLOCK && kSocketNoBuffers == WSAENOBUFS &&
                  kSocketsNotInitialised == WSANOTINITIALISED && kSocketNotSupported == WSAEOPNOTSUPP,
              "errors are the system's");

/// The entry points, each null while the library is not loaded.
struct Functions {
    decltype(&::WSAStartup) startup;
    decltype(&::WSACleanup) cleanup;
    decltype(&::WSAGetLastError) lastError;
    decltype(&::WSAAsyncSelect) asyncSelect;
    decltype(&::WSASend) sendParts;
    decltype(&::socket) socket;
    decltype(&::closesocket) closeSocket;
    decltype(&::bind) bind;
    decltype(&::listen) listen;
    decltype(&::connect) connect;
    decltype(&::accept) accept;
    decltype(&::recv) receive;
    decltype(&::ioctlsocket) control;
    decltype(&::setsockopt) setOption;
    decltype(&::getsockname) localName;
    decltype(&::getpeername) peerName;
    decltype(&::getaddrinfo) addresses;
    decltype(&::freeaddrinfo) freeAddresses;
    decltype(&::getnameinfo) describe;
};

HMODULE g_library = nullptr;
Functions g_ws{};
int g_starts = 0;

template <class Function> bool Take(Function& function, const char* name) {
    const FARPROC address = GetProcAddress(g_library, name);
    std::memcpy(&function, &address, sizeof function);
    return address != nullptr;
}

bool TakeAll() {
    return Take(g_ws.startup, "WSAStartup") && Take(g_ws.cleanup, "WSACleanup") &&
           Take(g_ws.lastError, "WSAGetLastError") && Take(g_ws.asyncSelect, "WSAAsyncSelect") &&
           Take(g_ws.sendParts, "WSASend") && Take(g_ws.socket, "socket") && Take(g_ws.closeSocket, "closesocket") &&
           Take(g_ws.bind, "bind") && Take(g_ws.listen, "listen") && Take(g_ws.connect, "connect") &&
           Take(g_ws.accept, "accept") && Take(g_ws.receive, "recv") && Take(g_ws.control, "ioctlsocket") &&
           Take(g_ws.setOption, "setsockopt") && Take(g_ws.localName, "getsockname") &&
           Take(g_ws.peerName, "getpeername") && Take(g_ws.addresses, "getaddrinfo") &&
           Take(g_ws.freeAddresses, "freeaddrinfo") && Take(g_ws.describe, "getnameinfo");
}

void Unload() {
    FreeLibrary(g_library);
    g_library = nullptr;
    g_ws = {};
}

SOCKET NativeOf(SocketHandle socket) { return static_cast<SOCKET>(socket); }
int ResultOf(int returned) { return returned == 0 ? 0 : g_ws.lastError(); }
const sockaddr* Native(const SocketAddress& address) { return reinterpret_cast<const sockaddr*>(address.bytes); }

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { g_ws.freeAddresses(addresses); }
};

/// Sockets that wait would stop the thread; those with a selection never do.
int Adopt(SOCKET native, SocketHandle& socket) {
    socket = kNoSocket;
    if (native == INVALID_SOCKET)
        return g_ws.lastError();
    u_long on = 1;
    if (g_ws.control(native, static_cast<long>(FIONBIO), &on) != 0) {
        const int error = g_ws.lastError();
        g_ws.closeSocket(native);
        return error;
    }
    socket = static_cast<SocketHandle>(native);
    return 0;
}

} // namespace

int SocketErrorOf(int platformError) { return platformError; }

int StartSockets() {
    if (g_starts > 0) {
        ++g_starts;
        return 0;
    }
    g_library = LoadLibraryA("WS2_32.DLL");
    if (g_library == nullptr)
        return kSocketsNotInitialised;
    if (!TakeAll()) {
        Unload();
        return kSocketsNotInitialised;
    }
    WSADATA data{};
    const int error = g_ws.startup(MAKEWORD(2, 0), &data);
    if (error != 0 || data.wVersion != MAKEWORD(2, 0)) {
        if (error == 0)
            g_ws.cleanup();
        Unload();
        return error != 0 ? error : WSAVERNOTSUPPORTED;
    }
    g_starts = 1;
    return 0;
}

void StopSockets() {
    if (g_starts == 0 || --g_starts > 0)
        return;
    g_ws.cleanup();
    Unload();
}

int ResolveAddress(const char* host, unsigned int port, bool listening, std::vector<SocketAddress>& addresses) {
    if (port > 0xFFFF)
        return WSAEINVAL;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = listening ? AI_PASSIVE : 0;
    addrinfo* found = nullptr;
    const int error = g_ws.addresses(host, std::to_string(port).c_str(), &hints, &found);
    if (error != 0)
        return error;
    const std::unique_ptr<addrinfo, FreeAddresses> owned(found);
    addresses.clear();
    for (const addrinfo* at = found; at != nullptr; at = at->ai_next) {
        SocketAddress address;
        if (at->ai_addrlen > sizeof address.bytes)
            continue;
        address.size = static_cast<std::uint32_t>(at->ai_addrlen);
        std::memcpy(address.bytes, at->ai_addr, at->ai_addrlen);
        addresses.push_back(address);
    }
    return addresses.empty() ? WSAHOST_NOT_FOUND : 0;
}

void DescribeAddress(const SocketAddress& address, std::string& text, unsigned int& port) {
    char host[NI_MAXHOST] = "";
    char service[NI_MAXSERV] = "0";
    g_ws.describe(Native(address), static_cast<socklen_t>(address.size), host, sizeof host, service, sizeof service,
                  NI_NUMERICHOST | NI_NUMERICSERV);
    text = host;
    port = static_cast<unsigned int>(std::strtoul(service, nullptr, 10));
}

std::uint64_t RaiseDescriptorLimit() { return 0; }

int OpenSocket(const SocketAddress& kind, SocketHandle& socket) {
    return Adopt(g_ws.socket(Native(kind)->sa_family, SOCK_STREAM, IPPROTO_TCP), socket);
}

OptionResult SetSocketOptions(SocketHandle socket, const SocketOptions& options, int& error) {
    const auto set = [&](int level, int option, int value) {
        error = ResultOf(g_ws.setOption(NativeOf(socket), level, option, reinterpret_cast<const char*>(&value),
                                        static_cast<int>(sizeof value)));
        return error == 0;
    };
    // A peer that is switched off is noticed, though it says nothing.
    if (!set(SOL_SOCKET, SO_KEEPALIVE, options.keepAlive ? 1 : 0))
        return OptionResult::keepAliveFailed;
    if ((options.sendBuffer != 0 && !set(SOL_SOCKET, SO_SNDBUF, options.sendBuffer)) ||
        (options.receiveBuffer != 0 && !set(SOL_SOCKET, SO_RCVBUF, options.receiveBuffer)))
        return OptionResult::failed;
    // Messages are small and wait for answers: Nagle's algorithm would hold each for a long time. SO_REUSEADDR is not
    // set: here it would let two servers have one port.
    set(IPPROTO_TCP, TCP_NODELAY, 1);
    // An IPv6 socket that listens at every address takes IPv4 as well; on others, and on IPv4, this changes nothing.
    set(IPPROTO_IPV6, IPV6_V6ONLY, 0);
    error = 0;
    return OptionResult::done;
}

int BindSocket(SocketHandle socket, const SocketAddress& address) {
    return ResultOf(g_ws.bind(NativeOf(socket), Native(address), static_cast<int>(address.size)));
}

int ListenSocket(SocketHandle socket, int backlog) { return ResultOf(g_ws.listen(NativeOf(socket), backlog)); }

int ConnectSocket(SocketHandle socket, const SocketAddress& address) {
    const int error = ResultOf(g_ws.connect(NativeOf(socket), Native(address), static_cast<int>(address.size)));
    return error == WSAEWOULDBLOCK ? 0 : error;
}

int AcceptSocket(SocketHandle listener, SocketHandle& socket) {
    return Adopt(g_ws.accept(NativeOf(listener), nullptr, nullptr), socket);
}

void CloseSocket(SocketHandle socket) {
    if (socket != kNoSocket && g_ws.closeSocket != nullptr)
        g_ws.closeSocket(NativeOf(socket));
}

int ReceiveFrom(SocketHandle socket, void* buffer, std::size_t size, std::size_t& done) {
    const int most = static_cast<int>(std::min<std::size_t>(size, 0x7FFFFFFF));
    const int returned = g_ws.receive(NativeOf(socket), static_cast<char*>(buffer), most, 0);
    done = returned < 0 ? 0 : static_cast<std::size_t>(returned);
    return returned < 0 ? g_ws.lastError() : 0;
}

int CountWaiting(SocketHandle socket, std::size_t& bytes) {
    u_long count = 0;
    const int error = ResultOf(g_ws.control(NativeOf(socket), static_cast<long>(FIONREAD), &count));
    bytes = error != 0 ? 0 : count;
    return error;
}

int SendTo(SocketHandle socket, const SendPart* parts, std::size_t count, std::size_t& done) {
    WSABUF buffers[kMostParts];
    const std::size_t used = std::min(count, kMostParts);
    for (std::size_t i = 0; i < used; ++i) {
        buffers[i].len = static_cast<u_long>(std::min<std::size_t>(parts[i].size, 0x7FFFFFFF));
        buffers[i].buf = static_cast<char*>(const_cast<void*>(parts[i].data));
    }
    DWORD sent = 0;
    const int error =
        ResultOf(g_ws.sendParts(NativeOf(socket), buffers, static_cast<DWORD>(used), &sent, 0, nullptr, nullptr));
    done = error != 0 ? 0 : sent;
    return error;
}

int LocalAddress(SocketHandle socket, SocketAddress& address) {
    int size = sizeof address.bytes;
    const int error = ResultOf(g_ws.localName(NativeOf(socket), reinterpret_cast<sockaddr*>(address.bytes), &size));
    address.size = error != 0 ? 0 : static_cast<std::uint32_t>(size);
    return error;
}

int PeerAddress(SocketHandle socket, SocketAddress& address) {
    int size = sizeof address.bytes;
    const int error = ResultOf(g_ws.peerName(NativeOf(socket), reinterpret_cast<sockaddr*>(address.bytes), &size));
    address.size = error != 0 ? 0 : static_cast<std::uint32_t>(size);
    return error;
}

int SelectSocketEvents(SocketHandle socket, WindowHandle window, unsigned int message, unsigned int events) {
    if (events != 0 && !IsMessageWindow(window))
        return WSAEINVAL;
    const int error = ResultOf(
        g_ws.asyncSelect(NativeOf(socket), reinterpret_cast<HWND>(window), message, static_cast<long>(events)));
    // That a connection had ended before this is told to the listening window, or to nobody.
    char byte = 0;
    const int peeked = error != 0 || (events & kCloseEvent) == 0 || (events & kReadEvent) == 0
                           ? 1
                           : g_ws.receive(NativeOf(socket), &byte, 1, MSG_PEEK);
    const int broken = peeked < 0 ? g_ws.lastError() : 0;
    if (peeked == 0 || broken == WSAECONNRESET || broken == WSAECONNABORTED)
        PostMessageW(reinterpret_cast<HWND>(window), message, static_cast<WPARAM>(NativeOf(socket)),
                     WSAMAKESELECTREPLY(kCloseEvent, broken));
    return error;
}

} // namespace vdicom::platform
