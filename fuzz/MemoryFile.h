// A file in memory only, for readers that take a path.
#pragma once

#include "Expect.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <string>

class MemoryFile {
public:
    MemoryFile(const unsigned char* data, std::size_t size) : handle_(memfd_create("fuzz", 0)) {
        expect(handle_ >= 0 && write(handle_, data, size) == static_cast<ssize_t>(size));
    }
    ~MemoryFile() { close(handle_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(handle_); }

private:
    int handle_;
};
