"""A wire of its own between boards and a door: it delays what passes, counts it, and can be pulled."""

import asyncio
import collections
import socket
import threading

ROOM = 256 << 10  # bytes that are on the wire at once, each way; more wait at the sender, as on a real one


class _End(asyncio.Protocol):
    """One side of a connection. What comes here goes out at the other side, the wire's delay later."""

    def __init__(self, wire, sent):
        self.wire = wire
        self.sent = sent  # "up" or "down"
        self.other = None
        self.transport = None
        self.waiting = collections.deque()
        self.held = 0  # bytes that wait
        self.is_full = False  # what goes out here is not read

    def connection_made(self, transport):
        self.transport = transport
        for buffer in (socket.SO_RCVBUF, socket.SO_SNDBUF):
            transport.get_extra_info("socket").setsockopt(socket.SOL_SOCKET, buffer, ROOM // 2)
        self.wire.ends.add(self)

    def pause_writing(self):
        self.is_full = True

    def resume_writing(self):
        self.is_full = False
        if self.other:
            self.other.flush()

    def data_received(self, data):
        self.wire.bytes[self.sent] += len(data)
        loop = self.wire.loop
        due = loop.time() + self.wire.delay
        if self.wire.rate and self.sent == "down":
            self.wire.free = max(self.wire.free, loop.time()) + len(data) / self.wire.rate
            due = max(due, self.wire.free)
        self.waiting.append((due, data))
        self.held += len(data)
        if self.held > ROOM:
            self.transport.pause_reading()
        if len(self.waiting) == 1:
            loop.call_at(due, self.flush)

    def flush(self):
        loop = self.wire.loop
        now = loop.time() + 0.0002
        while self.waiting and self.waiting[0][0] <= now and not (self.other and self.other.is_full):
            data = self.waiting.popleft()[1]
            self.held -= len(data)
            if self.other and self.other.transport:
                self.other.transport.write(data)
        if self.held <= ROOM:
            self.transport.resume_reading()
        if self.waiting and self.waiting[0][0] > now:
            loop.call_at(self.waiting[0][0], self.flush)

    def connection_lost(self, _):
        self.wire.ends.discard(self)
        if self.other and self.other.transport:
            self.wire.loop.call_later(self.wire.delay, self.other.transport.close)


class Wire:
    """Listens on loopback, and leads to a door there."""

    def __init__(self, door_port, delay=0.001, rate=None):
        self.door_port = door_port
        self.delay = delay  # seconds, each way
        self.rate = rate  # bytes a second to the board, None for any
        self.free = 0.0
        self.bytes = {"up": 0, "down": 0}
        self.ends = set()
        self.is_pulled = False
        self.loop = asyncio.new_event_loop()
        ready = threading.Event()
        self.thread = threading.Thread(target=self._run, args=(ready,), daemon=True)
        self.thread.start()
        ready.wait(10)

    def _run(self, ready):
        asyncio.set_event_loop(self.loop)

        async def start():
            server = await self.loop.create_server(self._accept, "127.0.0.1", 0)
            self.port = server.sockets[0].getsockname()[1]
            ready.set()

        self.loop.run_until_complete(start())
        self.loop.run_forever()

    def _accept(self):
        near = _End(self, "up")
        made = near.connection_made

        def connection_made(transport):
            made(transport)
            if self.is_pulled:
                transport.abort()
            else:
                self.loop.create_task(self._lead(near))

        near.connection_made = connection_made
        return near

    async def _lead(self, near):
        far = _End(self, "down")
        far.other = near
        try:
            await self.loop.create_connection(lambda: far, "127.0.0.1", self.door_port)
        except OSError:
            near.transport.abort()
            return
        near.other = far
        near.flush()

    def pull(self):
        def act():
            self.is_pulled = True
            for end in list(self.ends):
                end.transport.abort()

        self.loop.call_soon_threadsafe(act)

    def plug_in(self):
        self.is_pulled = False

    def reset(self):
        """Returns what has passed since the last call."""
        passed, self.bytes = self.bytes, {"up": 0, "down": 0}
        return passed

    def stop(self):
        self.loop.call_soon_threadsafe(self.loop.stop)
        self.thread.join(5)
