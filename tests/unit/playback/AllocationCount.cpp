// Replaces `operator new` and `operator delete` by ones that count.
#include "AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Global, since an operator belongs to no object.
std::atomic<long> allocations{0};

} // namespace

namespace velorin {

long allocationCount() {
    return allocations;
}

} // namespace velorin

void* operator new(std::size_t size) {
    ++allocations;
    if (void* place = std::malloc(size == 0 ? 1 : size))
        return place;
    throw std::bad_alloc();
}

void operator delete(void* place) noexcept {
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}
