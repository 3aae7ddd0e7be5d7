"""Runs every test of a build and counts: unit tests one by one, transcripts by file, end-to-end tests by script."""

import argparse
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LIMIT_S = 600  # for one test program; what runs longer hangs
RANDOM_EVENTS = 3000
FAILURES = "What failed:"  # from here to the last line
# What has threads of its own besides the one of the windows.
THREADED = ["host/unit_host", "host/unit_host_kept", "host/unit_host_qt", "host/unit_host_signals", "convert/unit_convert"]


def environment(build):
    values = dict(os.environ)
    # The sanitizers' own way of loading modules does not know where a program says that they lie.
    values["LD_LIBRARY_PATH"] = str(build / "bin")
    values.setdefault("QT_QPA_PLATFORM", "offscreen")
    if "XDG_RUNTIME_DIR" not in values:
        folder = tempfile.mkdtemp(prefix="velorin-runtime-")
        os.chmod(folder, 0o700)
        values["XDG_RUNTIME_DIR"] = folder
    values.setdefault("ASAN_OPTIONS", "detect_leaks=1")
    # Font look-up keeps its caches until the process ends.
    values.setdefault("LSAN_OPTIONS", f"suppressions={HERE}/leaks-of-libraries.txt:print_suppressions=0")
    values.setdefault("TSAN_OPTIONS", f"suppressions={HERE}/races-of-libraries.txt:halt_on_error=1")
    return values


def run(command, env):
    """Runs a command; returns its exit status and its output, with a hang as a failure."""
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


def listens(script):
    """Whether a script hears what the program plays: sound wants the machine for itself."""
    return "import listen" in script.read_text("utf-8")


def threaded_jobs(build, env):
    for name in THREADED:
        yield True, lambda p=build / "tests/unit" / name: unit_tests(p, env)


def jobs(build, end_to_end, env):
    """(may run beside others, what to call) for every test."""
    for program in sorted(build.glob("tests/unit/*/unit_*")):
        if os.access(program, os.X_OK) and program.is_file():
            yield True, lambda p=program: unit_tests(p, env)
    runner = build / "bin" / "velorin-transcript"
    for transcript in sorted((HERE / "transcripts").rglob("*.txt")):
        name = f"transcript {transcript.relative_to(HERE / 'transcripts')}"
        yield True, lambda n=name, t=transcript: one(n, [str(runner), str(t)], env)
    yield True, lambda: one("house", [sys.executable, str(HERE / "house_test.py")], env)
    session = [str(build / "bin" / "velorin-random"), "--events", str(RANDOM_EVENTS), "--seed", "1"]
    yield True, lambda: one("random session", session, env)
    if end_to_end:
        for script in [*sorted((HERE / "e2e").glob("*_test.py")), *sorted((HERE / "packaging").glob("*_test.py"))]:
            name = f"{script.parent.name} {script.stem}"
            yield not listens(script), lambda n=name, s=script: one(n, [sys.executable, str(s), str(build)], dict(os.environ))


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--end-to-end", choices=["yes", "no"], default="yes")
    arguments.add_argument("--threaded", action="store_true", help="only what has threads of its own")
    options = arguments.parse_args()
    build = options.build.resolve()

    passed = failed = 0
    env = environment(build)
    work = list(threaded_jobs(build, env) if options.threaded else jobs(build, options.end_to_end == "yes", env))
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        beside = [pool.submit(call) for parallel, call in work if parallel]
        results = [done.result() for done in beside]
    results += [call() for parallel, call in work if not parallel]
    for good, bad, _ in results:
        passed += good
        failed += bad
    if failed:
        print(FAILURES)
        print(*[text for _, _, text in results if text], sep="\n")
    if passed + failed == 0:
        print("no test was found")
        failed = 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
