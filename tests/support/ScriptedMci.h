// The command-string interface for tests: it keeps a log and returns the answers that the test set.
#pragma once

#include "platform/Mci.h"
#include "support/VirtualTime.h"

#include <string>
#include <vector>

namespace scripted {

class ScriptedMci final : public platform::Mci {
public:
    explicit ScriptedMci(const VirtualTime& time) : time_(time) {}

    std::uint32_t mciSendStringA(const std::string& command, std::string* reply) override;
    /// "error 263" for code 263.
    std::string mciGetErrorStringA(std::uint32_t code) override;

    void noteSpelling(const std::string& name) override { spelling = name; }

    /// Sets the answer to commands that begin with `prefix`, case-insensitive. The newest matching
    /// reply is used. Without one the answer is 0 and an empty text.
    void reply(const std::string& prefix, std::uint32_t code, const std::string& text);

    std::string spelling;         ///< of the file that was chosen last
    std::vector<std::string> log; ///< "0.120 open \"a.mid\" type sequencer alias midi"

private:
    struct Reply {
        std::string prefix; ///< lower case
        std::uint32_t code = 0;
        std::string text;
    };

    const VirtualTime& time_;
    std::vector<Reply> replies_;
};

} // namespace scripted
