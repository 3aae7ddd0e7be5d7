// The sample files that the tutorial puts beside the program for the length of a run, and the small
// file helpers that go with them.
#pragma once

#include <string>
#include <vector>

namespace velorin {

class StopWatch;
struct Studio;

class SampleFiles {
public:
    SampleFiles(Studio& studio, StopWatch& watch) : studio_(studio), watch_(watch) {}

    /// True if the file can be opened for input.
    [[nodiscard]] bool FileExists(const std::string& name);

    /// Opens the file for writing, closes it, deletes it, and waits 0.2 seconds.
    void p_DestroyFile(const std::string& name);

    /// Destroys every sample file that is there, each with its wait.
    void RemoveSamples();

    /// The full names of all sample files, in the order in which they are made and removed.
    [[nodiscard]] std::vector<std::string> sampleNames() const;

private:
    Studio& studio_;
    StopWatch& watch_;
    int timer_ = 0; ///< stopwatch number, got at the first wait
};

} // namespace velorin
