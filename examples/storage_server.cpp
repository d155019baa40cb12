// Receives objects (C-STORE) and answers C-ECHO; each object becomes a file of the folder.
//   storage_server PORT FOLDER [ASSOCIATIONS]      ends after so many associations; port 0: the system chooses
#include <VDicomAssociatePolicy.h>
#include <VDicomMessageLoop.h>
#include <VDicomNet.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>
#include <string>

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr unsigned short kOutOfResources = 0xA700, kInvalidInstance = 0x0117; // PS3.7 C, PS3.4 B.2.3

VDicomAssociatePolicy g_policy; // what every association may do
std::string g_folder;

/// One accepted connection.
class Receiver : public VDicomNet {
public:
    Receiver() : VDicomNet(nullptr, DICOM_SECURE_NONE) {
        SetTimeout(DICOM_TIMEOUT_REQUEST, 30000); // peers that connect and say nothing
        SetTimeout(DICOM_TIMEOUT_PDU, 30000);
        SetTimeout(DICOM_TIMEOUT_IDLE, 300000);
    }

    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        VDicomAssociate accept(0);
        DICOMASSOCIATEANSWER answer{};
        if (g_policy.Answer(*request, accept, &answer) != DICOM_OK)
            SendAbort(2, 0);
        else if (answer.bAccepted == 0)
            SendAssociateReject(answer.nResult, answer.nSource, answer.nReason);
        else
            SendAssociateAccept(&accept);
    }
    void OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) override {
        SendCEchoResponse(id, messageID, classUID, 0);
    }
    void OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                const char* instanceUID, unsigned short, const char*, unsigned short,
                                VDicomDS* data) override {
        SendCStoreResponse(id, messageID, classUID, instanceUID, Store(instanceUID, data));
    }
    void OnReceiveReleaseRequest() override { SendReleaseResponse(); }
    void OnReceive(int nError, unsigned char, char*, VDicomULong) override {
        if (nError != 0)
            SendAbort(2, 0); // what cannot be understood ends the association
    }

private:
    static unsigned short Store(const char* instanceUID, VDicomDS* data) {
        // A name that a peer chose: nothing but a UID becomes a file's name.
        const std::size_t length = std::strlen(instanceUID);
        if (data == nullptr || length == 0 || std::strspn(instanceUID, "0123456789.") != length || *instanceUID == '.')
            return kInvalidInstance;
        const std::string path = g_folder + "/" + instanceUID + ".dcm";
        const unsigned int code = data->SaveDS(path.c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
        std::printf("%s: %s\n", path.c_str(), GetErrorText(code));
        return code == DICOM_OK ? static_cast<unsigned short>(0) : kOutOfResources;
    }
};

class Server : public VDicomNet {
public:
    explicit Server(int associations) : VDicomNet(nullptr, DICOM_SECURE_NONE), m_left(associations) {}

    void OnAccept(int) override {
        auto receiver = std::make_unique<Receiver>();
        if (Accept(receiver.get()) == DICOM_OK)
            m_receivers.insert(receiver.release());
    }
    void OnClose(int, VDicomNet* connection) override {
        m_receivers.erase(connection);
        delete connection;
        if (--m_left == 0)
            VDicomMessageLoop::PostQuit(0);
    }
    ~Server() override {
        for (VDicomNet* receiver : m_receivers)
            delete receiver;
    }

private:
    int m_left;
    std::set<VDicomNet*> m_receivers;
};

} // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("usage: storage_server PORT FOLDER [ASSOCIATIONS]\n", stderr);
        return 2;
    }
    g_folder = arguments[2];
    g_policy.AddAbstract(nullptr); // every class of objects
    g_policy.AddAbstract(kVerification);
    g_policy.AddTransfer(nullptr, "1.2.840.10008.1.2.1");
    g_policy.AddTransfer(nullptr, "1.2.840.10008.1.2");
    unsigned int code = VDicomNet::StartUp();
    if (code == DICOM_OK) {
        Server server(count > 3 ? std::atoi(arguments[3]) : 0);
        code = server.Listen(nullptr, static_cast<unsigned int>(std::atoi(arguments[1])), 64);
        unsigned int port = 0;
        server.GetHostInfo(nullptr, &port);
        std::printf("%s, port %u\n", code == DICOM_OK ? "listening" : GetErrorText(code), port);
        std::fflush(stdout);
        if (code == DICOM_OK)
            VDicomMessageLoop::Run();
    }
    VDicomNet::ShutDown();
    return code == DICOM_OK ? 0 : 1;
}
