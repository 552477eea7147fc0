#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "support/live_frame.h"
#include "support/machine.h"

namespace {

// Allocations that have not been freed, of the whole test program.
long long living = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++living;
    return memory;
}
void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    --living;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace program {

TEST(Memory, DoesNotGrowWithTheFramesOfALongDrive) {
    constexpr int Settling = 2000;
    constexpr int Frames = 20000;  // half an hour of the fastest stream; the benchmark drives a million
    support::Machine m;
    m.Start();
    m.BecomeReady();
    support::LiveFrame frame;
    const auto drive = [&](int frames) {
        for (int i = 0; i < frames; ++i) {
            frame.giri = std::to_string(1000 + i % 5000);
            frame.digit1 = static_cast<char>('0' + i / 50 % 4);
            frame.digit3 = static_cast<char>('0' + i / 70 % 7);
            m.Take(i % 97 == 0 ? frames::Frame("Dbad") : i % 2 == 0 ? frame.Long() : frame.Short());
        }
    };
    drive(Settling);
    const long long before = living;
    drive(Frames);
    EXPECT_LE(living, before + 8);
}

}  // namespace program
