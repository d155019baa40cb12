// Windows of POSIX systems: records in one table of the process, found by numbers that are not used twice.
#include "MessageLoop.h"

#include "ThreadQueue.h"

#include <algorithm>
#include <array>
#include <new>
#include <unordered_map>
#include <vector>

namespace vdicom::platform {

namespace {

/// Apart from `queue`, only the window's thread looks inside.
struct Window {
    std::shared_ptr<ThreadQueue> queue;
    WindowHandle parent = kNoWindow;
    std::vector<WindowHandle> children; ///< ascending, for handles grow with every window
    std::array<std::uintptr_t, kWindowSlots> slots{};
};

struct Windows {
    std::mutex mutex;
    WindowProcedure procedure = nullptr;
    WindowHandle last = kNoWindow;
    std::unordered_map<WindowHandle, std::unique_ptr<Window>> table;
};

Windows& All() {
    static Windows* windows = new Windows; // outlives the threads that end behind the last static object
    return *windows;
}

/// The window, if it is one of this thread.
Window* Own(WindowHandle handle) {
    const ThreadQueue* queue = ThreadQueue::Current();
    Windows& all = All();
    const std::scoped_lock lock(all.mutex);
    const auto found = all.table.find(handle);
    return found != all.table.end() && found->second->queue.get() == queue ? found->second.get() : nullptr;
}

void Destroy(WindowHandle handle, Window* window) {
    while (!window->children.empty()) {
        const WindowHandle child = window->children.back();
        window->children.pop_back();
        if (Window* record = Own(child); record != nullptr) {
            record->parent = kNoWindow;
            Destroy(child, record);
        }
    }
    if (Window* parent = Own(window->parent); parent != nullptr)
        parent->children.erase(std::lower_bound(parent->children.begin(), parent->children.end(), handle));
    window->queue->StopTimers(handle);
    Windows& all = All();
    const std::scoped_lock lock(all.mutex);
    all.table.erase(handle);
}

} // namespace

bool RegisterMessageWindows(const char*, WindowProcedure procedure) {
    try {
        Windows& all = All();
        const std::scoped_lock lock(all.mutex);
        if (all.procedure != nullptr || procedure == nullptr)
            return false;
        all.procedure = procedure;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool UnregisterMessageWindows() {
    Windows& all = All();
    const std::scoped_lock lock(all.mutex);
    if (all.procedure == nullptr || !all.table.empty())
        return false;
    all.procedure = nullptr;
    return true;
}

WindowHandle CreateMessageWindow(const char*, WindowHandle parent) {
    Window* above = parent == kNoWindow ? nullptr : Own(parent);
    if (parent != kNoWindow && above == nullptr)
        return kNoWindow;
    try {
        auto window = std::make_unique<Window>();
        window->queue = ThreadQueue::Share();
        window->parent = parent;
        Windows& all = All();
        const std::scoped_lock lock(all.mutex);
        if (window->queue == nullptr || all.procedure == nullptr)
            return kNoWindow;
        WindowHandle handle = all.last;
        do
            ++handle;
        while (handle == kNoWindow || all.table.contains(handle));
        if (above != nullptr && above->children.size() == above->children.capacity())
            above->children.reserve(std::max<std::size_t>(8, 2 * above->children.size()));
        all.table.emplace(handle, std::move(window));
        all.last = handle;
        if (above != nullptr)
            above->children.push_back(handle);
        return handle;
    } catch (const std::bad_alloc&) {
        return kNoWindow;
    }
}

bool DestroyMessageWindow(WindowHandle window) {
    Window* record = Own(window);
    if (record == nullptr)
        return false;
    Destroy(window, record);
    return true;
}

bool IsOwnWindow(WindowHandle window) { return Own(window) != nullptr; }

bool IsMessageWindow(WindowHandle window) {
    Windows& all = All();
    const std::scoped_lock lock(all.mutex);
    return all.table.contains(window);
}

WindowHandle FirstChildWindow(WindowHandle parent) {
    const Window* record = Own(parent);
    return record == nullptr || record->children.empty() ? kNoWindow : record->children.front();
}

WindowHandle NextSiblingWindow(WindowHandle window) {
    const Window* record = Own(window);
    const Window* parent = record == nullptr ? nullptr : Own(record->parent);
    if (parent == nullptr)
        return kNoWindow;
    const auto next = std::upper_bound(parent->children.begin(), parent->children.end(), window);
    return next == parent->children.end() ? kNoWindow : *next;
}

std::uintptr_t GetWindowSlot(WindowHandle window, int slot) {
    const Window* record = slot >= 0 && slot < kWindowSlots ? Own(window) : nullptr;
    return record == nullptr ? 0 : record->slots[static_cast<std::size_t>(slot)];
}

bool SetWindowSlot(WindowHandle window, int slot, std::uintptr_t value) {
    Window* record = slot >= 0 && slot < kWindowSlots ? Own(window) : nullptr;
    if (record == nullptr)
        return false;
    record->slots[static_cast<std::size_t>(slot)] = value;
    return true;
}

bool PostToWindow(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second) {
    if (message < kFirstUserMessage || message > kLastUserMessage)
        return false;
    std::shared_ptr<ThreadQueue> queue;
    {
        Windows& all = All();
        const std::scoped_lock lock(all.mutex);
        const auto found = all.table.find(window);
        if (found == all.table.end())
            return false;
        queue = found->second->queue;
    }
    return queue->Post({window, message, first, second});
}

bool StartWindowTimer(WindowHandle window, std::uintptr_t number, std::uint32_t milliseconds) {
    Window* record = Own(window);
    return record != nullptr && record->queue->StartTimer(window, number, milliseconds);
}

bool StopWindowTimer(WindowHandle window, std::uintptr_t number) {
    Window* record = Own(window);
    return record != nullptr && record->queue->StopTimer(window, number);
}

void DeliverMessage(const ThreadQueue* queue, const QueuedMessage& message) {
    WindowProcedure procedure = nullptr;
    {
        Windows& all = All();
        const std::scoped_lock lock(all.mutex);
        const auto found = all.table.find(message.window);
        if (found != all.table.end() && found->second->queue.get() == queue)
            procedure = all.procedure;
    }
    if (procedure != nullptr)
        procedure(message.window, message.message, message.first, message.second);
}

void DestroyWindowsOf(const ThreadQueue* queue) {
    Windows& all = All();
    const std::scoped_lock lock(all.mutex);
    std::erase_if(all.table, [queue](const auto& entry) { return entry.second->queue.get() == queue; });
}

// ---------------------------------------------------------------- the loop

LoopResult RunLoopOnce(std::uint32_t milliseconds, int& quitCode) {
    ThreadQueue* queue = ThreadQueue::Current();
    return queue == nullptr ? LoopResult::failed : queue->RunOnce(milliseconds, quitCode);
}

bool PostQuit(int code) {
    ThreadQueue* queue = ThreadQueue::Current();
    if (queue != nullptr)
        queue->PostQuit(code);
    return queue != nullptr;
}

namespace {

struct Loops {
    std::mutex mutex;
    std::uintptr_t last = 0;
    std::unordered_map<std::uintptr_t, std::weak_ptr<ThreadQueue>> table;
};

Loops& AllLoops() {
    static Loops* loops = new Loops;
    return *loops;
}

/// The number under which other threads know this one's loop; forgotten when it ends.
struct LoopNumber {
    std::uintptr_t number = 0;
    ~LoopNumber() {
        if (number == 0)
            return;
        const std::scoped_lock lock(AllLoops().mutex);
        AllLoops().table.erase(number);
    }
};

thread_local LoopNumber t_number;

} // namespace

std::uintptr_t CurrentLoop() {
    if (t_number.number != 0)
        return t_number.number;
    try {
        auto queue = ThreadQueue::Share();
        if (queue == nullptr)
            return 0;
        Loops& loops = AllLoops();
        const std::scoped_lock lock(loops.mutex);
        loops.table.emplace(loops.last + 1, queue);
        t_number.number = ++loops.last;
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return t_number.number;
}

bool WakeLoop(std::uintptr_t loop) {
    std::shared_ptr<ThreadQueue> queue;
    {
        const std::scoped_lock lock(AllLoops().mutex);
        const auto found = AllLoops().table.find(loop);
        if (found != AllLoops().table.end())
            queue = found->second.lock();
    }
    if (queue != nullptr)
        queue->Wake();
    return queue != nullptr;
}

std::intptr_t LoopDescriptor() {
    ThreadQueue* queue = ThreadQueue::Current();
    return queue == nullptr ? -1 : queue->Descriptor();
}

} // namespace vdicom::platform
