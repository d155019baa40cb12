#include "CountedMemory.h"

#include <cstdlib>
#include <new>

namespace memory {

std::atomic<long> g_blocks{0};
std::atomic<long> g_allocations{0};
thread_local long g_failAfter = -1;

} // namespace memory

namespace {

using namespace memory;

void* TakeMemory(std::size_t size) noexcept {
    if (g_failAfter == 0)
        return nullptr;
    if (g_failAfter > 0)
        --g_failAfter;
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block != nullptr) {
        ++g_blocks;
        ++g_allocations;
    }
    return block;
}

void GiveMemory(void* block) noexcept {
    if (block != nullptr)
        --g_blocks;
    std::free(block);
}

void* TakeOrThrow(std::size_t size) {
    void* block = TakeMemory(size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

} // namespace

// NOLINTBEGIN(misc-new-delete-overloads)
void* operator new(std::size_t size) { return TakeOrThrow(size); }
void* operator new[](std::size_t size) { return TakeOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return TakeMemory(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return TakeMemory(size); }
void operator delete(void* block) noexcept { GiveMemory(block); }
void operator delete[](void* block) noexcept { GiveMemory(block); }
void operator delete(void* block, std::size_t) noexcept { GiveMemory(block); }
void operator delete[](void* block, std::size_t) noexcept { GiveMemory(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { GiveMemory(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { GiveMemory(block); }
// NOLINTEND(misc-new-delete-overloads)
