"""A cabin that misbehaves: a table of nonsense, a Listener that refuses, says nothing, answers by halves,
floods, vanishes within a song and comes back at another port. The form answers all the while, says what is
wrong, and plays again once the Listener is well."""
import socket
import sys
import threading
import time

from console import Console


class Service:
    """Takes connections at a port of this machine; all that comes is kept, `greet` is sent to each."""

    def __init__(self, greet=b""):
        self.door = socket.create_server(("127.0.0.1", 0))
        self.port = self.door.getsockname()[1]
        self.greet, self.heard, self.peers = greet, b"", []
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                peer = self.door.accept()[0]
            except OSError:
                return
            self.peers.append(peer)
            threading.Thread(target=self.listen, args=[peer], daemon=True).start()
            self.send(self.greet)

    def listen(self, peer):
        try:
            while block := peer.recv(65536):
                self.heard += block
        except OSError:
            pass

    def send(self, data):
        for peer in list(self.peers):
            try:
                peer.sendall(data)
            except OSError:
                self.peers.remove(peer)

    def die(self):
        self.door.shutdown(socket.SHUT_RDWR)  # else the accept that waits takes one more
        self.door.close()
        for peer in self.peers:
            peer.shutdown(socket.SHUT_RDWR)


def record(*fields):
    return "\0".join(map(str, fields)).encode("latin-1") + b"\1"


def entry(name, port, kind):
    return f"{name}\x02127.0.0.1\x02{port}\x02{kind}"


def link_says(words, seconds=9):
    console.wait_until(lambda: words in console.get("lblLink", 1)["caption"], f"the words {words!r}", seconds)


def presses_song(row, service):
    heard = len(service.heard)
    console.press("Grid", 1, row=row)
    console.wait_until(lambda: b"MUSIC\0PLAY\0" in service.heard[heard:], "PLAY at the Listener", 3)


closed = socket.create_server(("127.0.0.1", 0))
refusing = closed.getsockname()[1]
closed.close()
table = record("IREQUEST", "", "\2\2\2", "half\x021", *(entry(f"Seat {i}", "N/A", "CLIENT") for i in range(1000)),
               entry("Sa\7lon", refusing, "MUSIC"))
master = Service(greet=record("GARBAGE", "x" * 5000) + table)
console = Console(sys.argv[1], user_values="[KRV\\MUSIC]\nMUSICTYPE=SERVER\n",
                  settings=["MasterListenerIP=127.0.0.1", f"MasterListenerPort={master.port}",
                            "MasterListenerMyName=Seat 1"])
console.press("imgTabs", 0)
assert b"ML\0REG\0Seat 1\0" in master.heard and b"ML\0IGET\0ALL\1" in master.heard, master.heard
link_says("refused")
console.screenshot("bad_cabin_refused")

master.send(record("REQUEST", *(entry(f"Lamp {i}\3", i, "MUSIC") for i in range(40))))
console.wait_until(lambda: console.get("cmdDone")["caption"] == "Done", "frmNetwork")
console.screenshot("bad_cabin_network")
console.press("cmdDone")

quiet = Service()
master.send(record("NEW", entry("Sa lon", quiet.port, "MUSIC")))
console.open_album(2, 1)
link_says("does not answer")
quiet.send(b"MUSICDURATION\0212")  # and never more
link_says("does not answer")
quiet.send(record("MAXVOLUME") + record("MUSICTIMER", "", "x" * 4000) + b"\0\0\1\1" + record("RECEIVEJPG", -5))
link_says("● Music", 3)
presses_song(1, quiet)

quiet.send(record("SONGPLAYING", "flood") + record("MEDIAPLAYERSTATE", 2))
done = threading.Event()


def flood():
    block = record("MUSICTIMER", "1:01", "61") * 5000
    while not done.is_set():
        quiet.send(block)
        time.sleep(0.01)


flooding = threading.Thread(target=flood)
flooding.start()
for row in (1, 2, 1, 2):
    console.press("imgTabs", 3)
    console.press("imgTabs", 0)
    presses_song(row, quiet)
done.set()
flooding.join()

quiet.die()
console.wait_until(lambda: console.title() == "Status: Idle",
                   "the loss, behind what the flood left in the sockets", 60)
well = Service(greet=record("MEDIAPLAYERSTATE", 0))
master.send(record("NEW", entry("Sa lon", well.port, "MUSIC")))
link_says("● Music", 4)
presses_song(2, well)
well.send(record("SONGPLAYING", "well again") + record("MEDIAPLAYERSTATE", 2) + record("MUSICTIMER", "0:07", 7))
console.wait_until(lambda: console.title() == "well again" and console.position() == 7, "the song", 3)
console.screenshot("bad_cabin_well")
console.end()
