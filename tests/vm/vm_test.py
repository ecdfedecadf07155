"""The program on a real kernel with four SATA controllers behind a PCIe switch: vm_test.py KERNEL GUEST

Nothing here waits for a fixed time: what is to come is asked for until it is there, or until time is up."""

import json
import os
import socket
import subprocess
import sys
import tempfile
import time

PATIENCE = 240  # seconds, on a machine that emulates every instruction and is loaded


def until(what, ask):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = ask()
        if answer:
            return answer
        time.sleep(0.2)
    raise AssertionError(f"in vain: {what}")


class Machine:
    """A virtual machine; its four disks have the serial numbers SN1 to SN4, behind bridges 1 to 4."""

    def __init__(self, folder, kernel, guest):
        self.folder = folder
        words = ["qemu-system-x86_64", "-nodefaults", "-no-user-config", "-display", "none", "-no-reboot",
                 "-machine", "q35,usb=off", "-accel", "tcg", "-cpu", "max", "-smp", "2", "-m", "768",
                 "-kernel", kernel, "-initrd", guest, "-append", "console=ttyS0 panic=-1",
                 "-serial", f"file:{folder}/console",
                 "-qmp", f"unix:{folder}/control,server=on,wait=off",
                 "-device", "virtio-serial-pci",
                 "-chardev", f"socket,id=orders,path={folder}/orders,server=on,wait=off",
                 "-device", "virtserialport,chardev=orders,name=orders",
                 "-device", "pcie-root-port,id=root,chassis=1,slot=1,bus-reserve=16",
                 "-device", "x3130-upstream,id=switch,bus=root"]
        for bay in range(1, 5):
            image = f"{folder}/disk{bay}"
            with open(image, "wb") as file:
                file.truncate(64 * 1024 * 1024)
            words += ["-device", f"xio3130-downstream,id=bay{bay},bus=switch,addr={bay},chassis={bay + 1},slot={bay + 1}",
                      "-device", f"ich9-ahci,id=controller{bay},bus=bay{bay}",
                      "-drive", f"if=none,id=image{bay},format=raw,file={image}",
                      "-device", f"ide-hd,bus=controller{bay}.0,drive=image{bay},serial=SN{bay},model=Disk {bay}"]
        self.process = subprocess.Popen(words)
        self.control = self.connect("control").makefile("rw")
        self.orders = self.connect("orders").makefile("rwb")
        self.ask_control("qmp_capabilities")
        while self.orders.readline().strip() != b"READY":
            pass

    def connect(self, name):
        def attempt():
            connection = socket.socket(socket.AF_UNIX)
            try:
                connection.connect(f"{self.folder}/{name}")
            except OSError:
                assert self.process.poll() is None, "the machine did not start"
                return None
            connection.settimeout(PATIENCE)
            return connection
        return until(f"the machine's {name}", attempt)

    def ask_control(self, command, **arguments):
        self.control.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
        self.control.flush()
        while True:
            answer = json.loads(self.control.readline())
            if "return" in answer or "error" in answer:
                return answer

    def run(self, order):
        """Output of a shell line in the guest, which must succeed."""
        self.orders.write(order.encode() + b"\n")
        self.orders.flush()
        lines = []
        while True:
            line = self.orders.readline().decode(errors="replace").rstrip("\n")
            if line.startswith("STATUS "):
                assert line == "STATUS 0", f"{order}: {line}: {lines}"
                return "\n".join(lines).strip()
            lines.append(line)

    def end(self):
        self.process.terminate()
        self.process.wait()


def paths_by_serial(machine):
    return {serial: path for path, serial in (line.split() for line in machine.run("machine-tree").splitlines())}


def mount_points(machine):
    devices = json.loads(machine.run("plurimoctl devices --json"))
    return [volume["mountPoint"] for disk in devices["otherDisks"] for volume in disk["volumes"]]


def check_bays(machine):
    paths = paths_by_serial(machine)
    for bay in range(1, 5):
        assert f"/pci-bridge@{bay}/IOPP/pci8086,2922@0/AppleAHCI/PRT0@0/" in paths[f"SN{bay}"], paths


def check_mounted_disk_that_is_pulled(machine):
    node = machine.run("readlink -f /dev/disk/by-id/ata-*SN2")
    machine.run(f"(echo 'label: gpt'; echo ,) | sfdisk -q {node}; udevadm settle")
    machine.run(f"mkfs.ext4 -q {node}1 && mkdir -p /mnt/COPY && mount -t ext4 {node}1 /mnt/COPY")
    assert mount_points(machine) == ["/mnt/COPY"]
    machine.run("(plurimoctl devices --json --watch >/tmp/watch 2>&1 &)")
    # Once the list is printed, the volumes are known: whatever changes from now on is told.
    until("the watch", lambda: machine.run("grep -c otherDisks /tmp/watch || true") != "0")
    assert "error" not in machine.ask_control("device_del", id="controller2")
    until("the pulled volume", lambda: "unmounted" in machine.run("cat /tmp/watch"))
    assert mount_points(machine) == [], "though the mount table keeps it"
    assert "/mnt/COPY" in machine.run("cat /proc/self/mountinfo")
    until("the pulled disk", lambda: "SN2" not in paths_by_serial(machine))


def check_disk_that_comes_back(machine):
    controller = machine.run("readlink -f /sys/block/$(basename $(readlink -f /dev/disk/by-id/ata-*SN3))/device/../../../..")
    bridge = os.path.dirname(controller)
    machine.run(f"echo 1 >{controller}/remove")
    until("the removal", lambda: "SN3" not in paths_by_serial(machine))
    machine.run(f"echo 1 >{bridge}/rescan")
    until("the return", lambda: "SN3" in paths_by_serial(machine))
    path = paths_by_serial(machine)["SN3"]
    assert "/pci-bridge@3/" in path, path


def main(kernel, guest):
    with tempfile.TemporaryDirectory(prefix="orvana-vm-") as folder:
        machine = Machine(folder, kernel, guest)
        try:
            for check in (check_bays, check_mounted_disk_that_is_pulled, check_disk_that_comes_back):
                check(machine)
                print("passed:", check.__name__, flush=True)
        finally:
            machine.end()


if __name__ == "__main__":
    main(*sys.argv[1:])
