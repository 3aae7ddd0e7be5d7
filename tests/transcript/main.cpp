// velorin-transcript: runs transcripts against the real program on a scripted host.
#include "Offscreen.h"
#include "Script.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

void put(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

int print(const char* path) {
    const transcript::Script script = transcript::readScript(path);
    put(transcript::printed(script, transcript::answersOf(script)));
    return 0;
}

// All files are read first: the program changes the current folder.
int runAll(int count, char** paths) {
    std::vector<transcript::Script> scripts;
    for (int i = 0; i < count; ++i)
        scripts.push_back(transcript::readScript(paths[i]));
    int status = 0;
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        const std::string text =
            transcript::differences(paths[i], scripts[i], transcript::answersOf(scripts[i]));
        put(text);
        if (!text.empty())
            status = 1;
    }
    return status;
}

int usage() {
    std::fputs("usage: velorin-transcript FILE...\n       velorin-transcript --print FILE\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return usage();
    const bool prints = std::strcmp(argv[1], "--print") == 0;
    if (prints && argc != 3)
        return usage();
    const transcript::Offscreen screen(argc, argv);
    try {
        return prints ? print(argv[2]) : runAll(argc - 1, argv + 1);
    } catch (const transcript::CommandError& error) {
        std::fprintf(stderr, "velorin-transcript: %s\n", error.what());
        return 2;
    }
}
