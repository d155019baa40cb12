#include "scu/Interrupt.h"

#include <csignal>

namespace program {

namespace {

volatile std::sig_atomic_t interrupts = 0;

extern "C" void TakeInterrupt(int number) {
    const int count = interrupts + 1;
    interrupts = count;
    // Windows forgets a handler when it calls it.
    std::signal(number, count < 2 ? TakeInterrupt : SIG_DFL);
}

} // namespace

InterruptWatch::InterruptWatch() {
    interrupts = 0;
    std::signal(SIGINT, TakeInterrupt);
    std::signal(SIGTERM, TakeInterrupt);
}

InterruptWatch::~InterruptWatch() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

int InterruptWatch::Count() { return interrupts; }

} // namespace program
