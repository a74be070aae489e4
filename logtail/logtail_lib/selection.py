"""Selects the records that the user wants to see."""

import re
from fnmatch import fnmatchcase

from .records import LEVELS


class Selection:
    """Decides whether a record is selected. A line without columns is selected only if no option
    restricts a column."""

    def __init__(self, options):
        """Uses the attributes level, since, until, process, thread, component and grep. Attributes
        that are None or empty restrict nothing."""
        tests = [
            options.level is not None and _level_test(options.level),
            options.since and (lambda record: (record.time or "") >= options.since),
            options.until and (lambda record: "" < (record.time or "") <= options.until),
            options.process and (lambda record: record.process in options.process),
            options.thread and (lambda record: record.thread in options.thread),
            options.component and _component_test(options.component),
            options.grep and _message_test(options.grep),
        ]
        self._tests = list(filter(None, tests))

    def __call__(self, record):
        return all(test(record) for test in self._tests)


def _level_test(least):
    wanted = {name for name, number in LEVELS.items() if number >= least}
    return lambda record: record.level in wanted


def _component_test(patterns):
    return lambda record: record.component is not None and any(
        fnmatchcase(record.component, pattern) for pattern in patterns)


def _message_test(patterns):
    patterns = [re.compile(pattern) for pattern in patterns]
    return lambda record: any(pattern.search(record.message) for pattern in patterns)
