#include "tests/support/CountedMemory.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_allocations = 0;
std::size_t g_failAt = 0;

void* Counted(std::size_t size) {
    ++g_allocations;
    if (g_failAt && --g_failAt == 0)
        throw std::bad_alloc();
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

}  // namespace

namespace k4test {

std::size_t Allocations() {
    return g_allocations;
}
void FailAllocation(std::size_t number) {
    g_failAt = number;
}
std::size_t AllocationsUntilFailure() {
    return g_failAt;
}

}  // namespace k4test

void* operator new(std::size_t size) {
    return Counted(size);
}
void* operator new[](std::size_t size) {
    return Counted(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
