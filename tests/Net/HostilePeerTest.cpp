// A server among peers that send nonsense, too much, too little or nothing: it goes on serving a good client.
#include "../Platform/ThisSystem.h"
#include "CommandTable.h"
#include "CountedMemory.h"
#include "RawPeer.h"

#include <filesystem>
#include <fstream>

using namespace loopback;
using namespace support;

namespace {

/// Closes when something is wrong, as servers do.
class Wary : public Acceptor {
public:
    Wary() {
        SetLargestDataSet(100000);
        SetLargestPDU(1 << 20);
    }
    void OnReceive(int nError, unsigned char, char*, VDicomULong) override {
        if (nError == 0)
            return;
        ++errors[nError];
        Close();
    }
    static inline std::map<int, int> errors;
};

/// Forgets connections that have closed.
class Keeper : public Server<Wary> {
public:
    void OnClose(int nError, VDicomNet* connection) override {
        Server::OnClose(nError, connection);
        std::erase_if(clients, [&](const auto& client) { return client.get() == connection; });
    }
    void DropClosed() {
        std::erase_if(clients, [](const auto& client) { return client->IsActivated() == 0; });
    }
};

Bytes Value(unsigned char context, unsigned char control, const Bytes& fragment) {
    Bytes bytes(10);
    const std::size_t size = fragment.size();
    bytes[0] = 4;
    for (int i = 0; i < 4; ++i) {
        bytes[5 - static_cast<std::size_t>(i)] = static_cast<unsigned char>((size + 6) >> (8 * i));
        bytes[9 - static_cast<std::size_t>(i)] = static_cast<unsigned char>((size + 2) >> (8 * i));
    }
    return bytes + Bytes{context, control} + fragment;
}

Bytes Message(vdicom::Command which, bool data) {
    vdicom::CommandValues values;
    values.affectedClass = kCT;
    values.affectedInstance = "1.2.3";
    VDicomDS set;
    vdicom::WriteCommand(which, values, data, set);
    return Save(set, 0x16);
}

const Bytes kRelease = "05 00 00000004 00000000"_bytes;
const Bytes kDataSet = "1000 1000 'PN' 0400 'Doe '"_bytes;

class HostilePeerTest : public NetworkTest {
protected:
    void SetUp() override {
        Wary::errors.clear();
        ASSERT_EQ(server.Start(), DICOM_OK);
        ASSERT_EQ(good.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return good.IsAssociated() != 0; }));
        echo = Value(1, 3, Message(vdicom::Command::cEchoRequest, false));
        store = Value(3, 3, Message(vdicom::Command::cStoreRequest, true));
    }
    /// The good client is served, and nothing is left of the others.
    bool Serves() {
        good.log.clear();
        return good.SendCEchoRequest(1, 1, kVerification) == DICOM_OK &&
               RunUntil([&] { return good.Has("echo 1 status"); });
    }
    /// Sends, and closes when all has been looked at.
    void Attack(const Bytes& bytes) {
        const std::size_t before = server.accepted;
        {
            RawPeer peer(server.port);
            peer.Send(bytes);
            ASSERT_TRUE(RunUntil([&] { return server.accepted == before + 1; }));
            ASSERT_TRUE(Serves());
        }
        ASSERT_TRUE(Serves());
        ASSERT_TRUE(RunUntil([&] {
            server.DropClosed();
            return server.clients.size() == 1;
        }));
    }

    Keeper server;
    Requestor good;
    Bytes echo, store;
};

TEST_F(HostilePeerTest, ConversationsThatBreakOffAtEveryByte) {
    const Bytes all = AssociateRequest() + echo + store + Value(3, 2, kDataSet) + kRelease;
    for (std::size_t size = 0; size <= all.size(); ++size)
        ASSERT_NO_FATAL_FAILURE(Attack(Bytes(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(size)))) << size;
    EXPECT_TRUE(Wary::errors.empty());
}

TEST_F(HostilePeerTest, PdusOfEveryTypeAndLength) {
    for (const int type : {0, 1, 2, 3, 4, 5, 6, 7, 8, 0x16, 0x47, 0xFF}) {
        for (const std::uint32_t length :
             {0u, 1u, 3u, 4u, 20u, 0x100000u, 0x100001u, 0x7FFFFFFFu, 0xFFFFFFFAu, 0xFFFFFFFFu}) {
            Bytes pdu{static_cast<unsigned char>(type), 0};
            for (int shift = 24; shift >= 0; shift -= 8)
                pdu.push_back(static_cast<unsigned char>(length >> shift));
            pdu.resize(26);
            ASSERT_NO_FATAL_FAILURE(Attack(pdu)) << type << " " << length;
            ASSERT_NO_FATAL_FAILURE(Attack(AssociateRequest() + pdu)) << type << " " << length;
        }
    }
    EXPECT_EQ(Wary::errors[DICOM_ERROR_PDU_LENGTH], 12 * 4 * 2);
    EXPECT_GT(Wary::errors[DICOM_ERROR_ITEM_LENGTH], 0);
}

TEST_F(HostilePeerTest, AssociationRequestsWithEachByteWrong) {
    const Bytes request = AssociateRequest();
    for (std::size_t at = 6; at < request.size(); ++at) {
        for (const int change : {1, 0x80, 0xFF}) {
            Bytes changed = request;
            changed[at] = static_cast<unsigned char>(changed[at] ^ change);
            ASSERT_NO_FATAL_FAILURE(Attack(changed + echo)) << at;
        }
    }
}

TEST_F(HostilePeerTest, DataThatLie) {
    const Bytes begin = AssociateRequest();
    // Lengths of the presentation data value.
    for (const unsigned char last : "00 01 02 03 10 FF"_bytes) {
        Bytes pdu = echo;
        pdu[9] = last;
        ASSERT_NO_FATAL_FAILURE(Attack(begin + pdu + echo));
        pdu[6] = 0xFF;
        ASSERT_NO_FATAL_FAILURE(Attack(begin + pdu + echo));
    }
    EXPECT_GE(Wary::errors[DICOM_ERROR_DATA_VALUE], 7);
    Wary::errors.clear();
    // A data set without a command; commands without their data; contexts that are not negotiated, 0 among them.
    ASSERT_NO_FATAL_FAILURE(Attack(begin + Value(3, 2, kDataSet) + echo));
    ASSERT_NO_FATAL_FAILURE(Attack(begin + store + store + store));
    EXPECT_TRUE(Wary::errors.empty());
    for (const unsigned char context : "00 02 05 FF"_bytes) {
        ASSERT_NO_FATAL_FAILURE(Attack(begin + Value(context, 3, Message(vdicom::Command::cStoreRequest, true)) +
                                       Value(context, 2, kDataSet)));
        ASSERT_NO_FATAL_FAILURE(Attack(Value(context, 3, Message(vdicom::Command::cEchoRequest, false))));
    }
    EXPECT_EQ(Wary::errors[DICOM_ERROR_NO_SYNTAX], 4);
    // Bytes that are no data set, in both places.
    const Bytes junk(100, 0xEE);
    ASSERT_NO_FATAL_FAILURE(Attack(begin + Value(1, 3, junk)));
    ASSERT_NO_FATAL_FAILURE(Attack(begin + store + Value(3, 2, junk)));
    // Fragments without end, of a command and of a data set.
    for (const unsigned char control : "01 00"_bytes) {
        Wary::errors.clear();
        RawPeer peer(server.port);
        peer.Send(begin);
        const Bytes fragment = Value(3, control, Bytes(60000));
        for (int i = 0; i < 1000 && Wary::errors.empty(); ++i)
            peer.Send(fragment);
        EXPECT_EQ(Wary::errors[control == 1 ? DICOM_ERROR_COMMAND_LENGTH : DICOM_ERROR_SIZE], 1);
        server.DropClosed();
        EXPECT_TRUE(Serves());
    }
}

TEST_F(HostilePeerTest, OneByteAtATime) {
    const Bytes all = AssociateRequest() + echo + store + Value(3, 2, kDataSet) + kRelease;
    RawPeer peer(server.port);
    for (const unsigned char byte : all) {
        ASSERT_TRUE(peer.Send(&byte, 1));
        ASSERT_TRUE(Serves());
    }
    const Bytes released = "06 00 00000004 00000000"_bytes;
    ASSERT_TRUE(RunUntil([&] {
        peer.Receive();
        return peer.received.size() > 10 && Bytes(peer.received.end() - 10, peer.received.end()) == released;
    }));
    EXPECT_EQ(peer.received[0], 2);
}

// The requestor is told once, by OnReceive, and what was read of the accept holds.
TEST_F(NetworkTest, DamagedAccept) {
    Server<Recorder> server;
    Requestor client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.Has("connect") && server.clients.size() == 1; }));
    Bytes accept = "02 00 0000005D 0001 0000"_bytes + Bytes(64, ' ') + "21 00 0015 01 00 00 00 40 00 000D"_bytes +
                   "'1.2.840.10008' 21 00 0000"_bytes;
    accept[5] = static_cast<unsigned char>(accept.size() - 6);
    server.clients[0]->SendRaw(reinterpret_cast<const char*>(accept.data()), static_cast<VDicomULong>(accept.size()));
    ASSERT_TRUE(RunUntil([&] { return client.log.size() > 1; }));
    Settle();
    EXPECT_EQ(client.log, (std::vector<std::string>{"connect", "error 18"}));
    EXPECT_EQ(client.IsAssociated(), 1u);
    EXPECT_STREQ(client.GetAssociate()->GetTransfer(1, 0), "1.2.840.10008");
}

/// Writes down failures of the connection with all that they are told with.
class Failing : public Recorder {
public:
    void OnReceive(int nError, unsigned char nType, char* buffer, VDicomULong length) override {
        Note("receive", nError);
        EXPECT_EQ(nType, 0);
        EXPECT_EQ(buffer, nullptr);
        EXPECT_EQ(length, 0u);
    }
    void OnSend(int nError, unsigned char nType, VDicomULong nBytes) override {
        Note("send", nError);
        EXPECT_EQ(nType, 0);
        EXPECT_EQ(nBytes, 0u);
    }
};

// The peer resets the connection, and that is noticed by the next operation on the socket: whichever it is.
TEST_F(NetworkTest, FailuresOfTheSocketAreTold) {
    using namespace vdicom::platform;
    const struct {
        unsigned int event; ///< that comes first
        const char* told;
        int closed;
    } rows[] = {{kReadEvent, "receive 36", 0}, {kWriteEvent, "send 36", 0}, {kCloseEvent, "receive 36", 1}};
    for (const auto& row : rows) {
        if (system_under_test::kWindows && row.event != kWriteEvent)
            continue; // Wine receives the end of the connection instead
        Server<Failing> server;
        ASSERT_EQ(server.Start(), DICOM_OK);
        RawPeer peer(server.port);
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 1; }));
        Settle();
        Failing& connection = *server.clients[0];
        const std::uintptr_t socket = GetWindowSlot(connection.GetWindow(), 0);
        SelectSocketEvents(static_cast<SocketHandle>(socket), 0, 0, 0);
        const SendPart unread{reinterpret_cast<const unsigned char*>("x"), 1};
        std::size_t done = 0;
        ASSERT_EQ(SendTo(static_cast<SocketHandle>(socket), &unread, 1, done), 0);
        peer.Close();
        if (row.event == kWriteEvent)
            connection.SendRaw("x", 1);
        else
            PostToWindow(connection.GetWindow(), DICOM_NET_MESSAGE, socket, static_cast<std::intptr_t>(row.event));
        Settle();
        EXPECT_EQ(connection.log, std::vector<std::string>{row.told});
        EXPECT_EQ(server.closed, row.closed);
        EXPECT_EQ(server.lastError, 0);
    }
}

/// Notes the transfer syntax that a received data set names.
template <class Base> class Naming : public Base {
public:
    void OnReceiveCStoreRequest(unsigned char, unsigned short, const char*, const char*, unsigned short, const char*,
                                unsigned short, VDicomDS* data) override {
        char uid[65] = "none";
        data->FindGetValue(nullptr, 0x00020010, 5, uid, sizeof uid);
        this->Note(uid, 0);
    }
};
/// Accepts with a transfer syntax that is empty.
class Empty : public Naming<Acceptor> {
public:
    void OnReceiveAssociateRequest(VDicomAssociate*) override {
        VDicomAssociate accept(0);
        accept.AddPresentation(1, 0, kCT);
        accept.AddTransfer(1, "");
        SendAssociateAccept(&accept);
    }
};

// A peer's group 0002: a text for (0002,0010) must not be read as a date, where it is shorter than one.
TEST_F(NetworkTest, TransferSyntaxesWithAForeignVR) {
    const Bytes message = Value(1, 3, Message(vdicom::Command::cStoreRequest, true)) +
                          Value(1, 2, "0200 1000 'DT' 0800 '20070115'"_bytes);
    const auto* bytes = reinterpret_cast<const char*>(message.data());
    const auto size = static_cast<VDicomULong>(message.size());
    Server<Naming<Acceptor>> server;
    Server<Empty> emptyServer;
    ASSERT_EQ(server.Start() + emptyServer.Start(), DICOM_OK);
    Requestor sender;
    Naming<Requestor> taker;
    ASSERT_EQ(sender.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_EQ(taker.Connect(nullptr, 0, "127.0.0.1", emptyServer.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return sender.IsAssociated() + taker.IsAssociated() == 2; }));
    EXPECT_EQ(sender.SendRaw(bytes, size) + emptyServer.clients[0]->SendRaw(bytes, size), DICOM_OK);
    EXPECT_TRUE(RunUntil([&] { return server.clients[0]->Has(loopback::kImplicit) && taker.Has("none"); }));
    EXPECT_FALSE(taker.log.empty());
}

std::size_t CountDescriptors() {
    std::size_t count = 0;
    std::error_code error;
    for (auto at = std::filesystem::directory_iterator("/proc/self/fd", error);
         !error && at != std::filesystem::directory_iterator(); at.increment(error))
        ++count;
    return count;
}

TEST_F(HostilePeerTest, AThousandThatSayNothing) {
    if (!system_under_test::AllowDescriptors(2100))
        GTEST_SKIP() << "this user may not open 2,100 descriptors";
    const std::size_t before = CountDescriptors();
    {
        std::vector<std::unique_ptr<RawPeer>> silent;
        for (std::size_t i = 1; i <= 1000; ++i) {
            silent.push_back(std::make_unique<RawPeer>(server.port));
            if (i % 20 == 0) {
                ASSERT_TRUE(RunUntil([&] { return server.accepted == i + 1; }));
            }
        }
        ASSERT_TRUE(Serves());
        EXPECT_EQ(server.GetClientCount(), 1001u);
    }
    ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 1; }));
    EXPECT_LE(CountDescriptors(), before); // under Wine some of its own may have gone
}

// Good associations, refused ones and such that break off: nothing of them stays.
TEST_F(HostilePeerTest, NothingIsLeftOfManyAssociations) {
    const int rounds = system_under_test::kWindows ? 400 : 2500;
    long blocks = 0;
    std::size_t descriptors = 0;
    for (int round = 0; round < rounds; ++round) {
        for (int kind = 0; kind < 4; ++kind) {
            Requestor client;
            client.called = kind == 1 ? "NOBODY" : kind == 2 ? "" : "ACCEPTOR";
            ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
            const char* end = kind == 1 ? "reject 10107" : kind == 2 ? "connect" : "accept";
            ASSERT_TRUE(RunUntil([&] { return client.Has(end); }));
            if (kind == 0) {
                client.SendReleaseRequest();
                ASSERT_TRUE(RunUntil([&] { return client.Has("release response"); }));
            }
        }
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 1; }));
        if (round == 20) {
            blocks = memory::g_blocks;
            descriptors = CountDescriptors();
        }
    }
    EXPECT_LE(memory::g_blocks, blocks + 16);
    EXPECT_LE(CountDescriptors(), descriptors);
    EXPECT_TRUE(Serves());
}

} // namespace
