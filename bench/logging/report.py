"""Prints the tables of bench/logging/run: medians, and ratios for each round."""

import statistics

from samples import by_workload, spread, verdict

EARLIER = 'baseline'  # the library of the build folder that --baseline names
BASELINES = ['limit', 'limit, tries', 'limit, mutex, tries', 'log4cplus', 'spdlog', EARLIER]
EARLIER_AIM = 0.97
SEVERAL = {'limit, tries': 0.7, 'log4cplus': 1.0}
AIMS = {
    'one process': {'limit': 0.75},
    'two processes': SEVERAL,
    'four processes': SEVERAL,
    'four threads': SEVERAL,
}
PROCESSOR_AIM = 1.35


def print_speed(workloads):
    print('Lines of 150 bytes a second; then how many times as many as each baseline: '
          'median (least..most)')
    titles = [name + '*' * (name == 'spdlog') for name in BASELINES]
    print(f'{"":16}{"1/s":>10}' + ''.join(f'{title:>25}' for title in titles))
    for name, samples in workloads.items():
        cells = [spread(samples.ratios('ours', other)) if other in samples.times else '-'
                 for other in BASELINES]
        print(f'{name:16}{1000 / samples.median("ours"):>10,.0f}'
              + ''.join(f'{cell:>25}' for cell in cells))
    print('limit: semop, write, semop; tries: before a sleep; mutex: before the semaphore.\n'
          'spdlog (*) has no lock between processes.')


def print_processor_time(workloads):
    print('\nProcessor time of a line, microseconds; then as a multiple of the limit')
    for name, samples in workloads.items():
        print(f'{name:16}{samples.median("ours") * 1000:>10.2f}'
              f'{spread(samples.ratios("limit", "ours")):>25}')


def print_aims(speed, processor):
    print()
    for name, aims in AIMS.items():
        for baseline, aim in aims.items():
            ratio = statistics.median(speed[name].ratios('ours', baseline))
            print(f'aim: {name} >= {aim} x {baseline}: {ratio:.2f}, {verdict(ratio >= aim)}')
        if EARLIER in speed[name].times:
            ratio = statistics.median(speed[name].ratios('ours', EARLIER))
            print(f'aim: {name} >= {EARLIER_AIM} x {EARLIER}: {ratio:.2f}, '
                  f'{verdict(ratio >= EARLIER_AIM)}')
    ratio = statistics.median(processor['one process'].ratios('limit', 'ours'))
    print(f'aim: one process at most {PROCESSOR_AIM} of the limit\'s processor time: {ratio:.2f}, '
          f'{verdict(ratio <= PROCESSOR_AIM)}')


def print_lines(lines):
    speed = by_workload(lines, 'lines')
    processor = by_workload(lines, 'lines', 'processorMilliseconds')
    print_speed(speed)
    print_processor_time(processor)
    print_aims(speed, processor)
