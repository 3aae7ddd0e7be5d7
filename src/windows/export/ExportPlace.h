// Where an export goes: the proposed name, the folder as the user reads and types it, and the
// sentence of a failure.
#pragma once

#include "windows/making/MadeFile.h"

#include <filesystem>
#include <string>

namespace velorin {

/// The name of the score in `path` without its folder and ending; "Untitled" if it has none.
[[nodiscard]] std::string proposedExportName(const std::string& path);

/// The folder that the user typed, as `shownFolder` shows it. A relative one is in `home`, also
/// with "~/" before it.
[[nodiscard]] std::filesystem::path typedFolder(const std::string& text,
                                                const std::filesystem::path& home);

/// The file of a name that the user typed. An ending that is there already is not added again.
[[nodiscard]] std::filesystem::path exportTarget(const std::filesystem::path& folder,
                                                 const std::string& name,
                                                 const std::string& ending);

/// What is wrong with the name and the folder, as a sentence; empty if nothing is.
[[nodiscard]] std::string whyNoTarget(const std::string& name, const std::filesystem::path& folder,
                                      const std::filesystem::path& home);

/// The reason of a conversion as a sentence for the window: file names without their folders.
[[nodiscard]] std::string failureSentence(std::string reason, const std::filesystem::path& target);

} // namespace velorin
