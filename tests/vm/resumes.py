"""Runs that go on after the plug was pulled: resumes.py FOLDER

A guest copies onto disks with ext4, xfs, exFAT or FAT, and keeps its journal on a fourth disk. At a random moment the
machine is stopped, and all disks are taken as they are then: what the guest still had in memory is lost. The guest gets
them back as other disks, mounts them, and goes on. Disks with FAT and exFAT are checked before: Linux makes them
read-only when it meets what a pulled plug leaves there. After that every copy must equal its source, and
nothing that the journal vouched for may have been written again. FOLDER is where tools/test-vm puts kernel, memory disk
and system disk; MOMENTS is the number of moments (20)."""

import json
import os
import random
import subprocess
import sys
import tempfile
import time

from journals import Mounted, journalled
from machine import FormattedDisks

EXT4 = ("mkfs.ext4", "-q", "-F")
XFS = ("mkfs.xfs", "-q", "-f")
EXFAT = ("mkfs.exfat",)
FAT = ("mkfs.vfat", "-F", "32")
CHECKS = {EXFAT: ("fsck.exfat", "-y"), FAT: ("fsck.vfat", "-a", "-w")}
# Disk A belongs to the station.
MACHINES = [{"A": EXT4, "B": XFS, "C": EXFAT, "D": FAT}, {"A": EXT4, "B": EXT4, "C": EXFAT, "D": XFS}]
SIZE = 320  # MiB
FILES = 1500
LARGE = 24  # MiB

PREPARE = f"""
for module in xfs exfat vfat nls_cp437 nls_ascii nls_utf8 xhci_pci usb_storage sd_mod; do modprobe $module; done
echo 5 >/proc/sys/vm/dirty_writeback_centisecs; echo 5 >/proc/sys/vm/dirty_expire_centisecs
mkdir -p /mnt/A /mnt/B /mnt/C /mnt/D /run/source/roll
for file in $(seq {FILES}); do yes $file | head -c $((file * 9973 % 60000)) >/run/source/roll/$file; done
yes large | head -c {LARGE << 20} >/run/source/roll/500-large
"""
MOUNT = "for bay in A B C D; do mount $(readlink -f /dev/disk/by-id/{name}$bay) /mnt/$bay || exit 1; done"
UNMOUNT = "for bay in A B C D; do umount /mnt/$bay || exit 1; done"
COPY = ("XDG_STATE_HOME=/mnt/A/state plurimoctl copy /run/source/roll --to /mnt/B /mnt/C /mnt/D --log-dir /tmp/logs "
        "--json")
SUM = "cd {folder} && find . -type f | sort | xargs sha1sum | sha1sum"


class Resumed(FormattedDisks):
    """A machine that gets copies of its disks as USB disks."""

    def devices(self):
        return super().devices() + ["-device", "qemu-xhci,id=usb"]

    def plug(self, bay, image):
        self.must("blockdev-add", **{"driver": "raw", "node-name": f"cut{bay}",
                                     "file": {"driver": "file", "filename": image}})
        self.must("device_add", driver="usb-storage", id=f"stick{bay}", bus="usb.0", drive=f"cut{bay}",
                  serial=f"CUT{bay}")

    def unplug(self, bay):
        self.must("device_del", id=f"stick{bay}")
        for _ in range(100):
            if "error" not in self.ask_control("blockdev-del", **{"node-name": f"cut{bay}"}):
                return
            time.sleep(0.1)
        raise AssertionError(f"the disk in {bay} does not leave")

    def must(self, command, **arguments):
        answer = self.ask_control(command, **arguments)
        while "error" in answer and "event" in answer:
            answer = self.ask_control(command, **arguments)
        assert "error" not in answer, answer


def order(machine, script):
    return machine.run(script.strip().replace("\n", "; "))


def cut(machine, place, formats, chance):
    """Copies, and takes the disks at a random moment. Returns false if the run had ended by then."""
    machine.run(MOUNT.format(name="ata-*SN"))
    machine.run("rm -rf /mnt/*/roll /mnt/A/state; sync")
    for bay in "BCD":
        machine.limit_writes(bay, 6)  # so that most of the time something is on its way to the disk
    machine.run(f"({COPY}) >/tmp/copying 2>&1 &")
    time.sleep(chance.uniform(2, 20))
    machine.ask_control("stop")
    for bay in formats:
        subprocess.run(["cp", "--sparse=always", f"{place}/disk{bay}", f"{place}/cut{bay}"], check=True)
    machine.ask_control("cont")
    for bay in "BCD":
        machine.limit_writes(bay, 0)
    was_running = machine.try_to_run("killall -9 plurimoctl")[0] == 0
    machine.run("while killall -0 plurimoctl 2>/dev/null; do sleep 0.1; done; " + UNMOUNT)
    return was_running


def size_of(name):
    return LARGE << 20 if name.endswith("large") else int(name) * 9973 % 60000


def bytes_in_journal(image, root):
    with Mounted(image) as station:
        return sum(size_of(os.path.basename(path)) for path in journalled(station).get(root, ()))


def go_on(machine, place, formats, counts):
    total = sum(size_of(str(number)) for number in range(1, FILES + 1)) + size_of("large")
    missing = {bay: total - bytes_in_journal(f"{place}/cutA", f"/mnt/{bay}") for bay in "BCD"}
    for bay, command in formats.items():
        if command in CHECKS:
            # Its status says whether something was mended.
            subprocess.run([*CHECKS[command], f"{place}/cut{bay}"], check=False, stdout=subprocess.DEVNULL)
        machine.plug(bay, f"{place}/cut{bay}")
    machine.run("for bay in A B C D; do i=0; while [ ! -e /dev/disk/by-id/usb-*CUT$bay-0:0 ]; do i=$((i+1)); "
                "[ $i -lt 300 ] || exit 1; sleep 0.1; done; done")
    machine.run(MOUNT.format(name="usb-*CUT").replace("$bay)", "$bay-0:0)"))
    told = machine.run(COPY + " --resume")
    wanted = machine.run(SUM.format(folder="/run/source/roll"))
    end = next(json.loads(line) for line in reversed(told.splitlines()) if '"destinations"' in line)
    machine.run("sync; echo 3 >/proc/sys/vm/drop_caches")
    for bay, destination in zip("BCD", end["destinations"]):
        found = machine.run(SUM.format(folder=f"/mnt/{bay}/roll"))
        kind = formats[bay][0]
        assert found == wanted, f"{kind}: the copies are not those of the source"
        assert destination["copied"] == FILES + 1 and destination["failed"] == 0, (kind, destination)
        assert destination["bytes"] <= missing[bay], f"{kind}: what the journal vouched for was written again"
        count = counts.setdefault(kind, [0, 0, 0, 0])
        count[0] += 1
        count[1] += destination["alreadyThere"]
        count[2] += destination["copied"]
        count[3] += missing[bay] < total
    machine.run(UNMOUNT)
    for bay in formats:
        machine.unplug(bay)


def main():
    folder = os.path.abspath(sys.argv[1])
    kernel = next(os.path.join(folder, "kernel/boot", name) for name in os.listdir(folder + "/kernel/boot")
                  if name.startswith("vmlinuz"))
    moments = int(os.environ.get("MOMENTS", "20"))
    counts = {}
    chance = random.Random(int(os.environ.get("SEED", "7")))
    broken_off = 0
    for formats in MACHINES:
        with tempfile.TemporaryDirectory(prefix="resumes-") as place:
            machine = Resumed(formats, place, kernel, f"{folder}/memory.gz", f"{folder}/system", SIZE)
            try:
                order(machine, PREPARE)
                for number in range(moments // len(MACHINES)):
                    broken_off += cut(machine, place, formats, chance)
                    go_on(machine, place, formats, counts)
                    print(f"  {number + 1} moments", flush=True)
            finally:
                machine.end()
    for kind, (runs, there, copied, known) in sorted(counts.items()):
        print(f"{kind}: {runs} runs went on, {known} of them with copies in the journal; {there} of {copied} copies were "
              "there already, all are whole")
    print(f"{broken_off} runs were broken off in their middle")
    assert broken_off > 0


if __name__ == "__main__":
    main()
