// The contract of message windows and of the loop, the same on every platform.
#include "MessageLoop.h"
#include "CountedMemory.h"
#include "VDicomMessageLoop.h"

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace {

using namespace vdicom::platform;
using testing::ElementsAre;

constexpr unsigned int kEvent = 0x406;

std::function<void(WindowHandle, unsigned int, std::uintptr_t, std::intptr_t)> g_onMessage;

void OnMessage(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second) {
    g_onMessage(window, message, first, second);
}

class MessageLoop : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(RegisterMessageWindows("VDICOM_TEST_CLASS", OnMessage));
        g_onMessage = [this](WindowHandle, unsigned int, std::uintptr_t first, std::intptr_t) {
            m_seen.push_back(first);
        };
    }
    void TearDown() override {
        RunAll();
        EXPECT_TRUE(UnregisterMessageWindows());
    }
    static unsigned int RunAll() {
        unsigned int result = DICOM_LOOP_HANDLED;
        for (int i = 0; i < 1000 && result == DICOM_LOOP_HANDLED; ++i)
            result = VDicomMessageLoop::RunOnce(0);
        return result;
    }

    std::vector<std::uintptr_t> m_seen;
};

std::int64_t Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

TEST_F(MessageLoop, WindowsSlotsAndChildren) {
    EXPECT_FALSE(RegisterMessageWindows("ANOTHER", OnMessage));
    const WindowHandle parent = CreateMessageWindow("parent", kNoWindow);
    ASSERT_NE(parent, kNoWindow);
    EXPECT_FALSE(UnregisterMessageWindows());
    for (int slot = 0; slot < kWindowSlots; ++slot) {
        EXPECT_EQ(GetWindowSlot(parent, slot), 0u);
        EXPECT_TRUE(SetWindowSlot(parent, slot, ~std::uintptr_t{0} - static_cast<unsigned int>(slot)));
    }
    EXPECT_EQ(GetWindowSlot(parent, 3), ~std::uintptr_t{0} - 3);
    EXPECT_FALSE(SetWindowSlot(parent, kWindowSlots, 1));
    EXPECT_FALSE(SetWindowSlot(parent, -1, 1));
    WindowHandle children[4];
    for (WindowHandle& child : children)
        child = CreateMessageWindow("child", parent);
    EXPECT_TRUE(DestroyMessageWindow(children[1]));
    std::vector<WindowHandle> walk;
    for (WindowHandle child = FirstChildWindow(parent); child != kNoWindow; child = NextSiblingWindow(child))
        walk.push_back(child);
    EXPECT_THAT(walk, ElementsAre(children[0], children[2], children[3]));
    const WindowHandle grandchild = CreateMessageWindow("grandchild", children[2]);
    EXPECT_EQ(NextSiblingWindow(parent), kNoWindow);
    // Only its own thread may touch a window; every thread may post.
    bool allowed = true;
    std::thread([&] {
        allowed = DestroyMessageWindow(parent) || SetWindowSlot(parent, 0, 1) || GetWindowSlot(parent, 1) != 0 ||
                  CreateMessageWindow("child", parent) != kNoWindow || !PostToWindow(parent, kEvent, 1, 0);
    }).join();
    EXPECT_FALSE(allowed);
    EXPECT_TRUE(DestroyMessageWindow(parent));
    for (const WindowHandle gone : {parent, children[0], children[3], grandchild}) {
        EXPECT_FALSE(IsMessageWindow(gone));
        EXPECT_FALSE(PostToWindow(gone, kEvent, 0, 0));
        EXPECT_FALSE(DestroyMessageWindow(gone));
    }
    EXPECT_EQ(CreateMessageWindow("child", parent), kNoWindow);
}

TEST_F(MessageLoop, MessagesComeInOrderAndEndWithTheirWindow) {
    const WindowHandle first = CreateMessageWindow("first", kNoWindow);
    const WindowHandle second = CreateMessageWindow("second", first);
    for (std::uintptr_t i = 0; i < 200; ++i)
        EXPECT_TRUE(PostToWindow(i % 3 == 0 ? first : second, kEvent, i, -1));
    EXPECT_EQ(RunAll(), DICOM_LOOP_TIMEOUT);
    ASSERT_EQ(m_seen.size(), 200u);
    EXPECT_TRUE(std::is_sorted(m_seen.begin(), m_seen.end()));
    EXPECT_FALSE(PostToWindow(first, kTimerMessage, 0, 0));
    // A handler posts, destroys another window and its own, and runs the loop itself.
    m_seen.clear();
    g_onMessage = [&](WindowHandle window, unsigned int message, std::uintptr_t value, std::intptr_t more) {
        EXPECT_EQ(message, kEvent);
        EXPECT_EQ(more, -7);
        m_seen.push_back(value);
        if (value == 1) {
            EXPECT_TRUE(PostToWindow(first, kEvent, 4, -7));
            EXPECT_TRUE(DestroyMessageWindow(second));
        } else if (value == 3) {
            EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_HANDLED);
            m_seen.push_back(33);
            EXPECT_TRUE(DestroyMessageWindow(window));
        }
    };
    PostToWindow(first, kEvent, 1, -7);
    PostToWindow(second, kEvent, 2, -7);
    PostToWindow(first, kEvent, 3, -7);
    EXPECT_EQ(RunAll(), DICOM_LOOP_TIMEOUT);
    EXPECT_THAT(m_seen, ElementsAre(1, 3, 4, 33));
}

TEST_F(MessageLoop, WaitingQuittingAndWaking) {
    const WindowHandle window = CreateMessageWindow("window", kNoWindow);
    const std::uintptr_t loop = VDicomMessageLoop::GetLoop();
    ASSERT_NE(loop, 0u);
    EXPECT_EQ(VDicomMessageLoop::GetLoop(), loop);
    unsigned int result = 0;
    EXPECT_GE(Milliseconds([&] { result = VDicomMessageLoop::RunOnce(50); }), 45);
    EXPECT_EQ(result, DICOM_LOOP_TIMEOUT);
    // Messages posted before come first.
    PostToWindow(window, kEvent, 5, 0);
    VDicomMessageLoop::PostQuit(42);
    PostToWindow(window, kEvent, 6, 0);
    EXPECT_EQ(VDicomMessageLoop::Run(), 42);
    EXPECT_THAT(m_seen, ElementsAre(5, 6));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_TIMEOUT);
    // Another thread ends the waiting, by a wake-up and by a message.
    std::thread waker([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        VDicomMessageLoop::WakeUp(loop);
        VDicomMessageLoop::WakeUp(loop);
    });
    EXPECT_LT(Milliseconds([&] { result = VDicomMessageLoop::RunOnce(20000); }), 10000);
    EXPECT_EQ(result, DICOM_LOOP_WOKEN);
    waker.join();
    VDicomMessageLoop::RunOnce(0);
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_TIMEOUT);
    std::thread poster([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        PostToWindow(window, kEvent, 7, 0);
    });
    EXPECT_EQ(VDicomMessageLoop::RunOnce(DICOM_UNDEFINED), DICOM_LOOP_HANDLED);
    poster.join();
    EXPECT_EQ(m_seen.back(), 7u);
    // The loop of a thread that has ended, and windows that it left behind.
    std::uintptr_t other = 0;
    WindowHandle left = kNoWindow;
    std::thread([&] {
        other = VDicomMessageLoop::GetLoop();
        left = CreateMessageWindow("left", kNoWindow);
    }).join();
    EXPECT_EQ(VDicomMessageLoop::WakeUp(other), 0u);
    EXPECT_EQ(VDicomMessageLoop::WakeUp(0), 0u);
    EXPECT_FALSE(IsMessageWindow(left));
    DestroyMessageWindow(window);
}

TEST_F(MessageLoop, Timers) {
    const WindowHandle window = CreateMessageWindow("window", kNoWindow);
    std::string order;
    g_onMessage = [&](WindowHandle, unsigned int message, std::uintptr_t number, std::intptr_t) {
        order += message == kTimerMessage ? static_cast<char>('0' + number) : 'm';
        if (number == 2) {
            EXPECT_TRUE(StopWindowTimer(window, 2));
        }
    };
    EXPECT_TRUE(StartWindowTimer(window, 1, 120));
    EXPECT_TRUE(StartWindowTimer(window, 2, 20));
    EXPECT_TRUE(StartWindowTimer(window, 3, 1));
    EXPECT_TRUE(StartWindowTimer(window, 3, 60000));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(10000), DICOM_LOOP_HANDLED);
    EXPECT_EQ(order, "2");
    EXPECT_GE(Milliseconds([&] { EXPECT_EQ(VDicomMessageLoop::RunOnce(10000), DICOM_LOOP_HANDLED); }), 50);
    EXPECT_EQ(VDicomMessageLoop::RunOnce(10000), DICOM_LOOP_HANDLED);
    EXPECT_EQ(order, "211");
    EXPECT_FALSE(StopWindowTimer(window, 2));
    // Due while nobody looks: one message, and none once the timer is stopped.
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    PostToWindow(window, kEvent, 0, 0);
    EXPECT_EQ(RunAll(), DICOM_LOOP_TIMEOUT);
    EXPECT_TRUE(order == "211m1" || order == "2111m") << order;
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_TRUE(StopWindowTimer(window, 1));
    EXPECT_EQ(VDicomMessageLoop::RunOnce(0), DICOM_LOOP_TIMEOUT);
    EXPECT_TRUE(DestroyMessageWindow(window)); // with a timer that runs
    EXPECT_FALSE(StartWindowTimer(window, 1, 10));
}

TEST_F(MessageLoop, MemoryRunsOut) {
    const WindowHandle parent = CreateMessageWindow("parent", kNoWindow);
    const WindowHandle first = CreateMessageWindow("child", parent); // makes room for more
    WindowHandle child = kNoWindow;
    memory::FailEachTime([&] { return (child = CreateMessageWindow("child", parent)) != kNoWindow; },
                         [&] { EXPECT_EQ(NextSiblingWindow(first), kNoWindow); });
    memory::FailEachTime([&] { return StartWindowTimer(child, 1, 60000); },
                         [&] { EXPECT_FALSE(StopWindowTimer(child, 1)); });
    // The queue takes memory now and then; what was refused does not come.
    std::size_t taken = 0;
    memory::g_failAfter = 0;
    while (taken < 1000 && PostToWindow(child, kEvent, taken, 0))
        ++taken;
    memory::g_failAfter = -1;
    EXPECT_EQ(RunAll(), DICOM_LOOP_TIMEOUT);
    EXPECT_EQ(m_seen.size(), taken);
    EXPECT_TRUE(DestroyMessageWindow(parent));
}
