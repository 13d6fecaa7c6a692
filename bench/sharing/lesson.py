"""A lesson of real processes on loopback: an engine, a door, boards without a window. All of them end with it."""

import contextlib
import ctypes
import json
import math
import os
import pathlib
import random
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import urllib.request

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("INK_BENCH_BUILD", ROOT / "build" / "bench"))
SIZE = (1280, 800)


def end_with_us():
    """No process outlives this one, however that ends."""
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


def wait_for(is_so, seconds, what, every=0.02):
    end = time.monotonic() + seconds
    while not (answer := is_so()):
        if time.monotonic() > end:
            raise TimeoutError(f"{what}: not within {seconds} s")
        time.sleep(every)
    return answer


def quantile(values, part):
    """Of those at hand the one with so many below it."""
    values = sorted(values)
    return values[min(len(values) - 1, math.ceil(part * len(values)) - 1)] if values else math.nan


class Lesson:
    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="bench-sharing-"))
        self.processes = []
        self.link = None
        self.environment = {**os.environ, "PATH": f"{BUILD / 'door'}:{os.environ['PATH']}", "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": "/dev/null", "LC_ALL": "C.UTF-8"}

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            with contextlib.suppress(ProcessLookupError):
                process.kill()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, *words, log="log", **settings):
        with open(self.folder / log, "ab") as out:
            process = subprocess.Popen([str(word) for word in words], stdout=out, stderr=out, cwd=self.folder,
                                       env=self.environment, preexec_fn=end_with_us, **settings)
        self.processes.append(process)
        return process

    def start_engine(self, port=None):
        self.engine_port = port or free_port()
        store = self.folder / "store"
        store.mkdir(exist_ok=True)
        conf = self.folder / "engine.conf"
        conf.write_text(f'listen: "127.0.0.1:{self.engine_port}"\njetstream {{ store_dir: "{store}" }}\n')
        self.engine = self.run("nats-server", "-c", conf, log="engine.log")
        self.wait_for_port(self.engine_port)

    def start_door(self, *words, port=None):
        self.door_port = port or free_port()
        self.door = self.run(BUILD / "door" / "inkboard-door", "--port", self.door_port, *words, log="door.log")
        self.wait_for_port(self.door_port)

    def engine_words(self):
        return "--engine", f"nats://127.0.0.1:{self.engine_port}"

    def wait_for_port(self, port):
        def answers():
            with socket.socket() as one:
                return one.connect_ex(("127.0.0.1", port)) == 0

        wait_for(answers, 20, f"port {port}")

    def metrics(self):
        text = urllib.request.urlopen(f"http://127.0.0.1:{self.door_port}/metrics", timeout=20).read().decode()
        return {key: float(value) for key, value in re.findall(r"^([a-z_]+) ([0-9.e+]+)$", text, re.M)}

    def wait_for_boards(self, count, seconds=120):
        wait_for(lambda: self.metrics()["inkboard_connections"] >= count, seconds, f"{count} boards", every=0.2)

    def share(self, name, *words, port=None, measured=True):
        """The board that begins the lesson."""
        board = self.board("--share", "--door", f"http://127.0.0.1:{port or self.door_port}", "--link-file", "link",
                           name=name, words=words, measured=measured)
        link = self.folder / "link"
        wait_for(lambda: link.exists() and link.read_text().strip(), 60, "a link")
        self.link = link.read_text().strip()
        return board

    def link_over(self, wire):
        return re.sub(r":\d+(?=[/#])", f":{wire.port}", self.link, count=1)

    def join(self, name, *words, port=None, measured=True):
        link = self.link if port is None else re.sub(r":\d+(?=[/#])", f":{port}", self.link, count=1)
        return self.board("--join", link, name=name, words=words, measured=measured)

    def board(self, *first, name, words, measured):
        """One that is not measured, and writes no page, does not paint."""
        words = [*words, "--record-latency", f"{name}.txt"] if measured else words
        process = self.run(BUILD / "board" / "inkboard", *first, "--name", name, *words, log=f"{name}.log")
        process.name = name
        return process

    def latencies(self, name):
        """[(author, number, milliseconds)] of the objects of others, as far as it has come."""
        file = self.folder / f"{name}.txt"
        lines = file.read_text().splitlines() if file.exists() else []
        return [tuple(map(int, line.split())) for line in lines if line.count(" ") == 2]

    def strokes(self, name, count, points, seed):
        """A file of strokes at random places."""
        chance = random.Random(seed)
        strokes = []
        for _ in range(count):
            x, y, turn = chance.uniform(100, SIZE[0] - 100), chance.uniform(100, SIZE[1] - 100), chance.uniform(0, 6)
            line = []
            for _ in range(points):
                turn += chance.uniform(-0.4, 0.4)
                x = min(max(x + 4 * math.cos(turn), 5), SIZE[0] - 5)
                y = min(max(y + 4 * math.sin(turn), 5), SIZE[1] - 5)
                line.append([round(x), round(y)])
            strokes.append({"color": "#%06x" % chance.randrange(1 << 24), "width": chance.choice([2, 4, 6]), "points": line})
        file = self.folder / f"{name}.json"
        file.write_text(json.dumps({"width": SIZE[0], "height": SIZE[1], "strokes": strokes}))
        return file

    def ended(self, boards, seconds):
        """Waits for all; returns what went wrong."""
        end = time.monotonic() + seconds
        problems = []
        for board in boards:
            try:
                status = board.wait(max(0.1, end - time.monotonic()))
            except subprocess.TimeoutExpired:
                status = "late"
            if status != 0:
                problems.append(f"{board.name}: {status} {(self.folder / (board.name + '.log')).read_text().strip()}")
        return problems

    def pages_differ(self, names):
        pages = {(self.folder / f"{name}.png").read_bytes() for name in names}
        return len(pages) != 1


def bench(lesson, name, *words):
    """A board that times what it does itself."""
    process = lesson.run(BUILD / "bench" / "sharing" / "sharing_bench", *words, log=f"{name}.log")
    process.name = name
    return process
