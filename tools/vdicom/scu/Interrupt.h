/// @file Interrupt.h
/// Ctrl-C and SIGTERM end what a client does on the network in order.
#pragma once

namespace program {

/// While it lives, the first two interrupts are counted; one more ends the program at once, as ever.
class InterruptWatch {
public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    /// How many interrupts there have been.
    static int Count();
};

} // namespace program
