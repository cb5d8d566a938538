#!/usr/bin/env python3
"""Prints the benchmark results as ratios to the reference measured in the same run.

Reads Google Benchmark JSON on standard input. Each pair below is
(benchmark, its reference); counters of a benchmark are printed beside it.
"""
import json
import sys

REFERENCES = [
    ("BM_TakeDeviceLock", "BM_PlainRecursiveMutex"),
    ("BM_TakeDeviceLock", "BM_ModuleCall"),
]


def main():
    results = {b["name"]: b for b in json.load(sys.stdin)["benchmarks"]}
    print(f"{'benchmark':<28}{'time':>14}  {'reference':<28}{'ratio':>8}  counters")
    rows = [(name, reference) for name, reference in REFERENCES if name in results and reference in results]
    rows += [(name, "") for name in results if all(name != row for row, _ in rows)]
    for name, reference in rows:
        result = results[name]
        time = f"{result['real_time']:.1f} {result['time_unit']}"
        ratio = f"{result['real_time'] / results[reference]['real_time']:.1f}x" if reference else ""
        counters = ", ".join(
            f"{key}={value:g}" for key, value in result.items()
            if key not in ("name", "run_name", "run_type", "repetitions", "repetition_index", "threads",
                           "iterations", "real_time", "cpu_time", "time_unit", "family_index",
                           "per_family_instance_index", "aggregate_name", "aggregate_unit")
            and isinstance(value, (int, float)))
        print(f"{name:<28}{time:>14}  {reference:<28}{ratio:>8}  {counters}")


if __name__ == "__main__":
    main()
