"""Measures parts of the log with bench_logging_parts, and prints their cost."""

import json
import os
import subprocess
import tempfile

from samples import verdict

PROGRAM = 'bench_logging_parts'
LENGTHS = [100, 1000, 4000]
KINDS = ['plain', 'element', 'token']
MASKING_AIM = 0.1  # of a line of 100 characters
SCAN_AIM = 1.0  # GB/s
ROTATION_AIM = 1.3  # of the bare copy
NANOSECONDS = {'ns': 1, 'us': 1e3, 'ms': 1e6, 's': 1e9}


def measure(binaries, repetitions):
    """Returns the median nanoseconds of each measurement by name, such as `Line/100/0`."""
    with tempfile.TemporaryDirectory() as home:
        output = subprocess.run(
            [binaries / PROGRAM, '--benchmark_format=json',
             f'--benchmark_repetitions={repetitions}', '--benchmark_min_time=0.05',
             '--benchmark_enable_random_interleaving=true',
             '--benchmark_report_aggregates_only=true'],
            env=dict(os.environ, HOME=home), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            check=True).stdout
    times = {}
    for result in json.loads(output)['benchmarks']:
        if result['aggregate_name'] == 'median':
            name = '/'.join(part for part in result['run_name'].split('/') if ':' not in part)
            name = name.removesuffix('/manual_time')
            times[name] = result['real_time'] * NANOSECONDS[result['time_unit']]
    return times


def print_masking(times):
    print('\nMasking secrets in a message, nanoseconds; share of the whole line')
    print(f'{"characters":16}' + ''.join(f'{kind:>20}' for kind in KINDS))
    for length in LENGTHS:
        cells = []
        for kind, _ in enumerate(KINDS):
            mask, line = (times[f'{part}/{length}/{kind}'] for part in ('Mask', 'Line'))
            cells.append(f'{mask:,.0f} ({mask / line:.1%})')
        print(f'{length:<16}' + ''.join(f'{cell:>20}' for cell in cells))
    share = times['Mask/100/0'] / times['Line/100/0']
    speed = 4000 / times['Mask/4000/0']
    print(f'aim: at most {MASKING_AIM:.0%} of a line of 100 characters: {share:.1%}, '
          f'{verdict(share <= MASKING_AIM)}')
    print(f'aim: at least {SCAN_AIM} GB/s at 4,000 characters: {speed:.1f} GB/s, '
          f'{verdict(speed >= SCAN_AIM)}')


def print_rotation(times):
    print('\nRotating 10 MiB, milliseconds; then how many times as long as the bare copy, and as the '
          'copy with emptying the file')
    for name, label in (('Rotate/0', 'all copies stay'), ('Rotate/1', 'the oldest copy goes')):
        ratios = [times[name] / times[f'BareCopy/{emptied}'] for emptied in (0, 1)]
        print(f'{label:24}{times[name] / 1e6:>8.2f}' + ''.join(f'{ratio:>8.2f}' for ratio in ratios))
    ratio = times['Rotate/0'] / times['BareCopy/0']
    print(f'aim: at most {ROTATION_AIM} times the bare copy: {ratio:.2f}, '
          f'{verdict(ratio <= ROTATION_AIM)}')


def print_parts(times):
    print_masking(times)
    print_rotation(times)
