"""The command line that bench/*/run have in common."""

import argparse
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def make_parser(description):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument('--build', default=ROOT / 'build' / 'bench', type=pathlib.Path,
                        help='build folder (build/bench)')
    parser.add_argument('--baseline', type=pathlib.Path, help='build folder to compare with')
    parser.add_argument('--quick', action='store_true', help='few rounds: does it work at all?')
    parser.add_argument('--raw', type=argparse.FileType('w'), help='file for the samples')
    return parser


def require(programs):
    """Ends this program if one of `programs` has not been built."""
    for program in programs:
        if not program.exists():
            sys.exit(f'there is no {program}: build the preset `bench` first')


def write_raw(file, samples):
    """Writes one JSON object a line, unless `file` is None."""
    for sample in samples if file else []:
        print(json.dumps(sample), file=file)
