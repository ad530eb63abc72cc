#include "allocation_meter.h"

#include <cstdlib>
#include <new>

namespace {

/// In front of each block stands its size; this much room keeps what follows aligned.
constexpr std::size_t kFront = alignof(std::max_align_t);
static_assert(kFront >= sizeof(std::size_t));

std::size_t taken = 0;
std::size_t mostTaken = 0;

void giveBack(void* block) {
    if (block == nullptr)
        return;
    auto* const front = static_cast<std::byte*>(block) - kFront;
    taken -= *static_cast<std::size_t*>(static_cast<void*>(front));
    std::free(front);
}

} // namespace

void* operator new(std::size_t size) {
    void* const front = std::malloc(size + kFront);
    if (front == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(front) = size;
    taken += size;
    mostTaken = taken > mostTaken ? taken : mostTaken;
    return static_cast<std::byte*>(front) + kFront;
}

void operator delete(void* block) noexcept {
    giveBack(block);
}

void operator delete(void* block, std::size_t) noexcept {
    giveBack(block);
}

namespace brovin::character {

AllocationMeter::AllocationMeter() : before_(taken) {
    mostTaken = taken;
}

std::size_t AllocationMeter::current() const {
    return taken - before_;
}

std::size_t AllocationMeter::peak() const {
    return mostTaken - before_;
}

} // namespace brovin::character
