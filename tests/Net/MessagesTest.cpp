// Every message, notification and callback, through two connections; the order of the virtual table.
#include "Messages.h"
#include "HexBytes.h"
#include "LoopbackPair.h"

#include <gmock/gmock.h>

#include <cstring>
#include <type_traits>

using namespace loopback;
using testing::ElementsAre;

namespace {

std::vector<std::string> g_calls;

std::string Text(const char* text) { return text == nullptr ? "null" : *text == '\0' ? "-" : text; }
std::string Text(VDicomDS* set) {
    char name[32] = "";
    if (set != nullptr)
        set->FindGetValue(nullptr, 0x00100010, 5, name, sizeof name);
    return set == nullptr ? "none" : Text(static_cast<const char*>(name));
}
std::string Text(const VDicomULong* list) { return list == nullptr ? "none" : std::to_string(list[1]); }
template <class T> std::enable_if_t<std::is_integral_v<T>, std::string> Text(T number) {
    return std::to_string(number);
}
template <class T> std::enable_if_t<std::is_pointer_v<T>, std::string> Text(T) { return "p"; }

void Note(std::string call) { g_calls.push_back(std::move(call)); }

/// A function for each slot of the callback tables, which writes its name and arguments down.
template <class Function> struct Slot;
template <class R, class... A> struct Slot<R(VDICOM_CALLBACK*)(VDicomNet*, A...)> {
    template <int line> static R VDICOM_CALLBACK Called(VDicomNet* net, A... arguments) {
        EXPECT_NE(net, nullptr);
        Note(Name<line>() + (std::string() + ... + (" " + Text(arguments))));
        return R();
    }
    template <int line> static std::string& Name() {
        static std::string name;
        return name;
    }
};
// NOLINTBEGIN(bugprone-macro-parentheses): the name of a member
#define SET(table, member)                                                                                             \
    Slot<decltype(table.member)>::Name<__COUNTER__>() = #member;                                                       \
    table.member = Slot<decltype(table.member)>::Called<__COUNTER__ - 1>
// NOLINTEND(bugprone-macro-parentheses)

_DICOMNETCALLBACK AllCallbacks() {
    _DICOMNETCALLBACK all{};
    SET(all, OnSecureLinkReady);
    SET(all, SetVerifyTLS);
    SET(all, OnConnect);
    SET(all, OnAccept);
    SET(all, OnClose);
    SET(all, OnReceive);
    SET(all, OnSend);
    SET(all, OnReceiveAssociateRequest);
    SET(all, OnReceiveAssociateAccept);
    SET(all, OnReceiveAssociateReject);
    SET(all, OnReceiveData);
    SET(all, OnReceiveReleaseRequest);
    SET(all, OnReceiveReleaseResponse);
    SET(all, OnReceiveAbort);
    SET(all, OnReceiveCStoreRequest);
    SET(all, OnReceiveCStoreResponse);
    SET(all, OnReceiveCFindRequest);
    SET(all, OnReceiveCFindResponse);
    SET(all, OnReceiveCGetRequest);
    SET(all, OnReceiveCGetResponse);
    SET(all, OnReceiveCMoveRequest);
    SET(all, OnReceiveCMoveResponse);
    SET(all, OnReceiveCCancelRequest);
    SET(all, OnReceiveCEchoRequest);
    SET(all, OnReceiveCEchoResponse);
    SET(all, OnReceiveNReportRequest);
    SET(all, OnReceiveNReportResponse);
    SET(all, OnReceiveNGetRequest);
    SET(all, OnReceiveNGetResponse);
    SET(all, OnReceiveNSetRequest);
    SET(all, OnReceiveNSetResponse);
    SET(all, OnReceiveNActionRequest);
    SET(all, OnReceiveNActionResponse);
    SET(all, OnReceiveNCreateRequest);
    SET(all, OnReceiveNCreateResponse);
    SET(all, OnReceiveNDeleteRequest);
    SET(all, OnReceiveNDeleteResponse);
    SET(all, OnReceiveUnknown);
    return all;
}

/// Its notifications stay the library's own.
class Plain : public VDicomNet {
public:
    Plain() : VDicomNet(nullptr, DICOM_SECURE_NONE) {
        const _DICOMNETCALLBACK all = AllCallbacks();
        SetCallback(&all);
        SetCallback(nullptr); // is ignored
    }
    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        VDicomNet::OnReceiveAssociateRequest(request);
        VDicomAssociate accept(0);
        accept.AddPresentation(1, 0, kVerification);
        accept.AddTransfer(1, kImplicit);
        SendAssociateAccept(&accept);
    }
    void OnReceiveData(unsigned char id, VDicomDS* command, VDicomDS* data) override {
        VDicomNet::OnReceiveData(id, command, data);
        std::string line;
        char text[16];
        for (DICOMELEMENT* e = command->GetFirstElement(nullptr, 0, 1); e != nullptr;
             e = command->GetNextElement(e, 0, 1)) {
            std::snprintf(text, sizeof text, " %04X", static_cast<unsigned int>(e->nTag));
            line += text;
            unsigned short value = 0;
            if ((e->nTag == 0x0100 || e->nTag == 0x0800) && command->FindGetValue(nullptr, e->nTag, 1, &value, 2) != 0)
                std::snprintf(text, sizeof text, "=%04X", value), line += text;
        }
        elements.push_back(line);
    }
    std::vector<std::string> elements;
};

class MessagesTest : public NetworkTest {
protected:
    void SetUp() override {
        ASSERT_EQ(server.Start(), DICOM_OK);
        ASSERT_EQ(client.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return client.IsAssociated() != 0; }));
        data.FindSetValue(nullptr, 0x00100010, vdicom::vr::PN, "Doe", 1);
        Settle();
        g_calls.clear();
    }
    Server<Plain> server;
    Requestor client;
    VDicomDS data;
};

constexpr const char* kC = "1.2.3";
constexpr const char* kI = "1.2.4.5";
constexpr VDicomULong kTags[] = {0x00100010, 0x00100020, 0xFFFEE000};

struct Message {
    unsigned int (*send)(VDicomNet& net, VDicomDS* ds);
    const char* notified; ///< arguments behind context and message ID; D: the data set
};
using N = VDicomNet;
using S = VDicomDS;
const Message kSent[] = {
    {[](N& n, S* d) { return n.SendCStoreRequest(1, 7, kC, kI, 2, "MOVER", 9, d); },
     "CStoreRequest 1.2.3 1.2.4.5 2 - 9 D"},
    {[](N& n, S*) { return n.SendCStoreResponse(1, 7, kC, kI, 0xA700); }, "CStoreResponse 1.2.3 1.2.4.5 42752"},
    {[](N& n, S* d) { return n.SendCFindRequest(1, 7, kC, 1, d); }, "CFindRequest 1.2.3 1 D"},
    {[](N& n, S* d) { return n.SendCFindResponse(1, 7, kC, 0xFF00, d); }, "CFindResponse 1.2.3 65280 D"},
    {[](N& n, S* d) { return n.SendCGetRequest(1, 7, kC, 1, d); }, "CGetRequest 1.2.3 1 D"},
    {[](N& n, S* d) { return n.SendCGetResponse(1, 7, kC, 3, 4, 5, 6, 8, d); }, "CGetResponse 1.2.3 3 4 5 6 8 D"},
    {[](N& n, S* d) { return n.SendCMoveRequest(1, 7, kC, 1, "THERE", d); }, "CMoveRequest 1.2.3 1 THERE D"},
    {[](N& n, S* d) { return n.SendCMoveResponse(1, 7, kC, 3, 4, 5, 6, 8, d); }, "CMoveResponse 1.2.3 3 4 5 6 8 D"},
    {[](N& n, S*) { return n.SendCCancelRequest(1, 7); }, "CCancelRequest"},
    {[](N& n, S*) { return n.SendCEchoRequest(1, 7, kC); }, "CEchoRequest 1.2.3"},
    {[](N& n, S*) { return n.SendCEchoResponse(1, 7, kC, 0x0122); }, "CEchoResponse 1.2.3 290"},
    {[](N& n, S* d) { return n.SendNReportRequest(1, 7, kC, kI, 2, d); }, "NReportRequest 1.2.3 1.2.4.5 2 D"},
    {[](N& n, S* d) { return n.SendNReportResponse(1, 7, kC, kI, 3, 2, d); }, "NReportResponse 1.2.3 1.2.4.5 3 2 D"},
    {[](N& n, S*) { return n.SendNGetRequest(1, 7, kC, kI, kTags, 3); }, "NGetRequest 1.2.3 1.2.4.5 1048608 3"},
    {[](N& n, S* d) { return n.SendNGetResponse(1, 7, kC, kI, 3, d); }, "NGetResponse 1.2.3 1.2.4.5 3 D"},
    {[](N& n, S* d) { return n.SendNSetRequest(1, 7, kC, kI, d); }, "NSetRequest 1.2.3 1.2.4.5 D"},
    {[](N& n, S* d) { return n.SendNSetResponse(1, 7, kC, kI, 3, d); }, "NSetResponse 1.2.3 1.2.4.5 3 D"},
    {[](N& n, S* d) { return n.SendNActionRequest(1, 7, kC, kI, 2, d); }, "NActionRequest 1.2.3 1.2.4.5 2 D"},
    {[](N& n, S* d) { return n.SendNActionResponse(1, 7, kC, kI, 3, 2, d); }, "NActionResponse 1.2.3 1.2.4.5 3 2 D"},
    {[](N& n, S* d) { return n.SendNCreateRequest(1, 7, kC, kI, d); }, "NCreateRequest 1.2.3 1.2.4.5 D"},
    {[](N& n, S* d) { return n.SendNCreateResponse(1, 7, kC, kI, 3, d); }, "NCreateResponse 1.2.3 1.2.4.5 3 D"},
    {[](N& n, S*) { return n.SendNDeleteRequest(1, 7, kC, kI); }, "NDeleteRequest 1.2.3 1.2.4.5"},
    {[](N& n, S*) { return n.SendNDeleteResponse(1, 7, kC, kI, 3); }, "NDeleteResponse 1.2.3 1.2.4.5 3"},
};

TEST_F(MessagesTest, EveryMessageArrivesAsItsNotification) {
    Plain& peer = *server.clients[0];
    static_assert(std::size(kSent) == std::size(support::kMessages));
    for (std::size_t i = 0; i < std::size(kSent); ++i) {
        std::string arguments(kSent[i].notified);
        std::string name = "OnReceive" + arguments.substr(0, arguments.find(' '));
        arguments.erase(0, name.size() - std::strlen("OnReceive"));
        const bool takesData = !arguments.empty() && arguments.back() == 'D';
        if (takesData)
            arguments.pop_back();
        // "NAME field type elements": the type is the one with a data set.
        const std::string row = support::kMessages[i];
        const std::size_t field = row.find(' ') + 1;
        for (VDicomDS* const set : {static_cast<VDicomDS*>(nullptr), &data}) {
            g_calls.clear();
            peer.elements.clear();
            ASSERT_EQ(kSent[i].send(client, set), DICOM_OK) << row;
            ASSERT_TRUE(RunUntil([&] { return !peer.elements.empty() && g_calls.back().find(name) == 0; })) << row;
            const std::string has = takesData ? Text(set) : "none";
            EXPECT_EQ(g_calls.back(), (name + " 1 7").append(arguments).append(takesData ? has : "")) << row;
            // The PDUs come first, then any message, then this one.
            const std::string anyMessage = "OnReceiveData 1 - " + has;
            ASSERT_GE(g_calls.size(), 3u);
            EXPECT_EQ(g_calls[g_calls.size() - 2], anyMessage) << row;
            EXPECT_EQ(std::count_if(g_calls.begin(), g_calls.end(),
                                    [](const std::string& call) { return call.find("OnReceive 0 4 ") == 0; }),
                      has == "none" ? 1 : 2);
            std::string expected = " 0000";
            const std::string type = set != nullptr && takesData ? row.substr(field + 5, 4) : "0101";
            bool typed = false;
            for (std::size_t at = field + 10; at < row.size(); at += 5) {
                const std::string tag = row.substr(at, 4);
                if (tag > "0100" && expected.find("0100=") == std::string::npos)
                    expected += " 0100=" + row.substr(field, 4);
                if (tag > "0800" && !std::exchange(typed, true))
                    expected += " 0800=" + type;
                expected += " " + tag;
            }
            EXPECT_EQ(peer.elements.back(), typed ? expected : expected.append(" 0800=").append(type));
        }
    }
}

TEST_F(MessagesTest, WhatTheApplicationMakesItself) {
    Plain& peer = *server.clients[0];
    VDicomDS command;
    for (const unsigned short field : {std::uint16_t{0x7777}, std::uint16_t{0x0001}}) {
        command.FindSetValue(nullptr, 0x0100, vdicom::vr::US, &field, 1);
        command.FindSetValue(nullptr, 0x1030, vdicom::vr::AE, "ORIGIN", 1);
        g_calls.clear();
        EXPECT_EQ(client.SendData(1, &command, field == 1 ? &data : nullptr), DICOM_OK);
        const auto arrived = [&] {
            return !g_calls.empty() && g_calls.back().find("OnReceiveData") != 0 && g_calls.size() > 2;
        };
        ASSERT_TRUE(RunUntil(arrived));
        Settle();
        EXPECT_EQ(g_calls.back(),
                  field == 1 ? "OnReceiveCStoreRequest 1 0 - - 0 ORIGIN 0 Doe" : "OnReceiveUnknown 1 - none");
        EXPECT_EQ(peer.elements.back(),
                  field == 1 ? " 0000 0100=0001 0800=0000 1030" : " 0000 0100=7777 0800=0101 1030");
    }
    g_calls.clear();
    peer.Receive(DICOM_ERROR_READ, 9, nullptr, 3);
    peer.ReceiveData(5, &command, nullptr);
    peer.ReceiveData(5, nullptr, nullptr);
    EXPECT_THAT(g_calls, ElementsAre("OnReceive 4 9 p 3", "OnReceiveData 5 - none",
                                     "OnReceiveCStoreRequest 5 0 - - 0 ORIGIN 0 none"));
}

TEST_F(MessagesTest, CallbackTables) {
    // Those of the connection and the association.
    {
        Plain caller;
        ASSERT_EQ(caller.Connect(nullptr, 0, "127.0.0.1", server.port), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return server.clients.size() == 2; }));
        Plain& peer = *server.clients[1];
        VDicomAssociate request(1);
        EXPECT_EQ(caller.SendAssociateRequest(&request), DICOM_OK);
        ASSERT_TRUE(RunUntil([&] { return caller.IsAssociated() != 0; }));
        peer.SendAssociateReject(1, 2, 3);
        caller.SendReleaseRequest();
        peer.SendReleaseResponse();
        const auto called = [](const char* call) {
            return std::find(g_calls.begin(), g_calls.end(), call) != g_calls.end();
        };
        ASSERT_TRUE(RunUntil([&] { return called("OnReceiveReleaseResponse") && called("OnReceiveReleaseRequest"); }));
        peer.SendAbort(0, 6);
        ASSERT_TRUE(RunUntil([&] { return called("OnReceiveAbort 0 6"); }));
        caller.OnClose(2, &peer);
        caller.OnAccept(31);
        caller.OnSecureLinkReady(5);
        EXPECT_EQ(caller.SetVerifyTLS(6, nullptr), DICOM_ERROR_NO_TLS);
    }
    for (const char* call :
         {"OnConnect 0", "OnAccept 31", "OnClose 2 p", "OnReceiveAssociateRequest p", "OnSend 0 1 111",
          "OnReceiveAssociateAccept p", "OnReceiveAssociateReject 1 2 3", "OnReceiveReleaseRequest",
          "OnReceiveReleaseResponse", "OnReceiveAbort 0 6", "OnSecureLinkReady 5", "SetVerifyTLS 6 p"})
        EXPECT_THAT(g_calls, testing::Contains(call));

    // Records of the extended table, from the shortest on.
    Plain net;
    _DICOMNETDEBUGINFOONSEND info{};
    _DICOMNETCALLBACKEXT ext{};
    SET(ext, OnSendExt);
    SET(ext, OnCreateCTX);
    const std::string both = "OnSendExt p|OnCreateCTX p|";
    for (const auto& [size, called] :
         std::vector<std::pair<std::size_t, std::string>>{{4, ""},
                                                          {offsetof(_DICOMNETCALLBACKEXT, OnCreateCTX), "OnSendExt p|"},
                                                          {12, both},
                                                          {sizeof ext, both},
                                                          {1000, both}}) {
        ext.nSize = static_cast<VDicomULong>(size);
        net.SetCallbackExt(&ext);
        net.SetCallbackExt(nullptr);
        g_calls.clear();
        net.OnSendExt(&info);
        net.OnCreateCTX(nullptr);
        std::string calls;
        for (const std::string& call : g_calls)
            calls += call + "|";
        EXPECT_EQ(calls, called) << size;
    }
    net.Initialize(nullptr, DICOM_SECURE_NONE);
    g_calls.clear();
    net.OnSendExt(&info);
    net.OnConnect(0);
    EXPECT_TRUE(g_calls.empty());
}

// A pointer to a virtual member function says its place in the table.
template <class Function> std::size_t PlaceOf(Function function) {
    std::size_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return (place & ~std::size_t{1}) / sizeof(void*);
}

TEST(VirtualTable, Order) {
    const std::size_t before[] = {PlaceOf(&N::OnSecureLinkReady),        PlaceOf(&N::SetVerifyTLS),
                                  PlaceOf(&N::GetChallengeISCL),         PlaceOf(&N::InternalAuthenticateISCL),
                                  PlaceOf(&N::ExternalAuthenticateISCL), PlaceOf(&N::OnNonSecureSendISCL),
                                  PlaceOf(&N::OnNonSecureReceivedISCL),  PlaceOf(&N::OnReceivedISCLPacket)};
    const std::size_t behind[] = {PlaceOf(&N::OnConnect),
                                  PlaceOf(&N::OnAccept),
                                  PlaceOf(&N::OnClose),
                                  PlaceOf(&N::OnReceive),
                                  PlaceOf(&N::OnSend),
                                  PlaceOf(&N::OnReceiveAssociateRequest),
                                  PlaceOf(&N::OnReceiveAssociateAccept),
                                  PlaceOf(&N::OnReceiveAssociateReject),
                                  PlaceOf(&N::OnReceiveData),
                                  PlaceOf(&N::OnReceiveReleaseRequest),
                                  PlaceOf(&N::OnReceiveReleaseResponse),
                                  PlaceOf(&N::OnReceiveAbort),
                                  PlaceOf(&N::OnReceiveCStoreRequest),
                                  PlaceOf(&N::OnReceiveCStoreResponse),
                                  PlaceOf(&N::OnReceiveCFindRequest),
                                  PlaceOf(&N::OnReceiveCFindResponse),
                                  PlaceOf(&N::OnReceiveCGetRequest),
                                  PlaceOf(&N::OnReceiveCGetResponse),
                                  PlaceOf(&N::OnReceiveCMoveRequest),
                                  PlaceOf(&N::OnReceiveCMoveResponse),
                                  PlaceOf(&N::OnReceiveCCancelRequest),
                                  PlaceOf(&N::OnReceiveCEchoRequest),
                                  PlaceOf(&N::OnReceiveCEchoResponse),
                                  PlaceOf(&N::OnReceiveNReportRequest),
                                  PlaceOf(&N::OnReceiveNReportResponse),
                                  PlaceOf(&N::OnReceiveNGetRequest),
                                  PlaceOf(&N::OnReceiveNGetResponse),
                                  PlaceOf(&N::OnReceiveNSetRequest),
                                  PlaceOf(&N::OnReceiveNSetResponse),
                                  PlaceOf(&N::OnReceiveNActionRequest),
                                  PlaceOf(&N::OnReceiveNActionResponse),
                                  PlaceOf(&N::OnReceiveNCreateRequest),
                                  PlaceOf(&N::OnReceiveNCreateResponse),
                                  PlaceOf(&N::OnReceiveNDeleteRequest),
                                  PlaceOf(&N::OnReceiveNDeleteResponse),
                                  PlaceOf(&N::OnReceiveUnknown),
                                  PlaceOf(&N::OnSendExt),
                                  PlaceOf(&N::OnCreateCTX),
                                  PlaceOf(&N::OnPrivateKeyPassword)};
    for (std::size_t i = 0; i < std::size(before); ++i)
        EXPECT_EQ(before[i], i);
    for (std::size_t i = 0; i < std::size(behind); ++i)
        EXPECT_EQ(behind[i], std::size(before) + 2 + i) << "the destructor has two places here";
}

} // namespace
