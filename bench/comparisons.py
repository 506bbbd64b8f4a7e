"""Prints the tables that several benchmarks share."""

import measuring
from measuring import milliseconds, with_range


def beside(name, rows, runs, memory_runs=3):
    """Prints the times of Mergeloom beside those of another program, and their ratio. The contenders of both are given
    by number of fields."""
    times, memory = [], []
    for size, ours, theirs in rows:
        our_timings, their_timings = measuring.take_turns([ours, theirs], runs)
        times.append([f"{size:,}", milliseconds(our_timings), milliseconds(their_timings),
                      with_range(measuring.ratios(their_timings, our_timings)),
                      with_range(measuring.ratios(their_timings, our_timings, "processor"))])
        our_memory, their_memory = ours.peak_memory(memory_runs), theirs.peak_memory(memory_runs)
        memory.append([f"{size:,}", f"{our_memory:.1f}", f"{their_memory:.1f}", f"{our_memory / their_memory:.2f}"])
    measuring.print_table("Wall time of the whole process in ms, median (lowest–highest)",
                          ["fields", "mergeloom", name, "times as fast", "by processor time"], times)
    measuring.print_table("Peak memory in MB", ["fields", "mergeloom", name, "share"], memory)


def growth(title, rows, runs):
    """Prints the growth of the time with the job. Each name has two contenders, the second with twice the work."""
    cells = []
    for name, single, double in rows:
        once, twice = measuring.take_turns([single, double], runs)
        cells.append([name, milliseconds(once), milliseconds(twice), with_range(measuring.ratios(twice, once), 2),
                      with_range(measuring.ratios(twice, once, "processor"), 2)])
    measuring.print_table(title, ["n and 2n", "ms for n", "ms for 2n", "time(2n)/time(n)", "by processor time"],
                          cells)


def small_runs(rows, runs):
    """Prints the times of runs that consist mostly of the program's start. Each name has one contender."""
    names, contenders = zip(*rows)
    timings = measuring.take_turns(contenders, 10 * runs)
    cells = [[name, milliseconds(own), milliseconds(own, "processor"), f"{contender.peak_memory():.1f}"]
             for name, own, contender in zip(names, timings, contenders)]
    measuring.print_table("Small runs", ["run", "wall ms", "processor ms", "peak MB"], cells)


def within(title, name, ours, least, runs):
    """Prints the times of Mergeloom beside those of a program that does only the work that no program can avoid."""
    our_timings, its_timings = measuring.take_turns([ours, least], runs)
    cells = [milliseconds(our_timings), milliseconds(its_timings),
             with_range(measuring.ratios(our_timings, its_timings), 2),
             with_range(measuring.ratios(our_timings, its_timings, "processor"), 2),
             f"{ours.peak_memory():.1f}", f"{least.peak_memory():.1f}"]
    measuring.print_table(title, ["mergeloom ms", f"{name} ms", "times as long", "by processor time",
                                  "mergeloom MB", f"{name} MB"], [cells])
