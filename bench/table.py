#!/usr/bin/env python3
"""One table of ratios from the results of ink_bench (its JSON on the standard input).

A row compares medians of the same run. Where a row names several benchmarks, the one that does worst counts.
Ends with 1 when a benchmark reports an error, for example pixels that differ from the literal form's.
"""

import json
import re
import sys

LIVE = "live/pencil/{}/{}"
WRITING = "whole/writing/{}/{}"
LAYERS = ("premultiplied", "argb32", "rgb32")
MAZES = ("comb", "spiral", "maze")
SCENES = ("empty", "written", "small") + MAZES
PENS = (("colour brush", "color-brush"), ("crayon", "crayon"), ("spray gun", "spray"))

# "faster": baseline / ours, at least; "against": ours / baseline, at most.
FASTER, AGAINST = "faster", "against"


def pairs(template, names, ours, baseline):
    return [(template.format(*name, form=ours), template.format(*name, form=baseline)) for name in names]


def rows():
    """(what, baseline, [(ours, baseline), ...], relation, figure or None)"""
    yield ("live event, 10 000 points", "100 points", [(LIVE.format("ours", 10000), LIVE.format("ours", 100))], AGAINST, 1.25)
    yield ("live event, 50 000 points", "100 points", [(LIVE.format("ours", 50000), LIVE.format("ours", 100))], AGAINST, 1.6)
    for points, figure in ((100, 4), (1000, 130), (10000, 1800), (50000, 15000)):
        yield (f"live event, {points} points", "literal", [(LIVE.format("ours", points), LIVE.format("literal", points))], FASTER, figure)
    for points in (100, 1000, 10000, 50000):
        yield (f"live event, opaque, {points} points", "bare drawPath", [(LIVE.format("ours", points), LIVE.format("minimal", points))], AGAINST, 1.35)
    for points in (1000, 10000):
        names = [(points,)]
        yield (f"live event, translucent, {points} points", "bare drawPath", pairs("live/translucent/{form}/{}", names, "ours", "minimal"), AGAINST, 1.35)
    yield ("live event, 1 000 points", "cairo, whole path", [(LIVE.format("ours", 1000), LIVE.format("cairo", 1000))], AGAINST, 1 / 6)
    yield ("live event, 1 000 points", "AGG, whole path", [(LIVE.format("ours", 1000), LIVE.format("agg", 1000))], AGAINST, 2 / 3)
    for points in (1000, 10000):
        yield (f"live highlighter, {points} points", "literal", pairs("live/marker/{form}/{}", [(points,)], "ours", "literal"), FASTER, None)
    for points, figure in ((1000, 60), (10000, 200)):
        yield (f"live eraser, {points} points", "literal", pairs("live/eraser/{form}/{}", [(points,)], "ours", "literal"), FASTER, figure)
    for points, figure in ((1000, 2), (10000, 3), (50000, 3.5)):
        yield (f"whole stroke, spread, {points} points", "one drawPath", [(WRITING.format("ours", points), WRITING.format("literal", points))], FASTER, figure)
    for points, figure in ((10, 1), (100, 10), (300, 50)):
        yield (f"whole stroke, page-wide segments, {points} points", "one drawPath", pairs("whole/crossing/{form}/{}", [(points,)], "ours", "literal"), FASTER, figure)
    lengths = [("writing", n) for n in (2, 10, 100, 300, 1000, 10000, 50000)]
    lengths += [("scribble", n) for n in (30, 100, 300, 400, 1000, 5000)]
    yield ("whole stroke, worst length and density", "one drawPath", pairs("whole/{}/{form}/{}", lengths, "ours", "literal"), FASTER, 0.97)
    yield ("569 recorded strokes", "one drawPath each", pairs("whole/recorded/{form}/0", [()], "ours", "literal"), FASTER, 0.97)
    yield ("1 000 committed mixed objects", "bare calls", [("page/ours/1000", "page/bare/1000")], AGAINST, 1.01)
    fill = "fill/{}/{}/{form}/0"
    for what, scenes, figure in (("empty page", ("empty",), 40), ("page with 500 strokes", ("written",), 20), ("every maze", MAZES, 4)):
        names = [(scene, layer) for scene in scenes for layer in LAYERS]
        yield (f"fill, {what}", "literal", pairs(fill, names, "ours", "literal"), FASTER, figure)
    for scene in SCENES:
        names = [(scene, layer) for layer in LAYERS]
        yield (f"fill, {scene}, worst format", "cv::floodFill and copy", pairs(fill, names, "ours", "opencv"), AGAINST, 1.0)
    yield ("fill, extra memory", "literal list", [("fill/memory/ours/0", "fill/memory/literal/0")], AGAINST, 0.1)
    for what, pen in PENS:
        yield (f"{what}, first Draw", "literal", pairs(pen + "/first/{form}/0", [()], "ours", "literal"), FASTER, 40)
        yield (f"{what}, memory of a stroke", "literal", pairs(pen + "/memory/{form}/0", [()], "ours", "literal"), FASTER, 40)
        yield (f"{what}, event", "literal", pairs(pen + "/event/{form}/0", [()], "ours", "literal"), AGAINST, 1.05)
    yield ("finished spray, whole canvas", "literal", pairs("spray/finished/{form}/0", [()], "ours", "literal"), FASTER, None)


def medians(results):
    """Name to (value, text); seconds of processor time, or bytes."""
    found = {}
    for result in results["benchmarks"]:
        if result.get("aggregate_name") != "median":
            continue
        name = re.sub(r"/(iterations:\d+|manual_time|repeats:\d+)", "", result["run_name"])
        if "bytes" in result:
            found[name] = (result["bytes"], f"{result['bytes'] / 1e6:.3g} MB")
            continue
        time = result["real_time"] if "manual_time" in result["run_name"] else result["cpu_time"]
        seconds = time * {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[result["time_unit"]]
        unit, factor = ("s", 1) if seconds >= 1 else ("ms", 1e3) if seconds >= 1e-3 else ("us", 1e6)
        found[name] = (seconds, f"{seconds * factor:.3g} {unit}")
    return found


def line(row, found):
    what, against, compared, relation, figure = row
    measured = [(found[ours], found[base]) for ours, base in compared if ours in found and base in found]
    if len(measured) < len(compared):
        return [what, "", against, "", "", "", "not measured"]

    def ratio(pair):
        (ours, _), (base, _) = pair
        return base / max(ours, 1e-12) if relation == FASTER else ours / max(base, 1e-12)

    worst = (min if relation == FASTER else max)(measured, key=ratio)
    value = ratio(worst)
    if figure is None:
        wanted, verdict = "", ""
    elif relation == FASTER:
        wanted, verdict = f">= {figure:.4g}", "ok" if value >= figure else "missed"
    else:
        wanted, verdict = f"<= {figure:.3g}", "ok" if value <= figure else "missed"
    return [what, worst[0][1], against, worst[1][1], f"{value:.3g}" if value < 1000 else f"{value:.0f}", wanted, verdict]


def main():
    results = json.load(sys.stdin)
    errors = {f"{r['run_name']}: {r['error_message']}" for r in results["benchmarks"] if r.get("error_occurred")}
    found = medians(results)
    head = ["What", "ours", "Baseline", "baseline", "ratio", "figure to reach", ""]
    table = [head] + [line(row, found) for row in rows()]
    widths = [max(len(cells[i]) for cells in table) for i in range(len(head))]
    for number, cells in enumerate(table):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(cells, widths)) + " |")
        if number == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")
    for error in sorted(errors):
        print(f"error: {error}", file=sys.stderr)
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
