// What all fuzzers share: a condition that ends the run if it is false.
#pragma once

#include <cstdlib>

inline void expect(bool holds) {
    if (!holds)
        std::abort();
}
