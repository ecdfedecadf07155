#!/usr/bin/python3
"""A folder whose files are disks that may lie: fake_disks.py FOLDER. It runs until the folder is unmounted.

A file is made with its size by truncating it. Its name says what it does beyond the half of that size: "wraps", "swallows",
"fails", and any other name is genuine."""

import errno
import stat
import sys
import time

import fusepy as fuse


class FakeDisks(fuse.Operations):
    def __init__(self):
        self.sizes, self.content = {}, {}

    def getattr(self, path, fh=None):
        if path == '/':
            return {'st_mode': stat.S_IFDIR | 0o755, 'st_nlink': 2}
        if path not in self.sizes:
            raise fuse.FuseOSError(errno.ENOENT)
        return {'st_mode': stat.S_IFREG | 0o644, 'st_nlink': 1, 'st_size': self.sizes[path], 'st_mtime': time.time()}

    def readdir(self, path, fh):
        return ['.', '..', *(name[1:] for name in self.sizes)]

    def create(self, path, mode, fi=None):
        self.truncate(path, 0)
        return 0

    def open(self, path, flags):
        return 0

    def unlink(self, path):
        del self.sizes[path], self.content[path]

    def truncate(self, path, length, fh=None):
        self.sizes[path] = length
        self.content[path] = bytearray(length // 2 if path[1:] in ('wraps', 'swallows', 'fails') else length)

    def parts(self, path, size, offset):
        """Yields each part of a request that lies on one side of the real end: whether beyond, where, how much."""
        real = len(self.content[path])
        end = min(offset + size, self.sizes[path])
        while offset < end:
            beyond = offset >= real
            stop = min(end, self.sizes[path] if beyond else real)
            yield beyond, offset, stop - offset
            offset = stop

    def read(self, path, size, offset, fh):
        found, content = b'', self.content[path]
        for beyond, place, length in self.parts(path, size, offset):
            if beyond and path == '/fails':
                raise fuse.FuseOSError(errno.EIO)
            if beyond and path == '/swallows':
                found += bytes(length)
            else:
                place -= len(content) if beyond else 0
                found += bytes(content[place:place + length])
        return found

    def write(self, path, data, offset, fh):
        done, content = 0, self.content[path]
        for beyond, place, length in self.parts(path, len(data), offset):
            part, done = data[done:done + length], done + length
            if beyond and path == '/fails':
                raise fuse.FuseOSError(errno.EIO)
            if beyond and path == '/swallows':
                continue
            place -= len(content) if beyond else 0
            content[place:place + length] = part
        return len(data)

    def fsync(self, path, datasync, fh):
        return 0


fuse.FUSE(FakeDisks(), sys.argv[1], foreground=True, direct_io=True, nothreads=True)
