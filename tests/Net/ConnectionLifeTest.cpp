// What an application may do inside notifications: close, destroy, connect again, run the message loop; and what
// happens without memory.
#include "CountedMemory.h"
#include "LoopbackPair.h"
#include "MessageLoop.h"
#include "Socket.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

using namespace loopback;
using testing::ElementsAre;

namespace {

class World;
World* g_world = nullptr;

/// Both ends of every connection; what it is notified of goes to the world first, which may destroy it.
class Actor : public VDicomNet {
public:
    explicit Actor(char side) : VDicomNet(nullptr, DICOM_SECURE_NONE), m_side(side) {}
    bool Stays(const char* notification);

    void OnConnect(int nError) override;
    void OnAccept(int) override;
    void OnClose(int, VDicomNet*) override { Stays("OnClose"); }
    void OnReceive(int nError, unsigned char, char*, VDicomULong) override {
        Stays(nError == 0 ? "OnReceive" : "OnReceive with an error");
    }
    void OnSend(int, unsigned char, VDicomULong) override { Stays("OnSend"); }
    void OnSendExt(_DICOMNETDEBUGINFOONSEND*) override { Stays("OnSendExt"); }
    void OnReceiveAssociateRequest(VDicomAssociate* request) override;
    void OnReceiveAssociateAccept(VDicomAssociate*) override;
    void OnReceiveAssociateReject(unsigned char, unsigned char, unsigned char) override { Stays("OnReject"); }
    void OnReceiveData(unsigned char, VDicomDS*, VDicomDS*) override { Stays("OnReceiveData"); }
    void OnReceiveReleaseRequest() override {
        if (Stays("OnReceiveReleaseRequest"))
            SendReleaseResponse();
    }
    void OnReceiveReleaseResponse() override {
        if (Stays("OnReceiveReleaseResponse"))
            Close();
    }
    void OnReceiveAbort(unsigned char, unsigned char) override { Stays("OnReceiveAbort"); }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS*) override {
        if (Stays("OnReceiveCStoreRequest"))
            SendCStoreResponse(id, messageID, classUID, instanceUID, 0);
    }
    void OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*, unsigned short) override;
    void OnReceiveUnknown(unsigned char, VDicomDS*, VDicomDS*) override { Stays("OnReceiveUnknown"); }

private:
    char m_side;
};

enum class Flow { release, abort, refusal, damage };
enum Action { closeSelf, deleteSelf, closeServer, deleteServer, deleteClient, deleteAccepted, connectAgain };

class World {
public:
    explicit World(Flow wanted, VDicomULong patience = 30) : flow(wanted) {
        g_world = this;
        server = std::make_unique<Actor>('S');
        server->Listen("127.0.0.1", 0, 8);
        server->GetHostInfo(nullptr, &port);
        client = std::make_unique<Actor>('C');
        client->SetDebugMode(flow == Flow::abort ? 1 : 0);
        client->Connect(nullptr, 0, "127.0.0.1", port);
        while (VDicomMessageLoop::RunOnce(patience) == DICOM_LOOP_HANDLED) {
        }
    }
    ~World() { g_world = nullptr; }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    void Act(Action action, Actor* self) {
        const auto holder = [&]() -> std::unique_ptr<Actor>& {
            return self == server.get() ? server : self == client.get() ? client : accepted;
        };
        switch (action) {
        case closeSelf:
            self->Close();
            quiet = self;
            EXPECT_EQ(self->IsActivated(), 0u);
            break;
        case deleteSelf:
            holder().reset();
            break;
        case closeServer:
            server->Close();
            quiet = accepted.get();
            break;
        case deleteServer:
            server.reset();
            quiet = accepted.get();
            break;
        case deleteClient:
            client.reset();
            break;
        case deleteAccepted:
            accepted.reset();
            break;
        case connectAgain:
            self->Close();
            self->Connect(nullptr, 0, "127.0.0.1", port);
            break;
        }
    }

    Flow flow;
    unsigned int port = 0;
    std::unique_ptr<Actor> server, client, accepted;
    VDicomNet* quiet = nullptr; ///< hears nothing any more
    static inline std::function<void(Actor*, const std::string&)> next;
};

bool Actor::Stays(const char* notification) {
    if (g_world == nullptr)
        return false;
    const std::string name = std::string(1, m_side) + " " + notification;
    EXPECT_NE(g_world->quiet, this) << name;
    bool stays = true;
    if (World::next) {
        const auto* const before = this;
        World::next(this, name);
        stays = before == g_world->server.get() || before == g_world->client.get() || before == g_world->accepted.get();
    }
    return stays && IsActivated() != 0 && g_world->quiet != this;
}

void Actor::OnConnect(int nError) {
    if (!Stays("OnConnect") || nError != 0)
        return;
    VDicomAssociate request(1);
    request.AddPresentation(1, 0, kCT);
    request.AddTransfer(1, kExplicit);
    SendAssociateRequest(&request);
}

void Actor::OnAccept(int) {
    if (!Stays("OnAccept"))
        return;
    g_world->accepted = std::make_unique<Actor>('A');
    Accept(g_world->accepted.get());
}

void Actor::OnReceiveAssociateRequest(VDicomAssociate* request) {
    if (!Stays("OnReceiveAssociateRequest"))
        return;
    if (g_world->flow == Flow::refusal)
        return SendAssociateReject(1, 1, 1);
    if (g_world->flow == Flow::damage) {
        SendRaw("\4\0\xFF\xFF\xFF\xFF", 6);
        return;
    }
    VDicomAssociate accept(0);
    accept.AddPresentation(1, 0, request->GetAbstract(1));
    accept.AddTransfer(1, kExplicit);
    SendAssociateAccept(&accept);
}

void Actor::OnReceiveAssociateAccept(VDicomAssociate*) {
    if (!Stays("OnReceiveAssociateAccept"))
        return;
    VDicomDS data, command;
    const unsigned short field = 0x7777;
    command.FindSetValue(nullptr, 0x0100, vdicom::vr::US, &field, 1);
    data.FindSetValue(nullptr, 0x00100010, vdicom::vr::PN, "Doe", 1);
    SendData(1, &command, nullptr);
    SendCStoreRequest(1, 1, kCT, "1.2", 0, nullptr, 0, &data);
}

void Actor::OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*, unsigned short) {
    if (!Stays("OnReceiveCStoreResponse"))
        return;
    if (g_world->flow == Flow::abort)
        SendAbort(0, 0);
    else
        SendReleaseRequest();
}

TEST(ConnectionLife, EveryNotificationMayEndAnything) {
    ASSERT_EQ(VDicomNet::StartUp(), DICOM_OK);
    std::set<std::string> all;
    for (const Flow flow : {Flow::release, Flow::abort, Flow::refusal, Flow::damage}) {
        std::vector<std::string> seen;
        World::next = [&](Actor*, const std::string& name) { seen.push_back(name); };
        { const World undisturbed(flow); }
        all.insert(seen.begin(), seen.end());
        for (const std::string& name : std::set<std::string>(seen.begin(), seen.end())) {
            for (int action = closeSelf; action <= connectAgain; ++action) {
                SCOPED_TRACE(name + ", action " + std::to_string(action));
                bool done = false;
                World::next = [&](Actor* actor, const std::string& now) {
                    if (now == name && !std::exchange(done, true))
                        g_world->Act(static_cast<Action>(action), actor);
                };
                // Events are mostly at hand at once.
                for (VDicomULong patience = 3; !done && patience < 1000; patience *= 5)
                    const World disturbed(flow, patience);
                EXPECT_TRUE(done);
            }
        }
    }
    World::next = nullptr;
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_OK);
    for (const char* name :
         {"C OnConnect", "S OnAccept", "S OnClose", "C OnReceive", "C OnReceive with an error", "A OnSend",
          "C OnSendExt", "A OnReceiveAssociateRequest", "C OnReceiveAssociateAccept", "C OnReject", "A OnReceiveData",
          "A OnReceiveReleaseRequest", "C OnReceiveReleaseResponse", "A OnReceiveAbort", "A OnReceiveCStoreRequest",
          "C OnReceiveCStoreResponse", "A OnReceiveUnknown"})
        EXPECT_EQ(all.count(name), 1u) << name;
}

/// Connects to another port when the first is refused, and once more when the peer closes.
class Persistent : public Recorder {
public:
    void OnConnect(int nError) override {
        Note("connect", nError);
        if (nError != 0)
            Again();
    }
    void OnClose(int nError, VDicomNet*) override {
        Note("close", nError);
        Again();
    }
    void Again() {
        EXPECT_EQ(Connect(nullptr, 0, "127.0.0.1", port), DICOM_ERROR_SOCKET_CONNECTED);
        Close();
        EXPECT_EQ(Connect(nullptr, 0, "127.0.0.1", port), DICOM_OK);
    }
    unsigned int port = 0;
};

TEST_F(ConnectionTest, ConnectingAgainInNotifications) {
    ASSERT_EQ(server.Start(), DICOM_OK);
    unsigned int unused = 0;
    {
        Server<Recorder> other;
        ASSERT_EQ(other.Start(), DICOM_OK);
        unused = other.port;
    }
    Persistent caller;
    caller.port = server.port;
    ASSERT_EQ(caller.Connect(nullptr, 0, "127.0.0.1", unused), DICOM_OK);
    for (std::size_t i = 1; i <= 3; ++i) {
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == i && caller.IsConnected() != 0; }));
        server.clients[i - 1]->Close();
    }
    ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 4; }));
    caller.Close();
    EXPECT_THAT(caller.log,
                ElementsAre("connect 35", "connect", "close", "connect", "close", "connect", "close", "connect"));
}

/// Runs the message loop inside of notifications.
class Nested : public Acceptor {
public:
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        Acceptor::OnReceiveCEchoRequest(id, messageID, classUID);
        EXPECT_EQ(depth, 0) << "one PDU at a time";
        ++depth;
        Settle();
        --depth;
    }
    void OnSend(int, unsigned char, VDicomULong) override { Settle(); }
    int depth = 0;
};

/// Sends the next echo when the answer to the last has come, four in all.
class Chain : public Requestor {
public:
    void OnReceiveCEchoResponse(unsigned char, unsigned short messageID, const char*, unsigned short) override {
        Note("echo", messageID);
        if (messageID < 4)
            SendCEchoRequest(1, static_cast<unsigned short>(messageID + 1), kVerification);
    }
    void OnClose(int nError, VDicomNet*) override {
        Note("close", nError);
        Settle();
    }
};

TEST_F(NetworkTest, MessageLoopsInsideNotifications) {
    Server<Nested> server;
    Chain client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
    client.SendCEchoRequest(1, 1, kVerification);
    ASSERT_TRUE(RunUntil([&] { return client.Has("echo 4"); })) << "what came meanwhile is not forgotten";
    client.SendRaw("\7\0\0", 3);
    server.clients[0]->Close();
    Settle();
    EXPECT_THAT(client.log, ElementsAre("connect", "accept", "echo 1", "echo 2", "echo 3", "echo 4", "close"));
}

TEST(ConnectionLife, ShutDownWaitsForTheLastConnection) {
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_ERROR_SOCKET_NOT_STARTED);
    using namespace vdicom::platform;
    ASSERT_TRUE(RegisterMessageWindows(DICOM_NET_WINDOW_CLASS,
                                       [](WindowHandle, unsigned int, std::uintptr_t, std::intptr_t) {}));
    EXPECT_EQ(VDicomNet::StartUp(), DICOM_ERROR_MEMORY) << "the class is there already";
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_ERROR_SOCKET_NOT_STARTED);
    EXPECT_TRUE(UnregisterMessageWindows());
    ASSERT_EQ(VDicomNet::StartUp(), DICOM_OK);
    ASSERT_EQ(VDicomNet::StartUp(), DICOM_OK);
    Server<Recorder> server;
    Requestor client;
    ASSERT_EQ(server.Start(), DICOM_OK);
    ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_OK) << "started twice";
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_ERROR_SOCKET_CONNECTED);
    ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 1 && server.clients[0]->Has("request"); }))
        << "it works";
    client.Close();
    server.Close();
    EXPECT_EQ(VDicomNet::ShutDown(), DICOM_OK);
    EXPECT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_ERROR_SOCKET_NOT_STARTED);
    EXPECT_EQ(server.Listen(nullptr, 0, 1), DICOM_ERROR_SOCKET_NOT_STARTED);
    EXPECT_EQ(server.Accept(&client), DICOM_ERROR_SOCKET_NOT_STARTED);
    EXPECT_EQ(client.SendRaw("x", 1), DICOM_ERROR_SOCKET_NOT_STARTED);
}

/// Counts, and takes no memory of its own.
template <class Base> class Lean : public Base {
public:
    void OnReceive(int nError, unsigned char, char*, VDicomULong) override { errors += nError != 0 ? 1 : 0; }
    void OnSend(int nError, unsigned char, VDicomULong) override { errors += nError != 0 ? 1 : 0; }
    void OnClose(int, VDicomNet*) override {}
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        errors += this->SendCEchoResponse(id, messageID, classUID, 0) != DICOM_OK ? 1 : 0;
    }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS*) override {
        errors += this->SendCStoreResponse(id, messageID, classUID, instanceUID, 0) != DICOM_OK ? 1 : 0;
    }
    void OnReceiveCEchoResponse(unsigned char, unsigned short, const char*, unsigned short) override { ++answers; }
    void OnReceiveCStoreResponse(unsigned char, unsigned short, const char*, const char*, unsigned short) override {
        ++answers;
    }
    int errors = 0;
    int answers = 0;
};

// With memory for 0, 1, 2 ... allocations: whoever waits is told, and nothing hangs.
TEST_F(NetworkTest, MemoryRunsOut) {
    Server<Lean<Acceptor>> server;
    ASSERT_EQ(server.Start(), DICOM_OK);
    VDicomDS image;
    const std::string pixels(20000, 'p');
    DICOMELEMENT* e = image.InsertElement(nullptr, 1, 0x7FE00010, vdicom::vr::OB, 0, 0);
    image.SetBinaryValue(e, pixels.data(), static_cast<VDicomULong>(pixels.size()));
    for (const bool store : {false, true}) {
        bool failed = true;
        int allocations = 0;
        for (; failed && allocations < 1000; ++allocations) {
            Lean<Requestor> caller;
            ASSERT_EQ(caller.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
            ASSERT_TRUE(RunUntil([&] { return caller.IsAssociated() != 0; }));
            memory::g_failAfter = allocations;
            const unsigned int code = store ? caller.SendCStoreRequest(3, 1, kCT, "1.2", 0, nullptr, 0, &image)
                                            : caller.SendCEchoRequest(1, 1, kVerification);
            while (code == DICOM_OK && VDicomMessageLoop::RunOnce(2) == DICOM_LOOP_HANDLED) {
            }
            failed = memory::g_failAfter == 0;
            memory::g_failAfter = -1;
            while (VDicomMessageLoop::RunOnce(2) == DICOM_LOOP_HANDLED) {
            }
            const bool told = code != DICOM_OK || caller.errors + server.clients.back()->errors != 0;
            EXPECT_TRUE(caller.answers == 1 || (failed && told)) << allocations << (store ? " store" : " echo");
            server.clients.clear();
        }
        EXPECT_FALSE(failed) << "never succeeded";
        EXPECT_GE(allocations, 10);
    }
}

} // namespace
