// The files of the converter's window, and the conversions that run through them.
#pragma once

#include "windows/converter/FileWork.h"
#include "windows/making/ConversionJobs.h"
#include "windows/making/TimeLeft.h"

#include <QAbstractListModel>
#include <QString>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace velorin {

/// Between the parts of a line of words.
constexpr char betweenParts[] = "  \u00b7  ";

/// stopped: the user has taken it out while it was at work.
enum class FileState { waiting, working, done, failed, stopped };

struct QueuedFile {
    int id = 0; ///< from 1, never used again
    std::filesystem::path source;
    FileState state = FileState::waiting;
    double share = 0.0; ///< [0, 1], while at work
    std::string words;  ///< the second line of the row: a sentence, or what was made
    std::shared_ptr<FileResult> result; ///< null until the first start
    int job = 0;                        ///< 0 unless at work
    bool isStopping = false;            ///< its thread has been asked to stop
    bool isInRun = false;               ///< counts in the total of the current run
};

/// What a run comes to. `all` is 0 before the first one.
struct QueueTotal {
    int all = 0;
    int made = 0;
    int failed = 0;
    double share = 0.0; ///< [0, 1]; every file counts the same
    std::optional<int> secondsLeft;
};

/// The model of the list. As many files as the machine has cores are at work at once; pictures one
/// at a time, since a large one takes much memory. User-interface thread only.
class FileQueue : public QAbstractListModel {
    Q_OBJECT

public:
    explicit FileQueue(std::filesystem::path programFolder, QObject* parent = nullptr);

    /// What is made where. `folder` is empty for the folder of each file.
    struct Order {
        std::size_t kind = 0;
        std::filesystem::path folder;
    };

    /// Adds files that are not in the list yet, and returns how many. During a run they join it.
    int add(const std::vector<std::filesystem::path>& files);
    /// Takes all out. Only between runs.
    void clear();
    /// A file that waits or is over leaves the list. One at work is stopped and stays.
    void takeOut(int row);
    /// All files wait again: what to make has changed. Only between runs.
    void makeAllWait();

    /// Converts all files that wait, have failed or were stopped.
    void start(const Order& order);
    /// Stops what is at work, and starts no more. The files wait again.
    void cancel();

    [[nodiscard]] bool isWorking() const { return isRunning_; }
    [[nodiscard]] bool canStart() const;
    [[nodiscard]] QueueTotal total() const;
    [[nodiscard]] const QueuedFile* file(int row) const; ///< null outside the list
    [[nodiscard]] int rowOf(int id) const;               ///< -1 if it is gone

    std::function<void()> onChanged; ///< a row, or the total
    std::function<void()> onEnded;   ///< a run is over

    // The second line and the right part of a row.
    [[nodiscard]] static std::string words(const QueuedFile& file);
    [[nodiscard]] static std::string resultName(const QueuedFile& file);
    /// What a screen reader says.
    [[nodiscard]] static std::string spoken(const QueuedFile& file);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void startMore();
    void startOne(QueuedFile& file, bool isAlone);
    void progressed(int id, double share);
    void finished(int id, const ConversionJobs::Result& result);
    void describeMade(QueuedFile& file) const;
    void endIfOver();
    void changed(int row);
    [[nodiscard]] std::size_t mostAtOnce() const;

    std::vector<QueuedFile> files_;
    std::unordered_set<std::string> paths_; ///< of the sources
    Order order_;
    std::shared_ptr<Workshop> workshop_;
    TimeLeft timeLeft_;
    bool isRunning_ = false;
    bool isCancelled_ = false;
    int lastId_ = 0;
    ConversionJobs jobs_; ///< last: its threads end first
};

} // namespace velorin
