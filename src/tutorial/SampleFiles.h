// The sample files of the tutorial: they exist while the program runs.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace velorin {

struct Studio;

class SampleFiles {
public:
    explicit SampleFiles(Studio& studio) : studio_(studio) {}

    // As in studio/FileHelpers.h.
    [[nodiscard]] bool FileExists(const std::string& name);
    void p_DestroyFile(const std::string& name);

    /// Makes the folder "media" and writes every sample file that is missing. A file that cannot be
    /// written is skipped.
    void ExtractSamples();

    /// Overwrites the file from its first byte on; it is not made shorter.
    void WriteResourceFile(const std::string& name, std::span<const unsigned char> bytes);

    /// Deletes every sample file that exists and waits 0.2 seconds after each.
    void RemoveSamples();

    /// A name such as "101.sng" in the folder "media".
    [[nodiscard]] std::string fullName(const std::string& name) const;

    /// The names of all sample files without the folder, in the order of making and removing them.
    [[nodiscard]] std::vector<std::string> sampleNames() const;

private:
    Studio& studio_;
};

} // namespace velorin
