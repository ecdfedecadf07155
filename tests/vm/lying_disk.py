"""A disk whose behaviour is a word in a file: a plugin of nbdkit's language "python".

    nbdkit --unix SOCKET python lying_disk.py image=FILE mode=FILE log=FILE

The word in the file "mode" is asked for with each request:
    genuine    keeps everything
    wraps      has half its size inside, and begins again at its beginning
    swallows   what is written to its upper half is lost, and zeros are read there
    errs       its upper half can neither be written nor read, but for the last 2 MiB
    breaks off its upper half can neither be written nor read
The file "log" gets a line for each request: seconds, "read" or "write", place, length."""

import builtins
import errno
import os
import time

import nbdkit

API_VERSION = 2
names = {}
files = {}


def config(key, value):
    names[key] = value


def get_ready():
    files["image"] = os.open(names["image"], os.O_RDWR)
    files["log"] = builtins.open(names["log"], "a", buffering=1)


def open(readonly):
    return 1


def get_size(handle):
    return os.fstat(files["image"]).st_size


def place_of(verb, place, length):
    """Returns the place of the bytes in the image; None for those that are lost."""
    print(f"{time.monotonic():.6f} {verb} {place} {length}", file=files["log"])
    half = get_size(None) // 2
    with builtins.open(names["mode"]) as file:
        mode = file.read().strip()
    last = get_size(None) - 2 * 1024 * 1024
    if mode == "genuine" or place + length <= half or (mode == "errs" and place >= last):
        return place
    if mode == "wraps":
        return place % half
    if mode == "swallows":
        return None
    nbdkit.set_error(errno.EIO)
    raise OSError(errno.EIO, "the disk ends here")


def pread(handle, buffer, place, flags):
    inside = place_of("read", place, len(buffer))
    buffer[:] = bytes(len(buffer)) if inside is None else os.pread(files["image"], len(buffer), inside)


def pwrite(handle, buffer, place, flags):
    inside = place_of("write", place, len(buffer))
    if inside is not None:
        os.pwrite(files["image"], buffer, inside)


def flush(handle, flags):
    pass
