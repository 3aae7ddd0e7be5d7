// Commands on pictures: pixel, digest, png.
#include "Answers.h"
#include "Commands.h"
#include "ControlNames.h"
#include "FileContents.h"
#include "HiddenPictures.h"
#include "Runner.h"

#include "platform/PathLookup.h"
#include "windows/main/Form1.h"

#include <QImage>

#include <array>

namespace transcript {

namespace {

/// The pixels of a picture control; for other controls a rendered image.
QImage imageOf(Runner& runner, const std::string& word) {
    if (const velorin::Picture* picture = hiddenPicture(runner, word))
        return picture->image();
    QWidget& control = controlOf(runner, word);
    if (auto* box = qobject_cast<velorin::PictureBox*>(&control))
        return box->picture.image();
    return control.grab().toImage();
}

Lines pixel(Runner& runner, const Words& words) {
    expectWords(words, 3);
    const QImage image = imageOf(runner, words[0]);
    const int x = plainNumber(words[1]);
    const int y = plainNumber(words[2]);
    if (!image.valid(x, y))
        throw CommandError("no such pixel");
    const QColor colour = image.pixelColor(x, y);
    return {std::to_string(colour.red()) + "," + std::to_string(colour.green()) + "," +
            std::to_string(colour.blue())};
}

std::string pixelBytes(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB888);
    std::string bytes;
    for (int y = 0; y < plain.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(plain.constScanLine(y)),
                     static_cast<std::size_t>(plain.width()) * 3);
    return bytes;
}

bool isPath(const std::string& word) {
    return word.starts_with('@') || word.find_first_of("/\\") != std::string::npos;
}

Lines digest(Runner& runner, const Words& words) {
    expectWords(words, 1);
    return {crcOf(isPath(words[0]) ? contentOf(runner, words[0])
                                   : pixelBytes(imageOf(runner, words[0])))};
}

Lines png(Runner& runner, const Words& words) {
    expectWords(words, 2);
    const QImage image = imageOf(runner, words[0]);
    const std::string path = platform::resolve(runner.path(words[1])).string();
    if (!image.save(QString::fromStdString(path), "PNG"))
        throw CommandError("cannot write " + words[1]);
    return {};
}

} // namespace

std::span<const Command> pictureCommands() {
    static constexpr std::array commands{
        Command{"pixel", pixel},
        Command{"digest", digest},
        Command{"png", png},
    };
    return commands;
}

} // namespace transcript
