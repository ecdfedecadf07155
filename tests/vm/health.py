"""Disks that are not well, on a real kernel: health.py FOLDER

A SATA disk and an NVMe disk that tell how they are, and a backplane whose disks hold less than they say. FOLDER is where
tools/test-vm puts kernel, memory disk and the system disk "docks/system"."""

import hashlib
import json
import os
import subprocess
import sys
import time

from docks import bays, devices, is_copied_to, node_of, number_of, write_definition
from machine import MEBIBYTE, Machine, run_checks, until

HERE = os.path.dirname(os.path.abspath(__file__))
SERIALS = {"A": "PLANEA", "B": "PLANEB", "C": "PLANEC", "D": "PLANED"}
DISK_MEBIBYTES = 320
PROBE_BYTES = 64 * MEBIBYTE
RATE = 48 * MEBIBYTE  # of a disk in the backplane, bytes a second; what is emulated here is faster
HOT, UNRELIABLE = 2, 4  # bits of an NVMe disk's critical warning


class HealthMachine(Machine):
    """Four disks of the backplane, each played by a program of its own; a SATA disk on another controller, the only one
    here that answers questions about its health; and an NVMe disk."""

    def devices(self):
        self.players = []
        words = ["-device", "ich9-ahci,id=plane"]
        for port, bay in enumerate(SERIALS):
            self.say_how_it_is(bay, "genuine")
            with open(self.path_of(bay), "wb") as file:
                file.truncate(DISK_MEBIBYTES * MEBIBYTE)
            self.players.append(subprocess.Popen(
                ["nbdkit", "--foreground", "--unix", f"{self.folder}/socket{bay}", "python", f"{HERE}/lying_disk.py",
                 f"image={self.path_of(bay)}", f"mode={self.folder}/mode{bay}", f"log={self.folder}/log{bay}"],
                stderr=subprocess.DEVNULL))  # each error that it gives is told there
            until("a played disk", lambda: os.path.exists(f"{self.folder}/socket{bay}"))
            words += ["-drive", f"if=none,id=plane{bay},format=raw,file.driver=nbd,file.server.type=unix,"
                                f"file.server.path={self.folder}/socket{bay}",
                      "-device", f"ide-hd,bus=plane.{port},drive=plane{bay},id=disk{bay},serial={SERIALS[bay]},"
                                 f"model=Plane {bay}"]
        for name in ("ata", "nvme"):
            with open(self.path_of(name), "wb") as file:
                file.truncate(32 * MEBIBYTE)
            words += ["-drive", f"if=none,id={name},format=raw,file={self.path_of(name)}"]
        words += ["-device", "piix3-ide,id=old", "-device", "ide-hd,bus=old.0,drive=ata,serial=ATA0,model=Old",
                  "-device", "pcie-root-port,id=nvmeport,chassis=40,slot=40",
                  "-device", "nvme,bus=nvmeport,drive=nvme,id=nvme0,serial=NVME0"]
        return words

    def path_of(self, name):
        return f"{self.folder}/disk{name}"

    def say_how_it_is(self, bay, mode):
        with open(f"{self.folder}/mode{bay}.new", "w") as file:
            file.write(mode)
        os.rename(f"{self.folder}/mode{bay}.new", f"{self.folder}/mode{bay}")

    def digests(self, without):
        """Of all played disks but one, as they are on their "medium"."""
        found = {}
        for bay in SERIALS:
            if bay != without:
                with open(self.path_of(bay), "rb") as file:
                    found[bay] = hashlib.file_digest(file, "sha256").hexdigest()
        return found

    def requests(self, bay):
        """Returns the requests to the disk since the last call: seconds, "read" or "write", place, length."""
        path = f"{self.folder}/log{bay}"
        with open(path) as file:
            lines = [line.split() for line in file]
        os.truncate(path, 0)
        return [(float(when), verb, int(place), int(length)) for when, verb, place, length in lines]

    def end(self):
        super().end()
        for player in self.players:
            player.terminate()
            player.wait()


def health_of(machine, serial):
    listed = json.loads(machine.run("plurimoctl devices --health --json 2>/dev/null"))
    disks = listed["otherDisks"] + [disk for enclosure in listed["enclosures"] for disk in enclosure["disks"]]
    return next(disk["health"] for disk in disks if disk["serial"] == serial)


def check_disks_say_how_they_are(machine):
    # Only a disk with a volume has a device in the list of other disks.
    for serial in ("ATA0", "NVME0"):
        machine.run(f"node={node_of(machine, serial)}; (echo 'label: gpt'; echo ,) | sfdisk -q $node; udevadm settle; "
                    "mkfs.ext4 -q $(ls ${node}1 ${node}p1 2>/dev/null); udevadm settle")
    until("the answer of the SATA disk", lambda: health_of(machine, "ATA0")["verdict"] != "not known")
    ata = health_of(machine, "ATA0")
    assert ata["verdict"] == "good" and 0 < ata["celsius"] < 60, ata
    nvme = health_of(machine, "NVME0")
    print(f"SATA: {ata}\nNVMe: {nvme}", flush=True)
    assert nvme["verdict"] in ("good", "not known"), nvme


def check_questions_are_no_errors(machine):
    """The disk answers each question about its health with what the kernel's plain count takes for an error."""
    before = health_of(machine, "ATA0")["errors"]
    assert before is not None, "the kernel's ring of errors is not found"
    for _ in range(3):
        assert health_of(machine, "ATA0")["errors"] == before, before


def check_critical_warnings_of_an_nvme_disk(machine):
    """A warning of which the disk service of this system tells nothing is "not known", never "good"."""
    for warning, wanted in ((HOT, ("warning", "failing")), (UNRELIABLE, ("not known", "failing"))):
        answer = machine.ask_control("qom-set", path="/machine/peripheral/nvme0", property="smart_critical_warning",
                                     value=warning)
        assert "error" not in answer, answer
        # The kernel asks the disk once a second at most.
        try:
            found = until("the warning", lambda: health_of(machine, "NVME0")["verdict"] in wanted and
                          health_of(machine, "NVME0"))
        finally:
            print(f"critical warning {warning}: {health_of(machine, 'NVME0')}", flush=True)
        assert found["verdict"] in wanted, found
    machine.ask_control("qom-set", path="/machine/peripheral/nvme0", property="smart_critical_warning", value=0)


def learn_the_backplane(machine):
    paths = machine.run("for disk in /sys/block/sd*; do udevadm info -q property $disk; done | "
                        "sed -n 's/^ID_PATH=//p' | sort -u; true").splitlines()
    wanted = {}
    for bay, serial in SERIALS.items():
        properties = machine.run(f"udevadm info -q property {node_of(machine, serial)}").splitlines()
        wanted[bay] = {"path": next(line for line in properties if line.startswith("ID_PATH="))[8:]}
        assert wanted[bay]["path"] in paths
    write_definition(machine, "plane", {"version": 1, "name": "Plane", "bays": wanted})
    assert bays(machine, "Plane") == SERIALS, devices(machine)


def erase(machine, bay):
    return machine.try_to_run(f"plurimoctl erase --enclosure {number_of(machine, 'Plane')} --bay {bay} "
                              f"--name {bay}=COPY{bay} --yes")


def seconds_of_the_probe(requests):
    """From its first write to the last block that it reads again, and how long its 64 MiB took of that."""
    written, begin = 0, None
    for when, verb, place, length in requests:
        if verb == "write":
            begin = begin or when
            written += length
        elif written >= PROBE_BYTES and place + length == DISK_MEBIBYTES * MEBIBYTE:
            return when - begin
    raise AssertionError("the disk was not probed")


def check_genuine_disk_is_let_through(machine):
    learn_the_backplane(machine)
    assert "error" not in machine.ask_control("block_set_io_throttle", id="diskB", bps=RATE, bps_rd=0, bps_wr=0,
                                              iops=0, iops_rd=0, iops_wr=0)
    before = machine.digests(without="B")
    machine.requests("B")
    status, said = erase(machine, "B")
    assert status == 0, said
    assert machine.digests(without="B") == before
    took = seconds_of_the_probe(machine.requests("B"))
    print(f"genuine: let through after {took:.2f} s, of which {PROBE_BYTES / RATE:.2f} s are 64 MiB at the disk's rate",
          flush=True)
    machine.ask_control("block_set_io_throttle", id="diskB", bps=0, bps_rd=0, bps_wr=0, iops=0, iops_rd=0, iops_wr=0)
    machine.run("umount /media/*/COPYB; sync")  # so that nothing is written to it any more


def check_each_kind_of_lie_is_found(machine):
    # The disk service already fails to wipe the end of a disk that has none.
    for mode, words in (("wraps", "smaller than it says"), ("swallows", "smaller than it says"),
                        ("errs", "smaller than it says"), ("breaks off", "what it held may be lost")):
        machine.say_how_it_is("C", mode)
        before = machine.digests(without="C")
        start = time.monotonic()
        status, said = erase(machine, "C")
        print(f"{mode}: status {status} after {time.monotonic() - start:.0f} s: {said}", flush=True)
        assert status == 1 and words in said, (mode, status, said)
        assert machine.digests(without="C") == before, mode
        # It is what it was called: no new table, and no file system.
        if mode == "errs":
            assert health_of(machine, "PLANEC")["errors"] > 0, "the kernel knows of no error"
        table = machine.run(f"udevadm settle; blkid {node_of(machine, 'PLANEC')}1 2>/dev/null; true")
        assert not table, table
    machine.say_how_it_is("C", "genuine")
    status, said = erase(machine, "C")
    assert status == 0, said


def check_run_goes_on_without_the_disk_that_lies(machine):
    machine.run(f"node={node_of(machine, 'PLANEA')}; (echo 'label: gpt'; echo ,) | sfdisk -q $node; udevadm settle; "
                "mkfs.ext4 -q -L SOURCE ${node}1 && mkdir -p /media/SOURCE && mount -t ext4 ${node}1 /media/SOURCE && "
                "echo small >/media/SOURCE/small && dd if=/dev/urandom of=/media/SOURCE/large bs=1M count=8 2>/dev/null; "
                "sync; udevadm settle")
    machine.say_how_it_is("D", "wraps")
    status, said = machine.try_to_run(
        f"plurimoctl duplicate --enclosure {number_of(machine, 'Plane')} --erase --verify --health --yes --json "
        "--name B=COPYB --name C=COPYC --name D=COPYD --log-dir /tmp 2>/tmp/reasons")
    end = json.loads(said.splitlines()[-1])
    reasons = machine.run("cat /tmp/reasons")
    print(reasons)
    assert status == 1, said
    assert [entry["verified"] for entry in end["destinations"]] == [2, 2], end
    assert "smaller than it says" in reasons and "Slot-D" in reasons, reasons
    assert is_copied_to(machine, "Plane", "BC")


if __name__ == "__main__":
    run_checks(HealthMachine, sys.argv[1], "docks/system", 0,
               [check_disks_say_how_they_are, check_questions_are_no_errors, check_critical_warnings_of_an_nvme_disk,
                check_genuine_disk_is_let_through, check_each_kind_of_lie_is_found,
                check_run_goes_on_without_the_disk_that_lies],
               "dmesg | tail -20; cat /run/udisksd.log; plurimoctl devices --health; cat /tmp/reasons; ls /sys/class/hwmon")
