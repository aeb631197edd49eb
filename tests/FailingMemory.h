#pragma once

// For a test program of its own: memory runs out where the test says. To be included once.

#include <cstddef>
#include <cstdlib>
#include <new>

namespace quarnel::test {

struct FailingMemory {
    std::size_t count = 0;
    std::size_t failAt = 0; ///< the one allocation that fails, counted from 1; 0 for none
    bool failsNow = false;  ///< every allocation fails
};
inline FailingMemory failingMemory;

/// Lets allocation `failAt` from here on fail; 0 lets all succeed.
inline void LetMemoryFailAt(std::size_t failAt) {
    failingMemory = {0, failAt, false};
}

} // namespace quarnel::test

// NOLINTBEGIN(misc-definitions-in-headers, cppcoreguidelines-no-malloc)
// Never inlined: a compiler that sees only one of a pair takes the other for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
    quarnel::test::FailingMemory& memory = quarnel::test::failingMemory;
    if (memory.failsNow || ++memory.count == memory.failAt)
        throw std::bad_alloc();
    void* room = std::malloc(size == 0 ? 1 : size);
    if (room == nullptr)
        throw std::bad_alloc();
    return room;
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return operator new(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
// NOLINTEND(misc-definitions-in-headers, cppcoreguidelines-no-malloc)
