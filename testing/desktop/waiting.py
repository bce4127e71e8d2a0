"""Waiting for what a program shows or does."""

import time

LIMIT = 30  # Seconds; what is waited for takes a fraction of one where nothing else runs.


class Failed(Exception):
    """What was expected did not come."""


class Gone(Exception):
    """A control or a program that isn't there any more, or not yet."""


def wait_for(what, condition, limit=LIMIT):
    """Returns the first true result of the condition."""
    end = time.monotonic() + limit
    while True:
        result = unless_gone(condition)
        if result:
            return result
        if time.monotonic() > end:
            raise Failed(f"waited {limit} seconds for {what}")
        time.sleep(0.05)


def unless_gone(look):
    try:
        return look()
    except Gone:
        return None
