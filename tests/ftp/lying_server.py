"""An FTP server that lies. Prints its port and serves any number of clients, each on a thread, until it is killed.

Folders: / with the files below; /many of 100,000 entries; /half whose listing is cut within a line; /names with
names that lead elsewhere. With the argument `facts` it offers MLSD.
Files: short announces more than it sends, long less; broken ends within its data, twice, and honours REST; good does
neither; slow comes drop by drop; silent is never answered."""
import socket
import sys
import threading
import time

FACTS = "facts" in sys.argv
BODY = bytes(i * 7 % 251 for i in range(100_000))
ANNOUNCED = {"short": len(BODY), "long": 10, "broken": len(BODY), "good": len(BODY), "slow": len(BODY), "silent": 5}
breaks = [2]


def line(name, size=5, folder=False):
    if FACTS:
        return b"type=%s;size=%d;modify=20200112120000; %s\r\n" % (b"dir" if folder else b"file", size, name)
    return b"%srw-r--r-- 1 u g %d Jan 12  2020 %s\r\n" % (b"d" if folder else b"-", size, name)


def listing(folder):
    if folder == "/many":
        return b"".join(line(b"file %06d" % i, i) for i in range(100_000))
    if folder == "/half":
        return line(b"whole") + line(b"cut")[:-9 if FACTS else -20]
    if folder == "/names":
        return b"".join(line(name) for name in (b"..", b"../../escaped", b"/etc/escaped", b"a\nb", b"a\rb",
                                                b"nul\0l", b"\xff\xfe", b"x" * 4000, b"good"))
    return b"".join(line(name.encode(), size) for name, size in ANNOUNCED.items()) + line(b"names", 0, True)


class Client:
    def __init__(self, control):
        self.control, self.folder, self.rest, self.data = control, "/", 0, None
        self.say("220 ready")
        for command in control.makefile("rb"):
            verb, _, argument = command.strip().decode("latin-1").partition(" ")
            handler = getattr(self, "do_" + verb.lower(), None)
            if handler is None:
                self.say("502 not here")
            elif handler(argument):
                break
        control.close()

    def say(self, text):
        self.control.sendall(text.encode() + b"\r\n")

    def do_user(self, _):
        self.say("331 and the password?")

    def do_pass(self, word):
        self.say("530 That is not the password." if word == "wrong" else "230 welcome")

    def do_feat(self, _):
        self.say("211-Features\r\n MLST type*;size*;modify*;\r\n211 End" if FACTS else "211 none")

    def do_pwd(self, _):
        self.say(f'257 "{self.folder}" is where you are')

    def do_cwd(self, folder):
        self.folder = folder if folder.startswith("/") else "/" + folder
        self.say("250 changed")

    def do_type(self, _):
        self.say("200 yes")

    def do_quit(self, _):
        self.say("221 bye")
        return True

    def do_size(self, name):
        name = name.split("/")[-1]
        self.say(f"213 {ANNOUNCED[name]}" if name in ANNOUNCED else "550 no such file")

    def do_rest(self, offset):
        self.rest = int(offset)
        self.say("350 go on")

    def do_epsv(self, _):
        self.data = socket.create_server(("127.0.0.1", 0))
        self.say(f"229 here (|||{self.data.getsockname()[1]}|)")

    def send(self, data, whole=True):
        self.say("150 it comes")
        with self.data.accept()[0] as peer:
            peer.sendall(data)
        self.data.close()
        if whole:
            self.say("226 done")

    def do_list(self, _):
        self.send(listing(self.folder))

    def do_mlsd(self, _):
        self.send(listing(self.folder))

    def do_retr(self, name):
        name, offset, self.rest = name.split("/")[-1], self.rest, 0
        if name not in ANNOUNCED:
            self.say("550 There is no such file.")
        elif name == "silent":
            time.sleep(60)
            return True
        elif name == "broken" and breaks[0]:
            breaks[0] -= 1
            self.send(BODY[offset:(offset + len(BODY)) // 2], whole=False)
            return True
        elif name == "slow":
            self.say("150 it comes")
            with self.data.accept()[0] as peer:
                for at in range(offset, len(BODY), 500):
                    peer.sendall(BODY[at:at + 500])
                    time.sleep(0.01)
            self.say("226 done")
        else:
            self.send(BODY[offset:60_000] if name == "short" else BODY[offset:])
        return False


def serve(peer):
    try:
        Client(peer)
    except OSError:
        pass  # gone, as one that was killed is


server = socket.create_server(("127.0.0.1", 0))
print(server.getsockname()[1], flush=True)
while True:
    accepted = server.accept()[0]
    threading.Thread(target=serve, args=(accepted,), daemon=True).start()
