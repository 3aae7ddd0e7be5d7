// The program on a scripted host, with a user who draws.
#pragma once

#include "Chance.h"
#include "Drawing.h"
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/main/Form1.h"

#include <string>
#include <vector>

namespace randomly {

/// What the pen or the mouse does.
class Hand {
public:
    virtual ~Hand() = default;
    /// The tableau has the keyboard, unless the song plays and has locked it.
    virtual void scroll(Drawing& drawing) = 0;
    virtual void press(Drawing& drawing) = 0;
    virtual void move(Drawing& drawing) = 0;
    virtual void release(Drawing& drawing) = 0;
};

/// Each drawing adds two looks at the program: before and after the release.
class DrawingStage {
public:
    DrawingStage();
    ~DrawingStage();
    DrawingStage(const DrawingStage&) = delete;
    DrawingStage& operator=(const DrawingStage&) = delete;

    void draw(Drawing& drawing, Hand& hand);

    std::vector<std::string> looks;

    scripted::ScriptedPlatform host;
    velorin::Program program{host.platform};
    velorin::Form1& form();

    void sendKey(int type, int key, int modifiers = 0, bool isRepeat = false);

private:
    void set(const Setting& setting);
    void tabTo(velorin::Tableau tableau);
    void drawNow(Drawing& drawing, Hand& hand);
    void drawWhilePlaying(Drawing& drawing, Hand& hand);
    void look();
};

} // namespace randomly
