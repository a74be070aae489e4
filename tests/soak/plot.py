"""Draws memory, latency of messages and rate of log lines over time, with gnuplot."""

import subprocess

MAX_PROCESSES = 8
LAYOUT = """
set terminal svg size 1000,900 dynamic background "white"
set output "{path}"
set multiplot layout 3,1 title "{title}"
set key outside right
set lmargin 10
set rmargin 30
set xlabel "seconds"
set xrange [0:*]
"""


def block(name, rows):
    """Returns a gnuplot data block."""
    lines = "\n".join(" ".join(map(str, row)) for row in rows)
    return f"${name} << END\n{lines}\nEND\n"


def chart(label, curves, settings=""):
    """Returns the commands for a chart of curves, each a title and rows of numbers."""
    curves = [(title, rows) for title, rows in curves if rows]
    if not curves:
        return ""
    blocks = "".join(block(f"data{i}", rows) for i, (_, rows) in enumerate(curves))
    plots = ", ".join(f'$data{i} with lines title "{title}"' for i, (title, _) in enumerate(curves))
    return f'{blocks}set ylabel "{label}"\n{settings}\nplot {plots}\n'


def memory_curves(figures):
    """Returns the memory of the processes that lived longest."""
    series = [(figures.names[pid], samples) for (pid, figure), samples in figures.samples.items()
              if figure == "kilobytes"]
    series.sort(key=lambda item: -len(item[1]))
    return [(name, [(at, value / 1024) for at, _, value in samples])
            for name, samples in series[:MAX_PROCESSES]]


def latency_curves(figures):
    median = [(second.at, second.median * 1000) for second in figures.seconds if second.median]
    late = [(second.at, second.late * 1000) for second in figures.seconds if second.late]
    return [("median", median), ("99th percentile", late)]


def draw(path, figures, title):
    lines = [("log lines", [(second.at, second.lines) for second in figures.seconds])]
    script = (LAYOUT.format(path=path, title=title) +
              chart("private dirty MiB", memory_curves(figures), "set yrange [0:*]") +
              chart("message and answer, ms", latency_curves(figures),
                    "set logscale y\nset yrange [*:*]") +
              chart("lines a second", lines, "unset logscale\nset yrange [0:*]"))
    subprocess.run(["gnuplot"], input=script, text=True, check=True)
