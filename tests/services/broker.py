"""A mosquitto of a test's own on a port of its own, and a peer of it (MQTT 3.1.1, QoS 0)."""
import atexit
import pathlib
import shutil
import socket
import struct
import subprocess
import tempfile
import time


class Broker:
    """Keeps nothing, so that one that is started again knows of nobody."""

    def __init__(self):
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.port = free.getsockname()[1]
        folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-broker-"))
        atexit.register(shutil.rmtree, folder, ignore_errors=True)
        self.config = folder / "mosquitto.conf"
        self.config.write_text(f"listener {self.port} 127.0.0.1\nallow_anonymous true\npersistence false\n"
                               "user root\nlog_type none\n")
        self.start()

    def start(self):
        program = shutil.which("mosquitto") or "/usr/sbin/mosquitto"
        self.process = subprocess.Popen([program, "-c", self.config], stderr=subprocess.DEVNULL)
        atexit.register(self.process.kill)
        for _ in range(200):
            try:
                socket.create_connection(("127.0.0.1", self.port)).close()
                return
            except OSError:
                time.sleep(0.02)
        raise AssertionError("mosquitto does not start")

    def kill(self):
        self.process.kill()
        self.process.wait()


def text(words):
    return struct.pack(">H", len(words)) + words.encode()


class BrokerPeer:
    """Hears all topics."""

    def __init__(self, broker):
        self.socket = socket.create_connection(("127.0.0.1", broker.port), timeout=10)
        self.send(0x10, text("MQTT") + b"\x04\x02\x00\x3c" + text(f"peer{time.monotonic_ns()}"))
        assert self.packet() == (0x20, b"\0\0")
        self.send(0x82, b"\0\1" + text("#") + b"\0")
        assert self.packet()[0] == 0x90

    def send(self, kind, body):
        size, length = len(body), b""
        while True:
            size, digit = divmod(size, 128)
            length += bytes([digit | (0x80 if size else 0)])
            if not size:
                break
        self.socket.sendall(bytes([kind]) + length + body)

    def exactly(self, count):
        data = b""
        while len(data) < count:
            data += (more := self.socket.recv(count - len(data)))
            assert more, "the broker ended the connection"
        return data

    def packet(self):
        kind, size, shift = self.exactly(1)[0], 0, 0
        while True:
            digit = self.exactly(1)[0]
            size |= (digit & 0x7F) << shift
            shift += 7
            if digit < 0x80:
                return kind, self.exactly(size)

    def say(self, topic, payload):
        self.send(0x30, text(topic) + payload.encode())

    def hear(self, seconds=10):
        """The next message, "topic payload"; None when none comes."""
        self.socket.settimeout(seconds)
        try:
            while True:
                kind, body = self.packet()
                if kind & 0xF0 == 0x30:
                    end = 2 + struct.unpack(">H", body[:2])[0]
                    return f"{body[2:end].decode()} {body[end:].decode()}"
        except TimeoutError:
            return None

    def expect(self, *messages):
        for wanted in messages:
            got = self.hear()
            assert got == wanted, f"{got} in place of {wanted}"
