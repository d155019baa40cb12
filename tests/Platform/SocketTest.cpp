// The contract of sockets whose events come as messages, the same on every platform. Loopback only.
#include "Socket.h"
#include "CountedMemory.h"
#include "VDicomMessageLoop.h"

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <string>

namespace {

using namespace vdicom::platform;

constexpr unsigned int kEvent = 0x406;
constexpr unsigned int kListening = kAcceptEvent | kConnectEvent | kCloseEvent;
constexpr unsigned int kClient = kReadEvent | kWriteEvent | kConnectEvent | kCloseEvent;
constexpr unsigned int kAccepted = kReadEvent | kWriteEvent | kCloseEvent;

/// Letters of the events that came to a window, errors behind them.
std::map<WindowHandle, std::string> g_log;
std::function<void(WindowHandle, SocketHandle, char)> g_onEvent;

void OnMessage(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second) {
    EXPECT_EQ(message, kEvent);
    const auto words = static_cast<std::uint32_t>(second);
    const std::map<unsigned int, char> letters = {
        {kReadEvent, 'r'}, {kWriteEvent, 'w'}, {kAcceptEvent, 'a'}, {kConnectEvent, 'c'}, {kCloseEvent, 'x'}};
    const char letter = letters.at(words & 0xFFFF);
    g_log[window] += letter;
    if (words >> 16 != 0)
        g_log[window] += std::to_string(words >> 16);
    if (g_onEvent)
        g_onEvent(window, static_cast<SocketHandle>(first), letter);
}

/// How long events may take that are on their way through the system, in milliseconds.
VDicomULong g_patience = 30;

void RunAll() {
    while (VDicomMessageLoop::RunOnce(g_patience) == DICOM_LOOP_HANDLED) {
    }
}

template <class Condition> void RunUntil(Condition condition) {
    for (int i = 0; i < 2000 && !condition(); ++i)
        VDicomMessageLoop::RunOnce(10);
    EXPECT_TRUE(condition());
}

std::string Receive(SocketHandle socket, std::size_t size, bool mayBlock = false) {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    const int error = ReceiveFrom(socket, bytes.data(), size, done);
    EXPECT_TRUE(error == 0 || (mayBlock && error == kSocketWouldBlock)) << error;
    bytes.resize(done);
    return bytes;
}

std::size_t Send(SocketHandle socket, const std::string& bytes, int expected = 0) {
    const SendPart parts[] = {{bytes.data(), bytes.size() / 2},
                              {bytes.data() + bytes.size() / 2, bytes.size() - bytes.size() / 2}};
    std::size_t done = 0;
    EXPECT_EQ(SendTo(socket, parts, 2, done), expected);
    return done;
}

class Sockets : public testing::Test {
protected:
    void SetUp() override {
        g_log.clear();
        g_onEvent = nullptr;
        ASSERT_EQ(StartSockets(), 0);
        ASSERT_TRUE(RegisterMessageWindows("VDICOM_TEST_CLASS", OnMessage));
        server = CreateMessageWindow("server", kNoWindow);
        client = CreateMessageWindow("client", kNoWindow);
        peer = CreateMessageWindow("peer", server);
        Listen();
    }
    void TearDown() override {
        for (const SocketHandle socket : {listener, ours, theirs})
            CloseSocket(socket);
        DestroyMessageWindow(server);
        DestroyMessageWindow(client);
        EXPECT_TRUE(UnregisterMessageWindows());
        StopSockets();
    }
    void Listen() {
        std::vector<SocketAddress> addresses;
        ASSERT_EQ(ResolveAddress("127.0.0.1", 0, true, addresses), 0);
        listener = Open(addresses.front());
        ASSERT_EQ(BindSocket(listener, addresses.front()), 0);
        ASSERT_EQ(ListenSocket(listener, 5), 0);
        ASSERT_EQ(SelectSocketEvents(listener, server, kEvent, kListening), 0);
        ASSERT_EQ(LocalAddress(listener, address), 0);
    }
    static SocketHandle Open(const SocketAddress& kind) {
        SocketHandle socket = kNoSocket;
        int error = 0;
        EXPECT_EQ(OpenSocket(kind, socket), 0);
        EXPECT_EQ(SetSocketOptions(socket, {}, error), OptionResult::done) << error;
        return socket;
    }
    SocketHandle Connect(WindowHandle window) const {
        const SocketHandle socket = Open(address);
        EXPECT_EQ(SelectSocketEvents(socket, window, kEvent, kClient), 0);
        EXPECT_EQ(ConnectSocket(socket, address), 0);
        return socket;
    }
    /// A connection with both ends selected.
    void Establish() {
        ours = Connect(client);
        RunUntil([] { return !g_log[g_server].empty() && g_log[g_client] == "cw"; });
        ASSERT_EQ(AcceptSocket(listener, theirs), 0);
        ASSERT_EQ(SelectSocketEvents(theirs, peer, kEvent, kAccepted), 0);
        RunAll();
        EXPECT_EQ(g_log[server] + " " + g_log[client] + " " + g_log[peer], "a cw w");
        g_log.clear();
    }

    static inline WindowHandle g_server = kNoWindow;
    static inline WindowHandle g_client = kNoWindow;
    WindowHandle& server = g_server;
    WindowHandle& client = g_client;
    WindowHandle peer = kNoWindow;
    SocketHandle listener = kNoSocket;
    SocketHandle ours = kNoSocket;
    SocketHandle theirs = kNoSocket;
    SocketAddress address;
};

} // namespace

TEST_F(Sockets, ReadEventsComeAgainAfterAReceive) {
    Establish();
    std::string text;
    unsigned int port = 0;
    SocketAddress named;
    ASSERT_EQ(PeerAddress(theirs, named), 0);
    DescribeAddress(named, text, port);
    EXPECT_EQ(text, "127.0.0.1");
    EXPECT_NE(port, 0u);
    EXPECT_EQ(Send(ours, "abcdefgh"), 8u);
    RunAll();
    EXPECT_EQ(g_log[peer], "r");
    // Nobody receives: nothing comes, though more bytes do.
    EXPECT_EQ(Send(ours, "ij"), 2u);
    RunAll();
    EXPECT_EQ(g_log[peer], "r");
    // Bytes are left: once more. A receive of nothing asks again, too.
    EXPECT_EQ(Receive(theirs, 4), "abcd");
    RunAll();
    EXPECT_EQ(g_log[peer], "rr");
    EXPECT_EQ(Receive(theirs, 0), "");
    RunAll();
    EXPECT_EQ(g_log[peer], "rrr");
    std::size_t waiting = 0;
    EXPECT_EQ(CountWaiting(theirs, waiting), 0);
    EXPECT_EQ(waiting, 6u);
    EXPECT_EQ(Receive(theirs, 6), "efghij");
    RunAll();
    EXPECT_EQ(g_log[peer], "rrr");
    std::size_t done = 1;
    char byte = 0;
    EXPECT_EQ(ReceiveFrom(theirs, &byte, 1, done), kSocketWouldBlock);
    EXPECT_EQ(done, 0u);
    // The end comes behind the last byte.
    EXPECT_EQ(Send(ours, "kl"), 2u);
    CloseSocket(ours);
    ours = kNoSocket;
    RunAll();
    EXPECT_EQ(g_log[peer], "rrrr");
    EXPECT_EQ(Receive(theirs, 2), "kl");
    RunAll();
    EXPECT_EQ(g_log[peer], "rrrrx");
    EXPECT_EQ(Receive(theirs, 2), "");
    RunAll();
    EXPECT_EQ(g_log[peer], "rrrrx");
    EXPECT_EQ(g_log[client], "");
}

TEST_F(Sockets, WriteEventsComeAgainAfterASendThatWouldBlock) {
    Establish();
    const std::string piece(10000, 'x');
    std::size_t sent = 0;
    std::size_t received = 0;
    for (int round = 0; round < 3; ++round) {
        for (;;) {
            std::size_t done = 0;
            const SendPart part{piece.data(), piece.size()};
            const int error = SendTo(ours, &part, 1, done);
            sent += done;
            if (error != 0) {
                EXPECT_EQ(error, kSocketWouldBlock);
                break;
            }
        }
        EXPECT_GT(sent, received);
        // Room comes when the peer receives.
        g_onEvent = [&](WindowHandle, SocketHandle socket, char letter) {
            if (letter == 'r')
                received += Receive(socket, 65536, true).size();
        };
        received += Receive(theirs, 1).size();
        RunUntil([&] { return received == sent; });
        RunAll();
        EXPECT_EQ(g_log[client], "w");
        g_log.clear();
    }
}

TEST_F(Sockets, AcceptEventsComeAgainAfterAnAccept) {
    ours = Connect(client);
    const SocketHandle second = Connect(client);
    RunUntil([this] { return g_log[client].size() == 4; });
    RunAll();
    EXPECT_EQ(g_log[server], "a");
    EXPECT_EQ(AcceptSocket(listener, theirs), 0);
    RunAll();
    EXPECT_EQ(g_log[server], "aa");
    SocketHandle other = kNoSocket;
    EXPECT_EQ(AcceptSocket(listener, other), 0);
    RunAll();
    EXPECT_EQ(g_log[server], "aa");
    SocketHandle none = kNoSocket;
    EXPECT_EQ(AcceptSocket(listener, none), kSocketWouldBlock);
    EXPECT_EQ(none, kNoSocket);
    // No selection, no events; the loop has nothing to do.
    EXPECT_EQ(SelectSocketEvents(ours, client, 0, 0), 0);
    EXPECT_EQ(Send(theirs, "x") + Send(other, "x"), 2u);
    g_log.clear();
    RunAll();
    EXPECT_EQ(g_log[client], "r");
    CloseSocket(second);
    CloseSocket(other);
}

// The peer has ended the connection before it is looked at: that is told, and nothing stays open for ever.
TEST_F(Sockets, EndedBeforeItIsSelected) {
    std::string received;
    g_onEvent = [&](WindowHandle window, SocketHandle socket, char letter) {
        if (window == peer && letter == 'r')
            received += Receive(socket, 10, true);
    };
    for (const bool broken : {true, false}) {
        g_log.clear();
        ours = Connect(client);
        RunUntil([] { return !g_log[g_server].empty() && g_log[g_client] == "cw"; });
        ASSERT_EQ(AcceptSocket(listener, theirs), 0);
        if (broken) { // with bytes unread it ends as a reset
            Send(theirs, "unread");
            RunUntil([] { return g_log[g_client] == "cwr"; });
        } else {
            Send(ours, "last words");
        }
        CloseSocket(std::exchange(ours, kNoSocket));
        VDicomMessageLoop::RunOnce(g_patience); // it is on its way
        ASSERT_EQ(SelectSocketEvents(theirs, peer, kEvent, kAccepted), 0);
        RunUntil([this] { return g_log[peer].find('x') != std::string::npos; });
        CloseSocket(std::exchange(theirs, kNoSocket));
        EXPECT_EQ(received, broken ? "" : "last words");
    }
}

TEST_F(Sockets, RefusedBrokenAndClosedInsideAHandler) {
    Establish();
    g_onEvent = [&](WindowHandle window, SocketHandle socket, char letter) {
        if (letter != 'r')
            return;
        EXPECT_EQ(socket, theirs);
        CloseSocket(theirs); // with bytes unread: the other end sees a broken connection, or the end
        theirs = kNoSocket;
        DestroyMessageWindow(window);
    };
    EXPECT_EQ(Send(ours, "abc"), 3u);
    RunUntil([this] { return !g_log[client].empty(); });
    EXPECT_TRUE(g_log[client] == "x10054" || g_log[client] == "x") << g_log[client];
    EXPECT_EQ(g_log[peer], "r");
    CloseSocket(ours);
    // Nobody listens any more.
    CloseSocket(listener);
    listener = kNoSocket;
    g_log.clear();
    ours = Open(address);
    EXPECT_EQ(SelectSocketEvents(ours, client, kEvent, kClient), 0);
    const int error = ConnectSocket(ours, address);
    if (error == 0)
        RunUntil([this] { return !g_log[client].empty(); });
    EXPECT_TRUE(error == 10061 || g_log[client] == "c10061") << error << g_log[client];
    EXPECT_EQ(SelectSocketEvents(ours, kNoWindow, kEvent, kClient) != 0, true);
}

TEST_F(Sockets, AddressesOfBothKinds) {
    std::vector<SocketAddress> addresses;
    std::string text;
    unsigned int port = 0;
    ASSERT_EQ(ResolveAddress("::1", 65535, false, addresses), 0);
    ASSERT_EQ(addresses.size(), 1u);
    DescribeAddress(addresses[0], text, port);
    EXPECT_EQ(text, "::1");
    EXPECT_EQ(port, 65535u);
    ASSERT_EQ(ResolveAddress("127.0.0.1", 104, false, addresses), 0);
    DescribeAddress(addresses[0], text, port);
    EXPECT_EQ(text, "127.0.0.1");
    // A name; a machine without a file of hosts does not know it (WSAHOST_NOT_FOUND).
    const int byName = ResolveAddress("localhost", 104, false, addresses);
    EXPECT_TRUE(byName == 0 || byName == 11001) << byName;
    EXPECT_EQ(ResolveAddress(nullptr, 104, true, addresses), 0);
    EXPECT_NE(ResolveAddress("1.2.3.4.5.6", 104, false, addresses), 0);
    EXPECT_NE(ResolveAddress("localhost", 65536, false, addresses), 0);
}

TEST_F(Sockets, ManyConnectionsOneAfterAnother) {
    long blocks = 0;
    g_patience = 0;
    for (int i = 0; i < 300; ++i) {
        g_log.clear();
        ours = Connect(client);
        RunUntil([this] { return g_log[server] == "a"; });
        ASSERT_EQ(AcceptSocket(listener, theirs), 0);
        CloseSocket(theirs);
        CloseSocket(ours);
        RunAll();
        if (i == 100)
            blocks = memory::g_blocks;
    }
    ours = theirs = kNoSocket;
    g_patience = 30;
    EXPECT_LE(memory::g_blocks, blocks + 2);
}
