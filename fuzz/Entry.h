#pragma once

#include <cstddef>
#include <cstdint>

// What libFuzzer calls, and the replay program in its place.
extern "C" {
int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}
