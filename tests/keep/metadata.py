#!/usr/bin/python3
"""Copies a tree of odd entries with --keep all and lets other programs look for differences: metadata.py PLURIMOCTL

rsync compares every kind of metadata, diff the content, and this program the holes and the names that share one file. As
root the destinations are disks of ext4, xfs and btrfs on loop devices; otherwise they are folders."""

import os
import shutil
import subprocess
import sys
import tempfile

MIB = 1 << 20
YEAR_1955 = -473385600
YEAR_2200 = 7258118400
IS_ROOT = os.geteuid() == 0
FORMATS = {'ext4': ['mkfs.ext4', '-q', '-b', '4096'], 'xfs': ['mkfs.xfs', '-q'], 'btrfs': ['mkfs.btrfs', '-q']}


def run(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, **options).stdout


class Disks:
    """Destination folders, on disks of their own where that is possible."""

    def __init__(self, root):
        self.root = root
        self.mounts = []
        self.devices = []

    def __enter__(self):
        return self

    def make(self, kind, name=None):
        folder = os.path.join(self.root, name or kind)
        os.mkdir(folder)
        if not IS_ROOT or not shutil.which(FORMATS[kind][0]):
            print(f'SKIPPED: no disk of {kind}, a folder is used instead')
            return folder
        image = folder + '.image'
        with open(image, 'wb') as file:
            file.truncate(400 * MIB)
        run(*FORMATS[kind], image)
        device = run('losetup', '--find', '--show', image).strip()
        self.devices.append(device)
        run('mount', device, folder)
        self.mounts.append(folder)
        return folder

    def __exit__(self, *_):
        for folder in self.mounts:
            subprocess.run(['umount', folder], check=False)
        for device in self.devices:
            subprocess.run(['losetup', '--detach', device], check=False)


class Source:
    """A folder with all that a copy can lose."""

    def __init__(self, root):
        self.root = root
        self.cases = 0

    def path(self, name):
        path = os.path.join(self.root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        return path

    def file(self, name, content=b'content', mode=0o644, date=1_400_000_000_123_456_789):
        path = self.path(name)
        with open(path, 'wb') as file:
            file.write(content)
        os.chmod(path, mode)
        os.utime(path, ns=(date, date))
        self.cases += 1
        return path

    def link(self, name, text):
        path = self.path(name)
        os.symlink(text, path)
        os.utime(path, ns=(10**18, 10**18 + 7), follow_symlinks=False)
        self.cases += 1

    def hard_link(self, name, existing):
        os.link(os.path.join(self.root, existing), self.path(name))
        self.cases += 1

    def sparse(self, name, size, *data):
        path = self.path(name)
        with open(path, 'wb') as file:
            for offset, content in data:
                file.seek(offset)
                file.write(content)
            file.truncate(size)
        os.utime(path, (1_300_000_000, 1_300_000_000))
        self.cases += 1

    def attribute(self, name, key, value):
        path = os.path.join(self.root, name)
        date = os.stat(path).st_mtime_ns
        try:
            os.setxattr(path, key, value)
        except OSError as error:
            print(f'SKIPPED: {key} of {len(value)} bytes cannot be made here: {error.strerror}')
            return False
        os.utime(path, ns=(date, date))
        self.cases += 1
        return True

    def fill(self):
        self.make_files()
        self.make_folders()
        self.make_links()
        self.make_holes()
        self.make_attributes()
        if IS_ROOT:
            self.make_owners()

    def make_files(self):
        for mode in (0o600, 0o444, 0o400, 0o755, 0o666, 0o000 if IS_ROOT else 0o440, 0o4755, 0o2755, 0o1644):
            self.file(f'modes/{mode:04o}', mode=mode)
        self.file('dates/before-1970', date=YEAR_1955 * 10**9 + 5)
        self.file('dates/epoch', date=0)
        self.file('dates/after-2106', date=YEAR_2200 * 10**9 + 999_999_999)
        self.file('dates/empty', b'', date=1)
        self.file('names/new\nline')
        self.file(b'names/not-utf8-\xff'.decode(errors='surrogateescape'))
        self.file('names/trailing dot.')
        self.file('names/' + 'n' * 255)
        self.file('large', os.urandom(3 * MIB + 17))
        self.file('exact-block', os.urandom(MIB))

    def make_folders(self):
        self.file('deep/a/b/c/d/file')
        self.file('read-only/inside/file')
        os.mkdir(self.path('empty'))
        os.mkdir(self.path('sticky'))
        os.chmod(self.path('sticky'), 0o1777)
        os.mkdir(self.path('group-id'))
        os.chmod(self.path('group-id'), 0o2750)
        self.cases += 5

    def make_links(self):
        self.link('links/relative', '../large')
        self.link('links/absolute', '/nowhere/at/all')
        self.link('links/folder', '../deep')
        self.link('links/circle-a', 'circle-b')
        self.link('links/circle-b', 'circle-a')
        self.link('links/up', '..')
        self.link('links/self', 'self')
        self.link('links/long', 'x/' * 500 + 'x')
        self.link('links/odd', 'blank \n%')
        self.file('names of one/first', b'one')
        self.hard_link('names of one/second', 'names of one/first')
        self.hard_link('elsewhere/third', 'names of one/first')
        self.file('ticked/first', os.urandom(MIB + 1))
        self.hard_link('ticked too/second', 'ticked/first')

    def make_holes(self):
        self.sparse('holes/all', 8 * MIB)
        self.sparse('holes/end', 6 * MIB, (0, b'x' * 5000))
        self.sparse('holes/start', 3 * MIB, (3 * MIB - 4096, b'y' * 4096))
        self.sparse('holes/middle', 12 * MIB + 5, (0, b'a' * 4096), (5 * MIB + 8192, b'b' * 70000))
        self.sparse('holes/small', 65536, (32768, b'c' * 4096))

    def make_attributes(self):
        self.file('attributes/file')
        self.attribute('attributes/file', 'user.note', b'text')
        self.attribute('attributes/file', 'user.empty', b'')
        self.attribute('attributes/file', 'user.binary', bytes(range(256)))
        self.file('attributes/read-only')
        self.attribute('attributes/read-only', 'user.note', b'kept')
        os.chmod(self.path('attributes/read-only'), 0o444)
        os.mkdir(self.path('attributes/folder'))
        self.attribute('attributes/folder', 'user.note', b'of a folder')
        self.file('attributes/large')
        self.attribute('attributes/large', 'user.large', b'L' * 3000)
        self.file('attributes/very-large')
        # Of these file systems only XFS can hold it.
        self.has_very_large = self.attribute('attributes/very-large', 'user.large', b'V' * 60000)
        if shutil.which('setfacl'):
            self.file('lists/file')
            run('setfacl', '-m', 'u:12345:rw,g:54321:r', self.path('lists/file'))
            os.mkdir(self.path('lists/folder'))
            run('setfacl', '-d', '-m', 'u:12345:rwx', self.path('lists/folder'))
            self.cases += 2

    def make_owners(self):
        for name, owner, group in (('owners/other', 12345, 54321), ('owners/group', 0, 4242)):
            self.file(name)
            os.chown(self.path(name), owner, group)
        self.file('owners/set-id')
        os.chown(self.path('owners/set-id'), 12345, 12345)
        os.chmod(self.path('owners/set-id'), 0o6755)
        self.link('owners/link', 'other')
        os.lchown(self.path('owners/link'), 777, 888)
        self.attribute('owners/other', 'trusted.note', b'for root')
        self.attribute('owners/other', 'security.capability', bytes.fromhex('0100000200040000000000000000000000000000'))

    def finish(self):
        """Dates and permissions of folders come last, because each new entry changes them."""
        for folder, names, _ in os.walk(self.root, topdown=False):
            os.utime(folder, ns=(10**18, 1_500_000_000_000_000_000 + len(folder)))
        os.chmod(self.path('read-only/inside'), 0o555)
        os.chmod(os.path.join(self.root, 'read-only'), 0o555)


def entries(root):
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            yield os.path.relpath(os.path.join(folder, name), root)


def check(source, copy, left_out=()):
    """Returns what is wrong with the copy, as lines."""
    wrong = []
    left_out = [f'--exclude=/{name}' for name in left_out]
    # -aHAXS compares all that the options of this run keep; the volume's own root is not part of the copy.
    told = run('rsync', '-aHAXSn', '--itemize-changes', '--checksum', '--delete', '--exclude=/lost+found',
               '--filter=-x trusted.SGI_ACL_*', *left_out,
               source + '/', copy + '/')
    wrong += [line for line in told.splitlines() if line and not line.endswith(' ./')]
    compared = subprocess.run(['diff', '-r', '--no-dereference', '--exclude=lost+found', source, copy],
                              stdout=subprocess.PIPE, text=True, errors='replace', check=False)
    wrong += compared.stdout.splitlines()
    names = {}
    for name in entries(source):
        if not os.path.lexists(os.path.join(copy, name)):
            continue  # diff has told it
        theirs, ours = os.lstat(os.path.join(source, name)), os.lstat(os.path.join(copy, name))
        if theirs.st_mtime_ns != ours.st_mtime_ns:
            wrong.append(f'date of {name!r}: {theirs.st_mtime_ns} and {ours.st_mtime_ns}')
        if not os.path.isdir(os.path.join(source, name)):
            if names.setdefault(theirs.st_ino, ours.st_ino) != ours.st_ino:
                wrong.append(f'{name!r} is a file of its own')
            if name.startswith('holes/') and ours.st_blocks * 512 > theirs.st_blocks * 512 + 2 * 65536:
                wrong.append(f'{name!r} takes {ours.st_blocks * 512} bytes instead of {theirs.st_blocks * 512}')
    return wrong


def copy(program, root, items, places, *options):
    environment = {**os.environ, 'XDG_STATE_HOME': os.path.join(root, 'state'), 'LC_ALL': 'C.UTF-8'}
    done = subprocess.run([program, 'copy', *items, '--to', *places, '--root', os.path.join(root, 'source'), '--log-dir',
                           os.path.join(root, 'logs'), '--keep', 'all', *options], env=environment,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors='replace', check=False)
    return done.returncode, done.stdout


def scenarios(program, root, disks):
    source = Source(disks.make('xfs', 'source'))
    source.fill()
    source.finish()
    os.mkdir(os.path.join(root, 'logs'))
    places = [disks.make(kind) for kind in FORMATS]
    wrong = []

    def is_expected(place, line):
        return source.has_very_large and not place.endswith('xfs') and line == '.f........x attributes/very-large'

    def look(what, items, *options):
        status, told = copy(program, root, items, places, *options)
        if status != 0:
            wrong.append(f'{what}: ended with {status}: {told}')
        for place in places:
            found = check(source.root, place)
            told_of_it = f"{place} could not keep 1 entry's extended attributes" in told
            if any(is_expected(place, line) for line in found) != told_of_it:
                found.append('what could not be kept is not told: ' + told)
            wrong.extend(f'{what}, {os.path.basename(place)}: {line}' for line in found if not is_expected(place, line))

    everything = [source.root]
    look('the whole source', everything)
    look('over the copies', everything)
    look('updated', everything, '--update', '--verify')
    one_by_one = sorted(os.path.join(source.root, name) for name in os.listdir(source.root))
    for place in places:
        for name in os.listdir(place):
            if name != 'lost+found':
                if not os.path.islink(os.path.join(place, name)):
                    run('chmod', '-R', 'u+rwX', os.path.join(place, name))
                run('rm', '-rf', os.path.join(place, name))
    look('each item ticked', one_by_one, '--verify')
    print(f'{source.cases} cases on {len(places)} destinations')
    return wrong


def main():
    program = sys.argv[1]
    if not shutil.which('rsync'):
        print('SKIPPED: rsync is missing')
        return 0
    root = tempfile.mkdtemp(prefix='keep-')
    try:
        with Disks(root) as disks:
            wrong = scenarios(program, root, disks)
    finally:
        subprocess.run(['chmod', '-R', 'u+rwX', root], check=False, stderr=subprocess.DEVNULL)
        shutil.rmtree(root, ignore_errors=True)
    for line in wrong[:60]:
        print(line)
    print(f'{len(wrong)} differences')
    return 1 if wrong else 0


if __name__ == '__main__':
    sys.exit(main())
