#!/usr/bin/python3
"""Runs a line on the simulated machine with bad disks, and kills it: line.py PLURIMOCTL [COUNT KILLS [TRANSCRIPT]]

Disks come into three bays as an operator would put them in: some cannot be erased, one holds files, one comes twice, one is
pulled in its countdown. The program is killed at random moments and goes on. At the end the ledger must be right to the
disk: each number once, each passed disk whole by its content, and as many as were wanted. Keys come through a terminal."""

import csv
import hashlib
import json
import os
import pty
import random
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

BAYS = {'B': 1, 'C': 2, 'D': 3}
FILES = 40


class Station:
    def __init__(self, program, count, kills, transcript, seed):
        self.program, self.count, self.kills = program, count, kills
        self.chance = random.Random(seed)
        self.root = tempfile.mkdtemp(prefix='line-')
        self.machine_file = f'{self.root}/machine.json'
        self.environment = {**os.environ, 'XDG_STATE_HOME': f'{self.root}/state', 'LC_ALL': 'C.UTF-8'}
        os.mkdir(f'{self.root}/logs')
        os.mkdir(f'{self.root}/state')
        self.transcript = open(transcript, 'w') if transcript else None
        self.states, self.serials, self.passed_content = {}, {}, {}
        self.next_serial = 0
        self.is_done = False
        self.run = None
        self.write({'login': 'anna',
                    'delays': {'eraseDisk': 300},
                    'internalDisks': [{'model': 'SSD', 'serial': 'I1', 'size': 9000000, 'volumes': [
                        {'name': 'System', 'startup': True, 'capacity': 8000000}]}],
                    'enclosures': [{'uid': 7, 'bays': [
                        {'bay': 'A', 'model': 'MASTER', 'serial': 'SA', 'size': 100000000, 'volumes': [
                            {'name': 'Master', 'capacity': 90000000, 'id': 'MASTER-1', 'content': [
                                {'path': 'Footage', 'bytes': 20000000, 'files': FILES}]}]},
                        *({'bay': bay, 'model': 'X', 'serial': 'X', 'size': 100000000, 'attached': False} for bay in BAYS)]}]})
        with open(f'{self.root}/reel.plurimo', 'w') as file:
            json.dump({'job': 1, 'source': {'volume': 'MASTER-1', 'name': 'Master'}, 'erase': True, 'verify': True}, file)

    def say(self, text):
        print(text, flush=True)
        if self.transcript:
            print(text, file=self.transcript, flush=True)

    def read(self):
        with open(self.machine_file) as file:
            return json.load(file)

    def write(self, machine):
        with open(self.machine_file + '.new', 'w') as file:
            json.dump(machine, file)
        os.rename(self.machine_file + '.new', self.machine_file)

    def change(self, bay, **values):
        machine = self.read()
        entry = machine['enclosures'][0]['bays'][BAYS[bay]]
        entry.update(values)
        self.write(machine)

    def pull(self, bay):
        self.change(bay, attached=False)
        self.wait_for(bay, lambda state: state in ('waiting', 'passed', 'failed', 'done, not proven', 'not armed'))
        time.sleep(1.3)

    def insert(self, bay, serial=None, volumes=None):
        if serial is None:
            self.next_serial += 1
            serial = f'N{self.next_serial:03}'
        self.pull(bay)
        machine = self.read()
        machine['enclosures'][0]['bays'][BAYS[bay]] = {
            'bay': bay, 'model': 'BLANK', 'serial': serial, 'size': 100000000, 'formatted': bool(volumes),
            **({'volumes': volumes} if volumes else {})}
        self.write(machine)
        self.serials[bay] = serial
        self.states[bay] = 'inserted'

    # The program.

    def start(self, *words):
        self.master, slave = pty.openpty()
        command = [self.program, 'line', *words, '--arm', 'B,C,D', '--json', '--simulator', self.machine_file,
                   '--log-dir', f'{self.root}/logs']
        for bay in BAYS:
            self.change(bay, attached=False)
        self.run = subprocess.Popen(command, env=self.environment, stdin=slave, stderr=slave, stdout=subprocess.PIPE)
        os.close(slave)
        self.states = {bay: 'not armed' for bay in BAYS}
        self.pending = b''
        self.until(lambda: all(state == 'waiting' for state in self.states.values()), 'armed')

    def poll(self, seconds=0.05):
        ready, _, _ = select.select([self.run.stdout, self.master], [], [], seconds)
        if self.master in ready:
            try:
                os.read(self.master, 65536)
            except OSError:
                pass
        if self.run.stdout not in ready:
            return
        data = os.read(self.run.stdout.fileno(), 65536)
        lines = (self.pending + data).split(b'\n')
        self.pending = lines.pop()
        for line in lines:
            self.take(json.loads(line))
        if not data:
            time.sleep(seconds)

    def take(self, event):
        if event['event'] == 'bay':
            bay = event['bay'][-1]
            self.states[bay] = event['state']
            number = f' number {event["number"]}' if event['number'] else ''
            text = f' ({event["text"]})' if event['text'] else ''
            if event['state'] not in ('copying', 'ejecting', 'looking'):
                self.say(f'{event["bay"]}: {event["state"]}{number} {event["disk"]}{text}')
        elif event['event'] == 'disk':
            self.say(f'    {event["verdict"]}: {event["serial"]}; {event["counts"]}')
            if event['verdict'] == 'passed':
                self.check_content(event['serial'], event['bay'][-1])
        elif event['event'] == 'end':
            self.say(f'The line leaves: {event["reason"]}')

    def until(self, condition, what, seconds=120):
        end = time.monotonic() + seconds
        while not condition():
            assert time.monotonic() < end, f'{what}; {self.states}'
            if self.run.poll() is not None:
                self.poll()
                assert condition() or self.is_over(), f'the program ended with {self.run.returncode}: {what}'
                return
            self.poll()

    def is_over(self):
        return self.run.poll() is not None

    def wait_for(self, bay, condition):
        self.until(lambda: condition(self.states[bay]), f'{bay} does not come to its state')

    def key(self, key):
        os.write(self.master, key.encode())

    def kill(self):
        self.run.kill()
        self.run.wait()
        os.close(self.master)
        self.run.stdout.close()
        self.say('-- the program is killed --')

    # What is true.

    def digests(self, folder):
        found = {}
        for place, _, names in os.walk(folder):
            for name in names:
                path = os.path.join(place, name)
                with open(path, 'rb') as file:
                    found[os.path.relpath(path, folder)] = hashlib.sha1(file.read()).hexdigest()
        return found

    def check_content(self, serial, bay):
        volumes = self.machine_file + '.volumes'
        copy = self.digests(f'{volumes}/Store/-enclosures-0-bays-{BAYS[bay]}-volumes-0')
        assert copy and copy == self.digests(f'{volumes}/Volumes/Master'), f'{serial} passed, and is not whole'
        assert serial not in self.passed_content, f'{serial} passed twice'
        self.passed_content[serial] = True

    def ledger(self):
        lines = f'{self.root}/state/orvana-plurimo/lines'
        folder = f'{lines}/{os.listdir(lines)[0]}'
        with open(f'{folder}/ledger.csv', newline='') as file:
            rows = list(csv.DictReader(file))
        with open(f'{folder}/ledger.jsonl') as file:
            others = [json.loads(line) for line in file]
        assert [row['id'] for row in rows] == [other['id'] for other in others]
        return rows

    def round(self, number, with_a_kill):
        if all(state == 'not armed' for state in self.states.values()):
            return
        machine = self.read()
        machine['failing'] = ['eraseDisk C'] if number in (2, 4, 6) else []
        self.write(machine)
        for bay in BAYS:
            if number == 1 and bay == 'D' and self.passed_content:
                self.insert(bay, next(iter(self.passed_content)))
            elif number == 1 and bay == 'B':
                self.insert(bay, volumes=[{'name': 'OLD', 'capacity': 90000000, 'content': [{'path': 'old', 'bytes': 10}]}])
            else:
                self.insert(bay)
        if number == 1:
            self.wait_for('B', lambda state: state == 'asking')
            self.key('B')
            if self.passed_content:
                self.wait_for('D', lambda state: state == 'asking')
        if number == 3:
            self.wait_for('D', lambda state: state == 'counting down')
            self.pull('D')
        if with_a_kill:
            self.until(lambda: 'erasing' in self.states.values() or 'copying' in self.states.values(), 'a disk in work')
            end = time.monotonic() + self.chance.random()
            while time.monotonic() < end and not self.is_over():
                self.poll(0.01)
            self.kill()
            if 'ended' in subprocess.run([self.program, 'line', 'status'], env=self.environment, stdout=subprocess.PIPE,
                                         text=True).stdout:
                self.is_done = True  # it was killed after its last disk was noted
            else:
                self.start('resume')
            return
        busy = ('inserted', 'looking', 'counting down', 'erasing', 'copying', 'verifying', 'ejecting')
        self.until(lambda: not any(state in busy for state in self.states.values()), 'the round ends')

    def line(self):
        self.start('start', f'{self.root}/reel.plurimo', '--count', str(self.count), '--title', 'Reel 7', '--names',
                   'REEL {n:03}')
        kills = 0
        number = 0
        while not self.is_over() and not self.is_done:
            assert number < self.count + 20
            with_a_kill = number % 2 == 1 and kills < self.kills
            kills += with_a_kill
            self.round(number, with_a_kill)
            number += 1
        if not self.is_done:
            self.poll()
            assert self.run.returncode == 0, self.run.returncode
        rows = self.ledger()
        numbers = [int(row['number']) for row in rows]
        passed = [row['serial'] for row in rows if row['verdict'] == 'passed']
        assert sorted(numbers) == list(range(1, len(rows) + 1)), numbers
        assert len(passed) == len(set(passed)) == self.count, (len(passed), self.count)
        # A disk that passed as the program was killed is in the ledger and was not told.
        assert set(self.passed_content) <= set(passed), set(self.passed_content) - set(passed)
        assert kills == self.kills, kills
        untold = len(passed) - len(self.passed_content)
        self.say(f'{self.count} disks passed, {len(rows) - self.count} failed, {kills} kills, {untold} noted but not told')

    def close(self):
        if self.run and self.run.poll() is None:
            self.run.send_signal(signal.SIGINT)
            self.run.wait(30)
        shutil.rmtree(self.root)


def main():
    count, kills = (int(word) for word in sys.argv[2:4]) if len(sys.argv) > 3 else (5, 2)
    seed = int(os.environ.get('SEED', random.randrange(1 << 30)))
    print(f'seed {seed}')
    station = Station(sys.argv[1], count, kills, sys.argv[4] if len(sys.argv) > 4 else None, seed)
    try:
        station.line()
    finally:
        station.close()


main()
