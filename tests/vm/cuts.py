"""Manifests on disks whose plug is pulled: cuts.py FOLDER

A guest copies with manifests onto disks with ext4, FAT and exFAT, again and again. At random moments the machine is
stopped, and the disks are taken as they are then: what the guest still had in memory is lost. No history on them may
be one that a checker calls broken. A history that is being copied from a source counts once all of it has come.
FOLDER is where tools/test-vm puts kernel, memory disk and system disk; SNAPSHOTS is the number of moments (60)."""

import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "evidence"))

import history
from machine import FormattedDisks

FILE_SYSTEMS = {"B": ["mkfs.ext4", "-q", "-F"], "C": ["mkfs.vfat", "-F", "32"], "D": ["mkfs.exfat"]}
BROKEN = {history.MANIFEST_CHANGED, history.NO_CHAIN, history.MANIFEST_MISSING}
SIZE = 64  # MiB

# Long names make long manifests, which take a while to the disk.
PREPARE = """
for module in vfat exfat nls_cp437 nls_ascii nls_utf8; do modprobe $module; done
echo 5 >/proc/sys/vm/dirty_writeback_centisecs; echo 5 >/proc/sys/vm/dirty_expire_centisecs
for bay in B C D; do mkdir -p /mnt/$bay; mount $(readlink -f /dev/disk/by-id/ata-*SN$bay) /mnt/$bay || exit 1; done
mkdir -p /tmp/source/0 /tmp/first/0
long=$(head -c 200 /dev/zero | tr '\\0' x)
for roll in 1 2; do for kind in new old; do mkdir -p /tmp/source/0/$kind$roll
for file in $(seq 60); do echo $file >/tmp/source/0/$kind$roll/$long$file; done; done; done
plurimoctl copy --root /tmp/source /tmp/source/0/old* --to /tmp/first --manifest mhl --log-dir /tmp/logs &&
rm -r /tmp/source/0/old* && mv /tmp/first/0/old* /tmp/source/0/
"""

COPY_FOR_EVER = """
i=0; while mv /tmp/source/$i /tmp/source/$((i+1)); do
i=$((i+1)); plurimoctl copy --root /tmp/source /tmp/source/$i/* --to /mnt/B --to /mnt/C --to /mnt/D
--manifest mhl --log-dir /tmp/logs || exit 1; echo $i >/tmp/runs; done
"""


def order(machine, script):
    return machine.run(" ".join(script.split("\n")).replace("do  ", "do ").strip())


def mounted(bay, image, place):
    """What is on the image, and the command that lets go of it."""
    if bay == "C":
        subprocess.run(["mcopy", "-s", "-n", "-i", image, "::*", place], check=False, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
        return lambda: None
    loop = subprocess.run(["losetup", "-f", "--show", image], check=True, stdout=subprocess.PIPE,
                          text=True).stdout.strip()
    program = ["mount.exfat-fuse"] if bay == "D" else ["mount", "-t", "ext4"]
    subprocess.run([*program, loop, place], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def end():
        subprocess.run(["umount", place], check=True)
        subprocess.run(["losetup", "-d", loop], check=True)
    return end


def judge(folder):
    if "MHL_REFERENCE" not in os.environ:
        return history.check(folder)
    code = "from ascmhl.cli.ascmhl_debug import mhldebugtool_cli as main; main()"
    return subprocess.run([sys.executable, "-c", code, "verify", folder], check=False, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL,
                          env={**os.environ, "PYTHONPATH": os.environ["MHL_REFERENCE"]}).returncode


def has_whole_history_of_source(folder, size_of_chain):
    """The second generation is renamed into its place after all of the source has come, the first lies there in
    parts until then."""
    names = os.listdir(os.path.join(folder, "ascmhl"))
    chain = os.path.join(folder, "ascmhl", "ascmhl_chain.xml")
    return any(name.startswith("0002_") for name in names) and os.path.getsize(chain) >= size_of_chain


def is_cut(folder):
    """True when the plug was pulled between the first byte of a manifest and the last name."""
    names = os.listdir(folder) if os.path.isdir(folder) else []
    inside = os.listdir(os.path.join(folder, "ascmhl")) if "ascmhl" in names else []
    return any(name.endswith(".part") for name in names + inside)


def check(bay, image, answers):
    place = tempfile.mkdtemp(prefix="cut-")
    end = mounted(bay, image, place)
    try:
        # What older runs left was checked at earlier moments.
        newest = sorted((name for name in os.listdir(place) if name.isdigit()), key=int)[-2:]
        for folder in (os.path.join(place, run, name) for run in newest
                       for name in sorted(os.listdir(os.path.join(place, run)))):
            if is_cut(folder):
                answers[bay]["cut"] = answers[bay].get("cut", 0) + 1
            if not os.path.isdir(os.path.join(folder, "ascmhl")):
                continue
            if os.path.basename(folder).startswith("old") and not has_whole_history_of_source(folder, 200):
                continue
            number = judge(folder)
            answers[bay][number] = answers[bay].get(number, 0) + 1
            assert number not in BROKEN, f"{FILE_SYSTEMS[bay][0]}, {folder}: {number}: " \
                f"{os.listdir(os.path.join(folder, 'ascmhl'))}"
    finally:
        end()
        shutil.rmtree(place)


def main():
    folder = os.path.abspath(sys.argv[1])
    kernel = next(os.path.join(folder, "kernel/boot", name) for name in os.listdir(folder + "/kernel/boot")
                  if name.startswith("vmlinuz"))
    count = int(os.environ.get("SNAPSHOTS", "60"))
    answers = {bay: {} for bay in FILE_SYSTEMS}
    chance = random.Random(11)
    with tempfile.TemporaryDirectory(prefix="cuts-") as place:
        machine = FormattedDisks(FILE_SYSTEMS, place, kernel, f"{folder}/memory.gz", f"{folder}/system", SIZE)
        try:
            order(machine, PREPARE.replace("\n", "; ").replace("&&; ", "&& ").strip("; "))
            for bay in FILE_SYSTEMS:
                machine.limit_writes(bay, 1)  # so that most of the time something is on its way to the disk
            machine.run("(" + " ".join(COPY_FOR_EVER.split("\n")).strip() + ") >/tmp/copying 2>&1 &")
            for number in range(count):
                time.sleep(chance.uniform(0.05, 0.6))
                machine.ask_control("stop")
                for bay in FILE_SYSTEMS:
                    shutil.copyfile(f"{place}/disk{bay}", f"{place}/cut{bay}")
                machine.ask_control("cont")
                for bay in FILE_SYSTEMS:
                    check(bay, f"{place}/cut{bay}", answers)
                print(f"  {number + 1} moments, {machine.run('cat /tmp/runs 2>/dev/null || echo 0')} runs", flush=True)
        finally:
            machine.end()
    for bay, command in FILE_SYSTEMS.items():
        cuts = answers[bay].pop("cut", 0)
        print(f"{command[0]}: {cuts} cut while a history was written; " +
              ", ".join(f"{times} times {number}" for number, times in sorted(answers[bay].items())))
    assert all(answers.values()), "the disks held no history"


if __name__ == "__main__":
    main()
