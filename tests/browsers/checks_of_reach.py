"""Checks that a song page works by keyboard, on a phone, in print and for a screen reader, and that its downloads are
exact. Each check opens a new page."""

import subprocess

import song
from visit import AUDIO, listed
from waiting import check
from webdriver import wait_until


@listed
def asks_for_nothing(visit):
    """opens without a request to a network and without a complaint"""
    browser = visit.open()
    browser.click("#play")
    browser.wait_for(f"{AUDIO}.currentTime > 0.2")
    browser.read_logs()
    away = [url for url in browser.requested if not url.startswith(("file:", "data:", "blob:"))]
    check(not away, f"the page asked for {away}")
    check(not browser.complaints, f"the browser complains: {browser.complaints}")


@listed
def would_notice(visit):
    """these tests notice a request and an error of another page"""
    browser = visit.browser
    browser.read_logs()
    browser.requested.clear()
    browser.complaints.clear()
    browser.open(visit.files.foreign)

    def seen():
        browser.read_logs()
        return any("canary" in url for url in browser.requested) and any("nothing" in line for line in browser.complaints)

    wait_until(seen, "the request and the error")
    wait_until(lambda: visit.network.asked_for("canary.example"), "the request at the proxy")


@listed
def shows_its_names(visit):
    """shows names of all kinds as text"""
    browser = visit.open()
    check(browser.run("return document.querySelector('h1').textContent") == song.TITLE, "the heading has another name")
    check(browser.run("return document.title") == f"{song.TITLE} - Velorin", "the title has another name")
    check(browser.run("return document.querySelectorAll('script').length") == 2, "a name became a script")
    visit.open(visit.files.latin_page)
    check(browser.run("return document.querySelector('h1').textContent") == "caf\ufffd", "a bad byte is not replaced")


@listed
def keyboard_reaches_all(visit):
    """can be used by keyboard alone, and shows where the keyboard is"""
    browser = visit.open()
    reached = []
    for _ in range(5):
        browser.press("Tab")
        reached.append(browser.run("return document.activeElement.id"))
        outline = browser.run("const s = getComputedStyle(document.activeElement); return [s.outlineStyle, s.outlineWidth, s.outlineColor]")
        check(outline == ["solid", "2px", "rgb(68, 204, 255)"], f"the focus on {reached[-1]} is shown as {outline}")
    check(reached == ["play", "place", "roll", "getScore", "getSound"], f"the order of Tab is {reached}")
    browser.run("document.getElementById('place').focus()")
    browser.press("Right")
    visit.wait_for_column(song.BAR)
    browser.wait_for("document.getElementById('place').getAttribute('aria-valuetext') === '0 seconds of 12 seconds, bar 2'")
    browser.run("document.getElementById('play').focus()")
    browser.press(" ")
    browser.wait_for(f"!{AUDIO}.paused", "playing by the button's own key")


@listed
def names_all_controls(visit):
    """names its controls, its picture and its parts for screen readers"""
    browser = visit.open()
    wanted = {
        "#play": ("button", "Play"), "#place": ("slider", "Place in the song"), "#roll": ("region", "Sheet"),
        "#getScore": ("link", "Score"), "#getSound": ("link", "Sound"), "#player": ("region", "Player"),
        ".lines": ("image", f"The score of {song.TITLE}: two channels and percussion over 25 bars, notes from 4D# to 5G."),
        "h1": ("heading", song.TITLE),
    }
    for selector, (role, label) in wanted.items():
        found = browser.role_of(selector).replace("img", "image"), browser.label_of(selector)
        check(found == (role, label), f"{selector} is {found}, not {(role, label)}")
    check(browser.run("return document.documentElement.lang") == "en", "the language is not given")
    headings = browser.run("return [...document.querySelectorAll('h1, h2')].map((h) => h.tagName + ' ' + h.textContent)")
    check(headings == [f"H1 {song.TITLE}", "H2 Score", "H2 Instruments", "H2 Take it with you"], f"the headings are {headings}")
    instruments = browser.run("return [...document.querySelectorAll('li')].map((e) => e.textContent)")
    check(instruments == ["1Channel 1: Music Box", "2Channel 2: Orchestral Harp", "1Percussion Channel 1: Side Stick"],
          f"the instruments are {instruments}")
    check(browser.run("return document.getElementById('news').getAttribute('role')") == "status", "no place for news")
    browser.press("Right")
    browser.wait_for("document.getElementById('news').textContent === 'Bar 2'")


@listed
def downloads_are_exact(visit):
    """gives the score and the sound to download, byte for byte"""
    browser = visit.open()
    files = visit.files
    browser.click("#getSound")
    got = wait_until(lambda: downloaded(browser, ".mp3"), "the downloaded sound")
    check(got.read_bytes() == files.sound.read_bytes(), "the sound is not that of the MP3 file")
    browser.click("#getScore")
    got = wait_until(lambda: downloaded(browser, ".sng"), "the downloaded score")
    # The score plays and looks as the one that the page was made from.
    again = browser.downloads / "song.sng"
    again.write_bytes(got.read_bytes())
    original = files.folder / "song.sng"
    original.write_bytes(files.score.read_bytes())
    for kind in ("mid", "png"):
        for source in (original, again):
            subprocess.run([files.converter, source, "-o", source.with_suffix(f".{kind}")], check=True)
        made = [source.with_suffix(f".{kind}").read_bytes() for source in (original, again)]
        check(made[0] == made[1], f"the downloaded score makes another .{kind} file")
    address = browser.run("return document.getElementById('getScore').getAttribute('href')")
    text = address.split(",", 1)[1].replace("%0D", "\r").replace("%0A", "\n").replace("%20", " ")
    check(got.read_bytes() == text.encode(), "the downloaded score is not that of the page")


def downloaded(browser, ending):
    found = [path for path in browser.downloads.iterdir() if path.name.endswith(ending) and path.stat().st_size > 0]
    partial = [path for path in browser.downloads.iterdir() if path.name.endswith((".crdownload", ".part"))]
    return found[0] if found and not partial else None


@listed
def fits_a_phone(visit):
    """fits windows of 390 and 320 pixels, with targets that a finger can hit"""
    for width in (390, 320):
        browser = visit.open(width=width, height=800)
        inner, wide = browser.run("return [innerWidth, document.documentElement.scrollWidth]")
        check(wide <= inner == width, f"at {inner} px the page is {wide} px wide")
        for selector, least in (("#play", 44), ("#place", 24), ("#getScore", 44), ("#getSound", 44)):
            height = browser.run("return document.querySelector(arguments[0]).getBoundingClientRect().height", selector)
            check(height >= least, f"{selector} is {height} px high")
        reach = browser.run("return parseFloat(getComputedStyle(document.getElementById('marker'), '::after').width)")
        check(reach >= 44, f"the marker can be gripped over {reach} px")


@listed
def prints(visit):
    """prints on white, with the sheet broken into lines"""
    browser = visit.open(width=700, height=900)
    browser.print_look(True)
    browser.wait_for("getComputedStyle(document.body).backgroundColor === 'rgb(255, 255, 255)'", "the white ground")
    for selector in ("#player", ".take", "#marker"):
        shown = browser.run("return getComputedStyle(document.querySelector(arguments[0])).display", selector)
        check(shown == "none", f"{selector} is printed")
    boxes = browser.run("""return [...document.querySelectorAll('.line')].map((line) => {
        const box = line.getBoundingClientRect(); return [box.left, box.top, box.bottom]; })""")
    check(len(boxes) == 3, f"100 columns are printed as {len(boxes)} lines")
    for above, below in zip(boxes, boxes[1:]):
        check(below[0] == above[0] and below[1] >= above[2], f"the lines are at {boxes}")
    wide = browser.run("return document.documentElement.scrollWidth")
    check(wide <= 700, f"the printed page is {wide} px wide")
    browser.print_look(False)


@listed
def works_without_scripts(visit):
    """shows the sheet, the score and the browser's own player without scripts"""
    browser = visit.browser
    browser.resize(1200, 900)
    browser.allow_scripts(False)
    browser.open(visit.files.page)
    for selector in ("audio", ".tile", "#getScore"):
        check(browser.is_shown(selector), f"{selector} is not shown")
        box = browser.box_of(selector)
        check(box["width"] > 50 and box["height"] > 20, f"{selector} has the size {box}")
    check(not browser.is_shown("#player"), "the player is shown")
    browser.allow_scripts(True)
