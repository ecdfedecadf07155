"""Journals of disks whose plug is pulled: journals.py FOLDER

A guest copies onto disks with ext4, xfs and btrfs, again and again, and keeps its journal on a fourth disk. At random
moments the machine is stopped, and all disks are taken as they are then: what the guest still had in memory is lost.
Each copy that the journal vouches for must be there and whole. FOLDER is where tools/test-vm puts kernel, memory disk
and system disk; SNAPSHOTS is the number of moments (60)."""

import os
import random
import re
import subprocess
import sys
import tempfile
import time

from machine import FormattedDisks

FILE_SYSTEMS = {"A": ["mkfs.ext4", "-q", "-F"], "B": ["mkfs.ext4", "-q", "-F"], "C": ["mkfs.xfs", "-q", "-f"],
                "D": ["mkfs.btrfs", "-q", "-f"]}
SIZE = 320  # MiB
FILES = 1500

# File N holds its own number again and again.
PREPARE = f"""
for module in xfs btrfs; do modprobe $module; done
echo 5 >/proc/sys/vm/dirty_writeback_centisecs; echo 5 >/proc/sys/vm/dirty_expire_centisecs
for bay in A B C D; do mkdir -p /mnt/$bay; mount $(readlink -f /dev/disk/by-id/ata-*SN$bay) /mnt/$bay || exit 1; done
mkdir -p /run/source/roll
for file in $(seq {FILES}); do yes $file | head -c $((file * 9973 % 60000)) >/run/source/roll/$file; done
"""

# A journal that was removed at the end of its run must be gone from its disk, too, before the copies are removed.
COPY_FOR_EVER = """
i=0; while true; do i=$((i+1)); for bay in B C D; do rm -rf /mnt/$bay/*; mkdir /mnt/$bay/$i; done;
XDG_STATE_HOME=/mnt/A/state plurimoctl copy /run/source/roll --to /mnt/B/$i /mnt/C/$i /mnt/D/$i
--log-dir /tmp/logs || exit 1; echo $i >/tmp/runs; sync; done
"""


class Mounted:
    """An image, mounted on this machine."""

    def __init__(self, image):
        self.place = tempfile.mkdtemp(prefix="cut-")
        self.loop = subprocess.run(["losetup", "-f", "--show", image], check=True, stdout=subprocess.PIPE,
                                   text=True).stdout.strip()
        subprocess.run(["mount", self.loop, self.place], check=True)

    def __enter__(self):
        return self.place

    def __exit__(self, *_):
        subprocess.run(["umount", self.place], check=True)
        subprocess.run(["losetup", "-d", self.loop], check=True)
        os.rmdir(self.place)


def journalled(place):
    """The paths that the journals on the station vouch for, by the root of their destination."""
    folder = os.path.join(place, "state", "orvana-plurimo")
    paths = {}
    for name in os.listdir(folder) if os.path.isdir(folder) else ():
        if not name.endswith(".head"):
            continue
        with open(os.path.join(folder, name), encoding="utf-8") as file:
            roots = dict(re.findall(r"^\S+ destination (\d+) =(\S*) ", file.read(), re.M))
        with open(os.path.join(folder, name[:-5] + ".copies"), encoding="utf-8") as file:
            for number, path in re.findall(r"^\S+ copy (\d+) .* =(\S+)$", file.read(), re.M):
                paths.setdefault(roots[number], set()).add(path)
    return paths


def wanted(number):
    line = f"{number}\n".encode()
    size = number * 9973 % 60000
    return (line * (size // len(line) + 1))[:size]


def check(bay, image, root, paths, counts):
    with Mounted(image) as place:
        for path in paths:
            copy = os.path.join(place, root.split("/")[-1], path)
            assert os.path.exists(copy), f"{FILE_SYSTEMS[bay][0]}: {path} is in the journal, and is not there"
            with open(copy, "rb") as file:
                assert file.read() == wanted(int(os.path.basename(path))), \
                    f"{FILE_SYSTEMS[bay][0]}: {path} is in the journal, and is torn"
    counts[bay][0] += 1 if paths else 0
    counts[bay][1] += len(paths)


def main():
    folder = os.path.abspath(sys.argv[1])
    kernel = next(os.path.join(folder, "kernel/boot", name) for name in os.listdir(folder + "/kernel/boot")
                  if name.startswith("vmlinuz"))
    count = int(os.environ.get("SNAPSHOTS", "60"))
    counts = {bay: [0, 0] for bay in "BCD"}
    chance = random.Random(11)
    with tempfile.TemporaryDirectory(prefix="cuts-") as place:
        machine = FormattedDisks(FILE_SYSTEMS, place, kernel, f"{folder}/memory.gz", f"{folder}/system", SIZE)
        try:
            machine.run(PREPARE.strip().replace("\n", "; "))
            for bay in "BCD":
                machine.limit_writes(bay, 6)  # so that most of the time something is on its way to the disk
            machine.run("(" + " ".join(COPY_FOR_EVER.split("\n")).strip() + ") >/tmp/copying 2>&1 &")
            time.sleep(10)
            for number in range(count):
                time.sleep(chance.uniform(0.05, 1.5))
                machine.ask_control("stop")
                for bay in FILE_SYSTEMS:
                    subprocess.run(["cp", "--sparse=always", f"{place}/disk{bay}", f"{place}/cut{bay}"], check=True)
                machine.ask_control("cont")
                with Mounted(f"{place}/cutA") as station:
                    paths = journalled(station)
                for root, names in paths.items():
                    check(root.split("/")[2], f"{place}/cut{root.split('/')[2]}", root, names, counts)
                print(f"  {number + 1} moments, {machine.run('cat /tmp/runs 2>/dev/null || echo 0')} runs", flush=True)
        finally:
            machine.end()
    for bay in "BCD":
        print(f"{FILE_SYSTEMS[bay][0]}: {counts[bay][1]} copies in the journals of {counts[bay][0]} moments, all whole")
    assert all(copies for _, copies in counts.values()), "the journals held nothing"


if __name__ == "__main__":
    main()
