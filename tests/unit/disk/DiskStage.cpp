// Checks promises, and prints a table of states at the end.
#include "DiskStage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace velorin::disk {

namespace fs = std::filesystem;

namespace {

/// Prints how many states were checked, by writer, when all tests have run.
class StatesByWriter final : public testing::Environment {
public:
    void add(const std::string& writer, std::size_t states) { rows_.emplace_back(writer, states); }
    void TearDown() override {
        std::size_t all = 0;
        for (const auto& [writer, states] : rows_) {
            std::printf("%8zu states of the disk: %s\n", states, writer.c_str());
            all += states;
        }
        std::printf("%8zu states of the disk in all\n", all);
    }

private:
    std::vector<std::pair<std::string, std::size_t>> rows_;
};

StatesByWriter* const statesByWriter = new StatesByWriter; // the test library deletes it
[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(statesByWriter);

} // namespace

std::string broken(const DiskState& state, const Promise& promise) {
    const auto found = state.files.find(promise.name);
    const bool isThere = found != state.files.end();
    if (isThere && found->second == promise.after)
        return {};
    if (state.said.contains(promise.mark))
        return promise.name + " is not the new one, which the program said it was";
    if (isThere ? promise.before == found->second : !promise.before)
        return {};
    return promise.name + (isThere ? " is neither the old nor the new one" : " is gone");
}

std::string strangers(const DiskState& state, const std::vector<std::string>& known,
                      const std::vector<std::string>& ownEndings) {
    for (const auto& [name, content] : state.files) {
        const bool isHidden = fs::path(name).filename().string().starts_with('.');
        const bool isOwn =
            std::any_of(ownEndings.begin(), ownEndings.end(),
                        [&name = name](const auto& end) { return name.ends_with(end); });
        if (!isHidden && !isOwn && std::find(known.begin(), known.end(), name) == known.end())
            return name + " is left for the user to meet";
    }
    return {};
}

std::string firstOf(const std::vector<std::string>& faults) {
    const auto found = std::find_if(faults.begin(), faults.end(),
                                    [](const std::string& fault) { return !fault.empty(); });
    return found == faults.end() ? std::string() : *found;
}

void DiskStage::put(const std::string& name, const std::string& content) const {
    fs::create_directories((path() / name).parent_path());
    std::ofstream(path() / name, std::ios::binary) << content;
}

std::string DiskStage::content(const std::string& name) const {
    std::ifstream file(path() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> DiskStage::names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(path()))
        if (!entry.is_directory())
            names.push_back(entry.path().lexically_relative(path()).string());
    std::sort(names.begin(), names.end());
    return names;
}

DiskLog recorded(const fs::path& folder, const std::function<void(DiskRecorder&)>& writer) {
    DiskRecorder recorder(folder);
    writer(recorder);
    DiskLog log = recorder.finish();
    EXPECT_EQ(log.missed, std::vector<std::string>());
    return log;
}

void expectNoBadState(const std::string& writer, const DiskLog& log, const Judge& judge) {
    const Survey found = survey(log, judge);
    EXPECT_EQ(found.badStates, 0U) << "of " << found.states << " states";
    for (const std::string& fault : found.faults)
        ADD_FAILURE() << fault;
    EXPECT_GT(found.states, 2U) << "before, after, and at least one in between";
    testing::Test::RecordProperty("disk_states", std::to_string(found.states));
    statesByWriter->add(writer, found.states);
}

} // namespace velorin::disk
