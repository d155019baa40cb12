// A whole connection against a peer that sends anything in any pieces, while the application answers, and at one of its
// notifications closes, destroys, connects again or runs the message loop. Input: which notification, what it does
// there, how many connections are refused; then steps: a byte for what happens, a byte for how much, bytes.
#include "Require.h"
#include "ScriptedSocket.h"
#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <memory>

namespace {

enum Deed : unsigned char { nothing, close, destroy, again, loop, abortIt, talk, deeds };

class Peer;
std::unique_ptr<Peer> g_peer;
int g_countdown = 0;
Deed g_deed = nothing;

void Pump() {
    while (VDicomMessageLoop::RunOnce(0) == DICOM_LOOP_HANDLED) {
    }
}

class Peer : public VDicomNet {
public:
    Peer() : VDicomNet(nullptr, DICOM_SECURE_NONE) {
        SetLargestPDU(1 << 20);
        SetLargestDataSet(1 << 20);
    }

    /// @return false: there is nobody to go on with
    bool Act() {
        Require(IsActivated() != 0, "a connection that is closed hears nothing");
        if (g_countdown-- != 0)
            return true;
        switch (g_deed) {
        case close:
            Close();
            return false;
        case destroy:
            g_peer.reset();
            return false;
        case again:
            Close();
            Connect(nullptr, 0, "peer", 104);
            return false;
        case loop:
            VDicomMessageLoop::RunOnce(0);
            return g_peer != nullptr && IsActivated() != 0;
        case abortIt:
            SendAbort(0, 0);
            return true;
        case talk:
            SendRaw("\5\0\0\0\0\4\0\0\0\0\6\0", 12);
            SendCEchoRequest(1, 1, "1.2");
            return true;
        default:
            return true;
        }
    }

    void OnConnect(int) override { Act(); }
    void OnClose(int, VDicomNet*) override { Act(); }
    void OnReceive(int, unsigned char, char*, VDicomULong) override { Act(); }
    void OnSend(int, unsigned char, VDicomULong) override { Act(); }
    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        if (!Act())
            return;
        VDicomAssociate accept(0);
        for (int i = 0; i < request->GetPresentationCount(); ++i) {
            const unsigned char id = request->GetPresentation(i);
            accept.AddPresentation(id, 0, "");
            accept.AddTransfer(id, request->GetTransfer(id, 0));
        }
        accept.SetMaxLength(1, request->GetMaxLength());
        SendAssociateAccept(&accept);
    }
    void OnReceiveAssociateAccept(VDicomAssociate*) override { Act(); }
    void OnReceiveAssociateReject(unsigned char, unsigned char, unsigned char) override { Act(); }
    void OnReceiveReleaseRequest() override {
        if (Act())
            SendReleaseResponse();
    }
    void OnReceiveReleaseResponse() override { Act(); }
    void OnReceiveAbort(unsigned char, unsigned char) override { Act(); }
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        if (Act())
            SendCEchoResponse(id, messageID, classUID, 0);
    }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS* data) override {
        if (!Act())
            return;
        SendCStoreResponse(id, messageID, classUID, instanceUID, 0);
        SendCStoreRequest(id, messageID, classUID, instanceUID, 0, nullptr, 0, data);
    }
    void OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* data) override {
        if (Act() && command != nullptr)
            SendData(id, command, data);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3)
        return 0;
    [[maybe_unused]] static const unsigned int started = VDicomNet::StartUp();
    g_countdown = data[0];
    g_deed = static_cast<Deed>(data[1] % deeds);
    scripted::Start(data[2] % 4);
    g_peer = std::make_unique<Peer>();
    g_peer->Connect(nullptr, 0, "peer", 104);
    Pump();
    const std::uint8_t* const end = data + size;
    for (data += 3; end - data >= 2 && g_peer != nullptr; Pump()) {
        const unsigned int step = *data++;
        std::size_t amount = *data++;
        if (step < 200) {
            amount = std::min(amount + 256 * (step / 8), static_cast<std::size_t>(end - data));
            scripted::Deliver(data, amount);
            data += amount;
        } else if (step < 220) {
            scripted::SetRoom(amount * amount);
        } else if (step < 230) {
            scripted::End(amount == 0 ? 0 : 10054);
        } else if (step < 240) {
            g_peer->SendCEchoRequest(static_cast<unsigned char>(amount), 1, "1.2");
        } else {
            g_peer->SendReleaseRequest();
        }
    }
    scripted::SetRoom(std::size_t{1} << 30);
    Pump();
    if (g_peer != nullptr && g_peer->IsConnected() != 0)
        Require(g_peer->GetQueueSend() == 0, "what is queued leaves when there is room");
    scripted::End(0);
    Pump();
    Require(g_peer == nullptr || g_peer->IsActivated() == 0 || g_deed == again, "the end is noticed");
    g_peer.reset();
    return 0;
}
