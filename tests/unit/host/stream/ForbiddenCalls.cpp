// A record of fixed size: what is noted here must not allocate either.
#include "ForbiddenCalls.h"

#include "host/process/StreamThread.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <set>
#include <string_view>

namespace velorin::host::test {

namespace {

constexpr int mostFrames = 12;
constexpr int ownFrames = 2; ///< `noteCall` and what takes the place of the call

struct Call {
    const char* function = nullptr;
    std::array<void*, mostFrames> frames{};
    int depth = 0;
};

// The functions of the system that call `noteCall` have no object to keep a record in.
std::array<Call, 256> calls;
std::atomic<std::size_t> callCount{0};

/// Taking the functions that led to a call makes calls of its own.
constinit thread_local bool isNoting = false;

// The first use loads a library.
const int firstFrames = [] {
    std::array<void*, 1> frame{};
    return backtrace(frame.data(), 1);
}();

/// Allowed: FluidSynth mixes each block of its effects in a parallel region of OpenMP. With one
/// processor for it, GNU's OpenMP makes and frees its description of the threads there every time.
/// No setting of the library avoids that. The place is exact, so that no lock, no other memory, and
/// no message to the synthesizer is allowed with it:
///
///     malloc, memalign    from libgomp ... from libfluidsynth, fluid_synth_write_float
///     free                from libfluidsynth (libgomp's last jump), fluid_synth_write_float
bool isAllowed(const Call& call) {
    constexpr std::array<std::string_view, 4> memory{"malloc", "memalign", "aligned_alloc", "free"};
    if (std::find(memory.begin(), memory.end(), call.function) == memory.end())
        return false;
    bool isOfOpenMp = std::string_view(call.function) == "free";
    for (int i = ownFrames; i < call.depth; ++i) {
        Dl_info place{};
        dladdr(call.frames[static_cast<std::size_t>(i)], &place);
        const std::string_view library = place.dli_fname ? place.dli_fname : "";
        const std::string_view function = place.dli_sname ? place.dli_sname : "";
        if (function == "fluid_synth_write_float")
            return isOfOpenMp;
        const bool isInOpenMp = library.find("libgomp.so") != library.npos;
        if (!isInOpenMp && library.find("libfluidsynth.so") == library.npos)
            return false;
        isOfOpenMp = isOfOpenMp || isInOpenMp;
    }
    return false;
}

std::string textOf(const Call& call) {
    std::string text = "call of ";
    text += call.function;
    const std::unique_ptr<char*, decltype(&std::free)> names(
        backtrace_symbols(call.frames.data(), call.depth), std::free);
    for (int i = ownFrames; i < call.depth; ++i)
        text.append("\n    from ").append(names.get()[i]);
    text += '\n';
    return text;
}

} // namespace

void noteCall(const char* function) {
    if (!StreamThreadScope::isActive() || isNoting)
        return;
    isNoting = true;
    Call call{function, {}, 0};
    call.depth = backtrace(call.frames.data(), mostFrames);
    if (!isAllowed(call)) {
        const std::size_t at = callCount.fetch_add(1);
        if (at < calls.size())
            calls[at] = call;
    }
    isNoting = false;
}

std::string takeForbiddenCalls() {
    const std::size_t count = std::min(callCount.exchange(0), calls.size());
    std::set<std::string> texts;
    for (std::size_t i = 0; i < count; ++i)
        texts.insert(textOf(calls[i]));
    std::string all;
    for (const std::string& text : texts)
        all += text;
    return all;
}

} // namespace velorin::host::test
