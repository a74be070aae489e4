"""Finds pieces of Rust source text by their brackets."""

OPENING = {"(": ")", "[": "]", "{": "}", "<": ">"}


def end_of_group(text, start):
    """Returns the position after the bracket that closes the one at `start`."""
    expected = []
    for position in range(start, len(text)):
        character = text[position]
        if character in OPENING:
            expected.append(OPENING[character])
        elif character == ">" and text[position - 1] == "-":  # an arrow
            continue
        elif expected and character == expected[-1]:
            expected.pop()
            if not expected:
                return position + 1
    raise ValueError("a bracket is not closed: " + text[start:start + 80])


def split(text):
    """Splits a list at the commas outside of brackets."""
    items, start, position = [], 0, 0
    while position < len(text):
        if text[position] in OPENING:
            position = end_of_group(text, position)
            continue
        if text[position] == ",":
            items.append(text[start:position])
            start = position + 1
        position += 1
    items.append(text[start:])
    return [item.strip() for item in items if item.strip()]


def argument(text, name):
    """Returns T for `NAME<T>`, and None for any other text."""
    if text.startswith(name + "<") and end_of_group(text, len(name)) == len(text):
        return text[len(name) + 1:-1].strip()
    return None
