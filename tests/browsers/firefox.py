"""Firefox, driven by its own Marionette protocol over a socket: the commands of the standard under other names."""

import contextlib
import json
import socket
import subprocess

from webdriver import PATIENCE_S, Browser, BrowserError, end, wait_until

# Records the requests of pages, and their errors and warnings.
WATCH = """
    window.seenByTest = {requests: [], complaints: []};
    Services.obs.addObserver((subject) => {
        const channel = subject.QueryInterface(Ci.nsIHttpChannel);
        if (channel.loadInfo.browsingContextID) window.seenByTest.requests.push(channel.URI.spec);
    }, 'http-on-opening-request');
    Services.console.registerListener({observe(message) {
        if (!(message instanceof Ci.nsIScriptError)) return;
        if (/^(file|blob|data):/.test(message.sourceName)) window.seenByTest.complaints.push(message.toString());
    }});
    return true;
"""


def write_preferences(path, downloads, proxy_port):
    """No network but the proxy, and no questions."""
    preferences = {
        "marionette.port": 0,
        "network.proxy.type": 1, "network.proxy.http": "127.0.0.1", "network.proxy.http_port": proxy_port,
        "network.proxy.ssl": "127.0.0.1", "network.proxy.ssl_port": proxy_port,
        "network.proxy.allow_hijacking_localhost": True, "network.dns.disablePrefetch": True,
        "network.captive-portal-service.enabled": False, "network.connectivity-service.enabled": False,
        "app.update.auto": False, "app.update.enabled": False, "browser.shell.checkDefaultBrowser": False,
        "browser.safebrowsing.update.enabled": False, "datareporting.policy.dataSubmissionEnabled": False,
        "toolkit.telemetry.enabled": False, "services.settings.server": "data:,#remote-settings-dummy/v1",
        "browser.startup.page": 0, "browser.startup.homepage_override.mstone": "ignore", "startup.homepage_welcome_url": "",
        "browser.newtabpage.enabled": False, "browser.aboutwelcome.enabled": False, "browser.region.network.url": "",
        "browser.download.folderList": 2, "browser.download.dir": str(downloads),
        "browser.download.useDownloadDir": True, "browser.download.alwaysOpenPanel": False,
        "browser.download.always_ask_before_handling_new_types": False,
        "media.autoplay.default": 0,
        "layout.css.devPixelsPerPx": "1.0", "remote.prefs.recommended": True,
    }
    lines = (f"user_pref({json.dumps(name)}, {json.dumps(value)});" for name, value in preferences.items())
    path.write_text("\n".join(lines) + "\n", "utf-8")


class Firefox(Browser):
    name = "firefox"

    COMMANDS = {
        "/url": "WebDriver:Navigate", "/execute/sync": "WebDriver:ExecuteScript", "/element": "WebDriver:FindElement",
        "/actions": "WebDriver:PerformActions", "/screenshot": "WebDriver:TakeScreenshot",
    }
    ELEMENT_COMMANDS = {
        "click": "WebDriver:ElementClick", "computedrole": "WebDriver:GetComputedRole",
        "computedlabel": "WebDriver:GetComputedLabel", "displayed": "WebDriver:IsElementDisplayed",
        "rect": "WebDriver:GetElementRect",
    }

    def __init__(self, folder, network, environment):
        self.downloads = folder / "firefox-downloads"
        self.downloads.mkdir()
        self.requested = []
        self.complaints = []
        profile = folder / "firefox-profile"
        profile.mkdir()
        write_preferences(profile / "user.js", self.downloads, network.port)
        self.process = subprocess.Popen(
            ["firefox-esr", "--headless", "--no-remote", "--marionette", "--remote-allow-system-access", "--profile", str(profile)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True, env=environment)
        port_file = profile / "MarionetteActivePort"
        wait_until(lambda: port_file.exists() and port_file.read_text(), "the port of Firefox")
        self.socket = socket.create_connection(("127.0.0.1", int(port_file.read_text())), timeout=PATIENCE_S)
        self.buffer = b""
        self.receive()
        self.number = 0
        self.call("WebDriver:NewSession", {"capabilities": {"alwaysMatch": {}}})
        self.in_chrome(WATCH)

    def receive(self):
        while b":" not in self.buffer:
            self.more()
        length, _, rest = self.buffer.partition(b":")
        self.buffer = rest
        while len(self.buffer) < int(length):
            self.more()
        message, self.buffer = self.buffer[:int(length)], self.buffer[int(length):]
        return json.loads(message)

    def more(self):
        got = self.socket.recv(1 << 20)
        if not got:
            raise BrowserError("Firefox has closed the connection")
        self.buffer += got

    def call(self, name, parameters):
        self.number += 1
        message = json.dumps([0, self.number, name, parameters]).encode()
        self.socket.sendall(str(len(message)).encode() + b":" + message)
        _, _, error, result = self.receive()
        if error:
            raise BrowserError(f"{name}: {error['error']}: {error['message']}")
        return result["value"] if isinstance(result, dict) and set(result) == {"value"} else result

    def command(self, method, path, body=None):
        if path in self.COMMANDS:
            body = dict(body or {})
            if path == "/screenshot":
                body = {"full": False}
            return self.call(self.COMMANDS[path], body)
        _, _, element, action = path.split("/")
        return self.call(self.ELEMENT_COMMANDS[action], {"id": element})

    def in_chrome(self, script, *arguments):
        """Runs the body of a function with the rights of the browser itself."""
        self.call("Marionette:SetContext", {"value": "chrome"})
        try:
            return self.call("WebDriver:ExecuteScript", {"script": script, "args": list(arguments), "sandbox": "system"})
        finally:
            self.call("Marionette:SetContext", {"value": "content"})

    def resize(self, width, height):
        """Sets the size of the page. The browser's own controls would not let the window be as narrow as a phone."""
        self.in_chrome("""
            const browser = window.gBrowser.selectedBrowser;
            for (const side of ['min', 'max']) {
                browser.style[side + 'Width'] = arguments[0] + 'px';
                browser.style[side + 'Height'] = arguments[1] + 'px';
            }
            window.resizeTo(Math.max(arguments[0], 500) + 100, arguments[1] + 300);""", width, height)
        self.wait_for(f"innerWidth === {width} && innerHeight === {height}")

    def prefer_less_motion(self, less):
        self.in_chrome("Services.prefs.setIntPref('ui.prefersReducedMotion', arguments[0])", 1 if less else 0)

    def print_look(self, printed):
        self.in_chrome("window.gBrowser.selectedBrowser.browsingContext.mediumOverride = arguments[0]", "print" if printed else "")

    def allow_scripts(self, allowed):
        self.in_chrome("Services.prefs.setBoolPref('javascript.enabled', arguments[0])", allowed)

    def read_logs(self):
        seen = self.in_chrome("const seen = window.seenByTest; window.seenByTest = {requests: [], complaints: []}; return seen;")
        self.requested += seen["requests"]
        self.complaints += seen["complaints"]

    def close(self):
        with contextlib.suppress(Exception):
            self.call("Marionette:Quit", {"flags": ["eForceQuit"]})
        self.socket.close()
        end(self.process)
