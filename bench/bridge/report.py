"""The tables of bench/bridge/run: medians, and ratios taken round by round."""

import statistics

from samples import by_workload, spread, verdict

AIMS = {
    ('short string', 'limit'): 0.85,
    ('short string', 'json'): 1.2,
    ('page to host', 'json'): 2.0,
}
CONVERSION_AIM = 0.95


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
