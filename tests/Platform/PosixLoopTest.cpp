// The message loop inside somebody else's: its descriptor.
#if !defined(_WIN32)

#include "Socket.h"
#include "VDicomMessageLoop.h"

#include <gtest/gtest.h>

#include <thread>

#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace vdicom::platform;

int g_posts = 0;
WindowHandle g_window = kNoWindow;

void PostAgain(WindowHandle window, unsigned int, std::uintptr_t, std::intptr_t) {
    if (g_posts > 0 && g_posts-- > 0)
        PostToWindow(window, kFirstUserMessage, 0, 0);
}

bool IsReadable(int milliseconds) {
    pollfd descriptor{static_cast<int>(VDicomMessageLoop::GetDescriptor()), POLLIN, 0};
    return poll(&descriptor, 1, milliseconds) == 1;
}

/// What a foreign loop does. @return how often RunOnce was called
int Drain() {
    int calls = 0;
    for (; calls < 10000 && IsReadable(0); ++calls)
        VDicomMessageLoop::RunOnce(0);
    return calls;
}

} // namespace

TEST(PosixLoop, DescriptorIsReadableWhileThereIsWork) {
    ASSERT_TRUE(RegisterMessageWindows("VDICOM_TEST_CLASS", PostAgain));
    g_window = CreateMessageWindow("window", kNoWindow);
    Drain();
    EXPECT_FALSE(IsReadable(0));
    // Handlers that post; more messages than one call handles.
    g_posts = 1000;
    PostToWindow(g_window, kFirstUserMessage, 0, 0);
    EXPECT_GT(Drain(), 2);
    EXPECT_EQ(g_posts, 0);
    std::thread([] { PostToWindow(g_window, kFirstUserMessage, 0, 0); }).join();
    EXPECT_TRUE(IsReadable(5000));
    EXPECT_LT(Drain(), 5);
    StartWindowTimer(g_window, 1, 10);
    EXPECT_TRUE(IsReadable(5000));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_HANDLED);
    StopWindowTimer(g_window, 1);
    Drain();
    VDicomMessageLoop::PostQuit(1);
    EXPECT_TRUE(IsReadable(0));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_QUIT);
    VDicomMessageLoop::WakeUp(VDicomMessageLoop::GetLoop());
    EXPECT_TRUE(IsReadable(0));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_WOKEN);
    EXPECT_FALSE(IsReadable(0));
    DestroyMessageWindow(g_window);
    EXPECT_TRUE(UnregisterMessageWindows());
}

TEST(PosixLoop, ListenerWithoutDescriptorsWaitsForOne) {
    static int accepts = 0;
    accepts = 0;
    ASSERT_TRUE(RegisterMessageWindows("VDICOM_TEST_CLASS",
                                       [](WindowHandle, unsigned int, std::uintptr_t, std::intptr_t) { ++accepts; }));
    const WindowHandle window = CreateMessageWindow("window", kNoWindow);
    std::vector<SocketAddress> addresses;
    ASSERT_EQ(ResolveAddress("127.0.0.1", 0, true, addresses), 0);
    SocketHandle listener = kNoSocket;
    SocketHandle client = kNoSocket;
    SocketHandle spare = kNoSocket;
    for (SocketHandle* socket : {&listener, &client, &spare})
        ASSERT_EQ(OpenSocket(addresses[0], *socket), 0);
    SocketAddress address;
    ASSERT_EQ(BindSocket(listener, addresses[0]), 0);
    ASSERT_EQ(ListenSocket(listener, 5), 0);
    ASSERT_EQ(LocalAddress(listener, address), 0);
    ASSERT_EQ(SelectSocketEvents(listener, window, kFirstUserMessage, kAcceptEvent), 0);
    ASSERT_EQ(SelectSocketEvents(spare, window, kFirstUserMessage, kReadEvent), 0);
    ASSERT_EQ(ConnectSocket(client, address), 0);
    EXPECT_EQ(VDicomMessageLoop::RunOnce(10000), DICOM_LOOP_HANDLED);
    // No descriptor is free.
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &old), 0);
    const int lowest = dup(0);
    close(lowest);
    const rlimit full{static_cast<rlim_t>(lowest), old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &full), 0);
    SocketHandle accepted = kNoSocket;
    EXPECT_EQ(AcceptSocket(listener, accepted), 10024);
    EXPECT_EQ(VDicomMessageLoop::RunOnce(50), DICOM_LOOP_TIMEOUT);
    EXPECT_EQ(accepts, 1);
    CloseSocket(spare);
    EXPECT_EQ(VDicomMessageLoop::RunOnce(10000), DICOM_LOOP_HANDLED);
    EXPECT_EQ(accepts, 2);
    EXPECT_EQ(AcceptSocket(listener, accepted), 0);
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &old), 0);
    for (const SocketHandle socket : {listener, client, accepted})
        CloseSocket(socket);
    EXPECT_TRUE(DestroyMessageWindow(window));
    EXPECT_TRUE(UnregisterMessageWindows());
}

#endif
