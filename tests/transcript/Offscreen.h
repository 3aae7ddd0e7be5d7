// An off-screen display of 1024 by 768 pixels for the real windows.
#pragma once

#include <memory>

class QApplication;

namespace transcript {

/// There is one, and it exists as long as the program.
class Offscreen {
public:
    Offscreen(int& argc, char** argv);
    ~Offscreen();
    Offscreen(const Offscreen&) = delete;
    Offscreen& operator=(const Offscreen&) = delete;

private:
    std::unique_ptr<QApplication> application_;
};

} // namespace transcript
