// The sample files of the tutorial: they exist while the program runs.
#include "tutorial/SampleFiles.h"

#include "platform/Files.h"
#include "studio/FileHelpers.h"
#include "studio/Studio.h"
#include "tutorial/Samples.h"

#include <ostream>

namespace velorin {

bool SampleFiles::FileExists(const std::string& name) {
    return velorin::FileExists(studio_.platform, name);
}

void SampleFiles::p_DestroyFile(const std::string& name) {
    velorin::p_DestroyFile(studio_.platform, name);
}

void SampleFiles::ExtractSamples() {
    // It may exist. A failure shows when the samples are written.
    (void)studio_.platform.files.createFolder(studio_.platform.programFolder + "\\media");
    for (const std::string& name : sampleNames()) {
        const Sample* sample = findSample(name);
        if (sample != nullptr && !FileExists(fullName(name)))
            WriteResourceFile(fullName(name), sample->bytes);
    }
}

void SampleFiles::WriteResourceFile(const std::string& name, std::span<const unsigned char> bytes) {
    if (const auto file = studio_.platform.files.openForBinary(name))
        file->write(reinterpret_cast<const char*>(bytes.data()),
                    static_cast<std::streamsize>(bytes.size()));
}

void SampleFiles::RemoveSamples() {
    for (const std::string& name : sampleNames())
        if (FileExists(fullName(name)))
            p_DestroyFile(fullName(name));
}

std::string SampleFiles::fullName(const std::string& name) const {
    return studio_.platform.programFolder + "\\media\\" + name;
}

// Rule: the list includes 204 and 205, although nothing is stored under these names. No file is
// made for them. Held by tutorial/samples.
std::vector<std::string> SampleFiles::sampleNames() const {
    std::vector<std::string> names;
    for (const int group : {100, 200})
        for (int number = group + 1; number <= group + 5; ++number)
            names.push_back(std::to_string(number) + ".sng");
    for (const char* name : {"104a.sng", "104b.sng", "301.sng", "333.mid"})
        names.push_back(name);
    return names;
}

} // namespace velorin
