// Adds, takes out and converts files.
#include "windows/converter/FileQueue.h"

#include "convert/page/PageText.h"
#include "host/process/SystemClock.h"
#include "windows/converter/ConverterKinds.h"
#include "windows/making/MadeFile.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <thread>
#include <utility>

namespace velorin {

namespace fs = std::filesystem;

namespace {

bool isOver(const QueuedFile& file) {
    return file.state != FileState::waiting && file.state != FileState::working;
}

std::string countedSeconds(double seconds) {
    const long whole = std::max(std::lround(seconds), 1L);
    return std::to_string(whole) + (whole == 1 ? " second" : " seconds");
}

} // namespace

FileQueue::FileQueue(fs::path programFolder, QObject* parent)
    : QAbstractListModel(parent), workshop_(std::make_shared<Workshop>(std::move(programFolder))) {}

int FileQueue::add(const std::vector<fs::path>& files) {
    std::vector<QueuedFile> added;
    for (const fs::path& file : files) {
        std::error_code failed;
        const fs::path whole = fs::absolute(file, failed).lexically_normal();
        if (failed || !paths_.insert(whole.string()).second)
            continue;
        QueuedFile next;
        next.id = ++lastId_;
        next.source = whole;
        next.isInRun = isRunning_ && !isCancelled_;
        added.push_back(std::move(next));
    }
    if (added.empty())
        return 0;
    const auto first = static_cast<int>(files_.size());
    const auto count = static_cast<int>(added.size());
    beginInsertRows({}, first, first + count - 1);
    std::move(added.begin(), added.end(), std::back_inserter(files_));
    endInsertRows();
    if (isRunning_)
        startMore();
    if (onChanged)
        onChanged();
    return count;
}

void FileQueue::clear() {
    if (isRunning_)
        return;
    beginResetModel();
    files_.clear();
    paths_.clear();
    endResetModel();
    if (onChanged)
        onChanged();
}

void FileQueue::takeOut(int row) {
    if (file(row) == nullptr)
        return;
    QueuedFile& taken = files_[static_cast<std::size_t>(row)];
    if (taken.state == FileState::working) {
        taken.isStopping = true;
        jobs_.stop(taken.job);
        return changed(row);
    }
    paths_.erase(taken.source.string());
    beginRemoveRows({}, row, row);
    files_.erase(files_.begin() + row);
    endRemoveRows();
    endIfOver();
    if (onChanged)
        onChanged();
}

void FileQueue::makeAllWait() {
    if (isRunning_)
        return;
    for (QueuedFile& one : files_) {
        one.state = FileState::waiting;
        one.isInRun = false;
        one.result.reset();
    }
    if (!files_.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    if (onChanged)
        onChanged();
}

bool FileQueue::canStart() const {
    return !isRunning_ && std::any_of(files_.begin(), files_.end(), [](const QueuedFile& one) {
        return one.state != FileState::done;
    });
}

void FileQueue::start(const Order& order) {
    if (!canStart())
        return;
    order_ = order;
    isRunning_ = true;
    isCancelled_ = false;
    for (QueuedFile& one : files_) {
        one.isInRun = one.state != FileState::done;
        if (one.isInRun)
            one.state = FileState::waiting;
    }
    timeLeft_.start(host::steadyNs());
    startMore();
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    if (onChanged)
        onChanged();
}

std::size_t FileQueue::mostAtOnce() const {
    if (converterKinds()[order_.kind].kind == convert::Kind::png)
        return 1;
    return std::max(std::thread::hardware_concurrency(), 1U);
}

void FileQueue::startMore() {
    if (isCancelled_)
        return;
    auto atWork =
        static_cast<std::size_t>(std::count_if(files_.begin(), files_.end(), [](const auto& one) {
            return one.state == FileState::working;
        }));
    const auto waiting = std::count_if(files_.begin(), files_.end(), [](const QueuedFile& one) {
        return one.state == FileState::waiting;
    });
    const bool isAlone = atWork == 0 && waiting == 1;
    for (QueuedFile& one : files_) {
        if (atWork >= mostAtOnce())
            return;
        if (one.state != FileState::waiting)
            continue;
        startOne(one, isAlone);
        ++atWork;
    }
}

void FileQueue::startOne(QueuedFile& file, bool isAlone) {
    const fs::path folder = order_.folder.empty() ? file.source.parent_path() : order_.folder;
    file.state = FileState::working;
    file.share = 0.0;
    file.isStopping = false;
    file.isInRun = true;
    file.result = std::make_shared<FileResult>();
    file.result->startedNs = host::steadyNs();
    file.job = jobs_.start(
        fileWork({file.source, folder, order_.kind, isAlone}, workshop_, file.result),
        {[this, id = file.id](double share) { progressed(id, share); },
         [this, id = file.id](const ConversionJobs::Result& result) { finished(id, result); }});
    changed(rowOf(file.id));
}

void FileQueue::progressed(int id, double share) {
    const int row = rowOf(id);
    if (row < 0)
        return;
    files_[static_cast<std::size_t>(row)].share = share;
    changed(row);
}

void FileQueue::finished(int id, const ConversionJobs::Result& result) {
    const int row = rowOf(id);
    if (row < 0)
        return;
    QueuedFile& ended = files_[static_cast<std::size_t>(row)];
    ended.job = 0;
    if (result) {
        ended.state = FileState::done;
        describeMade(ended);
    } else if (isCancelled_) {
        ended.state = FileState::waiting;
    } else if (ended.isStopping) {
        ended.state = FileState::stopped;
        ended.words = "stopped; nothing was left behind";
    } else {
        ended.state = FileState::failed;
        ended.words = result.reason();
    }
    startMore();
    endIfOver();
    changed(row);
}

void FileQueue::describeMade(QueuedFile& file) const {
    const FileResult& made = *file.result;
    if (convert::sourceKindOf(file.source) == convert::Kind::mid) {
        const bool isScore = converterKinds()[order_.kind].kind == convert::Kind::sng;
        file.words =
            isScore ? "MIDI file, read into a score" : "MIDI file, read into a score first";
        return;
    }
    const double took = static_cast<double>(host::steadyNs() - made.startedNs) / 1e9;
    file.words =
        made.seconds > 0.0 ? convert::clockText(made.seconds) + betweenParts : std::string();
    file.words += sizeText(made.bytes) + ", " + countedSeconds(took);
}

void FileQueue::endIfOver() {
    if (!isRunning_)
        return;
    for (const QueuedFile& one : files_)
        if (one.state == FileState::working || (one.state == FileState::waiting && !isCancelled_))
            return;
    isRunning_ = false;
    if (onEnded)
        onEnded();
}

void FileQueue::cancel() {
    if (!isRunning_ || isCancelled_)
        return;
    isCancelled_ = true;
    for (QueuedFile& one : files_) {
        one.isStopping = one.state == FileState::working;
        if (one.isStopping)
            jobs_.stop(one.job);
    }
    endIfOver();
    if (onChanged)
        onChanged();
}

void FileQueue::changed(int row) {
    Q_EMIT dataChanged(index(row), index(row));
    if (onChanged)
        onChanged();
}

QueueTotal FileQueue::total() const {
    QueueTotal total;
    double done = 0.0;
    for (const QueuedFile& one : files_) {
        if (!one.isInRun)
            continue;
        ++total.all;
        total.made += one.state == FileState::done ? 1 : 0;
        total.failed += one.state == FileState::failed ? 1 : 0;
        done += isOver(one) ? 1.0 : one.state == FileState::working ? one.share : 0.0;
    }
    total.share = total.all > 0 ? done / total.all : 0.0;
    if (isRunning_)
        total.secondsLeft = timeLeft_.seconds(total.share, host::steadyNs());
    return total;
}

const QueuedFile* FileQueue::file(int row) const {
    return row >= 0 && row < rowCount() ? &files_[static_cast<std::size_t>(row)] : nullptr;
}

int FileQueue::rowOf(int id) const {
    const auto found = std::find_if(files_.begin(), files_.end(),
                                    [id](const QueuedFile& one) { return one.id == id; });
    return found != files_.end() ? static_cast<int>(found - files_.begin()) : -1;
}

std::string FileQueue::words(const QueuedFile& file) {
    if (file.state == FileState::waiting)
        return "waiting";
    if (file.state != FileState::working)
        return file.words;
    if (file.isStopping)
        return "stopping";
    const double seconds = file.result->seconds;
    if (seconds <= 0.0)
        return "at work";
    return convert::clockText(file.share * seconds) + " of " + convert::clockText(seconds);
}

std::string FileQueue::resultName(const QueuedFile& file) {
    if (file.state == FileState::failed)
        return "not made";
    if (file.state != FileState::done || file.result->made.empty())
        return {};
    const auto others = file.result->made.size() - 1;
    std::string name = file.result->made.front().filename().string();
    return others == 0 ? name : name + " and " + std::to_string(others) + " more";
}

std::string FileQueue::spoken(const QueuedFile& file) {
    std::string text = file.source.filename().string() + ", ";
    switch (file.state) {
    case FileState::done:
        text += "done, " + resultName(file) + ", ";
        break;
    case FileState::failed:
        text += "failed, ";
        break;
    case FileState::working:
        text += "at work, " + std::to_string(static_cast<int>(file.share * 100.0)) + " %, ";
        break;
    default:
        break;
    }
    return text + words(file);
}

int FileQueue::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(files_.size());
}

QVariant FileQueue::data(const QModelIndex& index, int role) const {
    const QueuedFile* const shown = index.isValid() ? file(index.row()) : nullptr;
    if (shown == nullptr)
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromStdString(shown->source.filename().string());
    if (role == Qt::AccessibleTextRole)
        return QString::fromStdString(spoken(*shown));
    return {};
}

} // namespace velorin
