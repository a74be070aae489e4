"""Classifies the lines of the log."""

import dataclasses
import re

from log_texts import HEADER, numbered_text

TIME = r"(\d\d/\d\d/\d\d \d\d:\d\d:\d\d):\d{3}"
LINE = re.compile(TIME + r" \| \[([A-Z]+)\] \| (\d+) \| (\w+) \| (\w+) \| (\w+) \| (\d*) \| (\w*)"
                  r" \| \d+ \| (.*)", re.DOTALL)
LIMIT = re.compile(r"Memory Limit Reached: (\d+) MB\. Quitting !!")
KINDS_OF_HELPER_LINES = [
    ("START", re.compile(r"\*+ START Velmora CEF Helper \*+")),
    ("END", re.compile(r"\*+ END Velmora CEF Helper\. Version: 4\.3\.0\.256 \*+")),
    ("LIMIT", LIMIT),
    ("CONFIGURATION", re.compile(r"Error in initWithXMLString, error description - .*", re.DOTALL)),
    ("ELEMENT", re.compile(r"(Node count < 0|Error is accessing property value) in "
                           r"stringValueForXQuery for query - /config/CEF/\w+")),
    ("BUS", re.compile(r"the session bus is out of reach: .*")),
]
# The fixed beginnings of the messages above and of a header's lines, with 0 for each number.
BEGINNINGS = [
    "*" * 78,
    "CRN Version: ",
    "Bit: ",
    "OS Locale: ",
    "OS Name: ",
    "OS Version: ",
    "************************* START Velmora CEF Helper ",
    "************************* END Velmora CEF Helper. Version: 0.0.0.0 ",
    "Memory Limit Reached: 0 MB. Quitting !!",
    "Error in initWithXMLString, error description - ",
    "Node count < 0 in stringValueForXQuery for query - /config/CEF/",
    "Error is accessing property value in stringValueForXQuery for query - /config/CEF/",
    "the session bus is out of reach: ",
]

MAX_TEXT = 3900
PASSWORD_EVERY = 20
TOKEN_EVERY = 50
TOKEN_NOTICE = "Found access/device token. Log skipped."


def expected_message(writer, number):
    """Returns the message of log_writer.cc with its secrets masked."""
    if number % TOKEN_EVERY == 0:
        return TOKEN_NOTICE
    message = f"M{writer} {number} {numbered_text(writer, number, MAX_TEXT)}."
    return "<Password>****</Password>" + message if number % PASSWORD_EVERY == 0 else message


@dataclasses.dataclass(frozen=True)
class Line:
    kind: str        # one of KINDS_OF_HELPER_LINES, "numbered", "header", "torn" or "unknown"
    time: str = ""
    process: int = 0
    writer: int = 0
    number: int = 0


def _is_cut(message):
    """Returns whether a helper's message or a header's line is incomplete."""
    text = re.sub(r"\d+", "0", message)
    return any(beginning.startswith(text) for beginning in BEGINNINGS)


def classify(text):
    """Classifies a line without its newline. Any part of an expected line is "torn"."""
    if re.search(TIME, text[1:]):
        return Line("unknown")  # another line interrupts the line
    match = LINE.fullmatch(text)
    if not match:
        is_torn = not text or re.match(r"[\d/: ]{1,22}", text)
        return Line("torn" if is_torn else "unknown")
    time, _, process, domain, sub_domain, component, number, detail, message = match.groups()
    if HEADER.fullmatch(message):
        return Line("header", time, int(process))
    if domain == "HXPL":
        for kind, pattern in KINDS_OF_HELPER_LINES:
            if pattern.fullmatch(message):
                return Line(kind, time, int(process))
    writer = int(domain[1:]) if re.fullmatch(r"D\d+", domain) else None
    if (writer and number and (sub_domain, component, detail) ==
            (f"S{writer}", f"C{writer}", f"b{writer}")):
        if message == expected_message(writer, int(number)):
            return Line("numbered", time, int(process), writer, int(number))
        if expected_message(writer, int(number)).startswith(message):
            return Line("torn", time, int(process), writer, int(number))
    return Line("torn" if _is_cut(message) else "unknown")
