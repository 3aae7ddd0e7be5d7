"""What a browser can do by the commands of the WebDriver standard, whatever carries them."""

import base64
import contextlib
import os
import pathlib
import signal

from waiting import wait_until as wait_patiently

PATIENCE_S = 120  # a browser on a busy machine is slow; nothing here waits for a fixed time
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"


class BrowserError(Exception):
    """A browser refuses a command."""


def wait_until(question, what):
    return wait_patiently(question, what, PATIENCE_S)


def end(process):
    """Ends a process with its children, which have a group of their own."""
    with contextlib.suppress(ProcessLookupError):
        os.killpg(process.pid, signal.SIGKILL)
    process.wait()


class Browser:
    """What both browsers can do. `command` sends one command of the standard."""

    name = ""

    def open(self, path):
        self.command("POST", "/url", {"url": pathlib.Path(path).resolve().as_uri()})

    def run(self, script, *arguments):
        """Runs the body of a function in the page and returns its result."""
        return self.command("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def wait_for(self, expression, what=None):
        return wait_until(lambda: self.run(f"return {expression}"), what or expression)

    def wait_for_result(self, script, *arguments):
        """Runs the body of an asynchronous function in the page, and waits for its result."""
        self.run("window.answer = null; (async function() {" + script + "}).apply(null, arguments)"
                 ".then((value) => { window.answer = [value]; }, (error) => { window.answer = [String(error)]; });", *arguments)
        return self.wait_for("window.answer", "the result of a script")[0]

    def find(self, selector):
        return self.command("POST", "/element", {"using": "css selector", "value": selector})[ELEMENT]

    def click(self, selector):
        self.command("POST", f"/element/{self.find(selector)}/click", {})

    def press(self, *keys):
        """Presses keys one after the other: "a", " ", or a name."""
        names = {"Tab": "\ue004", "Left": "\ue012", "Right": "\ue014", "Home": "\ue011", "End": "\ue010", "Enter": "\ue007"}
        actions = []
        for key in keys:
            value = names.get(key, key)
            actions += [{"type": "keyDown", "value": value}, {"type": "keyUp", "value": value}]
        self.command("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def drag(self, start, end, steps=5):
        """Pulls the mouse from one place in the window to another, with the left button."""
        moves = [{"type": "pointerMove", "x": round(start[0]), "y": round(start[1]), "duration": 0},
                 {"type": "pointerDown", "button": 0}]
        for i in range(1, steps + 1):
            share = i / steps
            moves.append({"type": "pointerMove", "duration": 20, "x": round(start[0] + (end[0] - start[0]) * share),
                          "y": round(start[1] + (end[1] - start[1]) * share)})
        moves.append({"type": "pointerUp", "button": 0})
        self.command("POST", "/actions", {"actions": [
            {"type": "pointer", "id": "mouse", "parameters": {"pointerType": "mouse"}, "actions": moves}]})

    def role_of(self, selector):
        return self.command("GET", f"/element/{self.find(selector)}/computedrole")

    def label_of(self, selector):
        return self.command("GET", f"/element/{self.find(selector)}/computedlabel")

    def is_shown(self, selector):
        return self.command("GET", f"/element/{self.find(selector)}/displayed")

    def box_of(self, selector):
        return self.command("GET", f"/element/{self.find(selector)}/rect")

    def screenshot(self, path):
        pathlib.Path(path).write_bytes(base64.b64decode(self.command("GET", "/screenshot")))
