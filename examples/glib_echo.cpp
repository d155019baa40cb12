// A connection inside GLib's main loop: an application that has a loop of its own gives the library's descriptor to it.
//   glib_echo HOST PORT
#include <VDicomMessageLoop.h>
#include <VDicomNet.h>

#include <cstdio>
#include <cstdlib>

#include <glib-unix.h>

namespace {

constexpr const char* kVerification = "1.2.840.10008.1.1";

class Echo : public VDicomNet {
public:
    explicit Echo(GMainLoop* loop) : VDicomNet(nullptr, DICOM_SECURE_NONE), m_loop(loop) {}

    void OnConnect(int nError) override {
        if (nError != 0)
            return End(GetErrorText(static_cast<unsigned int>(nError)));
        VDicomAssociate request(1);
        request.AddPresentation(1, 0, kVerification);
        request.AddTransfer(1, "1.2.840.10008.1.2");
        SendAssociateRequest(&request);
    }
    void OnReceiveAssociateAccept(VDicomAssociate*) override { SendCEchoRequest(1, 1, kVerification); }
    void OnReceiveAssociateReject(unsigned char, unsigned char, unsigned char) override { End("rejected"); }
    void OnReceiveCEchoResponse(unsigned char, unsigned short, const char*, unsigned short status) override {
        std::printf("status %04X\n", static_cast<unsigned int>(status));
        answered = true;
        SendReleaseRequest();
    }
    void OnReceiveReleaseResponse() override { End("released"); }
    void OnClose(int, VDicomNet*) override { End("closed"); }

    bool answered = false;

private:
    void End(const char* how) {
        std::printf("%s\n", how);
        g_main_loop_quit(m_loop);
    }
    GMainLoop* m_loop;
};

gboolean OnReadable(gint, GIOCondition, gpointer) {
    // Everything that is waiting; messages that come meanwhile make the descriptor readable again.
    VDicomMessageLoop::RunOnce(0);
    return G_SOURCE_CONTINUE;
}

gboolean OnTooLate(gpointer loop) {
    std::puts("no answer in ten seconds");
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_CONTINUE;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3 || VDicomNet::StartUp() != DICOM_OK) {
        std::fputs("usage: glib_echo HOST PORT\n", stderr);
        return 2;
    }
    GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
    bool answered = false;
    {
        Echo echo(loop);
        const auto descriptor = static_cast<gint>(VDicomMessageLoop::GetDescriptor());
        const guint source = g_unix_fd_add(descriptor, G_IO_IN, OnReadable, nullptr);
        const guint timer = g_timeout_add_seconds(10, OnTooLate, loop);
        const auto port = static_cast<unsigned int>(std::atoi(arguments[2]));
        if (echo.Connect(nullptr, 0, arguments[1], port) == DICOM_OK)
            g_main_loop_run(loop);
        answered = echo.answered;
        g_source_remove(timer);
        g_source_remove(source);
    }
    g_main_loop_unref(loop);
    VDicomNet::ShutDown();
    return answered ? 0 : 1;
}
