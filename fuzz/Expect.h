// What every fuzzer shares: a demand that ends the run when it does not hold.
#pragma once

#include <cstdlib>

inline void expect(bool holds) {
    if (!holds)
        std::abort();
}
