"""Prints the tables of bench/startup/run: medians, and differences for each start."""

import statistics

from samples import verdict

NAMES = ['the helper', 'a bare helper', 'the baseline']  # by the index of the helper
BARE, EARLIER = 1, 2
TIME_AIM_MS = 3
MEMORY_AIM_MIB = 1
FRAMES = 200  # as in pages/frames.html
FRAME_TIME_AIM_MS = 0.2
FRAME_MEMORY_AIM_KIB = 32


def by_helper(lines, value):
    """Returns the values of each helper, in the order of the starts."""
    count = 1 + max(line['helper'] for line in lines)
    return [[value(line) for line in lines if line['helper'] == helper] for helper in range(count)]


def more(values, other):
    """Returns the median difference between the helper and another helper."""
    return statistics.median([a - b for a, b in zip(values[0], values[other])])


def print_aim(limit, unit, other, values):
    difference = more(values, other)
    print(f'aim: less than {limit} {unit} more than {NAMES[other]}: {difference:+.2f}, '
          f'{verdict(difference < limit)}')


def print_table(title, unit, time, memory):
    print(f'\n{title:36}{"ms (least..most)":>24}{"private dirty " + unit:>28}')
    for name, ms, size in zip(NAMES, time, memory):
        print(f'{name:36}{statistics.median(ms):8.2f} ({min(ms):.2f}..{max(ms):.2f})'
              f'{statistics.median(size):18.2f} ({min(size):.2f}..{max(size):.2f})')


def print_starts(starts):
    time = by_helper(starts, lambda line: line['ms'])
    memory = by_helper(starts, lambda line: line['kib'] / 1024)
    print_table('From exec to the first script', 'MiB', time, memory)
    print_aim(TIME_AIM_MS, 'ms', BARE, time)
    print_aim(MEMORY_AIM_MIB, 'MiB', BARE, memory)


def print_frames(starts, frames):
    """The page of `frames` reports the milliseconds of one context after it has created all
    contexts."""
    before = [statistics.median(sizes) for sizes in by_helper(starts, lambda line: line['kib'])]
    time = by_helper(frames, lambda line: float(line['text']))
    memory = by_helper(frames, lambda line: (line['kib'] - before[line['helper']]) / FRAMES)
    print_table(f'The context of a frame, of {FRAMES}', 'KiB', time, memory)
    if len(time) > EARLIER:
        print_aim(FRAME_TIME_AIM_MS, 'ms', EARLIER, time)
        print_aim(FRAME_MEMORY_AIM_KIB, 'KiB', EARLIER, memory)
