#pragma once

#include <cstddef>

/// Memory that is counted and can be made to run out: CountedMemory.cpp replaces the operators new
/// and delete of the test executable that it is compiled into, and of the libraries that it loads.
/// Functions, since a compiler takes it that operator new changes no variable. One thread.
namespace k4test {

/// How many times memory was taken so far.
std::size_t Allocations();
/// Makes an allocation fail. @param number which one from now on, 1 being the next; 0: none.
void FailAllocation(std::size_t number);
/// How many allocations there are still to be until the one that fails; 0: none will.
std::size_t AllocationsUntilFailure();

}  // namespace k4test
