// The kept text of this run as files in the user's state folder, and those that other runs left.
#pragma once

#include "host/Complaint.h"
#include "host/KeptFile.h"
#include "host/StateFolder.h"
#include "host/Worker.h"
#include "platform/KeptState.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velorin::host {

/// A run has one file, RUN.score, and a lock, RUN.lock, that ends with its process. A text is
/// written aside as RUN.NUMBER.part before `keep` returns; a thread then waits for the disk and
/// renames it:
///
///     keep        part 7 written ---------> returns
///     thread                      fsync ...... rename to RUN.score, parts before 7 go
///
/// So the process may end at any moment: the latest whole text is in RUN.score or in a part. An end
/// in order removes the lock, which tells the next run how this one ended.
class KeptFolder final : public platform::KeptState {
public:
    /// Nothing is made in the folder before the first text is kept. With an empty path nothing is
    /// ever kept. `notices`, which outlives this, may be null.
    explicit KeptFolder(std::filesystem::path folder, platform::Notices* notices = nullptr);
    /// Waits until what is kept is on the disk; with nothing kept, no file of the run stays.
    ~KeptFolder() override;
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

    void keep(const std::string& text) override;
    void forget() override;
    std::vector<platform::RecoveredText> recoverInto(const std::string& folder) override;

    /// The files that stay of recovered texts.
    static constexpr std::size_t mostRecovered = 20;

private:
    [[nodiscard]] bool isReady();
    [[nodiscard]] std::filesystem::path mainFile() const;
    [[nodiscard]] std::filesystem::path partFile(std::uint64_t number) const;
    void settle(std::uint64_t number, const Descriptor& part);
    void removeParts(std::uint64_t before);
    [[nodiscard]] std::optional<platform::RecoveredText>
    recover(const std::string& run, const std::filesystem::path& target);

    std::filesystem::path folder_;
    std::string run_;
    Descriptor lock_;
    Complaint cannotKeep_;
    Complaint cannotRecover_;

    std::mutex mutex_; ///< guards what follows, and every renaming and removing
    std::uint64_t latest_ = 0;
    bool isKept_ = false;
    std::set<std::uint64_t> parts_; ///< numbers of the part files that are there

    Worker worker_; ///< last, so that it ends first
};

} // namespace velorin::host
