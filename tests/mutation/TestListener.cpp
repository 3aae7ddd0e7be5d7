// Notes for each unit test which places of changes it reaches and how long it takes, for the
// mutation run (tests/mutations.py).

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

class ReachedPlaces : public testing::EmptyTestEventListener {
public:
    explicit ReachedPlaces(std::string path) : path_(std::move(path)) {}

    // What is reached outside the tests counts for the whole program.
    void OnTestStart(const testing::TestInfo& /*test*/) override { note("", 0); }

    void OnTestEnd(const testing::TestInfo& test) override {
        note(std::string(test.test_suite_name()) + "." + test.name(),
             test.result()->elapsed_time());
    }

private:
    // Appends a line: milliseconds, the name, the numbers. Clears the bytes.
    void note(const std::string& name, long long elapsedMs) {
        std::vector<char> bytes;
        {
            std::ifstream in(path_, std::ios::binary);
            bytes.assign(std::istreambuf_iterator<char>(in), {});
        }
        std::ofstream line(path_ + ".tests", std::ios::app);
        line << elapsedMs << '\t' << name << '\t';
        std::fstream clear(path_, std::ios::binary | std::ios::in | std::ios::out);
        for (std::size_t number = 0; number < bytes.size(); ++number) {
            if (bytes[number] != 0) {
                line << number << ' ';
                clear.seekp(static_cast<std::streamoff>(number));
                clear.put(0);
            }
        }
        line << '\n';
    }

    std::string path_;
};

const bool Listens = [] {
    const char* path = std::getenv("VELORIN_MUTATION_REACHED");
    if (path != nullptr) {
        testing::UnitTest::GetInstance()->listeners().Append(new ReachedPlaces(path));
    }
    return path != nullptr;
}();

} // namespace
