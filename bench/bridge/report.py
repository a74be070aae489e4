"""Prints the tables of bench/bridge/run: medians, and ratios for each round."""

import statistics

from samples import by_workload, spread, verdict

EARLIER = 'baseline'  # the helper of the build folder that --baseline names
BASELINES = ['limit', 'no conversion', 'json', 'json values', EARLIER]
AIMS = {
    ('short string', 'limit'): 0.85,
    ('short string', 'json'): 1.2,
    ('page to host', 'json'): 2.0,
    ('10,000 ints', 'no conversion'): 0.3,
    ('1,000 lists of 10 ints', 'no conversion'): 0.3,
    ('10,000 ints', EARLIER): 4,
    ('1,000 lists of 10 ints', EARLIER): 4,
    ('10,000 short strings', EARLIER): 3,
    ('10,000 doubles', EARLIER): 2.5,
    ('100 mixed scalars', EARLIER): 1.7,
    ('short string', EARLIER): 0.97,
    ('string of 1 MB', EARLIER): 0.97,
    ('page to host', EARLIER): 0.97,
    ('host to page', EARLIER): 0.97,
}
CONVERSION_AIM = 0.95


def message_table(title, workloads, unit, value):
    print(f'\n{title}; then how many times as fast as each baseline: median (least..most)')
    print(f'{"":24}{unit:>10}' + ''.join(f'{name:>25}' for name in BASELINES))
    for name, samples in workloads.items():
        cells = [spread(samples.ratios('ours', other)) if other in samples.times else '-'
                 for other in BASELINES]
        print(f'{name:24}{value(samples.median("ours")):>10}'
              + ''.join(f'{cell:>25}' for cell in cells))


def message_aims(workloads):
    for (name, baseline), aim in AIMS.items():
        if name in workloads and baseline in workloads[name].times:
            ratio = statistics.median(workloads[name].ratios('ours', baseline))
            print(f'aim: {name} >= {aim} x {baseline}: {ratio:.2f}, {verdict(ratio >= aim)}')


def print_messages(lines, burst):
    trips = by_workload(lines, 'trips')
    bursts = by_workload(lines, 'burst')
    message_table('Round trips a second', trips, '1/s', lambda ms: f'{1000 / ms:,.0f}')
    message_table(f'Bursts of {burst:,} messages', bursts, 'ms', lambda ms: f'{ms:.1f}')
    print('limit: an empty list, sent and received natively; no conversion: the same list, '
          'converted once;\njson: one string, which the host sends back; json values: a string that the host '
          'parses and writes')
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
