// A folder that is watched while something is written into it, and what the user is promised of it.
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

/// What the program says when a file is written.
constexpr char saved[] = "saved";

/// A file of the user's that is written: the old one or the new one, whole, at every moment, and
/// the new one once the program has said so.
struct Promise {
    std::string name;
    std::optional<std::string> before; ///< none: there was no such file
    std::string after;
    std::string mark = saved;
};

/// Why the promise is broken; empty if it is kept.
[[nodiscard]] std::string broken(const DiskState& state, const Promise& promise);

/// Names a visible file that is not among `known`: something half made that the user meets. Hidden
/// files are the program's own, and so is what ends as one of `ownEndings`.
[[nodiscard]] std::string strangers(const DiskState& state, const std::vector<std::string>& known,
                                    const std::vector<std::string>& ownEndings = {});

/// The first that is not empty.
[[nodiscard]] std::string firstOf(const std::vector<std::string>& faults);

class DiskStage {
public:
    [[nodiscard]] const std::filesystem::path& path() const { return folder_.path(); }
    [[nodiscard]] std::string at(const std::string& name) const { return (path() / name).string(); }
    void put(const std::string& name, const std::string& content) const;
    [[nodiscard]] std::string content(const std::string& name) const;
    [[nodiscard]] std::vector<std::string> names() const; ///< of all files, in order

private:
    scripted::TemporaryFolder folder_;
};

/// Records `writer`, which gets the recorder for its marks. Fails the test if the recorder has
/// missed a call.
[[nodiscard]] DiskLog recorded(const std::filesystem::path& folder,
                               const std::function<void(DiskRecorder&)>& writer);

/// Fails the test for each state that is bad, and if there are too few for the survey to mean
/// anything. The number of states is a property of the test, and is printed at the end under
/// `writer`.
void expectNoBadState(const std::string& writer, const DiskLog& log, const Judge& judge);

} // namespace velorin::disk
