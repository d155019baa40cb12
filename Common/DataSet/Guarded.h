/// @file Guarded.h
/// No exception leaves the library; running out of memory is the only one that its work can meet.
#pragma once

#include <new>

namespace vdicom {

/// What `work` gives, or `otherwise` when memory runs out.
template <class Result, class Work> Result Guarded(Result otherwise, Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return otherwise;
    }
}

} // namespace vdicom
