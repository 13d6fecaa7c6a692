"""What sharing has to reach, each measured with real processes. A row is what it says, what came out, and whether that is enough."""

import collections
import shutil
import subprocess
import time

from lesson import ROOT, Lesson, bench, quantile, wait_for
from wire import Wire

PACE = 240  # points a second, of one who writes

Row = collections.namedtuple("Row", "number what measured figure verdict")


def row(number, what, measured, figure, is_reached):
    return Row(number, what, measured, figure, "ok" if is_reached else "missed")


def same_pixels(how):
    """1: the simulator."""
    done = subprocess.run([ROOT / "scripts" / "simulate", str(how.seeds)], capture_output=True, text=True)
    wrong = "0 differ" if done.returncode == 0 else done.stderr.strip().splitlines()[-1:]
    return [row("1", f"{how.seeds} seeds of the simulator", wrong, "0 of 10 000 differ", done.returncode == 0)]


class Writing:
    """Some write and some read, all over one wire. The first board begins the lesson, and does not write."""

    def __init__(self, lesson, writers, readers, blind, seconds, wire):
        self.lesson = lesson
        self.strokes = max(1, seconds * PACE // 300)
        self.until = writers * self.strokes
        self.names = [f"reader{i}" for i in range(readers)] + [f"writer{i}" for i in range(writers)]
        self.wire = wire
        limit = ["--until", self.until, "--timeout", seconds + 120]
        self.boards = [lesson.share("reader0", *limit, "--png", "reader0.png", port=wire.port)]
        self.boards += [lesson.join(name, *limit, "--png", f"{name}.png", port=wire.port) for name in self.names[1:readers]]
        self.boards += [lesson.join(f"blind{i}", *limit, port=wire.port, measured=False) for i in range(blind)]
        lesson.wait_for_boards(readers + blind)
        time.sleep(1)  # they have the lesson
        # Not two of them end their strokes at the same times for long.
        for i in range(writers):
            file = lesson.strokes(f"writer{i}", self.strokes, 300 - 17 * i, i)
            self.boards.append(lesson.join(f"writer{i}", "--play", file, "--pace", PACE, *limit, "--png",
                                           f"writer{i}.png", port=wire.port))

    def latencies(self):
        return [ms for name in self.names for _, _, ms in self.lesson.latencies(name)]

    def end(self, seconds=180):
        problems = self.lesson.ended(self.boards, seconds)
        if self.lesson.pages_differ(self.names):
            problems.append("pages differ")
        return problems


def others_ink(how):
    """3, and the bytes of it."""
    with Lesson() as lesson:
        lesson.start_engine()
        lesson.start_door(*lesson.engine_words())
        wire = Wire(lesson.door_port)
        blind = how.boards - how.whole
        writing = Writing(lesson, 5, how.whole - 5, blind, how.seconds, wire)
        lesson.wait_for_boards(how.boards)
        time.sleep(2)
        wire.reset()
        began = time.monotonic()
        time.sleep(how.seconds / 2)
        passed, seconds = wire.reset(), time.monotonic() - began
        problems = writing.end()
        latencies = writing.latencies()
        wire.stop()
    up, down = passed["up"] / 5 / seconds, passed["down"] / 5 / (how.boards - 1) / seconds
    middle, slow = quantile(latencies, 0.5), quantile(latencies, 0.99)
    what = f"others' ink, {how.boards} boards, 5 writing" + (f"; {blind} of them do not paint" if blind else "")
    minutes = 45 * 60 * 0.3  # of which a hand is down in three of ten
    return [
        row("3", what, f"{middle:.0f} and {slow:.0f} ms" + "".join("; " + one for one in problems), "25 and 60 ms",
            middle <= 25 and slow <= 60 and not problems),
        Row("", "a writer at 240 points a second, to the door; from there to each board", f"{up / 1000:.1f}; {down / 1000:.1f} kB/s", "", ""),
        Row("", "45 minutes, 5 pens down in 3 of 10: each board", f"{5 * down * minutes / 1e6:.1f} MB", "", ""),
    ]


def late_join(how):
    """5: who comes when much is there, while somebody writes and somebody reads."""
    pages = 20
    objects = 10000 if how.long else 1000
    rows = []
    with Lesson() as lesson:
        lesson.start_engine()
        lesson.start_door(*lesson.engine_words())
        wire, slow_wire = Wire(lesson.door_port), Wire(lesson.door_port, rate=1.25e6)
        limit = ["--until", 10**6, "--timeout", 900]
        lesson.share("reader", *limit, port=wire.port)
        lesson.join("writer", "--play", lesson.strokes("writer", 10000, 40, 1), "--pace", PACE, *limit, port=wire.port, measured=False)
        filled = lesson.metrics()["inkboard_received_bytes_total"]
        bench(lesson, "much", "fill", objects, pages, lesson.link_over(wire)).wait(900)
        filled = lesson.metrics()["inkboard_received_bytes_total"] - filled
        what = f"late join, {objects} objects on {pages} pages, {filled / 1e6:.0f} MB"
        time.sleep(5)
        begun = len(lesson.latencies("reader"))
        time.sleep(10)
        before, during = [ms for _, _, ms in lesson.latencies("reader")[begun:]], []
        for name, over, figure in (("LAN", wire, 2), ("10 Mbit/s", slow_wire, 5)):
            over.reset()
            begun, began = len(lesson.latencies("reader")), time.monotonic()
            late = lesson.join("late", "--until", objects // pages, "--png", "late.png", "--timeout", 300, port=over.port, measured=False)
            problems = lesson.ended([late], 310)
            seconds = time.monotonic() - began
            during += [ms for _, _, ms in lesson.latencies("reader")[begun:]]
            rows.append(row("5", f"{what}, {name}, to the page as a file",
                            f"{seconds:.1f} s; {over.reset()['down'] / 1e6:.0f} MB" + "".join("; " + one for one in problems),
                            f"{figure} s", seconds <= figure and not problems))
        wire.stop()
        slow_wire.stop()
    more = quantile(during, 0.99) - quantile(before, 0.99)
    rows.append(row("5", "others' ink meanwhile, 99th percentile", f"{more:+.0f} ms", "10 ms more", more <= 10))
    return rows


def cut(how):
    """6: one board is cut off while all draw."""
    rows = []
    for seconds in how.cuts:
        with Lesson() as lesson:
            lesson.start_engine()
            lesson.start_door(*lesson.engine_words())
            wires = [Wire(lesson.door_port) for _ in range(3)]
            rows.append(cut_of(lesson, seconds, *wires))
            for wire in wires:
                wire.stop()
    return rows


def cut_of(lesson, seconds, wire, cut_wire, witness_wire):
    strokes = (seconds + 16) * 120 // 60
    limit = ["--pace", 120, "--until", 3 * strokes, "--timeout", seconds + 200]

    def board(name, over, how=lesson.join, play=True):
        words = ["--play", lesson.strokes(name, strokes, 60, len(name))] if play else []
        return how(name, *words, *limit, "--png", f"{name}.png", port=over.port)

    names = ["first", "second", "severed", "witness"]
    boards = [board("first", wire, lesson.share)]
    boards += [board("witness", witness_wire, play=False), board("severed", cut_wire), board("second", wire)]
    wait_for(lambda: len(lesson.latencies("severed")) > 8, 60, "ink")
    cut_wire.pull()
    witness_wire.reset()
    time.sleep(seconds)
    missed = witness_wire.reset()["down"]
    cut_wire.reset()
    known = {author for author, _, _ in lesson.latencies("severed")}
    there = sum(author in known for author, _, _ in lesson.latencies("witness"))
    cut_wire.plug_in()
    began = time.monotonic()
    wait_for(lambda: len(lesson.latencies("severed")) >= there, 60, "what was missed")
    back, told = time.monotonic() - began, cut_wire.reset()["down"]
    problems = lesson.ended(boards, seconds + 120)
    if lesson.pages_differ(names):
        problems.append("pages differ")
    return row("6", f"cut of {seconds} s while 3 draw", f"back after {back:.1f} s; {told / max(missed, 1):.2f} of what was missed"
               + "".join("; " + one for one in problems), "2 s; 1.2; nothing lost", back <= 2 and told <= 1.2 * missed and not problems)


def engine_lost(how):
    """7: the engine is killed under load, and comes back with a store of before."""
    seconds = 10 if how.quick else 60
    with Lesson() as lesson:
        lesson.start_engine()
        lesson.start_door(*lesson.engine_words())
        wire = Wire(lesson.door_port)
        writing = Writing(lesson, 5, 3, 0, seconds + 25, wire)
        count = lambda: len(lesson.latencies("reader0"))
        wait_for(lambda: count() > 5, 60, "ink")
        lesson.engine.kill()
        killed = time.monotonic()
        lesson.engine.wait()
        lesson.start_engine(lesson.engine_port)
        here = count()
        wait_for(lambda: count() > here, 30, "ink after the engine was killed")
        gap = time.monotonic() - killed
        lesson.engine.terminate()  # all that is stored is on the disk then
        lesson.engine.wait()
        shutil.copytree(lesson.folder / "store", lesson.folder / "kept")
        lesson.start_engine(lesson.engine_port)
        time.sleep(seconds)
        lesson.engine.kill()
        lesson.engine.wait()
        shutil.rmtree(lesson.folder / "store")
        shutil.move(lesson.folder / "kept", lesson.folder / "store")
        lesson.start_engine(lesson.engine_port)
        began, here = time.monotonic(), count()
        wait_for(lambda: count() > here, 30, "ink after the store was set back")
        again = time.monotonic() - began
        problems = writing.end()
        lost = lesson.metrics()["inkboard_lost_streams_total"]
        wire.stop()
    if lost == 0:
        problems.append("the store was not set back")
    return [
        row("7", "engine killed under load, from then to the next ink that is stored", f"{gap:.1f} s", "3 s", gap <= 3),
        row("7", f"its store set back by {seconds} s", f"{again:.1f} s; " + ("; ".join(problems) or "pages equal, nothing lost"), "3 s; pages equal",
            again <= 3 and not problems),
    ]
