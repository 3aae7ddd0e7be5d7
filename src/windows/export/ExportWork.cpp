// Measures and converts a copy of the score.
#include "windows/export/ExportWork.h"

#include "convert/LoadedScore.h"
#include "convert/OutputFile.h"
#include "convert/PlayedMidi.h"
#include "convert/PlayedMidiFile.h"
#include "convert/ScorePicture.h"
#include "host/synth/SoundFonts.h"
#include "model/MidiExport.h"
#include "model/ScoreWriter.h"
#include "session/Session.h"

#include <algorithm>
#include <cstdlib>

namespace velorin {

namespace fs = std::filesystem;

namespace {

constexpr int longestMinutes = 1440;

/// The score file that the text is given for; there is none.
std::string sourceFor(const fs::path& target) {
    return target.stem().string() + ".sng";
}

fs::path soundFontOf(int device, const fs::path& programFolder) {
    const char* const home = std::getenv("HOME");
    const auto fonts =
        host::findSoundFonts(host::soundFontFolders(programFolder, home != nullptr ? home : ""));
    if (fonts.empty())
        return {};
    const bool isSynth = device >= 0 && static_cast<std::size_t>(device) < fonts.size();
    return fonts[isSynth ? static_cast<std::size_t>(device) : 0].path;
}

ConversionJobs::Result measureSong(const ExportedSong& song, ExportMeasure& measure) {
    convert::KeptMidi midi;
    convert::LoadedScore loaded(midi);
    if (auto opened = loaded.open("score.sng", exactText(song.score), &song.setup); !opened)
        return opened;
    measure.plainMidiBytes = midiFileOf(loaded.studio.score, song.setup.rows).size();
    const convert::PlayedSong played = convert::playToEnd(loaded, midi);
    measure.seconds = static_cast<double>(played.lengthNs) / 1e9;
    measure.columns = loaded.studio.score.LastColumn + 1;
    measure.midiBytes = convert::playedMidiFile(played, "score").size();
    return {};
}

} // namespace

std::shared_ptr<const ExportedSong> songOf(Session& session) {
    auto song = std::make_shared<ExportedSong>();
    song->score = session.studio.score;
    song->setup = convert::setupOf(session);
    song->device = std::max(session.sounding.MidiDeviceIndex, 0);
    return song;
}

ConversionJobs::Work measuringWork(std::shared_ptr<const ExportedSong> song,
                                   std::shared_ptr<ExportMeasure> measure) {
    return [song = std::move(song), measure = std::move(measure)](
               const convert::ConversionCallbacks&) { return measureSong(*song, *measure); };
}

ConversionJobs::Work exportWork(std::shared_ptr<const ExportedSong> song, const ExportOrder& order,
                                const fs::path& programFolder) {
    return [song = std::move(song), order,
            programFolder](const convert::ConversionCallbacks& given) -> ConversionJobs::Result {
        const ExportKind& kind = exportKinds()[order.kind];
        convert::Options options;
        options.maxMinutes = longestMinutes;
        setQuality(options, kind, order.quality);
        if (kind.kind != convert::Kind::mid && kind.kind != convert::Kind::png) {
            options.soundFont = soundFontOf(song->device, programFolder);
            if (options.soundFont.empty())
                return platform::Failure{"There is no SoundFont to play the song with."};
        }
        host::removeAbandonedTempFiles(convert::folderOf(order.target));
        convert::Task task{sourceFor(order.target), order.target, kind.kind};
        task.text = exactText(song->score);
        task.setup = std::make_shared<convert::PlaySetup>(song->setup);
        convert::ConversionCallbacks callbacks = given;
        callbacks.drawPicture = velorinPngOf;
        return convert::convert(task, options, callbacks);
    };
}

} // namespace velorin
