"""The tables of bench/bridge/run: medians, and ratios taken round by round."""

import statistics

from samples import by_workload, spread, verdict

AIMS = {
    ('short string', 'limit'): 0.85,
    ('short string', 'json'): 1.2,
    ('page to host', 'json'): 2.0,
}
CONVERSION_AIM = 0.95
START_TIME_AIM = 1.05
START_MEMORY_AIM_MIB = 0.5


def message_table(title, workloads, unit, value):
    baselines = ['limit', 'no conversion', 'json']
    print(f'\n{title}; then how many times as fast as each baseline: median (least..most)')
    print(f'{"":24}{unit:>10}' + ''.join(f'{name:>25}' for name in baselines))
    for name, samples in workloads.items():
        cells = [spread(samples.ratios('ours', other)) if other in samples.times else '-'
                 for other in baselines]
        print(f'{name:24}{value(samples.median("ours")):>10}'
              + ''.join(f'{cell:>25}' for cell in cells))


def message_aims(workloads):
    for (name, baseline), aim in AIMS.items():
        if name in workloads:
            ratio = statistics.median(workloads[name].ratios('ours', baseline))
            print(f'aim: {name} >= {aim} x {baseline}: {ratio:.2f}, {verdict(ratio >= aim)}')


def print_messages(lines):
    trips = by_workload(lines, 'trips')
    bursts = by_workload(lines, 'burst')
    message_table('Round trips a second', trips, '1/s', lambda ms: f'{1000 / ms:,.0f}')
    message_table('Bursts of 10,000 messages', bursts, 'ms', lambda ms: f'{ms:.1f}')
    print()
    message_aims(trips)
    message_aims(bursts)


def print_conversions(lines):
    print('\nConversion of integers, nanoseconds an element; then as fast as the element calls alone')
    lengths = by_workload(lines, 'conversion')
    for length, samples in lengths.items():
        cells = []
        for name in ('toList', 'toArray'):
            cost = samples.median(name) / int(length) * 1e6
            cells.append(f'{name} {cost:5.0f} {spread(samples.ratios(name, name + "Calls"))}')
        if 'toListSized' in samples.times:
            cost = samples.median('toListSized') / int(length) * 1e6
            cells.append(f'toList after SetSize {cost:5.0f}')
        print(f'{int(length):>10,}   ' + '   '.join(cells))
    for name in ('toList', 'toArray'):
        ratio = statistics.median(lengths['10000'].ratios(name, name + 'Calls'))
        growth = (lengths['100000'].median(name) / 10) / lengths['10000'].median(name)
        print(f'aim: {name} >= {CONVERSION_AIM} of the element calls: {ratio:.3f}, '
              f'{verdict(ratio >= CONVERSION_AIM)}; an element of 100,000 costs {growth:.2f} times '
              f'one of 10,000')


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
    ratio = statistics.median([a / b for a, b in zip(*time)])
    more = statistics.median([a - b for a, b in zip(*memory)])
    print(f'aim: at most {START_TIME_AIM} of the bare time: {ratio:.3f}, '
          f'{verdict(ratio <= START_TIME_AIM)}')
    print(f'aim: at most {START_MEMORY_AIM_MIB} MiB more: {more:+.2f}, '
          f'{verdict(more <= START_MEMORY_AIM_MIB)}')
