"""What scripts rely on: the fields of everything that is printed or written as JSON, and the exit statuses.

    formats.py PLURIMOCTL            compares with the files beside this one
    formats.py PLURIMOCTL --update   writes them anew, to be looked at before they are committed

A file of fields has a line for each field: its path, and what it holds. Where a field holds one of a few fixed words,
the words are listed. A field that comes is a line more in the file. One that goes, or changes its kind, breaks somebody's
script: then the layout needs a new version."""

import difflib
import json
import os
import pty
import signal
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
# Some hold null, or another kind, depending on the moment or on the file system below the test.
CHANGING = {"onDisk": "true, false or text"}
# Fields with fixed words. All other texts are only "text".
FIXED = {"event", "outcome", "kind", "finding", "verdict", "stationCopy", "state", "bay"}
MACHINE = {
    "login": "anna",
    "internalDisks": [{"model": "SSD", "serial": "I1", "size": 512000000000, "volumes": [
        {"name": "System", "startup": True, "capacity": 511000000000}]}],
    "usbDisks": [{"vendor": "V", "product": "Stick", "serial": "U1", "size": 1000000, "volumes": [
        {"name": "STICK", "capacity": 900000}]}],
    "enclosures": [{"uid": 4660, "bays": [
        {"bay": "A", "model": "M", "serial": "A1", "size": 1000000000, "health": {"celsius": 31, "link": "6.0 Gbps"},
         "volumes": [{"name": "Master", "id": "5f0c-1a52", "capacity": 900000000, "content": [
             {"path": "Reel", "bytes": 4000000, "files": 3}, {"path": "note", "bytes": 10}]}]},
        {"bay": "B", "model": "M", "serial": "B1", "size": 1000000000,
         "volumes": [{"name": "COPY1", "capacity": 900000000}]},
        {"bay": "C", "model": "M", "serial": "C1", "size": 1000000000,
         "volumes": [{"name": "COPY2", "capacity": 900000000}]},
        {"bay": "D", "model": "M", "serial": "D1", "size": 1000000000, "formatted": False}]}],
    "docks": [{"usb": "2109:0817", "serial": "D9", "disks": [
        {"port": "1", "serial": "P1", "size": 1000000, "volumes": [{"name": "DOCK1", "capacity": 900000}]}]}],
    "definitions": [{"id": "desk", "version": 1, "name": "Desk", "anchor": {"usb": "2109:0817", "serial": "D9"},
                     "bays": {"A": {"port": "1"}, "B": {"port": "2"}}}],
}


def fields_of(value, path, into):
    if isinstance(value, dict):
        for key, inner in value.items():
            fields_of(inner, f"{path}.{key}" if path else key, into)
        return
    if isinstance(value, list):
        into.setdefault(path + "[]", set())
        for inner in value:
            fields_of(inner, path + "[]", into)
        return
    name = path.split(".")[-1]
    kinds = {bool: "true or false", int: "number", float: "number", type(None): "null", str: "text"}
    kind = json.dumps(value) if name in FIXED and value else CHANGING.get(name, kinds[type(value)])
    into.setdefault(path, set()).add("as it is by then" if path.startswith("progress.") else kind)


def golden(values):
    into = {}
    for value in values:
        fields_of(value, value.get("event", "") if isinstance(value, dict) else "", into)
    return "".join(f"{path}: {', '.join(sorted(kinds)) or 'list'}\n" for path, kinds in sorted(into.items()))


class Runs:
    def __init__(self, program, place):
        self.program, self.place = program, place
        self.statuses = []

    def path(self, name):
        return os.path.join(self.place, name)

    def run(self, words, status, why):
        env = {**os.environ, "XDG_STATE_HOME": self.path("state"), "HOME": self.path("home")}
        done = subprocess.run([self.program, *words], env=env, capture_output=True, text=True, check=False,
                              stdin=subprocess.DEVNULL)
        assert done.returncode == status, (words, done)
        self.statuses.append(f"{status} {words[0]}: {why}\n")
        return done.stdout

    def lines(self, words, status, why):
        return [json.loads(line) for line in self.run(words, status, why).splitlines()]

    def machine(self, name, change=lambda machine: None):
        machine = json.loads(json.dumps(MACHINE))
        change(machine)
        with open(self.path(name), "w", encoding="utf-8") as file:
            json.dump(machine, file)
        return ["--simulator", self.path(name), "--log-dir", self.path(name + ".logs")]

    def report(self, name):
        logs = self.path(name + ".logs")
        report = next(entry for entry in os.listdir(logs) if entry.endswith("-Report.json"))
        with open(os.path.join(logs, report), encoding="utf-8") as file:
            return json.load(file)


def duplications(runs):
    machine = runs.machine("whole.json")
    told = runs.lines(["duplicate", *machine, "--enclosure", "1", "--erase", "--verify", "--manifest", "mhl", "--health",
                       "--yes", "--json"], 0, "every file is on every disk, and is verified")
    devices = json.loads(runs.run(["devices", *machine, "--json", "--health"], 0, "the list is printed"))

    def spoil(made):
        bays = made["enclosures"][0]["bays"]
        bays[1]["volumes"][0]["faults"] = {"writeErrorAfter": 2000000}
        del bays[3]

    told += runs.lines(["duplicate", *runs.machine("spoilt.json", spoil), "--enclosure", "1", "--yes", "--json"], 1,
                       "a file is missing on a disk")
    return told, [runs.report("whole.json"), runs.report("spoilt.json")], devices, machine


def verifications(runs, machine):
    told = runs.lines(["verify", *machine, "--enclosure", "1", "--bay", "B", "--json"], 0, "every file is as in the list")
    copy = runs.path("whole.json.volumes/Volumes/COPY1")
    reel = sorted(os.path.join(folder, name) for folder, _, names in os.walk(copy + "/Reel") for name in names)
    with open(reel[0], "r+b") as file:
        file.write(b"wrong")
    os.remove(reel[1])
    with open(f"{copy}/Reel/new", "w", encoding="utf-8"):
        pass
    told += runs.lines(["verify", *machine, "--enclosure", "1", "--bay", "B", "--json"], 1, "a file is not as in the list")
    runs.run(["verify", runs.path("empty"), "--log-dir", runs.path("logs")], 4, "there is no list")
    return told


def other_statuses(runs, machine):
    runs.run(["copy", runs.path("source")], 2, "an option is missing")
    runs.run(["copy", runs.path("nowhere"), "--to", runs.path("empty"), "--log-dir", runs.path("logs")], 4,
             "the source is not there")
    runs.run(["copy", runs.path("source"), "--to", runs.path("source"), "--log-dir", runs.path("logs")], 2,
             "the destination is in the source")
    runs.run(["copy", runs.path("source"), "--to", runs.path("empty"), "--log-dir", runs.path("logs")], 0, "copied")
    runs.run(["erase", *machine, "--enclosure", "1", "--bay", "B"], 3, "nobody said yes")
    runs.run(["eject", *machine, "--enclosure", "7"], 4, "there is no such enclosure")
    runs.run(["logs", "show", "../x", "--log-dir", runs.path("logs")], 3, "the name is a path")
    runs.run(["completion", "csh"], 2, "no such shell")

    def slow(made):
        made["enclosures"][0]["bays"][0]["volumes"][0]["faults"] = {"delayMilliseconds": 200}
        del made["enclosures"][0]["bays"][3]

    words = ["duplicate", *runs.machine("slow.json", slow), "--enclosure", "1", "--yes", "--json"]
    with subprocess.Popen([runs.program, *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as child:
        progress = next(line for line in child.stdout if '"progress"' in line)
        child.send_signal(signal.SIGINT)
        child.stdout.read()
        assert child.wait() == 130, child.returncode
    runs.statuses.append("130 duplicate: a signal ended it\n")
    return json.loads(progress)


def lines_of_production(runs, machine):
    job = runs.path("reel.plurimo")
    with open(job, "w", encoding="utf-8") as file:
        json.dump({"job": 1, "source": {"volume": "5f0c-1a52", "name": "Master"}, "erase": True, "verify": True}, file)
    ledger = runs.run(["line", "collect", os.path.join(HERE, "ledger.jsonl")], 0, "the ledgers are joined")
    runs.run(["line", "start", runs.path("nowhere"), *machine], 2, "the job file cannot be read")
    runs.run(["line", "start", job, "--count", "2", *machine], 0, "the line is there, and no bay is armed")
    return ledger, json.loads(runs.run(["line", "status", "--json", *machine], 0, "the list is printed"))


def armed_line(runs):
    """Returns the events of a line until one disk has come and has passed. Its countdown takes ten seconds."""
    def blank(made):
        made["enclosures"][0]["bays"][3] = {"bay": "D", "model": "M", "serial": "X", "size": 1000000000, "attached": False}

    def with_disk(made):
        made["enclosures"][0]["bays"][3] = {"bay": "D", "model": "M", "serial": "N1", "size": 1000000000, "formatted": False}

    words = ["line", "start", runs.path("reel.plurimo"), "--count", "1", "--enclosure", "1", "--arm", "D", "--json",
             *runs.machine("line.json", blank)]
    keys, terminal = pty.openpty()
    told = []
    with subprocess.Popen([runs.program, *words], stdin=terminal, stdout=subprocess.PIPE, stderr=terminal, text=True,
                          env={**os.environ, "XDG_STATE_HOME": runs.path("state"), "HOME": runs.path("home")}) as child:
        os.close(terminal)
        for line in child.stdout:
            told.append(json.loads(line))
            if told[-1].get("state") == "waiting":
                runs.machine("line.json.new", with_disk)
                os.rename(runs.path("line.json.new"), runs.path("line.json"))
        assert child.wait() == 0, (child.returncode, told, os.read(keys, 65536))
    os.close(keys)
    runs.statuses.append("0 line: as many disks as were wanted have passed\n")
    # The states in between are short, and may be over before they are told.
    return [event for event in told if event.get("state") not in ("looking", "erasing", "copying", "verifying", "ejecting")]


def found(program, place):
    runs = Runs(program, place)
    for folder in ("source", "empty", "logs", "home"):
        os.mkdir(runs.path(folder))
    with open(runs.path("source/file"), "w", encoding="utf-8") as file:
        file.write("content")
    told, reports, devices, machine = duplications(runs)
    verified = verifications(runs, machine)
    logs = json.loads(runs.run(["logs", "--json", "--log-dir", runs.path("logs")], 0, "the list is printed"))
    bays = json.loads(runs.run(["bays", "--json", *machine], 0, "the list is printed"))
    ledger, lines = lines_of_production(runs, machine)
    # How many lines tell of the progress depends on the time that a run takes.
    told, verified = ([line for line in lines if line["event"] != "progress"] for lines in (told, verified))
    told.append(other_statuses(runs, machine))
    return {"duplicate.fields": golden(told), "report.fields": golden(reports), "devices.fields": golden([devices]),
            "verify.fields": golden(verified), "logs.fields": golden([logs]), "bays.fields": golden([bays]),
            "line-status.fields": golden(lines), "line-start.fields": golden(armed_line(runs)), "ledger.csv": ledger,
            "statuses": "".join(sorted(set(runs.statuses)))}


def main():
    with tempfile.TemporaryDirectory(prefix="formats-") as place:
        texts = found(os.path.abspath(sys.argv[1]), place)
    wrong = 0
    for name, text in texts.items():
        path = os.path.join(HERE, name)
        if "--update" in sys.argv:
            with open(path, "w", encoding="utf-8", newline="") as file:
                file.write(text)
            continue
        with open(path, encoding="utf-8", newline="") as file:
            expected = file.read()
        if text != expected:
            wrong += 1
            sys.stderr.writelines(difflib.unified_diff(expected.splitlines(True), text.splitlines(True), name, "now"))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
