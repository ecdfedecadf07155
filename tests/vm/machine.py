"""A virtual machine with a four-bay switch, and a shell in it."""

import glob
import json
import socket
import subprocess
import tempfile
import time

PATIENCE = 240  # seconds; enough for a busy machine that emulates every instruction
MEBIBYTE = 1024 * 1024
BAYS = "ABCD"


def until(what, ask):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = ask()
        if answer:
            return answer
        time.sleep(0.2)
    raise AssertionError(f"in vain: {what}")


class Machine:
    """A virtual machine with a system disk and four more, of the serial numbers SNA to SND, each on a controller of
    its own behind bridges 0 to 3 of one switch."""

    def __init__(self, folder, kernel, memory, system, disk_mebibytes):
        self.folder = folder
        words = ["qemu-system-x86_64", "-nodefaults", "-no-user-config", "-display", "none", "-no-reboot",
                 "-machine", "q35,usb=off", "-accel", "tcg", "-cpu", "max", "-smp", "2", "-m", "768",
                 "-kernel", kernel, "-initrd", memory, "-append", "console=ttyS0 panic=-1",
                 "-serial", f"file:{folder}/console",
                 "-qmp", f"unix:{folder}/control,server=on,wait=off",
                 "-drive", f"if=virtio,format=raw,snapshot=on,file={system}",
                 "-device", "virtio-serial-pci",
                 "-chardev", f"socket,id=orders,path={folder}/orders,server=on,wait=off",
                 "-device", "virtserialport,chardev=orders,name=orders"]
        self.disk_mebibytes = disk_mebibytes
        words += self.devices()
        self.process = subprocess.Popen(words)
        try:
            self.start_talking()
        except BaseException:
            self.end()
            raise

    def devices(self):
        """The words that add the disks and what they are connected to."""
        words = ["-device", "pcie-root-port,id=root,chassis=1,slot=1,bus-reserve=16",
                 "-device", "x3130-upstream,id=switch,bus=root"]
        for number, bay in enumerate(BAYS):
            image = f"{self.folder}/disk{bay}"
            with open(image, "wb") as file:
                file.truncate(self.disk_mebibytes * MEBIBYTE)
            words += ["-device", f"xio3130-downstream,id=bay{bay},bus=switch,addr={number},"
                                 f"chassis={number + 2},slot={number + 2}",
                      "-device", f"ich9-ahci,id=controller{bay},bus=bay{bay}",
                      "-drive", f"if=none,id=image{bay},format=raw,file={image}",
                      "-device", f"ide-hd,id=disk{bay},bus=controller{bay}.0,drive=image{bay},serial=SN{bay},"
                                 f"model=Disk {bay}"]
        return words

    def start_talking(self):
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

    def limit_writes(self, bay, mebibytes_per_second):
        """0 for as fast as it goes."""
        answer = self.ask_control("block_set_io_throttle", id=f"disk{bay}", bps=0, bps_rd=0,
                                  bps_wr=mebibytes_per_second * MEBIBYTE, iops=0, iops_rd=0, iops_wr=0)
        assert "error" not in answer, answer

    def try_to_run(self, order):
        """Status and output of a shell line in the guest."""
        self.orders.write(order.encode() + b"\n")
        self.orders.flush()
        lines = []
        while True:
            line = self.orders.readline().decode(errors="replace").rstrip("\n")
            if line.startswith("STATUS "):
                return int(line.split()[1]), "\n".join(lines).strip()
            lines.append(line)

    def run(self, order):
        """Output of a shell line in the guest, which must succeed."""
        status, output = self.try_to_run(order)
        assert status == 0, f"{order}: status {status}: {output}"
        return output

    def end(self):
        self.process.terminate()
        self.process.wait()


class FormattedDisks(Machine):
    """Four disks as always; some of them have a file system from the start, each made by the command of its bay."""

    def __init__(self, commands, *arguments):
        self.commands = commands
        super().__init__(*arguments)

    def devices(self):
        words = super().devices()
        for bay, command in self.commands.items():
            subprocess.run([*command, f"{self.folder}/disk{bay}"], check=True, stdout=subprocess.DEVNULL)
        return words


def run_checks(kind, place, system, disk_mebibytes, checks, last_words):
    """Starts a machine of this kind from the files that tools/test-vm puts into `place`, and runs the checks on it. When one
    fails, prints what the guest answers to `last_words`."""
    with tempfile.TemporaryDirectory(prefix="orvana-vm-") as folder:
        machine = kind(folder, glob.glob(f"{place}/kernel/boot/vmlinuz-*")[0], f"{place}/memory.gz",
                       f"{place}/{system}", disk_mebibytes)
        try:
            for check in checks:
                start = time.monotonic()
                check(machine)
                print(f"passed: {check.__name__} ({time.monotonic() - start:.0f} s)", flush=True)
        except AssertionError:
            print(machine.try_to_run(last_words)[1])
            raise
        finally:
            machine.end()
