// Chooses the one change of the logic that a process makes, for the mutation run
// (tests/mutations.py).

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

int chosenChange() {
    const char* text = std::getenv("VELORIN_MUTATION");
    return text == nullptr ? 0 : std::atoi(text);
}

// One byte for each change, in a file that all processes of a test share; nullptr if nobody asks.
char* reachedPlaces() {
    const char* path = std::getenv("VELORIN_MUTATION_REACHED");
    if (path == nullptr) {
        return nullptr;
    }
    const int file = open(path, O_RDWR | O_CLOEXEC);
    const off_t size = file < 0 ? 0 : lseek(file, 0, SEEK_END);
    void* bytes = size <= 0 ? MAP_FAILED
                            : mmap(nullptr, static_cast<std::size_t>(size), PROT_READ | PROT_WRITE,
                                   MAP_SHARED, file, 0);
    if (file >= 0) {
        close(file);
    }
    return bytes == MAP_FAILED ? nullptr : static_cast<char*>(bytes);
}

} // namespace

// True if this process makes the change with this number, from 1 on. Any thread.
bool velorinMutation(int number) {
    static const int chosen = chosenChange();
    static char* const reached = reachedPlaces();
    if (reached != nullptr) {
        reached[number] = 1;
    }
    return number == chosen;
}
