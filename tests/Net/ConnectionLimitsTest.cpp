// Result codes, addresses, the window, time-outs and limits of connections.
#include "../Platform/ThisSystem.h"
#include "MessageLoop.h"
#include "RawPeer.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <thread>

using namespace loopback;
using namespace support;
using namespace system_under_test;
using testing::Contains;
using testing::ElementsAre;

namespace {

TEST(ConnectionErrors, SocketErrors) {
    // From 30 on: the number of Windows Sockets, and errno.
    const struct {
        unsigned int number;
        int error;
    } rows[] = {{10013, EACCES},
                {10048, EADDRINUSE},
                {10049, EADDRNOTAVAIL},
                {10047, EAFNOSUPPORT},
                {10053, ECONNABORTED},
                {10061, ECONNREFUSED},
                {10054, ECONNRESET},
                {10039, EDESTADDRREQ},
                {10014, EFAULT},
                {10036, EINPROGRESS},
                {10004, EINTR},
                {10022, EINVAL},
                {10056, EISCONN},
                {10024, EMFILE},
                {10040, EMSGSIZE},
                {10050, ENETDOWN},
                {10052, ENETRESET},
                {10051, ENETUNREACH},
                {10055, ENOBUFS},
                {10057, ENOTCONN},
                {10038, ENOTSOCK},
                {10045, EOPNOTSUPP},
                {10043, EPROTONOSUPPORT},
                {10041, EPROTOTYPE},
                {10058, 0},
                {10044, 0},
                {10060, ETIMEDOUT},
                {10035, EWOULDBLOCK},
                {11001, 0},
                {11004, 0},
                {11003, 0},
                {10093, 0},
                {10091, 0},
                {11002, 0},
                {10092, 0}};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(VDicomNet::GetError(rows[i].number), 30 + i) << rows[i].number;
        if (rows[i].error != 0 && !kWindows) {
            EXPECT_EQ(VDicomNet::GetError(static_cast<VDicomULong>(rows[i].error)), 30 + i) << rows[i].error;
        }
    }
    EXPECT_EQ(VDicomNet::GetError(65), 65u);
    for (const VDicomULong unknown : {0u, 12345u, 10009u, 0xFFFFFFFFu})
        EXPECT_EQ(VDicomNet::GetError(unknown), 29u);
}

TEST_F(ConnectionTest, ResultCodes) {
    VDicomDS set;
    VDicomAssociate associate(1);
    EXPECT_EQ(client.SendRaw("x", 1), DICOM_ERROR_SOCKET_NOT_CONNECTED);
    EXPECT_EQ(client.GetHostInfo(nullptr, nullptr), DICOM_ERROR_SOCKET_NOT_CONNECTED);
    EXPECT_EQ(client.SendAssociateRequest(&associate), DICOM_ERROR_SOCKET_NOT_CONNECTED);
    EXPECT_EQ(server.Accept(&client), DICOM_ERROR_SOCKET_NOT_CONNECTED);
    EXPECT_EQ(client.Connect(nullptr, 0, "127.0.0.1", 70000), DICOM_ERROR_SOCKET_ARGUMENT);
    EXPECT_EQ(client.Connect(nullptr, 0, "no such host", 104), DICOM_ERROR_SOCKET_HOST);
    EXPECT_EQ(client.Connect("192.0.2.1", 0, "127.0.0.1", 104), DICOM_ERROR_SOCKET_ADDRESS);
    EXPECT_EQ(client.IsActivated(), 0u);
    EXPECT_EQ(client.Listen("192.0.2.1", 0, 1), DICOM_ERROR_SOCKET_ADDRESS);
    Associate();
    EXPECT_EQ(client.Listen(nullptr, 0, 1), DICOM_ERROR_SOCKET_CONNECTED);
    EXPECT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_ERROR_SOCKET_CONNECTED);
    EXPECT_EQ(Requestor().Listen("127.0.0.1", server.port, 1), DICOM_ERROR_SOCKET_ADDRESS_USED);
    EXPECT_EQ(server.Accept(nullptr), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(server.Accept(&client), DICOM_ERROR_SOCKET_NOT_CONNECTED) << "it has a connection";
    Requestor other;
    EXPECT_EQ(server.Accept(&other), DICOM_ERROR_SOCKET_WOULD_BLOCK) << "nobody waits";
    EXPECT_EQ(client.SendRaw(nullptr, 1), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendRaw("x", 0), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendAssociateRequest(nullptr), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendAssociateAccept(nullptr), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendData(0u, 3, static_cast<VDicomDS*>(nullptr)), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendData(3, nullptr, &set), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendData(0u, 5, &set), DICOM_ERROR_PARAMETER) << "no such context";
    EXPECT_EQ(client.SendCEchoRequest(1, 1, nullptr), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SendNGetRequest(1, 1, "1.2", "1.2", nullptr, 1), DICOM_ERROR_PARAMETER);
    client.GetAssociate()->SetResult(1, 3);
    EXPECT_EQ(client.SendData(1u, 1, &set), DICOM_ERROR_PARAMETER) << "a rejected one";
    client.GetAssociate()->Reset(0);
    client.GetAssociate()->AddPresentation(1, 0, "1.2");
    EXPECT_EQ(client.SendData(0u, 1, &set), DICOM_ERROR_PARAMETER) << "no transfer syntax";
    EXPECT_EQ(client.SetTimeout(0, 1), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.SetTimeout(8, 1), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(client.GetQueueSend(), 0u) << "what was refused is not sent";
    EXPECT_EQ(client.GetServer(), nullptr);
    EXPECT_EQ(Accepted().GetServer(), &server);
    EXPECT_EQ(server.GetClientCount(), 1u);
    EXPECT_EQ(server.GetClient(0), &Accepted());
    EXPECT_EQ(server.GetClient(1), nullptr);
    EXPECT_EQ(client.Initialize(nullptr, DICOM_SECURE_NONE), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(other.Initialize(nullptr, static_cast<VDicomLong>(DICOM_SECURE_ISCL)), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(other.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_ERROR_PARAMETER) << "never plain instead";
    VDicomNet secure(nullptr, static_cast<VDicomLong>(DICOM_SECURE_TLS));
    EXPECT_EQ(secure.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_ERROR_UNSUPPORTED);
    EXPECT_EQ(secure.Listen("127.0.0.1", 0, 1), DICOM_ERROR_UNSUPPORTED);
    EXPECT_EQ(server.Accept(&secure), DICOM_ERROR_UNSUPPORTED);
}

TEST_F(NetworkTest, Addresses) {
    char address[DICOM_ADDRESS_SIZE];
    unsigned int port = 0;
    // Where a server listens, by what name it is called, and what it sees.
    for (const auto& [own, called, seen] :
         {std::tuple{"127.0.0.1", "127.0.0.1", "127.0.0.1"},
          std::tuple{static_cast<const char*>(nullptr), "127.0.0.1", "127.0.0.1"},
          std::tuple{static_cast<const char*>(nullptr), "::1", "::1"}, std::tuple{"::1", "::1", "::1"},
          std::tuple{"127.0.0.1", "localhost", "127.0.0.1"}, std::tuple{"", "", ""}}) {
        Server<Recorder> server;
        Recorder client;
        const unsigned int code = server.Listen(own, 0, 8);
        if (code != DICOM_OK && own != nullptr && std::string(own) == "::1")
            continue; // no IPv6 here
        ASSERT_EQ(code, DICOM_OK);
        EXPECT_EQ(server.IsConnected(), 1u);
        ASSERT_EQ(server.GetHostInfo(nullptr, &port), DICOM_OK);
        EXPECT_NE(port, 0u) << "the system chose one";
        ASSERT_EQ(client.Connect(nullptr, 0, called, port), DICOM_OK);
        EXPECT_EQ(client.IsConnected(), 0u);
        ASSERT_TRUE(RunUntil([&] { return !client.log.empty(); }));
        if (client.Has("connect 35") && std::string(called) == "::1")
            continue;
        ASSERT_TRUE(RunUntil([&] { return !server.clients.empty(); }));
        EXPECT_THAT(client.log, ElementsAre("connect")) << "each address of a name is tried";
        ASSERT_EQ(server.clients[0]->GetHostInfo(address, &port), DICOM_OK);
        EXPECT_TRUE(*seen == '\0' || std::string(address) == seen) << address;
        unsigned int own2 = 0;
        unsigned int peer2 = 0;
        EXPECT_EQ(client.GetHostInfo(nullptr, &own2), DICOM_OK);
        EXPECT_EQ(server.clients[0]->GetPeerInfo(address, &peer2), DICOM_OK);
        EXPECT_EQ(own2, peer2);
        EXPECT_EQ(address + std::string(), *seen == '\0' ? address : std::string(seen));
        client.Close();
        EXPECT_TRUE(RunUntil([&] { return server.closed == 1; }));
    }
}

TEST_F(NetworkTest, AddressesOfAHost) {
    char addresses[4 * DICOM_ADDRESS_SIZE];
    EXPECT_EQ(VDicomNet::FindAddresses(nullptr, addresses, sizeof addresses), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(VDicomNet::FindAddresses("127.0.0.1", addresses, DICOM_ADDRESS_SIZE - 1), DICOM_ERROR_PARAMETER);
    for (const auto& [host, seen] : {std::pair{"127.0.0.1", "127.0.0.1"}, std::pair{"::1", "::1"}}) {
        ASSERT_EQ(VDicomNet::FindAddresses(host, addresses, sizeof addresses), DICOM_OK);
        EXPECT_STREQ(addresses, seen);
    }
    ASSERT_EQ(VDicomNet::FindAddresses("localhost", addresses, sizeof addresses), DICOM_OK);
    EXPECT_THAT((std::string(" ") + addresses + " "),
                testing::AnyOf(testing::HasSubstr(" 127.0.0.1 "), testing::HasSubstr(" ::1 ")));
    EXPECT_NE(VDicomNet::FindAddresses("no such host", addresses, sizeof addresses), DICOM_OK);
}

/// Notes what the window shows of the queue whenever something has been sent.
class Showing : public Requestor {
public:
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override {
        Requestor::OnSend(nError, nType, nBytes);
        const bool one = Slot(6) != 0 && Slot(6) == Slot(7);
        shown += (one ? "1:" : "2:") + std::to_string(Slot(8)) + " ";
    }
    void OnSendExt(_DICOMNETDEBUGINFOONSEND* info) override { OnSend(info->nError, info->nType, info->nBytes); }
    std::uintptr_t Slot(int slot) const { return vdicom::platform::GetWindowSlot(GetWindow(), slot); }
    std::string shown;
};

TEST_F(NetworkTest, WindowShowsTheQueueInNotifications) {
    Server<Acceptor> server;
    Showing client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    const std::uintptr_t first = client.Slot(6);
    EXPECT_NE(first, 0u) << "the empty record";
    EXPECT_EQ(client.Slot(7), first);
    EXPECT_NE(vdicom::platform::GetWindowSlot(server.GetWindow(), 6), 0u);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    EXPECT_EQ(client.Slot(6), first) << "kept for the next";
    VDicomDS set;
    for (const bool debug : {false, true}) {
        client.SetDebugMode(debug ? 1 : 0);
        client.shown.clear();
        client.SendRaw("\x08\0\0\0\0\1\0", 7);
        client.SendRaw("\x08\0\0\0\0\2\0\0", 8);
        client.SendRaw("\x08\0\0\0\0\3\0\0\0", 9);
        EXPECT_EQ(client.SendData(0u, 5, &set), DICOM_ERROR_PARAMETER);
        EXPECT_TRUE(RunUntil([&] { return client.shown == "2:17 1:9 1:0 "; })) << client.shown;
        EXPECT_NE(client.Slot(7), 0u);
    }
}

TEST_F(ConnectionTest, WindowAndItsMessages) {
    using namespace vdicom::platform;
    Associate();
    const std::uintptr_t window = client.GetWindow();
    EXPECT_EQ(GetWindowSlot(window, 2), reinterpret_cast<std::uintptr_t>(static_cast<VDicomNet*>(&client)));
    EXPECT_EQ(GetWindowSlot(window, 1), 0u);
    EXPECT_EQ(GetWindowSlot(Accepted().GetWindow(), 1), server.GetWindow());
    const auto socket = GetWindowSlot(window, 0);
    client.SendRaw("\4\0\0\0\0\1", 6);
    client.SendRaw("\0", 1);
    EXPECT_NE(GetWindowSlot(window, 6), 0u);
    EXPECT_NE(GetWindowSlot(window, 7), GetWindowSlot(window, 6));
    EXPECT_EQ(GetWindowSlot(window, 8), 7u);
    EXPECT_EQ(client.GetQueueSend(), 7u);
    EXPECT_TRUE(RunUntil([&] { return GetWindowSlot(window, 8) == 0; }));
    // Bytes of a PDU that have arrived, and that it will have.
    const auto shows = [&](std::size_t held, std::size_t expected) {
        return RunUntil([&] {
            const std::uintptr_t accepted = Accepted().GetWindow();
            return GetWindowSlot(accepted, 3) == held && GetWindowSlot(accepted, 4) == expected;
        });
    };
    client.SendRaw("\4\0\0\0\1\0\0", 7);
    EXPECT_TRUE(shows(7, 262));
    // Counted is what has arrived of one PDU, nothing when it is done with; the buffer shown is the one there is.
    const struct {
        Bytes sent;
        std::size_t held, expected;
    } steps[] = {{Bytes(255, 0), 0, 0},
                 {"08 00 00000002 00"_bytes, 7, 8},
                 {"00 08 00"_bytes, 2, 0},
                 {"00000004 00000000 08"_bytes, 1, 0},
                 {"00 00200000"_bytes + Bytes(2 << 20, 0), 0, 0},
                 {"08 00 00000002 0000"_bytes, 0, 0}};
    for (const auto& step : steps) {
        client.SendRaw(reinterpret_cast<const char*>(step.sent.data()), static_cast<VDicomULong>(step.sent.size()));
        EXPECT_TRUE(shows(step.held, step.expected)) << step.sent.size();
        // NOLINTNEXTLINE(performance-no-int-to-ptr): slots hold numbers
        const auto* buffer = reinterpret_cast<const unsigned char*>(GetWindowSlot(Accepted().GetWindow(), 5));
        ASSERT_NE(buffer, nullptr);
        EXPECT_TRUE(std::equal(step.sent.end() - static_cast<std::ptrdiff_t>(step.held), step.sent.end(), buffer));
        EXPECT_GE(*buffer, 0) << "freed memory";
    }
    // Messages of nobody's, a write event without anything to be written, and the close of the socket.
    client.log.clear();
    for (const unsigned int event : {0x02u, 0x01u, 0xDC00u, 0x04u})
        EXPECT_TRUE(PostToWindow(window, DICOM_NET_MESSAGE, socket, static_cast<std::intptr_t>(event)));
    PostToWindow(window, DICOM_NET_MESSAGE, socket + 1, 0x20);
    PostToWindow(window, DICOM_NET_MESSAGE + 1, socket, 0x20);
    Settle();
    EXPECT_THAT(client.log, ElementsAre());
    PostToWindow(window, DICOM_NET_MESSAGE, socket, static_cast<std::intptr_t>(10054u << 16 | 0x20));
    EXPECT_TRUE(RunUntil([&] { return !client.log.empty(); }));
    EXPECT_THAT(client.log, ElementsAre("close 36"));
    EXPECT_EQ(client.GetWindow(), 0u);
    EXPECT_FALSE(IsMessageWindow(window));
}

class Debugged : public Requestor {
public:
    void OnSendExt(_DICOMNETDEBUGINFOONSEND* info) override {
        EXPECT_EQ(info->nError, 0);
        ASSERT_NE(info->pData, nullptr);
        EXPECT_EQ(info->nType, info->pData[0]);
        pdus.emplace_back(info->pData, info->pData + info->nBytes);
    }
    std::vector<Bytes> pdus;
};

TEST_F(NetworkTest, DebugModeShowsWhatIsSent) {
    Server<Acceptor> server;
    Debugged client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    EXPECT_EQ(client.SetDebugMode(3), 0u);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    client.SendAbort(2, 6);
    client.SendRaw("\7\0\0\0\0\4\0\0\0\1", 10);
    ASSERT_TRUE(RunUntil([&] { return client.pdus.size() == 3; }));
    EXPECT_EQ(client.pdus[0][0], 1);
    EXPECT_EQ(client.pdus[1], "07 00 00000004 0000 02 06"_bytes);
    EXPECT_EQ(client.pdus[2], "07 00 00000004 0000 00 01"_bytes);
    EXPECT_TRUE(client.sent.empty());
    EXPECT_EQ(client.SetDebugMode(0), 3u);
    client.SendReleaseRequest();
    EXPECT_TRUE(RunUntil([&] { return !client.sent.empty(); }));
    EXPECT_THAT(client.sent, ElementsAre(5));
}

/// Says nothing that it is not told to say.
class Silent : public Recorder {
public:
    Silent() {
        for (unsigned char which = 1; which <= 7; ++which)
            SetTimeout(which, which == g_which ? 40 : 0);
    }
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        if (nError == DICOM_ERROR_TIMEOUT)
            Note("time-out", nType);
        Recorder::OnReceive(nError == DICOM_ERROR_TIMEOUT ? 0 : nError, nType, buffer, length);
    }
    static inline int g_which = 0;
};

TEST_F(NetworkTest, TimeOuts) {
    for (int which = DICOM_TIMEOUT_REQUEST; which <= DICOM_TIMEOUT_CLOSE; ++which) {
        Silent::g_which = which;
        Server<Silent> server;
        Silent client;
        ASSERT_EQ(server.Start(), DICOM_OK);
        const bool byServer = which == DICOM_TIMEOUT_REQUEST || which == DICOM_TIMEOUT_PDU;
        if (byServer)
            client.SetTimeout(static_cast<unsigned char>(which), 0);
        ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 1; }));
        Silent& accepted = *server.clients[0];
        if (!byServer)
            accepted.SetTimeout(static_cast<unsigned char>(which), 0);
        VDicomAssociate associate(1);
        if (which == DICOM_TIMEOUT_ASSOCIATE) {
            client.SendAssociateRequest(&associate);
        } else if (which == DICOM_TIMEOUT_PDU) {
            client.SendRaw("\5\0\0\0\0\4\0\0\0\0\4", 11); // the beginning of a second one
        } else if (which == DICOM_TIMEOUT_IDLE) {
            accepted.SendAssociateAccept(&associate);
        } else if (which == DICOM_TIMEOUT_RELEASE) {
            client.SendReleaseRequest();
        } else if (which == DICOM_TIMEOUT_CLOSE) {
            client.SendAbort(0, 0);
        }
        const auto ended = [&] { return byServer ? server.closed == 1 : client.Has("close 23"); };
        EXPECT_TRUE(RunUntil(ended)) << which;
        EXPECT_THAT((byServer ? accepted : client).log, Contains("time-out " + std::to_string(which)));
        EXPECT_EQ((byServer ? accepted : client).IsActivated(), 0u);
        EXPECT_TRUE(!byServer || server.lastError == DICOM_ERROR_TIMEOUT);
    }
}

TEST_F(NetworkTest, ConnectingTimesOut) {
    if (!kFullListenersAreSilent)
        GTEST_SKIP() << "the system refuses what it has no room for";
    // Where nobody accepts, the system lets few wait and does not answer the others.
    Server<Recorder> server;
    ASSERT_EQ(server.Listen("127.0.0.1", 0, 0), DICOM_OK);
    server.GetHostInfo(nullptr, &server.port);
    std::vector<std::unique_ptr<Recorder>> callers;
    for (int i = 0; i < 4; ++i) {
        callers.push_back(std::make_unique<Recorder>());
        callers.back()->SetTimeout(DICOM_TIMEOUT_CONNECT, 60);
        ASSERT_EQ(callers.back()->Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    vdicom::platform::SelectSocketEvents(
        static_cast<vdicom::platform::SocketHandle>(vdicom::platform::GetWindowSlot(server.GetWindow(), 0)), 0, 0, 0);
    ASSERT_TRUE(RunUntil([&] { return !callers.back()->log.empty(); }));
    EXPECT_THAT(callers.back()->log, ElementsAre("connect 23"));
    EXPECT_EQ(callers.back()->IsActivated(), 0u);
}

TEST_F(ConnectionTest, LargestPduAndDataSet) {
    Associate();
    Accepted().SetLargestDataSet(5000);
    VDicomDS image;
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    for (const std::size_t size : {4988u, 4990u, 40000u}) {
        const std::string pixels(size, 'x');
        image.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(size));
        Accepted().log.clear();
        ASSERT_EQ(client.SendCStoreRequest(3, 1, kCT, "1.2", 0, nullptr, 0, &image), DICOM_OK);
        EXPECT_TRUE(RunUntil([&] { return client.Has("stored") && (size == 4988 || Accepted().Has("error 14")); }));
        EXPECT_EQ(Accepted().Has("error 14"), size > 4988) << size;
        EXPECT_EQ(Accepted().stored.size(), 4988u);
    }
    client.SendCEchoRequest(1, 9, kVerification);
    ASSERT_TRUE(RunUntil([&] { return client.Has("echo 9 status"); })) << "the connection goes on";
    Accepted().SetLargestPDU(64);
    Accepted().log.clear();
    Bytes pdu = "05 00 00000040"_bytes;
    pdu.resize(70);
    client.SendRaw(reinterpret_cast<const char*>(pdu.data()), 70);
    EXPECT_TRUE(RunUntil([&] { return !Accepted().log.empty(); }));
    EXPECT_THAT(Accepted().log, ElementsAre("release request"));
    client.SendRaw("\5\0\0\0\0\x41", 6);
    for (int i = 0; i < 2000; ++i)
        client.SendRaw(reinterpret_cast<const char*>(pdu.data()), 70);
    EXPECT_TRUE(RunUntil([&] { return Accepted().Has("error 20"); }));
    Settle();
    EXPECT_THAT(Accepted().log, ElementsAre("release request", "error 20")) << "nothing is received after it";
    client.Close();
    EXPECT_TRUE(RunUntil([&] { return server.closed == 1; })) << "but its end is noticed";
}

/// Takes data sets into a stream of its own.
class Taking : public Acceptor {
public:
    VDicomFile* OnReceiveTarget(unsigned char id, VDicomDS* command) override {
        EXPECT_EQ(id, 3);
        EXPECT_NE(command->FindFirstElement(nullptr, 0x1000, 1), nullptr);
        target.Close(1);
        target.Open(nullptr, DICOM_FILE_MODE_MEMORY);
        return &target;
    }
    VDicomFile target;
};

TEST_F(NetworkTest, DataSetsGoWhereTheApplicationSays) {
    Server<Taking> server;
    Requestor client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    VDicomDS image;
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    image.SetBinaryValue(e, "12345678", 8);
    for (int i = 0; i < 2; ++i) {
        client.SendCStoreRequest(3, 1, kCT, "1.2", 0, nullptr, 0, &image);
        ASSERT_TRUE(RunUntil([&] { return client.Has("stored"); }));
        client.log.clear();
        EXPECT_EQ(server.clients[0]->stored, "12345678");
        EXPECT_EQ(server.clients[0]->target.GetSize64(), 20u);
    }
}

/// Answers a find three times, at once.
class Finding : public Acceptor {
public:
    void OnReceiveCFindRequest(unsigned char id, unsigned short messageID, const char* classUID, unsigned short,
                               VDicomDS* data) override {
        for (const int status : {0xFF00, 0xFF00, 0})
            SendCFindResponse(id, messageID, classUID, static_cast<unsigned short>(status),
                              status == 0 ? nullptr : data);
    }
};
class Leaving : public Requestor {
public:
    void OnReceiveCFindResponse(unsigned char, unsigned short, const char*, unsigned short status, VDicomDS*) override {
        Note("found", status);
        if (status != 0)
            SendReleaseRequest();
    }
};

TEST_F(NetworkTest, ReleaseInTheMiddleOfAnAnswer) {
    Server<Finding> server;
    Leaving client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    VDicomDS identifier;
    identifier.FindSetValue(nullptr, 0x00100010, vdicom::vr::PN, "Doe", 1);
    client.log.clear();
    ASSERT_EQ(client.SendCFindRequest(3, 1, kCT, 0, &identifier), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.Has("release response"); }));
    EXPECT_THAT(client.log, ElementsAre("found 65280", "error 19", "found", "release response"))
        << "without an association data sets have no transfer syntax";
}

class Aborting : public Acceptor {
public:
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        Acceptor::OnReceive(nError, nType, buffer, length);
        if (nType == 4 && !std::exchange(aborted, true))
            SendAbort(2, 0);
    }
    bool aborted = false;
};

TEST_F(NetworkTest, AbortWhileTheOtherSideSends) {
    Server<Aborting> server;
    Requestor client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    VDicomDS image;
    const std::string pixels(10u << 20, 'x');
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    image.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(pixels.size()));
    ASSERT_EQ(client.SendCStoreRequest(3, 1, kCT, "1.2", 0, nullptr, 0, &image), DICOM_OK);
    EXPECT_GT(client.GetQueueSend(), 10u << 20);
    ASSERT_TRUE(RunUntil([&] { return client.Has("abort 200"); }));
    EXPECT_GT(client.GetQueueSend(), 0u);
    EXPECT_EQ(client.SendCEchoRequest(1, 1, kVerification), DICOM_ERROR_PARAMETER);
    client.Close();
    EXPECT_EQ(client.GetQueueSend(), 0u);
    ASSERT_TRUE(RunUntil([&] { return server.closed == 1; }));
}

} // namespace
