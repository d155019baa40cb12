// Sockets with their events as messages: both ends on one thread, over loopback.
#include "Socket.h"
#include "VDicomMessageLoop.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace vdicom::platform;

constexpr unsigned int kEvent = 0x406;

/// Connections of one thread; every message that arrives at an accepted end is sent back as it is.
class Connections {
public:
    Connections(std::size_t count, std::size_t size) : m_message(size, 'x'), m_buffer(65536, '\0') {
        g_this = this;
        StartSockets();
        RegisterMessageWindows("VDICOM_BENCH_CLASS", OnMessage);
        std::vector<SocketAddress> addresses;
        ResolveAddress("127.0.0.1", 0, true, addresses);
        m_server = CreateMessageWindow("server", kNoWindow);
        m_listener = Open(addresses.front());
        BindSocket(m_listener, addresses.front());
        ListenSocket(m_listener, 128);
        SelectSocketEvents(m_listener, m_server, kEvent, kAcceptEvent);
        SocketAddress address;
        LocalAddress(m_listener, address);
        m_client = CreateMessageWindow("client", kNoWindow);
        for (std::size_t i = 0; i < count; ++i) {
            m_clients.push_back(Open(address));
            SelectSocketEvents(m_clients.back(), m_client, kEvent, kReadEvent | kConnectEvent);
            ConnectSocket(m_clients.back(), address);
            while (m_accepted.size() <= i)
                VDicomMessageLoop::RunOnce(1000);
        }
    }
    ~Connections() {
        for (const auto* sockets : {&m_clients, &m_accepted}) {
            for (const SocketHandle socket : *sockets)
                CloseSocket(socket);
        }
        CloseSocket(m_listener);
        DestroyMessageWindow(m_server);
        DestroyMessageWindow(m_client);
        UnregisterMessageWindows();
        StopSockets();
    }
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;

    /// Every client sends one message and has it back.
    void RoundTrip() {
        m_back = 0;
        for (const SocketHandle socket : m_clients)
            Send(socket, m_message.size());
        while (m_back < m_message.size() * m_clients.size())
            VDicomMessageLoop::RunOnce(1000);
    }

private:
    static inline Connections* g_this = nullptr;

    static SocketHandle Open(const SocketAddress& kind) {
        SocketHandle socket = kNoSocket;
        int error = 0;
        OpenSocket(kind, socket);
        SetSocketOptions(socket, {}, error);
        return socket;
    }
    static void OnMessage(WindowHandle window, unsigned int, std::uintptr_t first, std::intptr_t second) {
        const auto socket = static_cast<SocketHandle>(first);
        if ((second & 0xFFFF) == kAcceptEvent) {
            SocketHandle accepted = kNoSocket;
            if (AcceptSocket(socket, accepted) != 0)
                return;
            SelectSocketEvents(accepted, g_this->m_server, kEvent, kReadEvent);
            g_this->m_accepted.push_back(accepted);
        } else if ((second & 0xFFFF) == kReadEvent) {
            std::size_t done = 0;
            ReceiveFrom(socket, g_this->m_buffer.data(), g_this->m_buffer.size(), done);
            if (window == g_this->m_client)
                g_this->m_back += done;
            else
                g_this->Send(socket, done);
        }
    }
    void Send(SocketHandle socket, std::size_t size) {
        const SendPart part{m_message.data(), size};
        std::size_t done = 0;
        SendTo(socket, &part, 1, done);
    }

    std::string m_message;
    std::string m_buffer;
    WindowHandle m_server = kNoWindow;
    WindowHandle m_client = kNoWindow;
    SocketHandle m_listener = kNoSocket;
    std::vector<SocketHandle> m_clients;
    std::vector<SocketHandle> m_accepted;
    std::size_t m_back = 0;
};

void RoundTrips(benchmark::State& state) {
    Connections connections(static_cast<std::size_t>(state.range(0)), 80);
    for ([[maybe_unused]] auto _ : state)
        connections.RoundTrip();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Messages(benchmark::State& state) {
    RegisterMessageWindows("VDICOM_BENCH_CLASS", [](WindowHandle, unsigned int, std::uintptr_t, std::intptr_t) {});
    const WindowHandle window = CreateMessageWindow("window", kNoWindow);
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < 64; ++i)
            PostToWindow(window, kEvent, 0, 0);
        VDicomMessageLoop::RunOnce(0);
    }
    state.SetItemsProcessed(state.iterations() * 64);
    DestroyMessageWindow(window);
    UnregisterMessageWindows();
}

BENCHMARK(RoundTrips)->Arg(1)->Arg(400)->UseRealTime();
BENCHMARK(Messages);

} // namespace
