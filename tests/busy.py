"""Runs end-to-end scripts many times on a busy machine, and prints a table of what passed.

The load is made by programs that only compute. `--cores 1` also takes the other cores away from the scripts and from
what they start. A script that fails leaves a picture and its logs.
"""

import argparse
import multiprocessing
import os
import pathlib
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
LIMIT_S = 900


def compute():
    while True:
        pass


def scripts(names):
    found = {script.stem.removesuffix("_test"): script for script in sorted((HERE / "e2e").glob("*_test.py"))}
    unknown = [name for name in names if name not in found]
    if unknown:
        sys.exit(f"no such script: {', '.join(unknown)}")
    return {name: found[name] for name in (names or found)}


def passes(script, build, left):
    environment = {**os.environ, "VELORIN_TEST_LEFT": str(left)}
    try:
        done = subprocess.run([sys.executable, script, build], env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=LIMIT_S, check=False)
        said, status = done.stdout.decode("utf-8", "replace"), done.returncode
    except subprocess.TimeoutExpired:
        said, status = f"still running after {LIMIT_S} s", 1
    if status:
        print(f"  {said.strip().splitlines()[-1] if said.strip() else f'status {status}'}", flush=True)
    return status == 0


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("names", nargs="*", help="scripts without '_test.py'; all by default")
    arguments.add_argument("--times", type=int, default=20)
    arguments.add_argument("--load", type=int, default=6, help="programs that compute")
    arguments.add_argument("--cores", type=int, default=os.cpu_count())
    arguments.add_argument("--left", type=pathlib.Path, default=pathlib.Path("failed"), help="where failed scripts leave things")
    options = arguments.parse_args()

    chosen = scripts(options.names)
    os.sched_setaffinity(0, sorted(os.sched_getaffinity(0))[:options.cores])
    for _ in range(options.load):
        multiprocessing.Process(target=compute, daemon=True).start()
    failed = 0
    for name, script in chosen.items():
        start = time.monotonic()
        good = sum(passes(script, options.build.resolve(), options.left / f"{name}-{i + 1}") for i in range(options.times))
        failed += good < options.times
        print(f"{name:20} {good} of {options.times}, {(time.monotonic() - start) / options.times:.0f} s each", flush=True)
    print(f"{len(chosen) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
