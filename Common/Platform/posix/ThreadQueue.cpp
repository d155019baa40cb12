#include "ThreadQueue.h"

#include <algorithm>
#include <array>
#include <climits>
#include <new>

#include <cerrno>
#include <sched.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace vdicom::platform {

namespace {

constexpr std::size_t kMostMessages = 1u << 20;
/// Messages between two looks at the descriptors, so that windows that post to themselves do not starve the sockets.
constexpr int kBatch = 64;
/// A sleeping thread takes some 50 us to wake up; peers that answer one another find the answer sooner by looking.
constexpr std::chrono::microseconds kSpin(60);
/// Two to this power is the most of waits that go by without a spin after spins for nothing.
constexpr int kMostSpinsLost = 10;

void Close(int& descriptor) {
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

void Drain(int descriptor) {
    std::uint64_t count = 0;
    while (read(descriptor, &count, sizeof count) < 0 && errno == EINTR) {
    }
}

struct Holder {
    std::shared_ptr<ThreadQueue> queue;
    ~Holder() {
        if (queue)
            DestroyWindowsOf(queue.get());
    }
};

thread_local Holder t_holder;

} // namespace

std::shared_ptr<ThreadQueue> ThreadQueue::Share() {
    if (!t_holder.queue) {
        try {
            auto queue = std::make_shared<ThreadQueue>();
            if (queue->Open())
                t_holder.queue = std::move(queue);
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }
    return t_holder.queue;
}

ThreadQueue* ThreadQueue::Current() { return t_holder.queue ? t_holder.queue.get() : Share().get(); }

bool ThreadQueue::Open() {
    m_epoll = epoll_create1(EPOLL_CLOEXEC);
    m_event = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
    return m_epoll >= 0 && m_event >= 0 && m_timer >= 0 && Watch(m_event, EPOLLIN) && Watch(m_timer, EPOLLIN);
}

ThreadQueue::~ThreadQueue() {
    m_source.reset();
    Close(m_timer);
    Close(m_event);
    Close(m_epoll);
}

bool ThreadQueue::Watch(int descriptor, std::uint32_t events) {
    epoll_event event{};
    event.events = events;
    event.data.fd = descriptor;
    return epoll_ctl(m_epoll, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

void ThreadQueue::Unwatch(int descriptor) {
    epoll_event unused{};
    epoll_ctl(m_epoll, EPOLL_CTL_DEL, descriptor, &unused);
}

/// With the mutex held.
bool ThreadQueue::Signal() {
    if (m_signalled)
        return true;
    const std::uint64_t one = 1;
    m_signalled = write(m_event, &one, sizeof one) == sizeof one;
    return m_signalled;
}

bool ThreadQueue::Post(const QueuedMessage& message) {
    const std::scoped_lock lock(m_mutex);
    if (m_messages.size() >= kMostMessages)
        return false;
    try {
        m_messages.push_back(message);
    } catch (const std::bad_alloc&) {
        return false;
    }
    // A loop looks at the queue before it waits; only another one that waits on the descriptor has to be told.
    if (std::this_thread::get_id() != m_thread || (m_shared && m_depth == 0))
        Signal();
    return true;
}

void ThreadQueue::Wake() {
    const std::scoped_lock lock(m_mutex);
    m_woken = true;
    Signal();
}

void ThreadQueue::PostQuit(int code) {
    m_quit = true;
    m_quitCode = code;
    const std::scoped_lock lock(m_mutex);
    Signal();
}

bool ThreadQueue::HasWork() {
    const std::scoped_lock lock(m_mutex);
    return !m_messages.empty() || m_woken || m_quit || (m_source && m_source->IsDue());
}

int ThreadQueue::Descriptor() {
    if (!std::exchange(m_shared, true))
        SignalWhatIsLeft();
    return m_epoll;
}

/// For loops that wait on the descriptor.
void ThreadQueue::SignalWhatIsLeft() {
    if (!m_shared || !HasWork())
        return;
    const std::scoped_lock lock(m_mutex);
    Signal();
}

LoopResult ThreadQueue::RunOnce(std::uint32_t milliseconds, int& quitCode) {
    const auto start = Clock::now();
    ++m_depth;
    LoopResult result = LoopResult::timedOut;
    for (;;) {
        if (m_source)
            m_source->BeforeWait();
        int wait = -1;
        if (milliseconds != kWaitForEver) {
            // Rounded up: who waits for a time-out wants it to be over.
            const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
            wait = static_cast<int>(std::clamp<std::int64_t>(milliseconds - passed, 0, INT_MAX));
        }
        Wait(HasWork() ? 0 : wait);
        if (Dispatch()) {
            result = LoopResult::handled;
            break;
        }
        if (m_source && m_source->IsDue() && wait != 0)
            continue;
        if (std::exchange(m_quit, false)) {
            quitCode = m_quitCode;
            result = LoopResult::quit;
            break;
        }
        {
            const std::scoped_lock lock(m_mutex);
            if (std::exchange(m_woken, false)) {
                result = LoopResult::woken;
                break;
            }
        }
        if (wait == 0)
            break;
    }
    if (--m_depth == 0)
        SignalWhatIsLeft();
    return result;
}

void ThreadQueue::Wait(int milliseconds) {
    if (milliseconds == 0 || !Spin())
        Harvest(milliseconds);
}

/// Looks for events for a moment rather than sleep at once; less and less often where that was for nothing.
/// @return whether there was one
bool ThreadQueue::Spin() {
    static const bool isAlone = std::thread::hardware_concurrency() < 2;
    if (isAlone)
        return false;
    if (m_spinsToSkip > 0) {
        --m_spinsToSkip;
        return false;
    }
    const auto end = Clock::now() + kSpin;
    do {
        if (Harvest(0)) {
            m_spinsLost = 0;
            return true;
        }
        sched_yield();
    } while (Clock::now() < end);
    m_spinsLost = std::min(m_spinsLost + 1, kMostSpinsLost);
    m_spinsToSkip = 1 << m_spinsLost;
    return false;
}

/// @return whether there was an event
bool ThreadQueue::Harvest(int milliseconds) {
    std::array<epoll_event, 64> events;
    const int count = epoll_wait(m_epoll, events.data(), static_cast<int>(events.size()), milliseconds);
    for (int i = 0; i < count; ++i) {
        const int descriptor = events[static_cast<std::size_t>(i)].data.fd;
        if (descriptor == m_event) {
            Drain(m_event);
            const std::scoped_lock lock(m_mutex);
            m_signalled = false;
        } else if (descriptor == m_timer) {
            Drain(m_timer);
            FireTimers();
        } else if (m_source) {
            m_source->OnReady(descriptor, events[static_cast<std::size_t>(i)].events);
        }
    }
    return count > 0;
}

/// @return whether there was a message
bool ThreadQueue::Dispatch() {
    int handled = 0;
    for (; handled < kBatch; ++handled) {
        QueuedMessage message{};
        {
            const std::scoped_lock lock(m_mutex);
            if (m_messages.empty())
                break;
            message = m_messages.front();
            m_messages.pop_front();
        }
        if (message.message == kTimerMessage) {
            const auto found = m_timers.find({message.window, message.first});
            if (found == m_timers.end() || !std::exchange(found->second.underWay, false))
                continue;
        }
        DeliverMessage(this, message);
    }
    return handled != 0;
}

// ---------------------------------------------------------------- timers

bool ThreadQueue::StartTimer(WindowHandle window, std::uintptr_t number, std::uint32_t milliseconds) {
    StopTimer(window, number);
    const std::chrono::milliseconds period(std::clamp<std::uint32_t>(milliseconds, 10, INT_MAX));
    const auto due = Clock::now() + period;
    const TimerKey key{window, number};
    try {
        const auto place = m_due.emplace(due, key);
        try {
            m_timers.insert_or_assign(key, Timer{due, period, false});
        } catch (const std::bad_alloc&) {
            m_due.erase(place);
            return false;
        }
    } catch (const std::bad_alloc&) {
        return false;
    }
    SetTimerDescriptor();
    return true;
}

bool ThreadQueue::StopTimer(WindowHandle window, std::uintptr_t number) {
    const auto timer = m_timers.find({window, number});
    if (timer == m_timers.end())
        return false;
    auto place = m_due.lower_bound(timer->second.due);
    while (place->second != timer->first)
        ++place;
    m_due.erase(place);
    m_timers.erase(timer);
    return true; // the descriptor may fire for nothing
}

void ThreadQueue::StopTimers(WindowHandle window) {
    for (auto timer = m_timers.lower_bound({window, 0}); timer != m_timers.end() && timer->first.first == window;
         timer = m_timers.lower_bound({window, 0}))
        StopTimer(window, timer->first.second);
}

void ThreadQueue::FireTimers() {
    const auto now = Clock::now();
    while (!m_due.empty() && m_due.begin()->first <= now) {
        const TimerKey key = m_due.begin()->second;
        Timer& timer = m_timers.find(key)->second;
        if (!timer.underWay)
            timer.underWay = Post({key.first, kTimerMessage, key.second, 0});
        timer.due = now + timer.period;
        auto node = m_due.extract(m_due.begin());
        node.key() = timer.due;
        m_due.insert(std::move(node));
    }
    SetTimerDescriptor();
}

void ThreadQueue::SetTimerDescriptor() {
    itimerspec when{};
    if (!m_due.empty()) {
        const auto left = m_due.begin()->first - Clock::now();
        const auto nanoseconds =
            std::max<std::int64_t>(1, std::chrono::duration_cast<std::chrono::nanoseconds>(left).count());
        when.it_value.tv_sec = static_cast<time_t>(nanoseconds / 1'000'000'000);
        when.it_value.tv_nsec = static_cast<long>(nanoseconds % 1'000'000'000);
    }
    timerfd_settime(m_timer, 0, &when, nullptr);
}

} // namespace vdicom::platform
