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
    ("BM_TransferMemImage", "BM_Memcpy2MiB"),
    ("BM_GetRecordRate", "BM_PlainFieldRead"),
    ("BM_RenderMono16", "BM_Memcpy"),
    ("BM_RenderMono8", "BM_Memcpy"),
    ("BM_RenderBayerRaw16", "BM_Memcpy"),
    ("BM_RenderColour8", "BM_Memcpy"),
]


def main():
    # "/real_time" only says how the run was timed.
    results = {b["name"].replace("/real_time", ""): b for b in json.load(sys.stdin)["benchmarks"]}
    print(f"{'benchmark':<28}{'time':>16}  {'reference':<28}{'ratio':>14}  counters")
    rows = [(name, reference) for name, reference in REFERENCES if name in results and reference in results]
    rows += [(name, "") for name in results if all(name != row for row, _ in rows)]
    for name, reference in rows:
        result = results[name]
        time = f"{result['real_time']:.4g} {result['time_unit']}"
        ratio = ""
        if reference:
            other = results[reference]
            if "bytes_per_second" in result and "bytes_per_second" in other:
                # Throughput: the share of the reference's speed reached.
                ratio = f"{result['bytes_per_second'] / other['bytes_per_second']:.2f} of speed"
            else:
                ratio = f"{result['real_time'] / other['real_time']:.1f}x time"
        counters = ", ".join(
            f"{key}={value:g}" for key, value in result.items()
            if key not in ("name", "run_name", "run_type", "repetitions", "repetition_index", "threads",
                           "iterations", "real_time", "cpu_time", "time_unit", "family_index",
                           "per_family_instance_index", "aggregate_name", "aggregate_unit", "bytes_per_second")
            and isinstance(value, (int, float)))
        if "bytes_per_second" in result:
            counters = f"{result['bytes_per_second'] / 1e9:.2f} GB/s" + (", " + counters if counters else "")
        print(f"{name:<28}{time:>16}  {reference:<28}{ratio:>14}  {counters}")


if __name__ == "__main__":
    main()
