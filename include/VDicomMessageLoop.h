/// @file VDicomMessageLoop.h
/// VDicomMessageLoop: the message loop of a thread, for applications that have none.
#pragma once

#include "VDicomTypes.h"

/// What VDicomMessageLoop::RunOnce returned for.
enum DICOMLOOPRESULT : unsigned int {
    DICOM_LOOP_TIMEOUT = 0, ///< nothing came in time
    DICOM_LOOP_HANDLED = 1, ///< one message or more was handled
    DICOM_LOOP_QUIT = 2,    ///< PostQuit was called; the request is used up
    DICOM_LOOP_WOKEN = 3,   ///< WakeUp was called
    DICOM_LOOP_FAILED = 4   ///< no memory or no descriptors for a loop
};

/// Network events reach an application as messages to the thread that made the connection, and are handled in that
/// thread's message loop. On Windows every program with windows has such a loop, and needs nothing of this class.
/// Elsewhere, and in programs without windows, a thread runs this one, or gives its descriptor to the loop that it has
/// (GLib, Qt, libuv, asio).
///
/// All members are static and concern the calling thread, except WakeUp, which is for other threads.
///
/// @code
/// while (!done && VDicomMessageLoop::RunOnce(1000) != DICOM_LOOP_QUIT)
///     ;
/// @endcode
class VDICOM_API VDicomMessageLoop {
public:
    /// Handles messages until PostQuit. @return the code given there; -1 when there can be no loop
    static int Run();

    /// Handles the messages that are waiting. When none is, it waits for one.
    /// @param milliseconds how long; 0: not at all; DICOM_UNDEFINED: for ever @return DICOMLOOPRESULT
    static unsigned int RunOnce(VDicomULong milliseconds);

    /// Ends Run, and RunOnce, once all messages posted before have been handled. @return non-zero on success
    static unsigned int PostQuit(int code);

    /// The number of this thread's loop, for WakeUp; 0 when there can be none.
    static std::uintptr_t GetLoop();

    /// Ends the waiting of another thread's RunOnce, or of the next one; waking it several times counts once. Run goes
    /// on. @param loop what GetLoop gave in that thread @return non-zero on success, 0 also when the thread has ended
    static unsigned int WakeUp(std::uintptr_t loop);

    /// A descriptor for somebody else's loop: readable when messages are waiting; call RunOnce(0) then. It belongs to
    /// the library and is closed when the thread ends. -1 on Windows, where every loop that dispatches messages serves
    /// the library.
    static std::intptr_t GetDescriptor();
};
