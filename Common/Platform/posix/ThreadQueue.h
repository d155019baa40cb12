/// @file ThreadQueue.h
/// The message queue of a thread: posted messages, timers and descriptors. For the sources of Common/Platform/posix
/// only.
#pragma once

#include "MessageLoop.h"

#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace vdicom::platform {

struct QueuedMessage {
    WindowHandle window;
    unsigned int message;
    std::uintptr_t first;
    std::intptr_t second;
};

/// Whatever else turns events into messages of one thread: the sockets.
class EventSource {
public:
    virtual ~EventSource() = default;
    /// Something happened to a descriptor that was added with Watch.
    virtual void OnReady(int descriptor, std::uint32_t events) = 0;
    /// Before the loop waits: posts what must not be waited for.
    virtual void BeforeWait() = 0;
    /// Whether BeforeWait has something to do.
    virtual bool IsDue() const = 0;
};

class ThreadQueue {
public:
    /// The calling thread's queue, made on first use; null without memory or descriptors.
    static ThreadQueue* Current();
    /// The same as something that other threads may hold.
    static std::shared_ptr<ThreadQueue> Share();

    ThreadQueue() = default;
    ~ThreadQueue();
    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;

    /// @name Any thread
    /// @{
    bool Post(const QueuedMessage& message);
    void Wake();
    /// @}

    /// @name The queue's thread
    /// @{
    LoopResult RunOnce(std::uint32_t milliseconds, int& quitCode);
    void PostQuit(int code);
    /// For another loop to wait on; from now on it is made readable for what the own loop would find by itself.
    int Descriptor();
    bool StartTimer(WindowHandle window, std::uintptr_t number, std::uint32_t milliseconds);
    bool StopTimer(WindowHandle window, std::uintptr_t number);
    void StopTimers(WindowHandle window);
    bool Watch(int descriptor, std::uint32_t events);
    void Unwatch(int descriptor);
    void SetSource(std::unique_ptr<EventSource> source) { m_source = std::move(source); }
    EventSource* Source() const { return m_source.get(); }
    /// @}

private:
    using Clock = std::chrono::steady_clock;
    using TimerKey = std::pair<WindowHandle, std::uintptr_t>;
    struct Timer {
        Clock::time_point due;
        std::chrono::milliseconds period;
        bool underWay;
    };

    bool Open();
    bool Signal();
    void SignalWhatIsLeft();
    bool HasWork();
    void Wait(int milliseconds);
    bool Spin();
    bool Harvest(int milliseconds);
    void FireTimers();
    void SetTimerDescriptor();
    bool Dispatch();

    std::mutex m_mutex; ///< guards what stands up to the blank line
    std::deque<QueuedMessage> m_messages;
    bool m_woken = false;
    bool m_signalled = false; ///< the event descriptor is readable

    std::thread::id m_thread = std::this_thread::get_id();
    int m_epoll = -1;
    int m_event = -1; ///< readable while other threads or other loops shall see that there is work
    int m_timer = -1;
    int m_depth = 0;       ///< RunOnce within RunOnce
    int m_spinsLost = 0;   ///< one after the other, without an event in time
    int m_spinsToSkip = 0; ///< waits that are not worth a try
    bool m_shared = false; ///< another loop has the descriptor
    bool m_quit = false;
    int m_quitCode = 0;
    std::map<TimerKey, Timer> m_timers;
    std::multimap<Clock::time_point, TimerKey> m_due;
    std::unique_ptr<EventSource> m_source;
};

/// Whether there is such a window, and it is one of this thread.
bool IsOwnWindow(WindowHandle window);
/// Destroys the windows of a thread that ends.
void DestroyWindowsOf(const ThreadQueue* queue);
/// Gives a message to its window, if that is still there and of this queue.
void DeliverMessage(const ThreadQueue* queue, const QueuedMessage& message);

} // namespace vdicom::platform
