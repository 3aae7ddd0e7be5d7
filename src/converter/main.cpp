// velorin-converter: the converter with a window. Its arguments are files and folders.
#include "host/dbus/StudioCall.h"
#include "host/desktop/FileChoice.h"
#include "host/desktop/FileManager.h"
#include "host/desktop/QtMessageBoxes.h"
#include "host/desktop/QtSettings.h"
#include "host/loop/SignalListener.h"
#include "windows/converter/ConverterWindow.h"
#include "windows/frame/Look.h"
#include "windows/help/HelpPages.h"
#include "windows/help/HelpWindow.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int badUsage = 2;

constexpr char usage[] =
    "Usage: velorin-converter [FILE...]\n"
    "\n"
    "Opens a window that turns scores (.sng), MIDI files (.mid) and WAV files into sound,\n"
    "MIDI files, song pages, pictures and scores. A folder stands for the files in it.\n"
    "velorin-convert does the same without a window.\n"
    "\n"
    "  --help     show this text\n"
    "  --version  show the version\n";

/// The exit status if there is no window to open.
struct CommandLine {
    std::vector<std::filesystem::path> files;
    int status = -1;
};

CommandLine readCommandLine(int count, char** arguments) {
    CommandLine line;
    bool optionsOver = false;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (!optionsOver && argument == "--") {
            optionsOver = true;
        } else if (!optionsOver && argument == "--help") {
            std::fputs(usage, stdout);
            line.status = EXIT_SUCCESS;
            break;
        } else if (!optionsOver && argument == "--version") {
            std::puts("velorin-converter " VELORIN_VERSION);
            line.status = EXIT_SUCCESS;
            break;
        } else if (!optionsOver && argument.size() > 1 && argument[0] == '-') {
            std::fprintf(stderr, "velorin-converter: unknown option %s (see --help)\n",
                         argument.c_str());
            line.status = badUsage;
            break;
        } else {
            line.files.emplace_back(argument);
        }
    }
    return line;
}

void openHelp(std::unique_ptr<velorin::HelpWindow>& help) {
    if (!help)
        help = std::make_unique<velorin::HelpWindow>(velorin::helpPages());
    help->openAt(QStringLiteral("converter.html"));
}

int runConverter(velorin::host::SignalListener& signals, std::vector<std::filesystem::path> files) {
    using namespace velorin;
    const QString folder = QApplication::applicationDirPath();
    host::QtSettings settings;
    host::QtMessageBoxes boxes;
    host::StudioCall studio(folder + "/velorin");
    std::unique_ptr<HelpWindow> help;
    std::unique_ptr<ConverterWindow> window;
    ConverterDesk desk;
    desk.chooseFiles = [&] {
        return host::chooseFiles(window.get(), settings, "Add files",
                                 "Scores, MIDI files and sound (*.sng *.mid *.midi *.wav "
                                 "*.SNG *.MID *.MIDI *.WAV)");
    };
    desk.chooseFolder = [&](const std::string& title) {
        return host::chooseFolder(window.get(), settings, title);
    };
    desk.ask = [&boxes](const platform::BoxQuestion& question) { return boxes.ask(question); };
    desk.openInVelorin = [&studio](const std::string& file) {
        studio.open(QString::fromStdString(file));
    };
    desk.openFile = [&window](const std::string& file) {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file))))
            window->say("The desktop has no program for this file.");
    };
    desk.showInFolder = [](const std::string& file) {
        host::showInFileManager(QString::fromStdString(file));
    };
    desk.openHelp = [&help] { openHelp(help); };
    window = std::make_unique<ConverterWindow>(desk, settings, folder.toStdString());
    studio.onFailed = [&window](const QString& sentence) { window->say(sentence.toStdString()); };
    // Unlike `quit`, `exit` asks no window whether it may be closed.
    window->onClosed = [] { QApplication::exit(); };
    signals.listen([] { QApplication::exit(); });
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp, [] { QApplication::exit(); });
    window->resize(ConverterWindow::firstSize);
    window->show();
    if (!files.empty())
        window->add(std::move(files));
    const int status = QApplication::exec();
    window.reset(); // ends the threads first; nothing half made stays
    return status;
}

} // namespace

int main(int argc, char** argv) {
    const CommandLine line = readCommandLine(argc, argv);
    if (line.status >= 0)
        return line.status;
    velorin::host::SignalListener signals; // before the first thread
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    // Qt removes its own options from these.
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // numbers in files are the same in every locale
    QApplication::setApplicationName("Velorin Converter");
    QApplication::setApplicationVersion(VELORIN_VERSION);
    QApplication::setDesktopFileName("velorin-converter");
    QApplication::setQuitOnLastWindowClosed(false);
    velorin::applyLook(application);
    return runConverter(signals, line.files);
}
