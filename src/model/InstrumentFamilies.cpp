// The families of the instruments and of the percussion sounds.
#include "model/InstrumentFamilies.h"

#include "model/InstrumentNames.h"

#include <array>

namespace velorin {

namespace {

constexpr int programsOfAFamily = 8;

constexpr std::array<std::string_view, 16> families{
    "Piano",         "Chromatic percussion",
    "Organ",         "Guitar",
    "Bass",          "Strings",
    "Ensemble",      "Brass",
    "Reed",          "Pipe",
    "Synth lead",    "Synth pad",
    "Synth effects", "Ethnic",
    "Percussive",    "Sound effects",
};

constexpr std::string_view drums = "Drums";
constexpr std::string_view cymbals = "Cymbals";
constexpr std::string_view hands = "Hand drums";
constexpr std::string_view shakers = "Shakers and blocks";
constexpr std::string_view others = "Others";

/// In the order of `percussionNames`.
constexpr std::array<std::string_view, 47> percussion{
    drums,   // Acoustic Bass Drum
    drums,   // Bass Drum 1
    drums,   // Side Stick
    drums,   // Acoustic Snare
    others,  // Hand Clap
    drums,   // Electric Snare
    drums,   // Low Floor Tom
    cymbals, // Closed Hi-Hat
    drums,   // High Floor Tom
    cymbals, // Pedal Hi-Hat
    drums,   // Low Tom
    cymbals, // Open Hi-Hat
    drums,   // Low-Mid Tom
    drums,   // Hi-Mid Tom
    cymbals, // Crash Cymbal 1
    drums,   // High Tom
    cymbals, // Ride Cymbal 1
    cymbals, // Chinese Cymbal
    cymbals, // Ride Bell
    shakers, // Tambourine
    cymbals, // Splash Cymbal
    shakers, // Cowbell
    cymbals, // Crash Cymbal 2
    shakers, // Vibraslap
    cymbals, // Ride Cymbal 2
    hands,   // Hi Bongo
    hands,   // Low Bongo
    hands,   // Mute Hi Conga
    hands,   // Open Hi Conga
    hands,   // Low Conga
    hands,   // High Timbale
    hands,   // Low Timbale
    shakers, // High Agogo
    shakers, // Low Agogo
    shakers, // Cabasa
    shakers, // Maracas
    others,  // Short Whistle
    others,  // Long Whistle
    shakers, // Short Guiro
    shakers, // Long Guiro
    shakers, // Claves
    shakers, // Hi Wood Block
    shakers, // Low Wood Block
    hands,   // Mute Cuica
    hands,   // Open Cuica
    others,  // Mute Triangle
    others,  // Open Triangle
};

bool isIndex(int index, std::size_t size) {
    return index >= 0 && static_cast<std::size_t>(index) < size;
}

} // namespace

std::string_view instrumentFamily(int index) {
    return isIndex(index, instrumentNames.size())
               ? families.at(static_cast<std::size_t>(index / programsOfAFamily))
               : std::string_view();
}

std::string_view percussionFamily(int index) {
    return isIndex(index, percussion.size()) ? percussion.at(static_cast<std::size_t>(index))
                                             : std::string_view();
}

} // namespace velorin
