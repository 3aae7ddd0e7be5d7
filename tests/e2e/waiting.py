"""What a test waits for and what it does not find."""

import time

PATIENCE_S = 20  # a loaded machine may need long for anything; who waits looks every few milliseconds


class Failure(Exception):
    """What the test did not find."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def wait_until(question, what, patience=PATIENCE_S):
    """Asks until the answer is yes, and returns the answer."""
    deadline = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        check(time.monotonic() < deadline, f"waited in vain: {what}")
        time.sleep(0.01)
