"""Parses the points in time that users specify."""

import re
import time
from datetime import datetime

from .records import iso_time

_SECONDS = {"s": 1, "m": 60, "h": 3600, "d": 86400}
_AGO = re.compile(r"([0-9]+)([smhd])")
_CLOCK = re.compile(r"[0-9]{2}:[0-9]{2}(:[0-9]{2}([.][0-9]{3})?)?")


def parse_time(text):
    """Returns a point in time in the form of a record's time. Raises ValueError for other texts.

    Accepts ISO 8601, a time of today, a duration before now such as "10m", and the log's form.
    """
    ago = _AGO.fullmatch(text)
    if ago:
        return _iso(_before_now(int(ago[1]) * _SECONDS[ago[2]]))
    in_log = iso_time(text)
    if in_log:
        return in_log
    if _CLOCK.fullmatch(text):
        text = datetime.now().strftime("%Y-%m-%d ") + text
    return _iso(datetime.fromisoformat(re.sub("[Zz]$", "+00:00", text)))


def _before_now(seconds):
    try:
        return datetime.fromtimestamp(time.time() - seconds)
    except (OverflowError, OSError):
        raise ValueError("too long ago") from None


def _iso(moment):
    if moment.tzinfo:
        moment = moment.astimezone().replace(tzinfo=None)
    return moment.isoformat(timespec="milliseconds")
