// Enumerates the states of the disk: what is certain, and each combination of what is not.
#include "PowerCut.h"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace velorin::disk {

namespace {

using Kind = Operation::Kind;

constexpr std::size_t mostSelected = 6;     ///< writes for which each subset is tried
constexpr std::size_t mostNames = 14;       ///< changes of names after a sync
constexpr std::size_t mostStates = 2000000; ///< far above what a test may take
constexpr std::size_t mostFaults = 3;

struct Names {
    std::map<std::string, int> files;
    std::set<std::string> folders;

    bool operator<(const Names& other) const {
        return std::tie(files, folders) < std::tie(other.files, other.folders);
    }
};

// If an earlier change is missing, a change may find another file under its name; it leaves that
// one alone.
void change(Names& names, const Operation& operation) {
    const auto drop = [&](const std::string& name) {
        const auto found = names.files.find(name);
        if (found != names.files.end() && found->second == operation.file)
            names.files.erase(found);
    };
    switch (operation.kind) {
    case Kind::make:
    case Kind::link:
        names.files[operation.name] = operation.file;
        break;
    case Kind::rename:
        drop(operation.name);
        names.files[operation.newName] = operation.file;
        break;
    case Kind::remove:
        drop(operation.name);
        if (operation.file < 0)
            names.folders.erase(operation.name);
        break;
    case Kind::makeFolder:
        names.folders.insert(operation.name);
        break;
    default:
        break;
    }
}

bool isReachable(const Names& names, const std::string& name) {
    for (std::string folder = folderOf(name); !folder.empty(); folder = folderOf(folder))
        if (!names.folders.contains(folder))
            return false;
    return true;
}

/// The bytes of a file that are certainly on the disk, and the operations since.
struct Bytes {
    std::string sure;
    std::vector<const Operation*> since;

    [[nodiscard]] std::string all() const {
        std::string content = sure;
        for (const Operation* operation : since)
            disk::change(content, *operation);
        return content;
    }
};

std::set<std::string> possible(const Bytes& bytes) {
    std::set<std::string> found;
    const std::size_t size = bytes.all().size();
    std::string content = bytes.sure;
    for (std::size_t done = 0;; ++done) {
        found.insert(content);
        if (content.size() < size)
            found.insert(content + std::string(size - content.size(), '\0'));
        if (done == bytes.since.size())
            break;
        const Operation& next = *bytes.since[done];
        if (next.kind == Kind::write) {
            Operation half = next;
            half.bytes.resize(half.bytes.size() / 2);
            std::string torn = content;
            disk::change(torn, half);
            found.insert(torn);
        }
        disk::change(content, next);
    }
    const std::size_t count = bytes.since.size();
    const bool isSmall = count <= mostSelected;
    const std::size_t selections = isSmall ? std::size_t(1) << count : count;
    for (std::size_t selection = 0; selection < selections; ++selection) {
        content = bytes.sure;
        for (std::size_t i = 0; i < count; ++i)
            if (isSmall ? (selection >> i & 1U) != 0 : i != selection)
                disk::change(content, *bytes.since[i]);
        found.insert(content);
    }
    return found;
}

/// One of the possible contents of a file, with a number that identifies it.
struct Form {
    std::string content;
    std::size_t number = 0;
};

class Cuts {
public:
    Cuts(const DiskLog& log, const Judge& judge) : log_(log), judge_(judge) {
        names_.files = log.names;
        names_.folders = log.folders;
        bytes_.resize(log.contents.size());
        for (std::size_t file = 0; file < log.contents.size(); ++file)
            bytes_[file].sure = log.contents[file];
    }

    Survey run() {
        cutHere();
        for (const Operation& operation : log_.operations) {
            ++done_;
            take(operation);
            if (!isInLongRun())
                cutHere();
        }
        return survey_;
    }

private:
    void take(const Operation& operation) {
        switch (operation.kind) {
        case Kind::write:
        case Kind::resize:
            bytesOf(operation.file).since.push_back(&operation);
            break;
        case Kind::sync: {
            Bytes& bytes = bytesOf(operation.file);
            bytes.sure = bytes.all();
            bytes.since.clear();
            break;
        }
        case Kind::syncFolder:
            syncNames(operation.name);
            break;
        case Kind::mark:
            said_.insert(operation.name);
            break;
        default:
            since_.push_back(&operation);
            break;
        }
    }

    // Any part of a run of writes to one file may be missing, so a cut at its end covers the cuts
    // within it. Short runs are cut at each write all the same.
    [[nodiscard]] bool isInLongRun() {
        if (done_ == log_.operations.size())
            return false;
        const Operation& last = log_.operations[done_ - 1];
        const Operation& next = log_.operations[done_];
        return last.kind == Kind::write && next.kind == Kind::write && last.file == next.file &&
               bytesOf(last.file).since.size() > mostSelected;
    }

    Bytes& bytesOf(int file) {
        const auto index = static_cast<std::size_t>(file);
        bytes_.resize(std::max(bytes_.size(), index + 1));
        return bytes_[index];
    }

    void syncNames(const std::string& folder) {
        const auto isIn = [&folder](const Operation* operation) {
            return folderOf(operation->name) == folder ||
                   (operation->kind == Kind::rename && folderOf(operation->newName) == folder);
        };
        for (const Operation* operation : since_)
            if (isIn(operation))
                change(names_, *operation);
        std::erase_if(since_, isIn);
    }

    void cutHere() {
        if (since_.size() > mostNames)
            throw std::length_error("too many changes of names without a sync of their folder");
        forms_.clear();
        std::set<Names> all;
        for (std::size_t selection = 0; selection < std::size_t(1) << since_.size(); ++selection) {
            Names names = names_;
            for (std::size_t i = 0; i < since_.size(); ++i)
                if ((selection >> i & 1U) != 0)
                    change(names, *since_[i]);
            all.insert(std::move(names));
        }
        for (const Names& names : all)
            chooseBytes(names);
    }

    // Files under two names are one.
    void chooseBytes(const Names& names) {
        std::vector<std::pair<std::string, int>> visible;
        std::set<int> files;
        for (const auto& [name, file] : names.files) {
            if (!isReachable(names, name))
                continue;
            visible.emplace_back(name, file);
            files.insert(file);
        }
        std::map<int, const Form*> chosen;
        const std::vector<int> order(files.begin(), files.end());
        const std::function<void(std::size_t)> choose = [&](std::size_t at) {
            if (at == order.size())
                return look(visible, chosen);
            for (const Form& form : formsOf(order[at])) {
                chosen[order[at]] = &form;
                choose(at + 1);
            }
        };
        choose(0);
    }

    const std::vector<Form>& formsOf(int file) {
        const auto known = forms_.find(file);
        if (known != forms_.end())
            return known->second;
        std::vector<Form> forms;
        for (const std::string& content : possible(bytesOf(file)))
            forms.push_back({content, std::hash<std::string>()(content)});
        return forms_[file] = std::move(forms);
    }

    void look(const std::vector<std::pair<std::string, int>>& visible,
              const std::map<int, const Form*>& chosen) {
        std::string key;
        for (const auto& [name, file] : visible)
            key += name + '=' + std::to_string(chosen.at(file)->number) + '/';
        const bool isNew = seen_.insert(key).second;
        if (seen_.size() > mostStates)
            throw std::length_error("too many states");
        survey_.states += isNew ? 1 : 0;
        if (!judged_.insert(std::to_string(said_.size()) + ':' + key).second)
            return;
        DiskState state{{}, said_};
        for (const auto& [name, file] : visible)
            state.files[name] = chosen.at(file)->content;
        const std::string fault = judge_(state);
        if (fault.empty())
            return;
        survey_.badStates += bad_.insert(key).second ? 1 : 0;
        if (survey_.faults.size() < mostFaults)
            survey_.faults.push_back(inWords(fault, state));
    }

    [[nodiscard]] std::string inWords(const std::string& fault, const DiskState& state) const {
        std::string text = fault + "\n  after:";
        for (std::size_t i = done_ > 12 ? done_ - 12 : 0; i < done_; ++i)
            text += "\n    " + describe(log_.operations[i]);
        text += "\n  on the disk:";
        for (const auto& [name, content] : state.files)
            text += "\n    " + name + ", " + std::to_string(content.size()) + " bytes";
        return text;
    }

    const DiskLog& log_;
    const Judge& judge_;
    Names names_;                         ///< certainly on the disk
    std::vector<const Operation*> since_; ///< changes of names since
    std::vector<Bytes> bytes_;            ///< by file
    std::set<std::string> said_;
    std::size_t done_ = 0; ///< operations
    std::map<int, std::vector<Form>> forms_;
    std::unordered_set<std::string> seen_, judged_, bad_;
    Survey survey_;
};

} // namespace

Survey survey(const DiskLog& log, const Judge& judge) {
    return Cuts(log, judge).run();
}

} // namespace velorin::disk
