// Windows of Windows: hidden windows of the system's own.
#include "MessageLoop.h"

#include <algorithm>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vdicom::platform {

namespace {

constexpr UINT kWakeMessage = WM_APP + 0x3FF0; // to the thread, not to a window
constexpr UINT kClassStyle = 0x400B;           // global, double clicks, redrawn when its size changes
constexpr int kBatch = 64;

ATOM g_class = 0;
WindowProcedure g_procedure = nullptr;
thread_local bool t_woken = false;

HWND HandleOf(WindowHandle window) { return reinterpret_cast<HWND>(window); }
WindowHandle NumberOf(HWND window) { return reinterpret_cast<WindowHandle>(window); }

/// The module that this code is in: the DLL or the program.
HINSTANCE Module() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&g_class), &module);
    return module;
}

bool IsOwn(WindowHandle window) {
    return IsMessageWindow(window) && GetWindowThreadProcessId(HandleOf(window), nullptr) == GetCurrentThreadId();
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    if ((message < kFirstUserMessage || message > kLastUserMessage) && message != kTimerMessage)
        return DefWindowProcA(window, message, first, second);
    g_procedure(NumberOf(window), message, first, second);
    return 0;
}

} // namespace

bool RegisterMessageWindows(const char* className, WindowProcedure procedure) {
    if (g_class != 0 || procedure == nullptr)
        return false;
    WNDCLASSA windowClass{};
    windowClass.style = kClassStyle;
    windowClass.lpfnWndProc = OnMessage;
    windowClass.cbWndExtra = kWindowSlots * static_cast<int>(sizeof(LONG_PTR));
    windowClass.hInstance = Module();
    windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)); // IDC_ARROW
    windowClass.lpszClassName = className;
    g_procedure = procedure;
    g_class = RegisterClassA(&windowClass);
    return g_class != 0;
}

bool UnregisterMessageWindows() {
    if (g_class == 0 || !UnregisterClassA(MAKEINTATOM(g_class), Module()))
        return false;
    g_class = 0;
    return true;
}

WindowHandle CreateMessageWindow(const char* title, WindowHandle parent) {
    if (g_class == 0 || (parent != kNoWindow && !IsOwn(parent)))
        return kNoWindow;
    const DWORD style = parent == kNoWindow ? WS_POPUP : WS_CHILD;
    return NumberOf(CreateWindowExA(0, MAKEINTATOM(g_class), title, style, 0, 0, 0, 0, HandleOf(parent), nullptr,
                                    Module(), nullptr));
}

bool DestroyMessageWindow(WindowHandle window) { return IsOwn(window) && DestroyWindow(HandleOf(window)); }

bool IsMessageWindow(WindowHandle window) {
    return window != kNoWindow && g_class != 0 && IsWindow(HandleOf(window)) &&
           GetClassLongPtrA(HandleOf(window), GCW_ATOM) == g_class;
}

WindowHandle FirstChildWindow(WindowHandle parent) {
    return IsOwn(parent) ? NumberOf(GetWindow(HandleOf(parent), GW_CHILD)) : kNoWindow;
}

WindowHandle NextSiblingWindow(WindowHandle window) {
    if (!IsOwn(window) || (GetWindowLongPtrA(HandleOf(window), GWL_STYLE) & WS_CHILD) == 0)
        return kNoWindow;
    return NumberOf(GetWindow(HandleOf(window), GW_HWNDNEXT));
}

std::uintptr_t GetWindowSlot(WindowHandle window, int slot) {
    if (slot < 0 || slot >= kWindowSlots || !IsOwn(window))
        return 0;
    return static_cast<std::uintptr_t>(GetWindowLongPtrA(HandleOf(window), slot * static_cast<int>(sizeof(LONG_PTR))));
}

bool SetWindowSlot(WindowHandle window, int slot, std::uintptr_t value) {
    if (slot < 0 || slot >= kWindowSlots || !IsOwn(window))
        return false;
    SetWindowLongPtrA(HandleOf(window), slot * static_cast<int>(sizeof(LONG_PTR)), static_cast<LONG_PTR>(value));
    return true;
}

bool PostToWindow(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second) {
    return message >= kFirstUserMessage && message <= kLastUserMessage && IsMessageWindow(window) &&
           PostMessageA(HandleOf(window), message, first, second);
}

bool StartWindowTimer(WindowHandle window, std::uintptr_t number, std::uint32_t milliseconds) {
    return IsOwn(window) && SetTimer(HandleOf(window), number, std::clamp<UINT>(milliseconds, 10, 0x7FFFFFFF), nullptr);
}

bool StopWindowTimer(WindowHandle window, std::uintptr_t number) {
    return IsOwn(window) && KillTimer(HandleOf(window), number);
}

// ---------------------------------------------------------------- the loop

LoopResult RunLoopOnce(std::uint32_t milliseconds, int& quitCode) {
    static_assert(kWaitForEver == INFINITE, "both wait for ever");
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        int handled = 0;
        MSG message;
        while (handled < kBatch && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                quitCode = static_cast<int>(message.wParam);
                return LoopResult::quit;
            }
            if (message.hwnd == nullptr && message.message == kWakeMessage) {
                t_woken = true;
                continue;
            }
            TranslateMessage(&message);
            DispatchMessageA(&message);
            ++handled;
        }
        if (handled != 0)
            return LoopResult::handled;
        if (t_woken) {
            t_woken = false;
            return LoopResult::woken;
        }
        const ULONGLONG passed = GetTickCount64() - start;
        if (milliseconds != kWaitForEver && passed >= milliseconds)
            return LoopResult::timedOut;
        const DWORD wait = milliseconds == kWaitForEver ? INFINITE : static_cast<DWORD>(milliseconds - passed);
        if (MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE) == WAIT_FAILED)
            return LoopResult::failed;
    }
}

bool PostQuit(int code) {
    PostQuitMessage(code);
    return true;
}

std::uintptr_t CurrentLoop() {
    MSG message;
    PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE); // makes the thread's message queue
    return GetCurrentThreadId();
}

bool WakeLoop(std::uintptr_t loop) {
    return loop != 0 && PostThreadMessageA(static_cast<DWORD>(loop), kWakeMessage, 0, 0);
}

std::intptr_t LoopDescriptor() { return -1; }

} // namespace vdicom::platform
