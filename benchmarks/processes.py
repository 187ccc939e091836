#!/usr/bin/env python3
"""Whole programs beside one another: what one picture costs, start-up included.

The C host of the examples is compared with a bare Qt program that paints the same picture, and on the
receipt with programs that turn an SVG drawing or an HTML page of the same content into a picture. The
two programs of a pair run in turn, so that noise of the machine hits both alike.

Prints Markdown tables. Exit status: 0 whatever was measured, 1 where a picture is not its golden file
or a program fails.
"""

import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

HERE = Path(__file__).resolve().parent
LAYOUTS = HERE.parent / "examples" / "layouts"
EXAMPLES = ["receipt", "parking_ticket", "boarding_pass", "museum_label", "bank_slip"]
KIB_IN_MIB = 1024


@dataclass
class Program:
    """A command that writes one picture, and the bytes that the picture must have, if any."""

    name: str
    command: list[str]
    output: Path
    golden: bytes | None = None


@dataclass
class Comparison:
    """Medians of a pair; the ratios are those of each pair of runs."""

    title: str
    host_ms: float
    other_ms: float
    time_ratio: float
    host_mib: float
    other_mib: float
    memory_ratio: float


def run_once(program: Program, environment: dict[str, str]) -> tuple[float, float]:
    """Gives the milliseconds and the MiB at the peak of one process."""
    program.output.unlink(missing_ok=True)
    start = time.perf_counter()
    process = os.posix_spawn(program.command[0], program.command, environment)
    _, status, usage = os.wait4(process, 0)
    taken = (time.perf_counter() - start) * 1000
    if os.waitstatus_to_exitcode(status) != 0 or not program.output.is_file():
        raise RuntimeError(f"{program.name} fails: {' '.join(program.command)}")
    if program.golden is not None and program.output.read_bytes() != program.golden:
        raise RuntimeError(f"the picture of {program.name} is not its golden file")
    return taken, usage.ru_maxrss / KIB_IN_MIB


def compare(title: str, host: Program, other: Program, runs: int, environment: dict[str, str]):
    pair = (host, other)
    for program in pair:
        run_once(program, environment)  # what later runs find in the caches of the machine
    results = [[run_once(program, environment) for program in pair] for _ in range(runs)]

    def median(figure) -> float:
        return statistics.median(figure(*result) for result in results)

    print(f"measured {title}", file=sys.stderr)
    return Comparison(
        title,
        host_ms=median(lambda a, b: a[0]),
        other_ms=median(lambda a, b: b[0]),
        time_ratio=median(lambda a, b: a[0] / b[0]),
        host_mib=median(lambda a, b: a[1]),
        other_mib=median(lambda a, b: b[1]),
        memory_ratio=median(lambda a, b: a[1] / b[1]),
    )


def found(program: str) -> str:
    for folder in os.environ["PATH"].split(os.pathsep):
        if os.access(Path(folder) / program, os.X_OK):
            return str(Path(folder) / program)
    raise RuntimeError(f"{program} is not installed")


class Programs:
    """The commands of all programs, with their output in one folder."""

    def __init__(self, binaries: Path, scratch: Path):
        self.binaries = binaries
        self.scratch = scratch

    def c_host(self, example: str) -> Program:
        output = self.scratch / "c_host.png"
        command = [str(self.binaries / "render"), str(LAYOUTS / f"{example}.xml"), str(output),
                   f"--values={LAYOUTS / example}.values"]
        return Program("the C host", command, output, self.golden(example))

    def bare_qt(self, example: str) -> Program:
        output = self.scratch / "bare_qt.png"
        command = [str(self.binaries / "bare_qt"), str(self.scratch / f"{example}.plan"),
                   str(output), str(LAYOUTS / "fonts")]
        return Program("bare Qt", command, output, self.golden(example))

    def rsvg_convert(self) -> Program:
        output = self.scratch / "svg.png"
        return Program("rsvg-convert",
                       [found("rsvg-convert"), str(HERE / "receipt.svg"), "-o", str(output)], output)

    def wkhtmltoimage(self, *options: str) -> Program:
        output = self.scratch / "html.png"
        command = [found("wkhtmltoimage"), "--quiet", "--format", "png", "--width", "576", *options,
                   str(HERE / "receipt.html"), str(output)]
        return Program("wkhtmltoimage", command, output)

    @staticmethod
    def golden(example: str) -> bytes:
        return (HERE / "golden" / f"{example}.png").read_bytes()


def surroundings(scratch: Path) -> dict[str, str]:
    """The same for all programs: no display, and the fonts of the layouts by their family names."""
    fonts = scratch / "fonts.conf"
    fonts.write_text(
        f"""<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>{LAYOUTS / "fonts"}</dir>
  <cachedir>{scratch / "fontconfig"}</cachedir>
  <include>{HERE.parent / "tests" / "golden" / "fonts.conf"}</include>
</fontconfig>
"""
    )
    homes = ["HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR",
             "TMPDIR"]
    return {
        "PATH": os.environ["PATH"],
        "LANG": "C.UTF-8",
        "QT_QPA_PLATFORM": "offscreen",
        "FONTCONFIG_FILE": str(fonts),
        **{name: str(scratch) for name in homes},
    }


def print_table(title: str, other: str, comparisons: list[Comparison]) -> None:
    print(f"\n### {title}\n")
    print(f"| picture | C host ms | {other} ms | ratio | C host MiB | {other} MiB | ratio |")
    print("|---|---:|---:|---:|---:|---:|---:|")
    for each in comparisons:
        print(f"| {each.title} | {each.host_ms:.1f} | {each.other_ms:.1f} | {each.time_ratio:.2f} "
              f"| {each.host_mib:.1f} | {each.other_mib:.1f} | {each.memory_ratio:.2f} |")
    sys.stdout.flush()


def target_line(name: str, measured: float, limit: float) -> str:
    return f"{name}: {measured:.2f}, limit {limit:.2f}, {'met' if measured <= limit else 'missed'}"


def measure(programs: Programs, runs: int, environment: dict[str, str]) -> list[str]:
    """Prints the tables and gives the lines of the targets."""
    bare = [compare(name, programs.c_host(name), programs.bare_qt(name), runs, environment)
            for name in EXAMPLES]
    print_table("Processes: the C host and a bare Qt program", "bare Qt", bare)
    svg, html, hasty_html = (
        compare(f"receipt, {title}", programs.c_host("receipt"), program, runs, environment)
        for title, program in [
            ("rsvg-convert", programs.rsvg_convert()),
            ("wkhtmltoimage", programs.wkhtmltoimage()),
            ("wkhtmltoimage that waits for no scripts",
             programs.wkhtmltoimage("--javascript-delay", "1")),
        ])
    print_table("Processes: the C host and other tools", "tool", [svg, html, hasty_html])
    return [
        *(target_line(f"{each.title}, C host against bare Qt, time", each.time_ratio, 1.15)
          for each in bare),
        target_line("receipt, C host against bare Qt, peak memory", bare[0].memory_ratio, 1.15),
        target_line("receipt, C host against rsvg-convert, time", svg.time_ratio, 1.0),
        target_line("receipt, C host against wkhtmltoimage, time", html.time_ratio, 0.15),
    ]


def main() -> int:
    parser = argparse.ArgumentParser(description="Compares whole programs.")
    parser.add_argument("binaries", type=Path, help="the folder of render, bare_qt and benchmarks")
    parser.add_argument("--quick", action="store_true", help="few runs")
    parser.add_argument("--targets", type=Path, help="the file that gets a line for each target")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        scratch = Path(folder)
        environment = surroundings(scratch)
        subprocess.run([options.binaries / "benchmarks", f"--plans={scratch}"], check=True)
        runs = 5 if options.quick else 25
        lines = measure(Programs(options.binaries.resolve(), scratch), runs, environment)
    text = "\n".join(lines) + "\n"
    if options.targets is None:
        print(text, end="")
    else:
        with options.targets.open("a", encoding="utf-8") as targets:
            targets.write(text)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, RuntimeError, subprocess.CalledProcessError) as error:
        print(f"processes.py: {error}", file=sys.stderr)
        sys.exit(1)
