// The sample files that the tutorial puts beside the program for the length of a run.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace velorin {

struct Studio;

class SampleFiles {
public:
    explicit SampleFiles(Studio& studio) : studio_(studio) {}

    // As in score/FileHelpers.h.
    [[nodiscard]] bool FileExists(const std::string& name);
    void p_DestroyFile(const std::string& name);

    /// Makes the folder "media" and writes every sample file that is not there. A number that
    /// nothing is stored under, 204 and 205, makes no file; a file that cannot be written is
    /// skipped.
    void ExtractSamples();

    /// Writes the bytes from the beginning of the file on.
    void WriteResourceFile(const std::string& name, std::span<const unsigned char> bytes);

    /// Destroys every sample file that is there, each with its wait.
    void RemoveSamples();

    /// A name such as "101.sng" in the folder "media".
    [[nodiscard]] std::string fullName(const std::string& name) const;

    /// The names of all sample files without the folder, in the order in which they are made and
    /// removed.
    [[nodiscard]] std::vector<std::string> sampleNames() const;

private:
    Studio& studio_;
};

} // namespace velorin
