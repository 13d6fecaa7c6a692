"""What a board times itself: its own ink, its undo, its picture, and the places of thirty people."""

import math
import os
import struct
import time
import zlib

from lesson import Lesson, bench, quantile, wait_for
from rows import row
from wire import Wire


def started(how_fast):
    """An engine, a door, a wire to it, and the board that begins the lesson."""
    lesson = Lesson()
    lesson.start_engine()
    lesson.start_door(*lesson.engine_words())
    wire = Wire(lesson.door_port, delay=how_fast)
    lesson.share("first", "--until", 10**6, "--timeout", 900, port=lesson.door_port, measured=False)
    return lesson, wire


def numbers(lesson, process, seconds=180):
    """Of the last line that it printed."""
    process.wait(seconds)
    text = (lesson.folder / f"{process.name}.log").read_text()
    if process.returncode != 0:
        raise RuntimeError(f"{process.name}: {process.returncode} {text}")
    return [float(word) for word in text.splitlines()[-1].split()]


def own_ink(how):
    """2: with the engine half a second away, and with it dead, against a board that is not shared."""
    seconds = 5 if how.quick else 20
    lesson, wire = started(0.25)

    def slow(name, *link, meanwhile=None):
        """The middle one of three: a machine that is busy with something else stumbles now and then."""
        slowest = []
        for again in range(3):
            process = bench(lesson, f"{name}{again}", "ink", seconds, *link)
            if meanwhile:
                lesson.wait_for_boards(2)
                time.sleep(1)
                meanwhile()
            slowest.append(numbers(lesson, process)[1])
            if meanwhile:
                lesson.start_engine(lesson.engine_port)
        return quantile(slowest, 0.5)

    with lesson:
        alone = slow("alone")
        far = slow("far", lesson.link_over(wire))
        dead = slow("dead", lesson.link_over(wire), meanwhile=lambda: (lesson.engine.kill(), lesson.engine.wait()))
        wire.stop()
    return [row("2", f"own ink, 99th percentile, {name}; not shared {alone:.1f} ms", f"{took - alone:+.2f} ms", "1 ms more", took - alone <= 1)
            for name, took in (("engine half a second away", far), ("engine dead", dead))]


def undo(how):
    """4: after a thousand steps of others."""
    lesson, wire = started(0.25)
    with lesson:
        process = bench(lesson, "undo", "undo", 1000, lesson.link_over(wire))
        log = lesson.folder / "undo.log"
        wait_for(lambda: "drawn" in log.read_text(), 60, "own steps")
        lesson.join("others", "--play", lesson.strokes("others", 1000, 20, 1), "--pace", 0, "--timeout", 600, port=lesson.door_port,
                    measured=False)
        middle, worst = numbers(lesson, process)
        wire.stop()
    return [row("4", "undo of my last 20 steps after 1000 of others, 500 ms there and back, each at most", f"{worst:.1f} ms (median {middle:.1f})",
                "16 ms", worst <= 16)]


def presence(how):
    """12: thirty people, each with thirty places a second."""
    people = 10 if how.quick else 30
    lesson, wire = started(0.001)
    with lesson:
        process = bench(lesson, "people", "presence", people, 5, lesson.link_over(wire))
        lesson.wait_for_boards(people + 1)
        stored = lesson.metrics()["inkboard_records_total"]
        each, gone = numbers(lesson, process)
        stored = lesson.metrics()["inkboard_records_total"] - stored
        wire.stop()
    return [row("12", f"{people} people's places, at each other board", f"{each:.0f} a second, {stored:.0f} stored, gone after {gone / 1000:.1f} s",
                "30 a second, 0, 5 s", each >= 28 and stored == 0 and gone <= 5500)]


def still_a_board(how):
    """19: a lesson that is shared for a while, at a door of its own, beside one in which the same is done."""
    with Lesson() as lesson:
        alike, began, ended = numbers(lesson, bench(lesson, "still", "still", lesson.folder))
    return [row("19", "sharing begun and ended while somebody draws: pages, steps and file, against a lesson never shared",
                f"{'alike' if alike else 'not alike'}; begun after {began / 1000:.1f} s, ended after {ended / 1000:.1f} s", "all as before", alike == 1)]


def noise(path, side):
    """A picture that nothing makes smaller."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    lines = b"".join(b"\0" + os.urandom(3 * side) for _ in range(side))
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)) +
                     chunk(b"IDAT", zlib.compress(lines, 0)) + chunk(b"IEND", b""))


def picture(how):
    """17: 8 MiB to thirty boards, while five write."""
    readers = 5 if how.quick else 25
    lesson, wire = started(0.001)
    with lesson:
        picture_wire = Wire(lesson.door_port)
        noise(lesson.folder / "noise.png", math.isqrt((8 << 20) // 3))
        names = [f"reader{i}" for i in range(readers)]
        for name in names:
            lesson.join(name, "--until", 10**6, "--timeout", 600, port=wire.port)
        lesson.wait_for_boards(readers + 1)
        for i in range(4):
            lesson.join(f"writer{i}", "--play", lesson.strokes(f"writer{i}", 200, 60 + 7 * i, i), "--pace", 240, "--until", 10**6, "--timeout", 600,
                        port=wire.port, measured=False)
        wait_for(lambda: len(lesson.latencies("reader0")) > 20, 60, "ink")
        begun = {name: len(lesson.latencies(name)) for name in names}
        _, author = numbers(lesson, bench(lesson, "picture", "picture", lesson.folder / "noise.png", lesson.link_over(picture_wire)))
        sent = picture_wire.bytes["up"]

        def times():
            found = [[ms for who, _, ms in lesson.latencies(name) if who == author] for name in names]
            return [ms[0] for ms in found] if all(found) else None

        slowest = max(wait_for(times, 60, "the picture"))
        before = [ms for name in names for who, _, ms in lesson.latencies(name)[: begun[name]]]
        during = [ms for name in names for who, _, ms in lesson.latencies(name)[begun[name]:] if who != author]
        wire.stop()
        picture_wire.stop()
    more = quantile(during, 0.99) - quantile(before, 0.99)
    return [row("17", f"8 MiB picture to {readers} boards that paint while 4 write", f"{slowest / 1000:.1f} s; {more:+.0f} ms; {sent / (8 << 20):.2f} times",
                "5 s; 20 ms more; once", slowest <= 5000 and more <= 20 and sent <= 1.5 * (8 << 20))]
