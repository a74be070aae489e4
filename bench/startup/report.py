"""The table of bench/startup/run: medians, and differences taken start by start."""

import statistics

from samples import verdict

TIME_AIM_MS = 3
MEMORY_AIM_MIB = 1


def print_starts(lines):
    """`lines`: of helper 0 and of the bare helper 1, alternating."""
    time, memory = [], []
    for helper in (0, 1):
        own = [line for line in lines if line['helper'] == helper]
        time.append([line['ms'] for line in own])
        memory.append([line['kib'] / 1024 for line in own])
    print('\nFrom exec to the first script           ms (least..most)         private dirty MiB')
    for name, ms, mib in zip(('the helper', 'a bare helper'), time, memory):
        print(f'{name:36}{statistics.median(ms):6.1f} ({min(ms):.1f}..{max(ms):.1f})'
              f'{statistics.median(mib):18.2f} ({min(mib):.2f}..{max(mib):.2f})')
    more = statistics.median([a - b for a, b in zip(*time)])
    print(f'aim: less than {TIME_AIM_MS} ms more: {more:+.2f}, {verdict(more < TIME_AIM_MS)}')
    more = statistics.median([a - b for a, b in zip(*memory)])
    print(f'aim: less than {MEMORY_AIM_MIB} MiB more: {more:+.2f}, '
          f'{verdict(more < MEMORY_AIM_MIB)}')
