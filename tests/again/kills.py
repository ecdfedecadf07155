#!/usr/bin/python3
"""Kills copies at random moments and lets them go on, until every copy equals its source: kills.py PLURIMOCTL [KILLS]

After each kill, each line of the journal must speak of a copy that equals its source. When a run comes to its end, every
copy must be whole, and no more blocks were written than were missing, but for those of the files in hand."""

import hashlib
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

BLOCK = 1 << 20
LARGE = 24 << 20


def digest(path):
    with open(path, 'rb') as file:
        return hashlib.file_digest(file, 'sha1').digest() if hasattr(hashlib, 'file_digest') \
            else hashlib.sha1(file.read()).digest()


class Copies:
    def __init__(self, program, seed):
        self.program = program
        self.chance = random.Random(seed)
        self.root = tempfile.mkdtemp(prefix='again-')
        self.environment = {**os.environ, 'XDG_STATE_HOME': self.path('state'), 'LC_ALL': 'C.UTF-8'}
        for name in ('source', 'a', 'b', 'logs'):
            os.mkdir(self.path(name))
        self.out = open(self.path('out'), 'w+b')  # not a pipe: nobody reads while a run is waited for
        self.wanted = {}
        for i in range(300):
            self.make(f'roll {i % 7}/shot{i}', self.chance.randrange(0, 40000))
        for i in range(3):
            self.make(f'large{i}', LARGE + self.chance.randrange(BLOCK))
        self.bytes = sum(os.path.getsize(self.path('source', name)) for name in self.wanted)

    def path(self, *parts):
        return os.path.join(self.root, *parts)

    def make(self, name, size):
        os.makedirs(os.path.dirname(self.path('source', name)), exist_ok=True)
        with open(self.path('source', name), 'wb') as file:
            file.write(self.chance.randbytes(size))
        self.wanted[name] = digest(self.path('source', name))

    def start(self):
        options = ['--verify'] if self.chance.random() < 0.3 else []
        return subprocess.Popen([self.program, 'copy', self.path('source'), '--to', self.path('a'), self.path('b'),
                                 '--log-dir', self.path('logs'), '--resume', '--json', *options],
                                env=self.environment, stdout=self.out, stderr=subprocess.DEVNULL)

    def wait_for_a_line(self, run):
        """Waits until the journal vouches for a copy, or the run has ended. A slow disk takes its time for that."""
        folder = self.path('state', 'orvana-plurimo')
        while run.poll() is None:
            for name in os.listdir(folder) if os.path.isdir(folder) else ():
                if name.endswith('.copies') and os.path.getsize(os.path.join(folder, name)) > 200:
                    return
            time.sleep(0.002)

    def check_journal(self):
        """Returns how many copies the journals vouch for."""
        folder = self.path('state', 'orvana-plurimo')
        count = 0
        for name in os.listdir(folder) if os.path.isdir(folder) else ():
            if not name.endswith('.copies'):
                continue
            with open(os.path.join(folder, name), 'rb') as file:
                lines = file.read().split(b'\n')
            for line in lines[:-1]:
                words = line.split(b' ')
                if len(words) < 5 or words[1] != b'copy':
                    continue
                path = self.name_of(words[-1])
                copy = self.path('ab'[int(words[2])], path)
                assert digest(copy) == self.wanted[path[len('source/'):]], f'{copy} is in the journal, and is torn'
                count += 1
        return count

    @staticmethod
    def name_of(word):
        bytes_, i = bytearray(), 1
        while i < len(word):
            if word[i:i + 1] == b'%':
                bytes_.append(int(word[i + 1:i + 3], 16))
                i += 3
            else:
                bytes_.append(word[i])
                i += 1
        return os.fsdecode(bytes(bytes_))

    def check_copies(self):
        for target in 'ab':
            for name, wanted in self.wanted.items():
                assert digest(self.path(target, 'source', name)) == wanted, f'{target}/{name} differs'

    def start_anew(self):
        for target in 'ab':
            shutil.rmtree(self.path(target))
            os.mkdir(self.path(target))
        shutil.rmtree(self.path('state'), ignore_errors=True)


def main():
    program = os.path.abspath(sys.argv[1])
    kills = int(sys.argv[2]) if len(sys.argv) > 2 else int(os.environ.get('KILLS', '40'))
    seed = int(os.environ.get('SEED', '0')) or random.randrange(1 << 30)
    print('seed', seed)
    copies = Copies(program, seed)
    begun = time.monotonic()
    run = copies.start()
    run.communicate()
    whole = time.monotonic() - begun
    copies.check_copies()
    copies.start_anew()
    killed = ended = vouched = 0
    try:
        while killed < kills:
            run = copies.start()
            if killed % 5 == 0:
                copies.wait_for_a_line(run)
            try:
                run.communicate(timeout=copies.chance.random() * whole * 0.8)
            except subprocess.TimeoutExpired:
                run.send_signal(signal.SIGKILL)
                run.communicate()
            if run.returncode == -signal.SIGKILL:
                killed += 1
                vouched += copies.check_journal()
            else:
                assert run.returncode == 0, f'status {run.returncode}'
                copies.check_copies()
                ended += 1
                copies.start_anew()
        run = copies.start()
        run.communicate()
        assert run.returncode == 0, f'status {run.returncode}'
        copies.check_copies()
        assert not os.listdir(copies.path('state', 'orvana-plurimo')), 'the journal of a whole run stays'
    finally:
        copies.out.close()
        shutil.rmtree(copies.root)
    print(f'{killed} killed, {ended + 1} came to their end whole, {vouched} lines of journals looked at')
    assert vouched > 0, 'no journal was looked at'


if __name__ == '__main__':
    main()
