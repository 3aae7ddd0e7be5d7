// A MIDI keyboard without hands, for the end-to-end tests: a port of the MIDI server that sends
// what standard input says, "90 3C 7F" a line, until it ends.
#include <rtmidi/RtMidi.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    RtMidiOut output(RtMidi::UNIX_JACK, argv[1]);
    output.openVirtualPort("keys");
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::vector<unsigned char> message;
        for (unsigned byte = 0; words >> std::hex >> byte;)
            message.push_back(static_cast<unsigned char>(byte));
        output.sendMessage(&message);
    }
    return 0;
}
