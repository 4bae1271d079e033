// The functions of the catalog library that build and free objects, with the answers that a test wants. They
// replace the real ones at link time.
#pragma once

#include <cstdint>

namespace zantlog::test {

struct StubbornCatalog {
    int32_t buildResult = 0; // a failure leaves an object that must not be touched
    int32_t freeResult = 0;
    int frees = 0; // of objects that hold something
};

// Of this process; assign a fresh one to begin a test.
extern StubbornCatalog catalog;

} // namespace zantlog::test
