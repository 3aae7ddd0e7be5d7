"""Opens song pages in Chromium and Firefox, headless and without a network, and uses them as a listener does.

    python3 tests/browsers/page_test.py build/release [--only chromium] [--pictures FOLDER]

The last line is 'N passed, N failed'. With a folder, it also gets pictures of a page that plays, in a wide window
and in one as narrow as a phone.
"""

import argparse
import contextlib
import pathlib
import subprocess
import sys
import tempfile
import traceback

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "e2e"))

import checks_of_playing  # noqa: E402,F401  they list their checks
import checks_of_reach  # noqa: E402,F401
import song  # noqa: E402
from chromium import Chromium  # noqa: E402
from firefox import Firefox  # noqa: E402
from network import DeadNetwork  # noqa: E402
from sound_server import SoundServer  # noqa: E402
from visit import ALL, AUDIO, FOLLOWS, Visit  # noqa: E402

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "src/resources/songs/paper-boat.sng"
WINDOWS = ((1200, 900), (390, 1200))
KINDS = {"chromium": Chromium, "firefox": Firefox}


class Files:
    """The pages and what they were made from."""

    def __init__(self, build, folder):
        self.converter = build.resolve() / "bin" / "velorin-convert"
        self.folder = folder
        self.score = folder / f"{song.TITLE}.sng"
        self.score.write_bytes(song.score().text())
        self.page = self.convert(self.score, "page.html")
        self.sound = self.convert(self.score, "page.mp3")
        # A name that is not valid UTF-8.
        latin = bytes(folder) + b"/caf\xe9.sng"
        with open(latin, "wb") as file:
            file.write(song.score().text())
        self.latin_page = self.convert(latin, "latin.html")
        self.held_page = folder / "held.html"
        self.held_page.write_bytes(self.page.read_bytes().replace(
            b'"shifts":[]', f'"shifts":{[list(hold) for hold in song.HOLDS]}'.encode()))
        self.foreign = folder / "foreign.html"
        self.foreign.write_text('<img src="http://canary.example/a.png"><script>nothing.there()</script>', "utf-8")

    def convert(self, source, name):
        target = self.folder / name
        subprocess.run([self.converter, source, "-o", target], check=True)
        return target


def run_checks(browser, network, sounds, files):
    """Returns the failures as texts, and how many checks passed."""
    failures = []
    passed = 0
    for check in ALL:
        name = f"{browser.name}: {check.__doc__.splitlines()[0]}"
        try:
            check(Visit(browser, network, sounds, files))
            passed += 1
            print(f"ok      {name}", flush=True)
        except Exception:
            failures.append(f"{name}\n{traceback.format_exc()}")
            print(f"FAILED  {name}", flush=True)
    return failures, passed


def take_pictures(browser, page, folder):
    for width, height in WINDOWS:
        browser.resize(width, height)
        browser.open(page)
        browser.wait_for(f"{AUDIO}.readyState > 0", "the sound of the page")
        browser.run(f"{AUDIO}.currentTime = 11.1")
        browser.click("#play")
        browser.wait_for(f"{AUDIO}.currentTime > 11.2 && {FOLLOWS}", "the sheet that follows the marker")
        browser.screenshot(folder / f"page-{browser.name}-{width}.png")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--only", choices=KINDS)
    arguments.add_argument("--pictures", type=pathlib.Path, metavar="FOLDER")
    options = arguments.parse_args()
    failures = []
    passed = 0
    with contextlib.ExitStack() as stack:
        folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="velorin-browsers-",
                                                                              ignore_cleanup_errors=True)))
        files = Files(options.build, folder)
        network = stack.enter_context(contextlib.closing(DeadNetwork()))
        sounds = stack.enter_context(contextlib.closing(SoundServer(folder)))
        for name, kind in KINDS.items():
            if options.only in (None, name):
                with contextlib.closing(kind(folder, network, sounds.environment)) as browser:
                    more, good = run_checks(browser, network, sounds, files)
                    if options.pictures:
                        options.pictures.mkdir(parents=True, exist_ok=True)
                        take_pictures(browser, files.convert(EXAMPLE, "example.html"), options.pictures)
                failures += more
                passed += good
    if failures:
        print("What failed:")
        print(*failures, sep="\n")
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
