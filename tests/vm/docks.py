"""Enclosures that definitions make, on a real kernel: docks.py FOLDER [CHECK...]

A hub with USB disks, a SATA backplane and NVMe disks; learned, erased, duplicated to with verification, a disk pulled in
mid-run and put into another bay, ejected; and definitions that must not count. FOLDER is where tools/test-vm puts kernel,
memory disk and the system disk "docks/system"."""

import hashlib
import json
import os
import sys
import time

from machine import MEBIBYTE, Machine, run_checks, until

DISK_MEBIBYTES = 32
FOLDER = "/etc/orvana-plurimo/enclosures.d"
DUPLICATE = "plurimoctl duplicate --verify --yes --json --log-dir /tmp"
HUB = {"version": 1, "name": "Hub", "anchor": {"usb": "0409:55aa"},
       "bays": {bay: {"port": str(port)} for port, bay in enumerate("ABCD", 1)}}


class DockMachine(Machine):
    """A hub on a USB controller, four SATA disks, and two NVMe disks behind root ports."""

    def devices(self):
        words = ["-device", "qemu-xhci,id=usb", "-device", "usb-hub,id=hub,bus=usb.0,port=1",
                 "-device", "ich9-ahci,id=plane"]
        for port in range(4):
            words += ["-drive", self.image(f"sata{port}"),
                      "-device", f"ide-hd,bus=plane.{port},drive=sata{port},serial=SATA{port},model=Plane {port}"]
        for number in range(2):
            words += ["-device", f"pcie-root-port,id=nvmeport{number},chassis={number + 40},slot={number + 40}",
                      "-drive", self.image(f"nvme{number}"),
                      "-device", f"nvme,bus=nvmeport{number},drive=nvme{number},serial=NVME{number}"]
        for number in range(6):
            words += ["-drive", self.image(f"stick{number}")]
        return words

    def image(self, name):
        with open(self.path_of(name), "wb") as file:
            file.truncate(DISK_MEBIBYTES * MEBIBYTE)
        return f"if=none,id={name},format=raw,file={self.path_of(name)}"

    def path_of(self, name):
        return f"{self.folder}/{name}"

    def put_in(self, number, port):
        # A drive that was unplugged is gone with its device, so it is added again.
        self.ask_control("human-monitor-command",
                         **{"command-line": f"drive_add 0 {self.image_again(number)}"})
        answer = self.ask_control("device_add", driver="usb-storage", id=f"stick{number}",
                                  bus="usb.0", port=f"1.{port}", drive=f"stick{number}", serial=f"USB{number}")
        assert "error" not in answer, answer

    def image_again(self, number):
        return f"if=none,id=stick{number},format=raw,file={self.path_of(f'stick{number}')}"

    def pull(self, number):
        answer = self.ask_control("device_del", id=f"stick{number}")
        assert "error" not in answer, answer


def devices(machine):
    return json.loads(machine.run("plurimoctl devices --json 2>/dev/null"))


def bays(machine, name):
    """Bay and serial number of each disk in the enclosure of that name; None without such an enclosure."""
    for enclosure in devices(machine)["enclosures"]:
        if enclosure["name"] == name:
            return {disk["bay"].removeprefix("Slot-"): disk["serial"] for disk in enclosure["disks"]}
    return None


def number_of(machine, name):
    return 1 + [enclosure["name"] for enclosure in devices(machine)["enclosures"]].index(name)


def node_of(machine, serial):
    """Empty while there is no such disk."""
    return machine.run(f"ls /dev/disk/by-id/*{serial} /dev/disk/by-id/*{serial}-0:0 2>/dev/null | head -1 | "
                       "xargs -r readlink -f; true")


def write_definition(machine, name, definition, mode="644"):
    text = definition if isinstance(definition, str) else json.dumps(definition)
    machine.run(f"mkdir -p {FOLDER}; printf '%s' '{text}' >{FOLDER}/{name}.json; chmod {mode} {FOLDER}/{name}.json")


def check_hub_is_learned_disk_by_disk(machine):
    machine.run("(plurimoctl bays learn Hub >/tmp/learn 2>&1; echo $? >/tmp/learned) >/dev/null 2>&1 &")
    for number, bay in enumerate("ABCD"):
        until(f"the question for bay {bay}", lambda: f"into bay {bay}." in machine.run("cat /tmp/learn 2>/dev/null; true"))
        machine.put_in(number, number + 1)
    until("the end of learning", lambda: machine.try_to_run("cat /tmp/learned")[0] == 0)
    print(machine.run("cat /tmp/learn"))
    assert machine.run("cat /tmp/learned") == "0"
    definition = json.loads(machine.run(f"cat {FOLDER}/hub.json"))
    assert {bay: port["port"] for bay, port in definition["bays"].items()} == \
        {"A": "1", "B": "2", "C": "3", "D": "4"}, definition
    assert bays(machine, "Hub") == {bay: f"USB{number}" for number, bay in enumerate("ABCD")}, devices(machine)


def check_marks_of_a_disk_that_comes(machine):
    """A disk that comes is marked once udev knows what is on it; one that a table names by its content never is."""
    def is_marked():
        machine.run("udevadm settle")
        node = node_of(machine, "USB3")
        return "UDISKS_SYSTEM=0" in machine.run(f"udevadm info -q property {node} 2>/dev/null; true").splitlines()
    node = node_of(machine, "USB3")
    machine.run(f"(echo 'label: gpt'; echo ,) | sfdisk -q {node}; udevadm settle; mkfs.ext4 -q {node}1; udevadm settle")
    uuid = machine.run(f"udevadm info -q property {node}1 | sed -n 's/^ID_FS_UUID=//p'")
    machine.pull(3)
    until("the pulled disk", lambda: "D" not in bays(machine, "Hub"))
    machine.run(f"echo 'UUID={uuid} /data ext4 noauto 0 0' >/etc/fstab")
    machine.put_in(3, 4)
    until("the disk that the table names", lambda: node_of(machine, "USB3"))
    assert not is_marked(), "a disk that fstab names by its content is marked"
    assert "D" not in bays(machine, "Hub")
    machine.pull(3)
    until("the pulled disk", lambda: not node_of(machine, "USB3"))
    machine.run("rm /etc/fstab")
    machine.put_in(3, 4)
    until("the disk in its bay", lambda: "D" in bays(machine, "Hub"))
    until("the mark of the disk", is_marked)
    print("a disk that comes is marked when it is examined, and not while fstab names what is on it", flush=True)


def print_cost_of_the_rule(machine):
    """The emulated processor is slow, so the ratio to starting the program is what tells something."""
    def each(words):
        start = time.monotonic()
        machine.run(f"for i in 1 2 3 4 5 6 7 8 9 10; do orvana-diskutil {words}; done >/dev/null 2>&1; true")
        return (time.monotonic() - start) * 100
    asked, started = each("isInBay /dev/vda"), each("--version")
    print(f"the rule asks for {asked:.0f} ms, of which {started:.0f} ms are the start of the program: "
          f"{asked / started:.2f} times", flush=True)


def check_udev_agrees(machine):
    machine.run("udevadm settle")
    for serial in ("USB0", "USB3"):
        properties = machine.run(f"udevadm info -q property {node_of(machine, serial)}").splitlines()
        assert "UDISKS_SYSTEM=0" in properties, properties
    assert "UDISKS_SYSTEM=0" not in machine.run(f"udevadm info -q property {node_of(machine, 'SATA0')}").splitlines()
    # What udev calls the places is what definitions call them.
    paths = machine.run("for disk in /sys/block/sd* /sys/block/nvme*; do udevadm info -q property $disk | "
                        "grep '^ID_PATH='; done").splitlines()
    plane = [path.removeprefix("ID_PATH=") for path in paths if "-ata-" in path]
    nvme = [path.removeprefix("ID_PATH=") for path in paths if "-nvme-" in path]
    assert len(plane) == 4 and len(nvme) == 2, paths
    write_definition(machine, "plane", {"version": 1, "name": "Plane",
                                        "bays": dict(zip("ABCD", ({"path": path} for path in sorted(plane))))})
    write_definition(machine, "nvme", {"version": 1, "name": "NVMe",
                                       "bays": dict(zip("AB", ({"path": path} for path in sorted(nvme))))})
    assert bays(machine, "Plane") == {bay: f"SATA{port}" for port, bay in enumerate("ABCD")}, devices(machine)
    assert bays(machine, "NVMe") == {"A": "NVME0", "B": "NVME1"}, devices(machine)
    check_marks_of_a_disk_that_comes(machine)
    print_cost_of_the_rule(machine)


def fill_source(machine, name, mebibytes):
    serial = devices(machine)["enclosures"][number_of(machine, name) - 1]["disks"][0]["serial"]
    node = node_of(machine, serial)
    part = f"{node}p1" if "nvme" in node else f"{node}1"
    machine.run(f"umount /media/SOURCE 2>/dev/null; wipefs -aq {node} 2>/dev/null; (echo 'label: gpt'; echo ,) | "
                f"sfdisk -q {node}; udevadm settle; mkfs.ext4 -q -L SOURCE {part} && mkdir -p /media/SOURCE && "
                f"mount -t ext4 {part} /media/SOURCE && echo small >/media/SOURCE/small && "
                f"dd if=/dev/urandom of=/media/SOURCE/large bs=1M count={mebibytes} 2>/dev/null; sync; udevadm settle")


def is_copied_to(machine, name, wanted):
    machine.run("sync; echo 3 >/proc/sys/vm/drop_caches")
    for disk in devices(machine)["enclosures"][number_of(machine, name) - 1]["disks"]:
        if disk["bay"].removeprefix("Slot-") in wanted:
            point = disk["volumes"][0]["mountPoint"]
            for file in ("small", "large"):
                machine.run(f"cmp /media/SOURCE/{file} '{point}/{file}'")
    return True


def check_each_kind_is_erased_duplicated_to_and_ejected(machine):
    for name, destinations, mebibytes in (("Plane", "BCD", 8), ("NVMe", "B", 8), ("Hub", "BCD", 2)):
        start = time.monotonic()
        fill_source(machine, name, mebibytes)
        names = " ".join(f"--name {bay}=COPY{bay}" for bay in destinations)
        machine.run(f"{DUPLICATE} --enclosure {number_of(machine, name)} --erase {names} >/tmp/{name}")
        end = json.loads(machine.run(f"tail -1 /tmp/{name}"))
        assert end["status"] == 0, end
        assert [entry["verified"] for entry in end["destinations"]] == [2] * len(destinations), end
        assert is_copied_to(machine, name, destinations)
        chosen = " ".join(f"--bay {bay}" for bay in destinations)
        machine.run(f"plurimoctl eject --enclosure {number_of(machine, name)} {chosen} --yes")
        machine.run("umount /media/SOURCE")
        print(f"{name}: erased, duplicated to, verified, ejected in {time.monotonic() - start:.0f} s", flush=True)


def check_disk_that_is_pulled_in_mid_run_and_put_into_another_bay(machine):
    machine.run("udevadm settle")
    fill_source(machine, "Hub", 6)
    machine.run(f"plurimoctl mount --enclosure {number_of(machine, 'Hub')}")
    machine.run(f"({DUPLICATE} --enclosure {number_of(machine, 'Hub')} >/tmp/run 2>/tmp/reasons; echo $? >/tmp/status) "
                ">/dev/null 2>&1 &")

    def is_in_the_middle():
        lines = [json.loads(line) for line in machine.run("cat /tmp/run").splitlines()]
        progress = [event for event in lines if event["event"] == "progress"]
        return progress and progress[-1]["destinations"][2]["bytes"] > MEBIBYTE
    until("the middle of the run", is_in_the_middle)
    machine.pull(3)
    until("the end of the run", lambda: machine.try_to_run("cat /tmp/status")[0] == 0)
    assert machine.run("cat /tmp/status") == "1", machine.run("cat /tmp/run /tmp/reasons")
    end = json.loads(machine.run("tail -1 /tmp/run"))
    failed = [entry["failed"] for entry in end["destinations"]]
    assert failed[:2] == [0, 0] and failed[2] > 0, end
    until("the pulled disk", lambda: bays(machine, "Hub") == {"A": "USB0", "B": "USB1", "C": "USB2"})
    machine.pull(1)
    until("the other pulled disk", lambda: bays(machine, "Hub") == {"A": "USB0", "C": "USB2"})
    machine.put_in(3, 2)
    until("the disk in another bay", lambda: bays(machine, "Hub") == {"A": "USB0", "B": "USB3", "C": "USB2"})
    machine.run(f"udevadm settle; {DUPLICATE} --enclosure {number_of(machine, 'Hub')} --erase --name B=AGAIN "
                "--name C=COPYC >/tmp/again")
    assert json.loads(machine.run("tail -1 /tmp/again"))["status"] == 0
    assert is_copied_to(machine, "Hub", "BC")
    machine.run("umount /media/SOURCE")


def digest(machine, name):
    machine.run("sync")
    with open(machine.path_of(name), "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def check_definitions_that_do_not_count(machine):
    """The disk utility is asked to erase a disk, with every expectation right: it refuses, and every byte stays."""
    node = node_of(machine, "SATA1")
    machine.run(f"umount {node}1 2>/dev/null; rm -f {FOLDER}/*.json; wipefs -aq {node} 2>/dev/null; (echo 'label: gpt'; "
                f"echo ,) | sfdisk -q {node}; udevadm settle; mkfs.ext4 -q {node}1; udevadm settle")
    name = os.path.basename(node)
    order = (f"orvana-diskutil eraseDisk ext4 GONE {node} --expect-sequence=$(cat /sys/block/{name}/diskseq) "
             f"--expect-serial=SATA1 --expect-size={DISK_MEBIBYTES * MEBIBYTE} --expect-bay=")
    in_bay, in_none = order + "enclosure:plane/B", f"{order}$(readlink -f /sys/block/{name})"
    paths = sorted(line.removeprefix("ID_PATH=") for line in machine.run(
        "for disk in /sys/block/sd*; do udevadm info -q property $disk | grep '^ID_PATH=.*-ata-'; done; true").splitlines())
    good = {"version": 1, "name": "Plane", "bays": {"A": {"path": paths[0]}, "B": {"path": paths[1]}}}
    text = json.dumps(good)
    before = digest(machine, "sata1")

    def attack(what, prepare):
        machine.run(f"rm -rf {FOLDER}; mkdir -p {FOLDER}; chmod 755 {FOLDER}")
        prepare()
        # Whoever calls may expect the disk in the bay, or where it is without one.
        for words in (in_bay, in_none):
            status, said = machine.try_to_run(words)
            assert status == 3, (what, status, said)
            assert digest(machine, "sata1") == before, what
        print(f"{what}: {said}", flush=True)

    attack("no definition", lambda: None)
    attack("writable by others", lambda: write_definition(machine, "plane", good, "666"))
    attack("writable by its group", lambda: write_definition(machine, "plane", good, "664"))
    attack("of another owner", lambda: (write_definition(machine, "plane", good),
                                        machine.run(f"chown 1000 {FOLDER}/plane.json")))
    attack("folder that others can write to", lambda: (write_definition(machine, "plane", good),
                                                       machine.run(f"chmod 777 {FOLDER}")))
    attack("a link", lambda: (machine.run(f"printf '%s' '{text}' >/tmp/plane.json"),
                              machine.run(f"ln -s /tmp/plane.json {FOLDER}/plane.json")))
    attack("a FIFO", lambda: machine.run(f"mkfifo {FOLDER}/plane.json"))
    attack("10 MB", lambda: machine.run(f"(printf '%s' '{text}'; head -c 10000000 /dev/zero | tr '\\0' ' ') "
                                        f">{FOLDER}/plane.json"))
    attack("deep JSON", lambda: machine.run(f"head -c 60000 /dev/zero | tr '\\0' '[' >{FOLDER}/plane.json"))
    attack("two that claim one port", lambda: (write_definition(machine, "plane", good),
                                               write_definition(machine, "other", good)))
    attack("a port of another bay", lambda: write_definition(
        machine, "plane", {**good, "bays": {"A": {"path": paths[1]}, "B": {"path": paths[0]}}}))
    attack("an anchor that is there twice", lambda: write_definition(
        machine, "plane", {**good, "bays": {"A": {"path": paths[1]}, "B": {"port": "ata-2.0"}},
                           "anchor": {"pci": "8086:2922"}}))
    attack("a root hub", lambda: write_definition(
        machine, "plane", {**good, "anchor": {"usb": "1d6b:0003"}, "bays": {"A": {"port": "1"}, "B": {"port": "2"}}}))
    attack("a folder elsewhere", lambda: machine.run(
        f"mkdir -p /tmp/elsewhere; printf '%s' '{text}' >/tmp/elsewhere/plane.json"))
    machine.run("mkdir -p /tmp/elsewhere")
    status, said = machine.try_to_run(f"ORVANA_ENCLOSURES=/tmp/elsewhere {in_none}")
    assert status == 3 and digest(machine, "sata1") == before, said

    def fstab():
        write_definition(machine, "plane", good)
        machine.run(f"echo '{node} /data ext4 noauto 0 0' >/etc/fstab")
    attack("named by fstab", fstab)
    machine.run("rm /etc/fstab")

    machine.run(f"mkdir -p /srv/data; mount -t ext4 -o ro,noload {node}1 /srv/data; umount /srv/data")
    before = digest(machine, "sata1")
    write_definition(machine, "plane", good)
    machine.run(f"mount -t ext4 -o ro,noload {node}1 /srv/data")
    status, said = machine.try_to_run(in_none)
    assert status == 3 and digest(machine, "sata1") == before, said
    print(f"mounted at /srv: {said}", flush=True)
    machine.run("umount /srv/data")
    # The same order with the definition that counts: what was refused before is done now.
    machine.run(f"rm -rf {FOLDER}")
    write_definition(machine, "plane", good)
    machine.run(in_bay)
    assert digest(machine, "sata1") != before


CHECKS = [check_hub_is_learned_disk_by_disk, check_udev_agrees, check_each_kind_is_erased_duplicated_to_and_ejected,
          check_disk_that_is_pulled_in_mid_run_and_put_into_another_bay, check_definitions_that_do_not_count]

if __name__ == "__main__":
    run_checks(DockMachine, sys.argv[1], "docks/system", 0,
               [check for check in CHECKS if not sys.argv[2:] or check.__name__ in sys.argv[2:]],
               "dmesg | tail -20; cat /tmp/learn /tmp/reasons /run/udisksd.log; plurimoctl devices; plurimoctl bays check; "
               "lsblk 2>/dev/null")
