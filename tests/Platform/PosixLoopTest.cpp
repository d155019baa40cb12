// The message loop inside somebody else's: its descriptor.
#if !defined(_WIN32)

#include "MessageLoop.h"
#include "VDicomMessageLoop.h"

#include <gtest/gtest.h>

#include <thread>

#include <poll.h>

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

#endif
