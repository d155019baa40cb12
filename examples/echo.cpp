// Asks a DICOM node whether it is there (C-ECHO).
//   echo HOST PORT [CALLED-AE]
#include <VDicomMessageLoop.h>
#include <VDicomNet.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";
constexpr const char* kImplicit = "1.2.840.10008.1.2";

/// One association: each notification takes the next step.
class Echo : public VDicomNet {
public:
    explicit Echo(const char* called) : VDicomNet(nullptr, DICOM_SECURE_NONE), m_called(called) {
        SetTimeout(DICOM_TIMEOUT_CONNECT, 10000);
        SetTimeout(DICOM_TIMEOUT_ASSOCIATE, 10000);
        SetTimeout(DICOM_TIMEOUT_IDLE, 10000);
    }

    void OnConnect(int nError) override {
        if (nError != 0)
            return End(nError);
        VDicomAssociate request(1);
        request.SetCalled(m_called);
        request.SetCalling("ECHO");
        request.AddPresentation(1, 0, kVerification);
        request.AddTransfer(1, kImplicit);
        if (const unsigned int code = SendAssociateRequest(&request); code != DICOM_OK)
            End(static_cast<int>(code));
    }
    void OnReceiveAssociateAccept(VDicomAssociate*) override {
        // Fails where the peer does not take the presentation context.
        if (const unsigned int code = SendCEchoRequest(1, 1, kVerification); code != DICOM_OK)
            End(static_cast<int>(code));
    }
    void OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) override {
        std::printf("rejected: result %d, source %d, reason %d\n", result, source, reason);
        VDicomMessageLoop::PostQuit(1);
    }
    void OnReceiveCEchoResponse(unsigned char, unsigned short, const char*, unsigned short status) override {
        std::printf("status %04X\n", static_cast<unsigned int>(status));
        SendReleaseRequest();
    }
    void OnReceiveReleaseResponse() override { VDicomMessageLoop::PostQuit(0); }
    void OnReceive(int nError, unsigned char, char*, VDicomULong) override {
        if (nError != 0)
            End(nError);
    }
    void OnClose(int nError, VDicomNet*) override { End(nError); }

private:
    static void End(int nError) {
        std::printf("connection ended: %s\n", GetErrorText(static_cast<unsigned int>(nError)));
        VDicomMessageLoop::PostQuit(1);
    }
    const char* m_called;
};

} // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("usage: echo HOST PORT [CALLED-AE]\n", stderr);
        return 2;
    }
    unsigned int code = VDicomNet::StartUp();
    int result = 1;
    if (code == DICOM_OK) {
        Echo echo(count > 3 ? arguments[3] : "ANY-SCP");
        code = echo.Connect(nullptr, 0, arguments[1], static_cast<unsigned int>(std::atoi(arguments[2])));
        if (code == DICOM_OK)
            result = VDicomMessageLoop::Run();
    }
    if (code != DICOM_OK)
        std::printf("%s\n", GetErrorText(code));
    VDicomNet::ShutDown();
    return result;
}
