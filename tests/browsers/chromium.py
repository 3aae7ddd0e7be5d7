"""Chromium, driven by chromedriver over HTTP."""

import contextlib
import http.client
import json
import subprocess
import threading

from webdriver import PATIENCE_S, Browser, BrowserError, end


class Chromium(Browser):
    name = "chromium"

    def __init__(self, folder, network, environment):
        self.downloads = folder / "chromium-downloads"
        self.downloads.mkdir()
        self.requested = []
        self.complaints = []
        self.process = subprocess.Popen(["chromedriver", "--port=0", "--log-level=WARNING"], stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, start_new_session=True, env=environment)
        self.session = None
        self.port = self.announced_port()
        threading.Thread(target=self.process.stdout.read, daemon=True).start()
        options = {"args": [
            "--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--disable-gpu",
            "--autoplay-policy=no-user-gesture-required", "--force-device-scale-factor=1", "--hide-scrollbars",
            "--disable-background-networking", "--disable-component-update", "--disable-sync", "--no-first-run",
            "--disable-features=OptimizationHints,MediaRouter,Translate",
            f"--proxy-server=http://127.0.0.1:{network.port}", "--proxy-bypass-list=<-loopback>",
            f"--user-data-dir={folder / 'chromium-profile'}"],
            "prefs": {"download.default_directory": str(self.downloads), "download.prompt_for_download": False}}
        answer = self.call("POST", "/session", {"capabilities": {"alwaysMatch": {
            "browserName": "chrome", "goog:chromeOptions": options,
            "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}}})
        self.session = answer["sessionId"]

    def announced_port(self):
        for line in self.process.stdout:
            if "successfully on port" in line:
                return int(line.rsplit(" ", 1)[1].strip(" .\n"))
        raise BrowserError("chromedriver does not start")

    def call(self, method, path, body=None):
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=PATIENCE_S)
        try:
            connection.request(method, path, None if body is None else json.dumps(body),
                               {"Content-Type": "application/json"})
            value = json.loads(connection.getresponse().read())["value"]
        finally:
            connection.close()
        if isinstance(value, dict) and "error" in value:
            raise BrowserError(f"{path}: {value['error']}: {value['message'].splitlines()[0]}")
        return value

    def command(self, method, path, body=None):
        return self.call(method, f"/session/{self.session}{path}", body)

    def devtools(self, command, **parameters):
        return self.command("POST", "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def resize(self, width, height):
        self.devtools("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def prefer_less_motion(self, less):
        value = "reduce" if less else "no-preference"
        self.devtools("Emulation.setEmulatedMedia", media="", features=[{"name": "prefers-reduced-motion", "value": value}])

    def print_look(self, printed):
        self.devtools("Emulation.setEmulatedMedia", media="print" if printed else "", features=[])

    def allow_scripts(self, allowed):
        self.devtools("Emulation.setScriptExecutionDisabled", value=not allowed)

    def read_logs(self):
        """Adds what has happened since the last call to `requested` and `complaints`."""
        for entry in self.command("POST", "/se/log", {"type": "performance"}):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                self.requested.append(message["params"]["request"]["url"][:200])
        for entry in self.command("POST", "/se/log", {"type": "browser"}):
            self.complaints.append(entry["message"])

    def close(self):
        with contextlib.suppress(Exception):
            self.command("DELETE", "")
        end(self.process)
