#include "VDicomMessageLoop.h"

#include "MessageLoop.h"

using namespace vdicom;
using platform::LoopResult;

static_assert(platform::kWaitForEver == DICOM_UNDEFINED, "both mean for ever");

int VDicomMessageLoop::Run() {
    for (;;) {
        int code = 0;
        const LoopResult result = platform::RunLoopOnce(platform::kWaitForEver, code);
        if (result == LoopResult::quit)
            return code;
        if (result == LoopResult::failed)
            return -1;
    }
}

unsigned int VDicomMessageLoop::RunOnce(VDicomULong milliseconds) {
    int code = 0;
    switch (platform::RunLoopOnce(milliseconds, code)) {
    case LoopResult::timedOut:
        return DICOM_LOOP_TIMEOUT;
    case LoopResult::handled:
        return DICOM_LOOP_HANDLED;
    case LoopResult::quit:
        return DICOM_LOOP_QUIT;
    case LoopResult::woken:
        return DICOM_LOOP_WOKEN;
    default:
        return DICOM_LOOP_FAILED;
    }
}

unsigned int VDicomMessageLoop::PostQuit(int code) { return platform::PostQuit(code) ? 1 : 0; }

std::uintptr_t VDicomMessageLoop::GetLoop() { return platform::CurrentLoop(); }

unsigned int VDicomMessageLoop::WakeUp(std::uintptr_t loop) { return platform::WakeLoop(loop) ? 1 : 0; }

std::intptr_t VDicomMessageLoop::GetDescriptor() { return platform::LoopDescriptor(); }
