// Converts one file.
#include "windows/converter/FileWork.h"

#include "convert/MidiImport.h"
#include "convert/OutputFile.h"
#include "convert/PlaySetup.h"
#include "convert/ScorePicture.h"
#include "model/ScoreWriter.h"
#include "windows/converter/ConverterKinds.h"

#include <array>
#include <fstream>
#include <utility>

namespace velorin {

namespace fs = std::filesystem;
using platform::Failure;
using Result = ConversionJobs::Result;

namespace {

constexpr int longestMinutes = 1440;
constexpr int fewestLines = 26; ///< of the oldest scores
constexpr int scoreLines = 37;

bool beginsWithNumber(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    const int first = in.get();
    return (first >= '0' && first <= '9') || first == '-';
}

/// CR LF, CR and LF each end a line; the last line needs none.
int linesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::array<char, 1U << 16U> piece{};
    int lines = 0;
    char last = '\n';
    while (in.read(piece.data(), piece.size()), in.gcount() > 0) {
        for (std::streamsize i = 0; i < in.gcount(); ++i) {
            const char now = piece[static_cast<std::size_t>(i)];
            if (now == '\r' || (now == '\n' && last != '\r'))
                ++lines;
            last = now;
        }
    }
    return last == '\n' || last == '\r' ? lines : lines + 1;
}

/// The reason of a conversion as a sentence: files without their folders, and the source as "The
/// file".
std::string sentenceOf(std::string reason, const fs::path& source, const fs::path& folder) {
    const std::string begin = source.string() + " ";
    if (reason.starts_with(begin))
        reason.replace(0, begin.size(), "The file ");
    const std::string place = folder.string() + "/";
    if (reason.starts_with(place))
        reason.erase(0, place.size());
    if (!reason.ends_with('.'))
        reason += '.';
    return reason;
}

class FileConversion {
public:
    FileConversion(const FileOrder& order, Workshop& workshop, FileResult& result,
                   const convert::ConversionCallbacks& callbacks)
        : order_(order),
          kind_(converterKinds()[order.kind]),
          workshop_(workshop),
          result_(result),
          callbacks_(callbacks) {
        options_.maxMinutes = longestMinutes;
    }

    Result run() {
        Result done = make();
        if (done && isStopped())
            done = Failure{"was interrupted"};
        std::error_code failed;
        for (const fs::path& file : done ? std::vector<fs::path>() : result_.made)
            fs::remove(file, failed);
        for (const fs::path& file : result_.made)
            workshop_.release(file);
        if (!done) {
            result_.made.clear();
            return Failure{sentenceOf(done.reason(), order_.source, order_.folder)};
        }
        for (const fs::path& file : result_.made)
            result_.bytes += static_cast<double>(fs::file_size(file, failed));
        return {};
    }

private:
    [[nodiscard]] bool isStopped() const {
        return callbacks_.isStopRequested && callbacks_.isStopRequested();
    }

    Result make() {
        if (std::string why = whyNotMade(order_.source, kind_.kind); !why.empty())
            return Failure{std::move(why)};
        const auto source = convert::sourceKindOf(order_.source);
        const bool isSound = kind_.kind != convert::Kind::mid && kind_.kind != convert::Kind::png &&
                             kind_.kind != convert::Kind::sng;
        if (isSound && source != convert::Kind::wav) {
            options_.soundFont = workshop_.soundFont();
            if (options_.soundFont.empty())
                return Failure{"There is no SoundFont to play the song with."};
        }
        convert::makeFolders(order_.folder);
        host::removeAbandonedTempFiles(order_.folder);
        if (source == convert::Kind::mid)
            return makeFromMidi();
        if (source == convert::Kind::sng)
            if (auto whole = checkScore(); !whole)
                return whole;
        return makeOne({order_.source.string(), {}, kind_.kind}, {0.0, 1.0});
    }

    // The reader takes a score of any length. A score that ends among its notes is damaged.
    Result checkScore() const {
        std::error_code failed;
        if (!fs::is_regular_file(order_.source, failed))
            return Failure{"The file is not there any more."};
        if (!beginsWithNumber(order_.source))
            return {}; // the conversion says what is wrong
        const int lines = linesOf(order_.source);
        if (lines == 0 || lines >= fewestLines)
            return {};
        return Failure{"The file ends in line " + std::to_string(lines) + "; a score has " +
                       std::to_string(scoreLines) + " lines."};
    }

    Result makeFromMidi() {
        auto import = convert::readImport(order_.source.string(), longestMinutes);
        if (!import)
            return import.failure();
        const auto pieces = static_cast<double>(import->pieces.size());
        const std::string name = order_.source.stem().string() + ".sng";
        for (std::size_t i = 0; i < import->pieces.size(); ++i) {
            const importing::Piece& piece = import->pieces[i];
            convert::Task task{name, {}, kind_.kind};
            task.text = exactText(piece.score);
            auto setup = std::make_shared<convert::PlaySetup>();
            for (int row = 0; row < scoreRows; ++row)
                if (RowOptions::hasVolume(row))
                    setup->rows.rows[row].volume = std::to_string(piece.volumes[row]);
            task.setup = std::move(setup);
            const auto part = static_cast<double>(i);
            if (auto made = makeOne(std::move(task), {part / pieces, (part + 1.0) / pieces}); !made)
                return made;
        }
        result_.report = importReport(*import, kind_.kind == convert::Kind::sng);
        return {};
    }

    struct Shares {
        double from; ///< of the whole work, done before this file
        double to;
    };

    Result makeOne(convert::Task task, Shares shares) {
        if (isStopped())
            return Failure{"was interrupted"};
        const fs::path target =
            workshop_.reserve(order_.folder, order_.source.stem().string(), kind_.ending);
        task.target = target;
        task.existing = convert::Existing::kept;
        convert::ConversionCallbacks callbacks = callbacks_;
        callbacks.encodesAside = order_.isAlone;
        callbacks.drawPicture = velorinPngOf;
        callbacks.progress = [this, shares](double share) {
            if (callbacks_.progress)
                callbacks_.progress(shares.from + share * (shares.to - shares.from));
        };
        const double before = seconds_;
        callbacks.length = [this, before](double seconds) {
            seconds_ = before + seconds;
            result_.seconds = seconds_;
        };
        Result made = convert::convert(task, options_, callbacks);
        if (made)
            result_.made.push_back(target);
        else
            workshop_.release(target);
        return made;
    }

    const FileOrder& order_;
    const ConverterKind& kind_;
    Workshop& workshop_;
    FileResult& result_;
    const convert::ConversionCallbacks& callbacks_;
    convert::Options options_;
    double seconds_ = 0.0;
};

} // namespace

ConversionJobs::Work fileWork(const FileOrder& order, std::shared_ptr<Workshop> workshop,
                              std::shared_ptr<FileResult> result) {
    return [order, workshop = std::move(workshop),
            result = std::move(result)](const convert::ConversionCallbacks& callbacks) {
        return FileConversion(order, *workshop, *result, callbacks).run();
    };
}

} // namespace velorin
