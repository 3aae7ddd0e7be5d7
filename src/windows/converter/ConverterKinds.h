// What the converter can make of a file, with its words.
#pragma once

#include "convert/Options.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

namespace velorin {

struct ConverterKind {
    const char* words;   ///< an entry of the list "Make"
    const char* setting; ///< the value of the setting
    const char* ending;  ///< ".mp3"
    convert::Kind kind;
};

/// In the order of the list, the default first.
[[nodiscard]] std::span<const ConverterKind> converterKinds();

/// The place of a setting's value in `converterKinds`; 0 for an unknown one.
[[nodiscard]] std::size_t kindOfSetting(const std::string& setting);

/// Why a file cannot become that kind, as a sentence; empty if it can. MIDI files can become
/// everything by way of a score.
[[nodiscard]] std::string whyNotMade(const std::filesystem::path& source, convert::Kind kind);

} // namespace velorin
