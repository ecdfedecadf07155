"""The programs on a real kernel with four SATA controllers behind a PCIe switch: vm_test.py FOLDER
FOLDER is where tools/test-vm puts kernel, memory disk and system disk.

Nothing here waits for a fixed time: what is to come is asked for until it is there, or until time is up."""

import base64
import json
import os
import sys

from machine import BAYS, MEBIBYTE, Machine, run_checks, until

SOURCE = "/media/SOURCE"
SOURCE_MEBIBYTES = 48
DUPLICATE = "plurimoctl duplicate --enclosure 1 --verify --yes --json --log-dir /tmp"
ERASE = "--erase --name B=COPY1 --name C=COPY2 --name D=COPY3"


def disks_by_bay(machine):
    """Of the only enclosure: "A" and so on, each with what "devices" tells of the disk."""
    enclosures = json.loads(machine.run("plurimoctl devices --json"))["enclosures"]
    assert len(enclosures) == 1, enclosures
    # The bays of an enclosure that lacks a controller are not known.
    return {disk["bay"].removeprefix("Slot-"): disk for disk in enclosures[0]["disks"] if disk["bay"]}


def mount_point(disk):
    points = [volume["mountPoint"] for volume in disk["volumes"]]
    return points[0] if len(points) == 1 else None


def node_of(machine, bay):
    return machine.run(f"readlink -f /dev/disk/by-id/ata-*SN{bay}")


def is_same_as_source(machine, point):
    """As the disk holds it, not as memory remembers it."""
    machine.run("sync; echo 3 >/proc/sys/vm/drop_caches")
    status, output = machine.try_to_run(f"cd {SOURCE} && find . -type f | while read -r file; do "
                                        f"cmp \"$file\" \"{point}/$file\" || exit 1; done")
    return status == 0 or print(output)


def events(machine, file):
    return [json.loads(line) for line in machine.run(f"cat {file}").splitlines()]


def check_bays(machine):
    disks = disks_by_bay(machine)
    assert {bay: disk["serial"] for bay, disk in disks.items()} == {bay: f"SN{bay}" for bay in BAYS}, disks
    assert all(disk["unformatted"] for disk in disks.values()), disks
    others = json.loads(machine.run("plurimoctl devices --json"))["otherDisks"]
    assert any(disk["startup"] for disk in others), others


def check_mark_of_udev(machine):
    """udev asks the disk utility, and marks the disks in bays."""
    for bay in BAYS:
        properties = machine.run(f"udevadm info -q property {node_of(machine, bay)}").splitlines()
        assert "UDISKS_SYSTEM=0" in properties, (bay, properties)
    assert "UDISKS_SYSTEM=0" not in machine.run("udevadm info -q property /dev/vda").splitlines()


def check_erase_and_duplicate(machine):
    node = node_of(machine, "A")
    machine.run(f"(echo 'label: gpt'; echo ,) | sfdisk -q {node}; udevadm settle")
    machine.run(f"mkfs.ext4 -q -L SOURCE {node}1 && mkdir -p {SOURCE} && mount -t ext4 {node}1 {SOURCE}")
    machine.run(f"mkdir {SOURCE}/folder && echo small >{SOURCE}/folder/small && "
                f"for i in 1 2 3 4; do dd if=/dev/urandom of={SOURCE}/file$i bs=1M "
                f"count={SOURCE_MEBIBYTES // 4} 2>/dev/null; done; sync; udevadm settle")
    machine.run(f"{DUPLICATE} {ERASE} >/tmp/first")
    end = events(machine, "/tmp/first")[-1]
    assert end["event"] == "end" and end["status"] == 0, end
    assert [entry["verified"] for entry in end["destinations"]] == [5, 5, 5], end
    disks = disks_by_bay(machine)
    for number, bay in enumerate("BCD", 1):
        point = mount_point(disks[bay])
        assert point and os.path.basename(point) == f"COPY{number}", disks[bay]
        assert is_same_as_source(machine, point), bay
        assert "UDISKS_SYSTEM=0" in machine.run(f"udevadm info -q property {node_of(machine, bay)}1").splitlines()


def check_disk_that_is_pulled_in_mid_run(machine):
    """The others get everything; the one that is gone is named."""
    disk = machine.run(f"readlink -f /sys/block/$(basename {node_of(machine, 'D')})/device")
    for bay in "BCD":
        machine.limit_writes(bay, 8)  # so that the run lasts long enough
    machine.run(f"(cd {SOURCE} && for i in 1 2 3 4; do mv file$i again$i; done)")
    machine.run(f"({DUPLICATE} >/tmp/second 2>/tmp/reasons; echo $? >/tmp/status) >/dev/null 2>&1 &")

    def is_in_the_middle():
        progress = [event for event in events(machine, "/tmp/second") if event["event"] == "progress"]
        return progress and progress[-1]["destinations"][2]["bytes"] > SOURCE_MEBIBYTES * MEBIBYTE // 4
    until("the middle of the run", is_in_the_middle)
    assert machine.try_to_run("cat /tmp/status")[0] != 0, "the run was over too soon"
    machine.run(f"(echo 1 >{disk}/delete) >/dev/null 2>&1 &")
    until("the end of the run", lambda: machine.try_to_run("cat /tmp/status")[0] == 0)
    assert machine.run("cat /tmp/status") == "1", machine.run("cat /tmp/second /tmp/reasons")
    end = events(machine, "/tmp/second")[-1]
    failed = [entry["failed"] for entry in end["destinations"]]
    assert failed[:2] == [0, 0] and failed[2] > 0, end
    reasons = machine.run("cat /tmp/reasons")
    assert "COPY3" in reasons and "COPY1" not in reasons, reasons
    print(reasons)
    for bay in "BCD":
        machine.limit_writes(bay, 0)
    until("the end of the pulled disk", lambda: "D" not in disks_by_bay(machine))
    disks = disks_by_bay(machine)
    for bay in "BC":
        assert is_same_as_source(machine, mount_point(disks[bay])), bay
    host = next(part for part in disk.split("/") if part.startswith("host"))
    machine.run(f"echo {host} >/tmp/host")  # the disk is put back at this port


def check_disk_that_is_put_back(machine):
    machine.run("echo '- - -' >/sys/class/scsi_host/$(cat /tmp/host)/scan; udevadm settle")
    until("the disk that is put back", lambda: "D" in disks_by_bay(machine))
    assert disks_by_bay(machine)["D"]["serial"] == "SND"
    machine.run(f"{DUPLICATE} {ERASE} >/tmp/third")
    assert events(machine, "/tmp/third")[-1]["status"] == 0
    disks = disks_by_bay(machine)
    for bay in "BCD":
        assert is_same_as_source(machine, mount_point(disks[bay])), bay


def check_eject(machine):
    machine.run("plurimoctl eject --enclosure 1 --bay B --bay C --bay D --yes")
    disks = disks_by_bay(machine)
    assert {bay: mount_point(disk) for bay, disk in disks.items()} == \
        {"A": SOURCE, "B": None, "C": None, "D": None}, disks


def check_refused_member_of_a_set(machine):
    node = node_of(machine, "C")
    mark = bytearray(256)  # the start of a second-generation superblock, 8 blocks from the start of the disk
    mark[0:8] = b"\xfc\x4e\x2b\xa9\x01\0\0\0"
    mark[16:32] = b"u" * 16
    mark[144] = 8
    text = base64.b64encode(mark).decode()
    machine.run(f"dd if=/dev/zero of={node} bs=1M count=4 conv=notrunc 2>/dev/null; "
                f"echo {text} | base64 -d | dd of={node} bs=4096 seek=1 conv=notrunc 2>/dev/null; sync; "
                f"udevadm trigger --action=change /sys/block/$(basename {node}); udevadm settle")
    assert disks_by_bay(machine)["C"]["raid"]
    before = machine.run(f"sha256sum <{node}")
    assert machine.try_to_run("plurimoctl erase --enclosure 1 --bay C --name C=COPY --yes")[0] == 3
    assert machine.run(f"sync; echo 3 >/proc/sys/vm/drop_caches; sha256sum <{node}") == before


def check_mounted_disk_that_is_pulled(machine):
    """The mount table keeps the volume; the program does not."""
    node = node_of(machine, "B")
    machine.run(f"mkdir -p /mnt/COPY && mount -t ext4 {node}1 /mnt/COPY")
    assert mount_point(disks_by_bay(machine)["B"]) == "/mnt/COPY"
    machine.run("(plurimoctl devices --json --watch >/tmp/watch 2>&1 &)")
    # Once the list is printed, the volumes are known, and every later change is reported.
    until("the watch", lambda: machine.run("grep -c otherDisks /tmp/watch || true") != "0")
    assert "error" not in machine.ask_control("device_del", id="controllerB")
    until("the pulled volume", lambda: "unmounted" in machine.run("cat /tmp/watch"))
    until("the pulled disk", lambda: "B" not in disks_by_bay(machine))


if __name__ == "__main__":
    run_checks(Machine, sys.argv[1], "system", 256,
               [check_bays, check_mark_of_udev, check_erase_and_duplicate, check_disk_that_is_pulled_in_mid_run,
                check_disk_that_is_put_back, check_eject, check_refused_member_of_a_set,
                check_mounted_disk_that_is_pulled],
               "dmesg | tail -20; cat /tmp/reasons")
