// Shows that a call that the stream's thread must not make is noticed: one of each kind.
#include "ForbiddenCalls.h"

#include "../Sounds.h"
#include "host/engine/FramePacer.h"
#include "host/process/OnceLogger.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace velorin::host {
namespace {

using namespace std::chrono_literals;
using test::takeForbiddenCalls;

/// What is noticed of a source that does something each time it is mixed.
std::string noticedOf(const std::function<void()>& act) {
    class Acting final : public SoundSource {
    public:
        explicit Acting(const std::function<void()>& act) : act_(act) {}
        void mix(SoundBlock&, std::int64_t, const StreamClock&) override { act_(); }

    private:
        const std::function<void()>& act_;
    };
    SoundEngine engine;
    engine.add(std::make_shared<Acting>(act));
    takeForbiddenCalls();
    test::HandPulled(engine).pull(blockFrames);
    return takeForbiddenCalls();
}

void expectNoticed(const std::string& function, const std::function<void()>& act) {
    std::string line = "call of ";
    line.append(function).append("\n");
    EXPECT_THAT(noticedOf(act), testing::HasSubstr(line));
}

/// Through a volatile, or the compiler leaves out what nobody uses.
void takeAndFreeMemory() {
    int* volatile place = new int;
    delete place;
}

TEST(OnTheStreamsThread, NothingIsNoticedOfASourceThatDoesNothing) {
    EXPECT_EQ(noticedOf([] {}), "");
}

TEST(OnTheStreamsThread, MemoryIsNoticed) {
    expectNoticed("malloc", takeAndFreeMemory);
    expectNoticed("free", takeAndFreeMemory);
    expectNoticed("calloc", [] {
        void* volatile place = std::calloc(1, 100);
        std::free(place);
    });
    expectNoticed("realloc", [] {
        void* volatile place = std::malloc(50);
        place = std::realloc(place, 100);
        std::free(place);
    });
    expectNoticed("aligned_alloc", [] {
        struct alignas(64) Line {
            char bytes[64];
        };
        Line* volatile line = new Line;
        delete line;
    });
}

TEST(OnTheStreamsThread, LocksAreNoticed) {
    std::mutex mutex;
    std::condition_variable changed;
    expectNoticed("pthread_mutex_lock", [&] { const std::lock_guard lock(mutex); });
    expectNoticed("pthread_mutex_trylock",
                  [&] { const std::unique_lock lock(mutex, std::try_to_lock); });
    expectNoticed("pthread_cond_clockwait", [&] {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, 1ns);
    });
    expectNoticed("pthread_cond_timedwait", [&] {
        std::unique_lock lock(mutex);
        changed.wait_until(lock, std::chrono::system_clock::now());
    });
    expectNoticed("pthread_cond_broadcast", [&] { changed.notify_all(); });
    expectNoticed("pthread_join", [] { std::thread([] {}).join(); });
    std::thread notifier;
    bool notified = false;
    expectNoticed("pthread_cond_wait", [&] {
        notifier = std::thread([&] {
            const std::lock_guard lock(mutex);
            notified = true;
            changed.notify_all();
        });
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return notified; });
    });
    notifier.join();
}

TEST(OnTheStreamsThread, FilesAreNoticed) {
    const std::string path = testing::TempDir() + "velorin-noticed-" + std::to_string(::getpid());
    char byte = 'a';
    const int file = open(path.c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_GE(file, 0);
    expectNoticed("open", [&] { close(open(path.c_str(), O_RDONLY)); });
    expectNoticed("close", [&] { close(open(path.c_str(), O_RDONLY)); });
    expectNoticed("openat", [&] { close(openat(AT_FDCWD, path.c_str(), O_RDONLY)); });
    expectNoticed("write", [&] { EXPECT_EQ(write(file, &byte, 1), 1); });
    expectNoticed("read", [&] { EXPECT_EQ(read(file, &byte, 1), 0); });
    expectNoticed("fsync", [&] { fsync(file); });
    expectNoticed("rename", [&] { EXPECT_EQ(rename(path.c_str(), path.c_str()), 0); });
    expectNoticed("fopen", [&] { fclose(fopen(path.c_str(), "r")); });
    expectNoticed("fclose", [&] { std::ifstream(path).get(); });
    expectNoticed("unlink", [&] { unlink(path.c_str()); });
    close(file);
}

TEST(OnTheStreamsThread, ALineOnStandardErrorIsNoticed) {
    expectNoticed("fwrite", [] { std::cerr << "this line belongs to the test\n"; });
    expectNoticed("fwrite", [] { logLine("this line belongs to the test"); });
}

TEST(OnTheStreamsThread, SleepIsNoticed) {
    constexpr timespec moment{0, 1};
    expectNoticed("nanosleep", [] { std::this_thread::sleep_for(1ns); });
    expectNoticed("clock_nanosleep",
                  [&] { clock_nanosleep(CLOCK_MONOTONIC, 0, &moment, nullptr); });
    expectNoticed("usleep", [] { usleep(1); });
    expectNoticed("poll", [] { poll(nullptr, 0, 0); });
}

TEST(OnTheStreamsThread, TheFunctionsThatLedToTheCallAreNamed) {
    const std::string noticed = noticedOf(takeAndFreeMemory);
    EXPECT_NE(noticed.find("SoundEngine9makeBlock"), std::string::npos) << noticed;
}

// Only this wait is allowed: the one for the time of the next buffer.
TEST(OnTheStreamsThread, TheWaitForTheNextBufferIsNot) {
    FramePacer pacer;
    EXPECT_EQ(noticedOf([&pacer] { pacer.wait(64); }), "");
    expectNoticed("malloc", [&pacer] {
        pacer.wait(64);
        takeAndFreeMemory();
    });
}

TEST(AnotherThread, MayDoAllOfThat) {
    takeForbiddenCalls();
    std::thread(takeAndFreeMemory).join();
    EXPECT_EQ(takeForbiddenCalls(), "");
}

} // namespace
} // namespace velorin::host
