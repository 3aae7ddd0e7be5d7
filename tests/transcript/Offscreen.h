// A screen that nobody sees, 1024 by 768 pixels, for the real windows.
#pragma once

#include <memory>

class QApplication;

namespace transcript {

/// Lives as long as the program; there is one.
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
