/// @file MessageLoop.h
/// Message windows and the message loop of a thread. Implemented in posix/ and in win32/ with one contract; nobody
/// outside these folders asks which platform it is.
///
/// A message window is never seen. It belongs to the thread that made it, has a parent or none, nine slots for numbers
/// as wide as pointers, timers, and gets messages in the order in which they were posted. Its thread reads them in its
/// message loop: VDicomMessageLoop or, on Windows, any loop that dispatches messages. All operations are the window's
/// thread's, Post alone is every thread's. A window that is gone is safe to name: operations fail, messages that are
/// still under way to it are dropped.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom::platform {

using WindowHandle = std::uintptr_t;
constexpr WindowHandle kNoWindow = 0;
constexpr int kWindowSlots = 9;

/// Messages from here on are the user's; those below are the platform's.
constexpr unsigned int kFirstUserMessage = 0x0400;
constexpr unsigned int kLastUserMessage = 0x7FFF;
/// Comes when a timer is due; the first parameter is its number.
constexpr unsigned int kTimerMessage = 0x0113;

/// Gets the user's messages and those of timers, on the window's thread. It may post, make and destroy windows (its own
/// too), and run the loop.
using WindowProcedure = void (*)(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second);

/// The class of all message windows; there is one at a time. @return false when there is one or there is no memory
bool RegisterMessageWindows(const char* className, WindowProcedure procedure);
/// False when there is none, or windows of it are left.
bool UnregisterMessageWindows();

/// Makes a window with empty slots. @param parent kNoWindow, or a window of this thread @return kNoWindow: no class, no
/// such parent, no memory or other means
WindowHandle CreateMessageWindow(const char* title, WindowHandle parent);
/// Destroys a window and its children. False when it is none of this thread.
bool DestroyMessageWindow(WindowHandle window);
bool IsMessageWindow(WindowHandle window);
/// Children in the order in which they were made.
WindowHandle FirstChildWindow(WindowHandle parent);
WindowHandle NextSiblingWindow(WindowHandle window);
/// 0 where there is no such window or slot.
std::uintptr_t GetWindowSlot(WindowHandle window, int slot);
bool SetWindowSlot(WindowHandle window, int slot, std::uintptr_t value);

/// Puts a message at the end of the queue of the window's thread. Any thread. @return false: no such window, a message
/// that is not the user's, the queue is full or there is no memory
bool PostToWindow(WindowHandle window, unsigned int message, std::uintptr_t first, std::intptr_t second);

/// Lets kTimerMessage come every `milliseconds` (10 to 0x7FFFFFFF; others are taken as the nearest), until the timer is
/// stopped; a timer of the same number is set anew. One message is under way at most.
bool StartWindowTimer(WindowHandle window, std::uintptr_t number, std::uint32_t milliseconds);
/// No message comes any more. False when there is no such timer.
bool StopWindowTimer(WindowHandle window, std::uintptr_t number);

/// @name The loop of the calling thread; VDicomMessageLoop tells its contract
/// @{
enum class LoopResult : unsigned char { timedOut, handled, quit, woken, failed };
constexpr std::uint32_t kWaitForEver = 0xFFFFFFFFu;

LoopResult RunLoopOnce(std::uint32_t milliseconds, int& quitCode);
bool PostQuit(int code);
/// A number of the calling thread for WakeLoop; 0 when there is no memory.
std::uintptr_t CurrentLoop();
bool WakeLoop(std::uintptr_t loop);
/// -1 where there is none.
std::intptr_t LoopDescriptor();
/// @}

} // namespace vdicom::platform
