"""What exFAT and FAT cannot hold: limits.py FOLDER

A guest copies odd entries with --keep all onto the kernel's own exFAT, FAT and ext4. What cannot be held must be counted,
the contents must be there, and --preflight must find beforehand just those names and sizes that fail. FOLDER is where
tools/test-vm puts kernel, memory disk and system disk."""

import json
import os
import sys
import tempfile

from machine import FormattedDisks

FORMATS = {"A": ["mkfs.ext4", "-q", "-F"], "B": ["mkfs.exfat"], "C": ["mkfs.vfat", "-F", "32"],
           "D": ["mkfs.ext4", "-q", "-F"]}
SIZE = 320  # MiB

PREPARE = r"""
for module in exfat vfat nls_cp437 nls_ascii nls_utf8; do modprobe $module; done
for bay in A B C D; do mkdir -p /mnt/$bay; mount $(readlink -f /dev/disk/by-id/ata-*SN$bay) /mnt/$bay || exit 1; done
mkdir -p /mnt/A/fine/sub /mnt/A/odd; cd /mnt/A/fine
echo one >first; ln first second; ln -s first link; echo other >owned; chown 1000:1000 owned; chmod 600 owned
echo old >old; touch -d 1975-05-05 old; touch -d 2001-02-03 sub
dd if=/dev/zero of=sparse bs=1M seek=8 count=1; cd /mnt/A/odd
touch 'what?' 'dot.' 'blank ' Clip clip plain; truncate -s 4294967296 large
"""


def copy(machine, item, *options):
    """The last line of a copy, which may fail."""
    _, told = machine.try_to_run(f"rm -rf /mnt/B/* /mnt/C/* /mnt/D/*; plurimoctl copy /mnt/A/{item} --to /mnt/B /mnt/C "
                                 f"/mnt/D --log-dir /tmp/logs --json {' '.join(options)} 2>/dev/null")
    lines = [json.loads(line) for line in told.splitlines() if line.startswith("{")]
    problems = [(line["destination"], line["kind"], os.path.basename(line["file"])) for line in lines
                if line["event"] == "problem"]
    return lines[-1]["destinations"], problems


def check_kept(machine):
    (exfat, fat, ext4), problems = copy(machine, "fine", "--keep all", "--verify")
    assert not problems, problems
    assert "notKept" not in ext4, ext4
    for destination in (exfat, fat):
        missing = destination["notKept"]
        assert missing["link"] == 1 and missing["hardLink"] == 1 and missing["hole"] == 1, missing
        assert missing["date"] == 1 and missing["owner"] >= 1 and missing["permissions"] >= 1, missing
        assert destination["failed"] == 0 and destination["verified"] == destination["copied"] == 5, destination
    for bay in "BC":
        assert machine.run(f"cat /mnt/{bay}/fine/second") == "one"
        assert machine.run(f"date -u -r /mnt/{bay}/fine/sub +%Y-%m-%d") == "2001-02-03"
    assert machine.run("[ /mnt/D/fine/first -ef /mnt/D/fine/second ] && readlink /mnt/D/fine/link") == "first"
    print(f"  exFAT: {exfat['notKept']}\n  FAT: {fat['notKept']}")


def check_preflight(machine):
    _, problems = copy(machine, "odd", "--preflight go-on")
    for bay, wanted in (("B", {"what?", "dot."}), ("C", {"what?", "dot.", "blank ", "large"})):
        found = {name for place, kind, name in problems if place == f"/mnt/{bay}" and kind == "cannotHold"}
        pair = found & {"Clip", "clip"}
        assert len(pair) == 1, found
        # There is no room for the large file either. That is told of the source as a whole, "A".
        assert found - pair - {"A"} == wanted, (bay, found)
    destinations, problems = copy(machine, "odd", "--preflight stop")
    assert all(kind == "cannotHold" for _, kind, _ in problems), problems
    assert all(destination["copied"] == 0 and destination["failed"] == 0 for destination in destinations)
    assert machine.run("ls -A /mnt/B /mnt/C | grep -c odd || true") == "0"
    print("  names, pairs, sizes and space are found before the first write")


def main():
    folder = os.path.abspath(sys.argv[1])
    kernel = next(os.path.join(folder, "kernel/boot", name) for name in os.listdir(folder + "/kernel/boot")
                  if name.startswith("vmlinuz"))
    with tempfile.TemporaryDirectory(prefix="limits-") as place:
        machine = FormattedDisks(FORMATS, place, kernel, f"{folder}/memory.gz", f"{folder}/system", SIZE)
        try:
            machine.run(PREPARE.strip().replace("\n", "; "))
            check_kept(machine)
            check_preflight(machine)
        finally:
            machine.end()


if __name__ == "__main__":
    main()
