// The helper of serve_test.py: asks for storage commitment, waits for the report and saves it as a file.
//   commit PORT OWN-PORT REQUEST.dcm REPORT.dcm
// OWN-PORT 0: the report comes over the same association. Otherwise the association is released when the request is
// answered, whatever has come till then, and the report awaited at that port. Exit status 0: it came.
#include "VDicomAssociatePolicy.h"
#include "VDicomMessageLoop.h"
#include "VDicomNet.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* kHost = "127.0.0.1";
constexpr const char* kCommitment = "1.2.840.10008.1.20.1";
constexpr const char* kInstance = "1.2.840.10008.1.20.1.1";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";

bool isDone = false;

class Connection : public VDicomNet {
public:
    explicit Connection(const char* report)
        : VDicomNet(nullptr, static_cast<VDicomLong>(DICOM_SECURE_NONE)), m_report(report) {}

    void OnReceiveNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short event, VDicomDS* data) override {
        std::printf("event %d\n", event);
        isReported = data != nullptr && data->SaveDS(m_report, DICOM_TS_EXPLICIT_LITTLE) == DICOM_OK;
        SendNReportResponse(id, messageID, classUID, instanceUID, 0, event, nullptr);
    }

    bool isReported = false;

private:
    const char* m_report;
};

class Requester : public Connection {
public:
    Requester(const char* request, const char* report, bool leaves)
        : Connection(report), m_request(request), m_leaves(leaves) {}

    void OnConnect(int nError) override {
        VDicomAssociate request(1);
        request.SetCalled("ARCHIVE");
        request.SetCalling("COMMITTER");
        request.AddPresentation(1, 0, kCommitment);
        request.AddTransfer(1, kExplicit);
        isDone = nError != 0 || SendAssociateRequest(&request) != DICOM_OK;
    }
    void OnReceiveAssociateAccept(VDicomAssociate*) override {
        isDone = m_ds.LoadDS(m_request, 0) != DICOM_OK ||
                 SendNActionRequest(1, 1, kCommitment, kInstance, 1, &m_ds) != DICOM_OK;
    }
    void OnReceiveNActionResponse(unsigned char, unsigned short, const char*, const char*, unsigned short status,
                                  unsigned short, VDicomDS*) override {
        std::printf("status %04X\n", static_cast<unsigned int>(status));
        if (m_leaves || status != 0)
            SendReleaseRequest();
    }
    void OnReceiveNReportRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                 const char* instanceUID, unsigned short event, VDicomDS* data) override {
        if (m_leaves) // it has gone, and reads no more
            return;
        Connection::OnReceiveNReportRequest(id, messageID, classUID, instanceUID, event, data);
        SendReleaseRequest();
    }
    void OnReceiveReleaseResponse() override {
        isDone = !m_leaves;
        Close();
    }
    void OnClose(int, VDicomNet*) override { isDone = !m_leaves; }

private:
    const char* m_request;
    bool m_leaves;
    VDicomDS m_ds;
};

/// What the report comes to: one association.
class Receiver : public Connection {
public:
    using Connection::Connection;
    void OnReceiveAssociateRequest(VDicomAssociate* request) override {
        VDicomAssociatePolicy policy;
        policy.AddAbstract(kCommitment);
        policy.AddTransfer(kCommitment, kExplicit);
        policy.AcceptRoles(kCommitment, 1, 1);
        VDicomAssociate accept(0);
        DICOMASSOCIATEANSWER answer{};
        policy.Answer(*request, accept, &answer);
        std::printf("%s is provider: %d\n", request->GetCalling(), request->GetProviderRole(1));
        SendAssociateAccept(&accept);
    }
    void OnReceiveReleaseRequest() override {
        SendReleaseResponse();
        isDone = true;
    }
};

class Listener : public VDicomNet {
public:
    explicit Listener(Receiver& receiver)
        : VDicomNet(nullptr, static_cast<VDicomLong>(DICOM_SECURE_NONE)), m_receiver(receiver) {}
    void OnAccept(int) override { Accept(&m_receiver); }
    void OnClose(int, VDicomNet*) override { isDone = true; }

private:
    Receiver& m_receiver;
};

bool Commit(char** arguments) {
    const auto own = static_cast<unsigned int>(std::atoi(arguments[2]));
    Receiver receiver(arguments[4]);
    Listener listener(receiver);
    Requester requester(arguments[3], arguments[4], own != 0);
    if ((own != 0 && listener.Listen(kHost, own, 1) != DICOM_OK) ||
        requester.Connect(nullptr, 0, kHost, static_cast<unsigned int>(std::atoi(arguments[1]))) != DICOM_OK)
        return false;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isDone && std::chrono::steady_clock::now() < end)
        VDicomMessageLoop::RunOnce(100);
    return own != 0 ? receiver.isReported : requester.isReported;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 5 || VDicomNet::StartUp() != DICOM_OK)
        return 2;
    const bool reported = Commit(arguments);
    VDicomNet::ShutDown();
    return reported ? 0 : 1;
}
