"""Waiting for conditions, and failures of a test."""

import time

PATIENCE_S = 60  # a busy machine may need long; conditions are checked every few milliseconds


class Failure(Exception):
    """A condition that did not hold."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def wait_until(question, what, patience=PATIENCE_S):
    """Calls the function until its result is true, and returns that result."""
    deadline = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        check(time.monotonic() < deadline, f"timed out waiting for {what}")
        time.sleep(0.01)
