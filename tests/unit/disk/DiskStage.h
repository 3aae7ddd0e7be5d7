// A folder that is recorded while something is written to it, and the promises to check.
#pragma once

#include "DiskRecorder.h"
#include "PowerCut.h"
#include "support/ScriptedFiles.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velorin::disk {

/// The mark for a file that the program has reported as written.
constexpr char saved[] = "saved";

/// A promise about a file: in every state it is the old or the new one, whole; it is the new one
/// once the program has said so.
struct Promise {
    std::string name;
    std::optional<std::string> before; ///< no value: there was no such file
    std::string after;
    std::string mark = saved;
};

/// How the promise is broken; empty if it is kept.
[[nodiscard]] std::string broken(const DiskState& state, const Promise& promise);

/// Names a visible file that is not in `known`: a partial file that the user would see. Hidden
/// files and those that end in one of `ownEndings` belong to the program.
[[nodiscard]] std::string strangers(const DiskState& state, const std::vector<std::string>& known,
                                    const std::vector<std::string>& ownEndings = {});

/// The first text that is not empty.
[[nodiscard]] std::string firstOf(const std::vector<std::string>& faults);

class DiskStage {
public:
    [[nodiscard]] const std::filesystem::path& path() const { return folder_.path(); }
    [[nodiscard]] std::string at(const std::string& name) const { return (path() / name).string(); }
    void put(const std::string& name, const std::string& content) const;
    [[nodiscard]] std::string content(const std::string& name) const;
    [[nodiscard]] std::vector<std::string> names() const; ///< of all files, sorted

private:
    scripted::TemporaryFolder folder_;
};

/// Records `writer`, which gets the recorder for its marks. Fails the test if the recorder has
/// missed a call.
[[nodiscard]] DiskLog recorded(const std::filesystem::path& folder,
                               const std::function<void(DiskRecorder&)>& writer);

/// Fails the test for each bad state, and if there are too few states for the test to mean
/// anything. The number of states is printed at the end under `writer`.
void expectNoBadState(const std::string& writer, const DiskLog& log, const Judge& judge);

} // namespace velorin::disk
