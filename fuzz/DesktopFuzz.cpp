// Any text as what the desktop asks on the session bus: the first line is its token, the others are
// URIs. Each gives a file or stays what it was, and a token cannot end its message.
#include "Expect.h"
#include "host/dbus/BusApplication.h"
#include "host/dbus/StartupId.h"

#include <QStringList>
#include <QVariantMap>

#include <string>
#include <vector>

using namespace velorin::host;

namespace {

void expectQuoted(const std::string& token) {
    const std::string message = startupEndMessage(token);
    const std::string begin = "remove: ID=\"";
    expect(message.starts_with(begin) && message.back() == '"');
    std::string back;
    for (std::size_t i = begin.size(); i + 1 < message.size(); ++i) {
        expect(message[i] != '"');
        if (message[i] == '\\')
            ++i;
        back += message[i];
    }
    expect(back == token);
    if (const auto time = clickTimeOf(token))
        expect(token.find("_TIME") != std::string::npos &&
               clickTimeOf("_TIME" + std::to_string(*time)) == time);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    QStringList uris = QString::fromStdString(bytes).split('\n');
    const QString token = uris.takeFirst();
    expectQuoted(token.toStdString());

    BusApplication application;
    int activated = 0;
    int opened = 0;
    const auto expectToken = [&token](const std::string& given) {
        expect(given == token.toStdString());
    };
    application.onActivate = [&](const std::string& given) {
        ++activated;
        expectToken(given);
    };
    application.onOpen = [&](const std::vector<std::string>& files, const std::string& given) {
        ++opened;
        expectToken(given);
        expect(files.size() == static_cast<std::size_t>(uris.size()));
        for (std::size_t i = 0; i < files.size(); ++i) {
            const QString& uri = uris[static_cast<qsizetype>(i)];
            const bool isPath = files[i] != uri.toStdString();
            expect(!isPath || files[i].find('\0') == std::string::npos);
            expect(!isPath || uri.startsWith("file:", Qt::CaseInsensitive));
        }
    };
    const QVariantMap platformData{{"desktop-startup-id", token}};
    application.Activate(platformData);
    expect(activated == 1);
    application.Open(uris, platformData);
    expect(uris.isEmpty() ? activated == 2 : opened == 1);
    return 0;
}
