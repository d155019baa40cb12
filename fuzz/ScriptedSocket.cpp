#include "ScriptedSocket.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace vdicom::platform;

namespace {

struct Peer {
    SocketHandle socket = kNoSocket;
    WindowHandle window = kNoWindow;
    unsigned int message = 0;
    const unsigned char* data = nullptr;
    std::size_t size = 0;
    bool ended = false;
    bool closeTold = false;
    int error = 0;
    bool readArmed = true;
    bool writeArmed = false;
    std::size_t room = 0;
};

Peer g_peer;
SocketHandle g_last = 2;
int g_refused = 0;
std::size_t g_sent = 0;

void Post(unsigned int event, int error = 0) {
    PostToWindow(g_peer.window, g_peer.message, static_cast<std::uintptr_t>(g_peer.socket),
                 static_cast<std::intptr_t>(static_cast<std::uint32_t>(error) << 16 | event));
}

/// What the contract of SelectSocketEvents has the window told now.
void Tell() {
    if (g_peer.size != 0 && std::exchange(g_peer.readArmed, false))
        Post(kReadEvent);
    if (g_peer.size == 0 && g_peer.ended && !std::exchange(g_peer.closeTold, true))
        Post(kCloseEvent, g_peer.error);
    if (g_peer.room != 0 && std::exchange(g_peer.writeArmed, false))
        Post(kWriteEvent);
}

} // namespace

void scripted::Start(int refused) {
    g_peer = {};
    g_sent = 0;
    g_refused = refused;
}

void scripted::Deliver(const unsigned char* data, std::size_t size) {
    if (g_peer.socket == kNoSocket || g_peer.ended)
        return;
    g_peer.data = data;
    g_peer.size = size;
    Tell();
}

void scripted::End(int error) {
    g_peer.ended = true;
    g_peer.error = error;
    Tell();
}

void scripted::SetRoom(std::size_t bytes) {
    g_peer.room = bytes;
    Tell();
}

std::size_t scripted::Sent() { return g_sent; }

namespace vdicom::platform {

int StartSockets() { return 0; }
void StopSockets() {}
int SocketErrorOf(int platformError) { return platformError; }

int ResolveAddress(const char*, unsigned int, bool, std::vector<SocketAddress>& addresses) {
    addresses.assign(2, SocketAddress{});
    return 0;
}
std::uint64_t RaiseDescriptorLimit() { return 0; }
void DescribeAddress(const SocketAddress&, std::string& text, unsigned int& port) {
    text = "::1";
    port = 104;
}

int OpenSocket(const SocketAddress&, SocketHandle& socket) {
    g_peer = {};
    g_peer.room = std::size_t{1} << 30;
    g_peer.socket = socket = ++g_last;
    return 0;
}
OptionResult SetSocketOptions(SocketHandle, const SocketOptions&, int&) { return OptionResult::done; }
int BindSocket(SocketHandle, const SocketAddress&) { return 0; }
int ListenSocket(SocketHandle, int) { return kSocketNotSupported; }
int ConnectSocket(SocketHandle, const SocketAddress&) {
    const bool refused = g_refused > 0 && g_refused-- > 0;
    Post(kConnectEvent, refused ? 10061 : 0);
    if (!refused)
        Post(kWriteEvent);
    return 0;
}
int AcceptSocket(SocketHandle, SocketHandle&) { return kSocketNotSupported; }
void CloseSocket(SocketHandle socket) {
    if (socket == g_peer.socket)
        g_peer = {};
}

int ReceiveFrom(SocketHandle, void* buffer, std::size_t size, std::size_t& done) {
    done = std::min(size, g_peer.size);
    g_peer.readArmed = true;
    if (done != 0) {
        std::memcpy(buffer, g_peer.data, done);
        g_peer.data += done;
        g_peer.size -= done;
    } else if (!g_peer.ended) {
        return kSocketWouldBlock;
    }
    Tell();
    return done == 0 ? g_peer.error : 0;
}
int CountWaiting(SocketHandle, std::size_t& bytes) {
    bytes = g_peer.size;
    return 0;
}
int SendTo(SocketHandle, const SendPart* parts, std::size_t count, std::size_t& done) {
    done = 0;
    if (g_peer.ended && g_peer.error != 0)
        return g_peer.error;
    for (std::size_t i = 0; i < count; ++i)
        done += parts[i].size;
    done = std::min(done, g_peer.room);
    g_peer.room -= done;
    g_sent += done;
    g_peer.writeArmed = done == 0;
    return done == 0 ? kSocketWouldBlock : 0;
}

int LocalAddress(SocketHandle, SocketAddress&) { return 0; }
int PeerAddress(SocketHandle, SocketAddress&) { return 0; }

int SelectSocketEvents(SocketHandle, WindowHandle window, unsigned int message, unsigned int) {
    g_peer.window = window;
    g_peer.message = message;
    return 0;
}

} // namespace vdicom::platform
