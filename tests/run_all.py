"""Runs all tests of a build. A unit test, a transcript and an end-to-end script count as one test each."""

import argparse
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
LIMIT_S = 600  # for one test program; a program that runs longer hangs
RANDOM_EVENTS = 3000
UNDO_SESSIONS = 10
PLAYED_SCORES = 20
PEN_DRAWINGS = 60
SLOWEST = 10
# A script mostly waits, for the program or for the song; a program of unit tests always works.
SCRIPTS_AT_ONCE = 3
PROGRAMS_AT_ONCE = 2
LONG_SCRIPTS = ("tutorial_test", "package_test", "tutorial_trouble_test")  # they begin first, so that none is left at the end
FAILURES = "What failed:"  # everything after this line is about failures


def environment(build):
    values = dict(os.environ)
    # The sanitizers replace dlopen, and their version ignores the run path of the program.
    values["LD_LIBRARY_PATH"] = str(build / "bin")
    values.setdefault("QT_QPA_PLATFORM", "offscreen")
    if "XDG_RUNTIME_DIR" not in values:
        folder = tempfile.mkdtemp(prefix="velorin-runtime-")
        os.chmod(folder, 0o700)
        values["XDG_RUNTIME_DIR"] = folder
    values.setdefault("ASAN_OPTIONS", "detect_leaks=1")
    # Libraries keep some memory until the process ends.
    values.setdefault("LSAN_OPTIONS", f"suppressions={HERE}/leaks-of-libraries.txt:print_suppressions=0")
    values.setdefault("TSAN_OPTIONS", f"suppressions={HERE}/races-of-libraries.txt:halt_on_error=1")
    return values


def run(command, env):
    """Runs a command and returns its exit status and its output. A hang is a failure."""
    try:
        done = subprocess.run(command, env=env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=LIMIT_S, check=False)
        return done.returncode, done.stdout.decode("utf-8", "replace")
    except subprocess.TimeoutExpired:
        return 1, f"still running after {LIMIT_S} s"
    except OSError as error:
        return 1, str(error)


def unit_tests(program, env):
    """One result for each test case of a GoogleTest program; a crash counts as one failure."""
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder) / "report.json"
        status, output = run([str(program), f"--gtest_output=json:{report}", "--gtest_brief=1"], env)
        if not report.exists():
            return 0, 1, f"{program.name} ended with status {status}\n{output}"
        data = json.loads(report.read_text())
    total, failed = data["tests"], data["failures"]
    if status != 0 and failed == 0:
        failed, total = 1, total + 1
    return total - failed, failed, output if failed else ""


def one(name, command, env):
    status, output = run(command, env)
    return (1, 0, "") if status == 0 else (0, 1, f"{name} failed with status {status}\n{output}")


def end_to_end_test(name, script, build):
    left = build / "failed" / script.stem
    result = one(name, [sys.executable, str(script), str(build)], {**os.environ, "VELORIN_TEST_LEFT": str(left)})
    return (*result[:2], f"{result[2]}The screen and the logs are in {left}\n") if result[1] and left.exists() else result


def timed(name, call):
    """The result of a test, with its name and its duration in seconds."""
    started = time.monotonic()
    result = call()
    return name, time.monotonic() - started, result


def unit_test_jobs(build, env):
    for program in sorted(build.glob("tests/unit/**/unit_*")):
        if os.access(program, os.X_OK) and program.is_file():
            yield program.name, lambda p=program: unit_tests(p, env)


def replay_jobs(build, env):
    """What the fuzzers have found so far, in builds that have the programs for it."""
    for program in sorted(build.glob("fuzz/replay_*")):
        if os.access(program, os.X_OK) and program.is_file():
            corpus = HERE.parent / "fuzz/corpus" / program.name.removeprefix("replay_")
            yield program.name, lambda p=program, c=corpus: one(p.name, [str(p), str(c)], env)


def command_jobs(build, env):
    """What runs as one command each."""
    yield "house", [sys.executable, HERE / "house_test.py"]
    yield "house checks", [sys.executable, HERE / "house/self_test.py"]
    yield "random session", [build / "bin" / "velorin-random", "--events", RANDOM_EVENTS, "--seed", 1]
    yield "drawings with the pen and with the mouse", [build / "bin" / "velorin-random-pen", "--drawings", PEN_DRAWINGS]
    yield "undo sessions", [sys.executable, HERE / "random/undo_sessions.py", build, "--sessions", UNDO_SESSIONS]
    yield "played MIDI files", [sys.executable, HERE / "random/played_midi.py", build, "--count", PLAYED_SCORES]
    runner = build / "bin" / "velorin-transcript"
    for transcript in sorted((HERE / "transcripts").rglob("*.txt")):
        yield f"transcript {transcript.relative_to(HERE / 'transcripts')}", [runner, transcript]


def listens(script):
    """True if a script listens to the sound. A slow build of the program cannot sound in time."""
    return "import listen" in script.read_text("utf-8")


def end_to_end_scripts(which):
    if which == "no":
        return []
    scripts = sorted((HERE / "e2e").glob("*_test.py"))
    if which == "silent":
        return [script for script in scripts if not listens(script)]
    scripts += (HERE / "packaging").glob("*_test.py")
    return sorted(scripts, key=lambda script: (script.stem not in LONG_SCRIPTS, script.stem))


def end_to_end_jobs(build, which):
    for script in end_to_end_scripts(which):
        name = f"{script.parent.name} {script.stem}"
        yield name, lambda n=name, s=script: end_to_end_test(n, s, build)


def program_jobs(build, env):
    """All but the end-to-end scripts."""
    yield from unit_test_jobs(build, env)
    yield from replay_jobs(build, env)
    for name, command in command_jobs(build, env):
        yield name, lambda n=name, c=command: one(n, [str(word) for word in c], env)


def in_threads(pool, work):
    return [pool.submit(timed, *job) for job in work]


def run_together(programs, scripts):
    with concurrent.futures.ThreadPoolExecutor(PROGRAMS_AT_ONCE) as pool, \
            concurrent.futures.ThreadPoolExecutor(SCRIPTS_AT_ONCE) as desks:
        return [job.result() for job in [*in_threads(desks, scripts), *in_threads(pool, programs)]]


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--end-to-end", choices=["yes", "no", "silent"], default="yes",
                           help="silent: only scripts of tests/e2e, and none that listens to the sound")
    arguments.add_argument("--threaded", action="store_true", help="only the unit tests, of which that build has those with threads")
    options = arguments.parse_args()
    build = options.build.resolve()

    passed = failed = 0
    env = environment(build)
    if options.threaded:
        done = run_together(unit_test_jobs(build, env), [])
    else:
        done = run_together(program_jobs(build, env), end_to_end_jobs(build, options.end_to_end))
    results = [result for _, _, result in done]
    for good, bad, _ in results:
        passed += good
        failed += bad
    print("The slowest:")
    for name, seconds, _ in sorted(done, key=lambda job: -job[1])[:SLOWEST]:
        print(f"{seconds:6.1f} s  {name}")
    if failed:
        print(FAILURES)
        print(*[text for _, _, text in results if text], sep="\n")
    if passed + failed == 0:
        print("no tests were found")
        failed = 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
