// Converts names to widgets and back.
#include "ControlNames.h"

#include "Runner.h"
#include "program/Program.h"
#include "windows/main/Form1.h"

#include <algorithm>
#include <array>

namespace transcript {

namespace {

constexpr std::array windowNames{"Form1",  "Form2", "Form3",   "Frmmenu",
                                 "Record", "Wiz",   "frminfo", "openerF"};

constexpr std::array propertyNames{"caption", "tooltip", "enabled", "visible", "rect",
                                   "items",   "min",     "max",     "color",   "pointer",
                                   "checked", "open",    "topmost", "state",   "title"};

template <std::size_t Count>
bool holds(const std::array<const char*, Count>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&name](const char* each) { return name == each; });
}

std::vector<std::string> partsOf(const std::string& word) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t dot = 0; dot != std::string::npos; from = dot + 1) {
        dot = word.find('.', from);
        parts.push_back(word.substr(from, dot - from));
    }
    return parts;
}

} // namespace

bool isWindowName(const std::string& word) {
    return holds(windowNames, word);
}

Address parseAddress(const std::string& word) {
    std::vector<std::string> parts = partsOf(word);
    Address address{"Form1", "", "", word};
    if (isWindowName(parts.front())) {
        address.window = parts.front();
        parts.erase(parts.begin());
    }
    if (!parts.empty() && holds(propertyNames, parts.back())) {
        address.property = parts.back();
        parts.pop_back();
    }
    if (parts.size() > 1)
        throw CommandError("no such name: " + word);
    if (!parts.empty())
        address.control = parts.front();
    return address;
}

QWidget& windowOf(Runner& runner, const std::string& name) {
    QWidget* window = runner.program().window(QString::fromStdString(name), true);
    if (window == nullptr)
        throw CommandError("no such window: " + name);
    return *window;
}

QWidget* loadedWindow(Runner& runner, const std::string& name) {
    if (!runner.isRunning())
        return nullptr;
    return runner.program().window(QString::fromStdString(name), false);
}

QWidget& controlOf(Runner& runner, const Address& address) {
    QWidget& window = windowOf(runner, address.window);
    if (address.control.empty())
        return window;
    QString name = QString::fromStdString(address.control);
    if (auto* control = window.findChild<QWidget*>(name))
        return *control;
    // One widget is both the button and its picture.
    for (const char* picture : {"ImgPic(", "ImgR("}) {
        if (!name.startsWith(QLatin1String(picture)))
            continue;
        name.replace(QLatin1String(picture), "Cmd2(");
        if (auto* control = window.findChild<QWidget*>(name))
            return *control;
    }
    throw CommandError("no such control: " + address.whole);
}

QWidget& controlOf(Runner& runner, const std::string& word) {
    const Address address = parseAddress(word);
    if (!address.property.empty())
        throw CommandError("no such control: " + word);
    return controlOf(runner, address);
}

std::string nameOf(const QWidget& control) {
    const std::string window = control.window()->objectName().toStdString();
    const std::string name = control.objectName().toStdString();
    return window == "Form1" || &control == control.window() ? name : window + "." + name;
}

} // namespace transcript
