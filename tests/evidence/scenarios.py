#!/usr/bin/python3
"""Runs one scenario with manifests: scenarios.py SCENARIO PLURIMOCTL

With MHL_REFERENCE in the environment, the folder of the format's public tool, that tool judges; without it the checker
in history.py does. The first line of the output says which.
"""

import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import history

PROGRAM = sys.argv[2]
REFERENCE = os.environ.get('MHL_REFERENCE')
FORMATS = ['xxh128', 'xxh64', 'xxh3', 'md5', 'sha1', 'c4']


def write(path, content=b''):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'wb') as file:
        file.write(content)


def read(path):
    with open(path, 'rb') as file:
        return file.read()


def append(path, content):
    with open(path, 'ab') as file:
        file.write(content)


class Place:
    """Folders of one scenario: a source, two copies and the logs."""

    def __init__(self):
        self.root = tempfile.mkdtemp(prefix='evidence-')
        os.environ['XDG_STATE_HOME'] = self.root + '/state'
        for name in ('source', 'copy', 'other', 'logs'):
            os.mkdir(self.path(name))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.root)

    def path(self, *names):
        return os.path.join(self.root, *names)

    def card(self, *names):
        return self.path('source', 'CARD', *names)

    def small_card(self):
        write(self.card('Clips', 'A.mov'), b'abcde')
        write(self.card('Clips', 'B.mov'), b'xyz')
        write(self.card('S.txt'), b'hello')
        os.makedirs(self.card('Empty'))

    def command(self, *options):
        return [PROGRAM, 'copy', '--log-dir', self.path('logs'), '--root', self.path('source'), self.card(),
                '--to', self.path('copy'), '--to', self.path('other'), *options]

    def duplicate(self, *options, status=0):
        return run(self.command(*options), status)

    def verify(self, *options, folder=None):
        """The status of our own verification, and the account of the disk."""
        result = subprocess.run([PROGRAM, 'verify', '--json', '--log-dir', self.path('logs'),
                                 folder or self.path('copy', 'CARD'), *options],
                                stdout=subprocess.PIPE, check=False)
        events = [json.loads(line) for line in result.stdout.splitlines()]
        disks = [event for event in events if event['event'] == 'disk']
        return result.returncode, disks[0] if disks else None


def run(command, status=0, **more):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False,
                            errors='replace', **more)
    assert result.returncode == status, f'{command}: status {result.returncode}, not {status}\n{result.stdout}'
    return result.stdout


def expect(actual, wanted, what):
    assert actual == wanted, f'{what}: {actual!r}, not {wanted!r}'


def reference(module, *arguments):
    function = 'mhldebugtool_cli' if module == 'ascmhl_debug' else 'mhltool_cli'
    code = f'from ascmhl.cli.{module} import {function} as main; main()'
    return subprocess.run([sys.executable, '-c', code, *arguments], check=False,
                          env={**os.environ, 'PYTHONPATH': REFERENCE, 'LC_ALL': 'C.UTF-8'},
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT).returncode


def create(form, folder):
    return reference('ascmhl', 'create', '-h', form, folder) if REFERENCE else history.create(folder, form)


def judge(folder):
    return reference('ascmhl_debug', 'verify', folder) if REFERENCE else history.check(folder)


def judge_folders(folder):
    return reference('ascmhl_debug', 'verify', '-dh', folder) if REFERENCE else history.check_folders(folder)


def check_schema(folder):
    if not REFERENCE:
        return
    for name in os.listdir(os.path.join(folder, 'ascmhl')):
        schema = 'ASCMHLDirectory__combined.xsd' if name == 'ascmhl_chain.xml' else 'ASCMHL.xsd'
        run(['xmllint', '--nonet', '--noout', '--schema', os.path.join(REFERENCE, 'xsd', schema),
             os.path.join(folder, 'ascmhl', name)])


def manifests(folder):
    return sorted(name for name in os.listdir(os.path.join(folder, 'ascmhl')) if name.endswith('.mhl'))


def every_format_is_accepted():
    for form in FORMATS:
        with Place() as place:
            place.small_card()
            place.duplicate('--manifest', 'mhl', '--digest', form, '--verify')
            for name in ('copy', 'other'):
                folder = place.path(name, 'CARD')
                expect(judge(folder), history.WHOLE, form)
                expect(judge_folders(folder), history.WHOLE, form + ', folders')
                check_schema(folder)
            expect(place.verify()[0], 0, form)


def random_tree(place, seed):
    """Folders of several levels, empty ones, equal files, and names that XML and sorting could stumble over."""
    chance = random.Random(seed)
    names = ['a', 'a b', 'a&b<c>', "quote'\"", ' blank ', 'ä', 'a\u0308', 'Z', 'a-b', 'a.b', '-n', '漢字', '%41', ']]>']

    def fill(folder, depth):
        os.makedirs(folder, exist_ok=True)
        for name in chance.sample(names, chance.randrange(len(names))):
            path = os.path.join(folder, name)
            if depth < 3 and chance.random() < 0.4:
                fill(path, depth + 1)
            else:
                write(path, chance.choice([b'', b'same', os.urandom(chance.randrange(3000))]))

    fill(place.card(), 0)


def digests_of_folders_on_random_trees():
    for seed in range(24):
        with Place() as place:
            random_tree(place, seed)
            form = FORMATS[seed % len(FORMATS)]
            place.duplicate('--manifest', 'mhl', '--digest', form)
            folder = place.path('copy', 'CARD')
            if not history.known_in(folder, folder)[0]:
                continue  # the public tool verifies no folder without a file
            expect(judge(folder), history.WHOLE, f'tree {seed}')
            expect(judge_folders(folder), history.WHOLE, f'folders of tree {seed}')
            expect(history.check_folders(folder), history.WHOLE, f'folders of tree {seed}, by our own checker')
            check_schema(folder)
            expect(place.verify()[0], 0, f'tree {seed}')


def remove(path):
    shutil.rmtree(path) if os.path.isdir(path) else os.unlink(path)


def only_manifest(folder):
    return os.path.join(folder, 'ascmhl', manifests(folder)[0])


DAMAGES = {  # what is done to a copy, what the judge answers, and our counts: changed, missing, new
    'intact': (lambda f: None, history.WHOLE, (0, 0, 0)),
    'changed file': (lambda f: write(f + '/Clips/A.mov', b'abcdX'), history.CHANGED, (1, 0, 0)),
    'longer file': (lambda f: append(f + '/Clips/A.mov', b'x'), history.CHANGED, (1, 0, 0)),
    'missing file': (lambda f: remove(f + '/S.txt'), history.MISSING, (0, 1, 0)),
    'missing folder': (lambda f: remove(f + '/Empty'), history.MISSING, (0, 1, 0)),
    'new file': (lambda f: write(f + '/new'), history.NEW, (0, 0, 1)),
    'renamed file': (lambda f: os.rename(f + '/S.txt', f + '/T.txt'), history.NEW, (0, 1, 1)),
    'new and missing': (lambda f: (write(f + '/new'), remove(f + '/S.txt')), history.NEW, (0, 1, 1)),
    'new, missing and changed': (lambda f: (write(f + '/new'), remove(f + '/S.txt'), write(f + '/Clips/A.mov')),
                                 history.CHANGED, (1, 1, 1)),
    'manifest changed': (lambda f: append(only_manifest(f), b'\n'), history.MANIFEST_CHANGED, None),
    'manifest missing': (lambda f: remove(only_manifest(f)), history.MANIFEST_MISSING, None),
    'chain missing': (lambda f: remove(f + '/ascmhl/ascmhl_chain.xml'), history.NO_CHAIN, None),
}


def verdicts_are_the_same():
    for name, (damage, number, counts) in DAMAGES.items():
        with Place() as place:
            place.small_card()
            place.duplicate('--manifest', 'mhl')
            folder = place.path('copy', 'CARD')
            damage(folder)
            expect(judge(folder), number, name)
            status, disk = place.verify()
            expect(status, 0 if number == history.WHOLE else 1, 'our status for ' + name)
            if counts:
                expect((disk['changed'], disk['missing'], disk['new']), counts, name)
            else:
                assert 'error' in disk['lists'][0], name
            print(f'  {name}: {number} and {status}')
    with Place() as place:
        place.small_card()
        place.duplicate()
        expect(judge(place.path('copy', 'CARD')), history.NO_HISTORY, 'no history')
        expect(place.verify()[0], 4, 'our status without a history')


def generations_go_on():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        # The first copy becomes the source of the next, with its history.
        shutil.rmtree(place.card())
        shutil.move(folder, place.card())
        shutil.rmtree(place.path('other', 'CARD'))
        time.sleep(1.1)  # the names of manifests have the second
        place.duplicate('--manifest', 'mhl', '--verify')
        expect(len(manifests(folder)), 2, 'generations of the copy')
        expect(len(manifests(place.card())), 1, 'generations of the source')
        expect(judge(folder), history.WHOLE, 'generation 2')
        expect(judge_folders(folder), history.WHOLE, 'generation 2, folders')
        assert b'action="verified"' in read(os.path.join(folder, 'ascmhl', manifests(folder)[1]))
        time.sleep(1.1)
        status, disk = place.verify('--record')
        expect((status, len(manifests(folder))), (0, 3), 'recorded')
        expect(judge(folder), history.WHOLE, 'generation 3')
        check_schema(folder)
        # A failed generation, and then the repaired file.
        write(folder + '/S.txt', b'HELLO')
        time.sleep(1.1)
        expect(place.verify('--record')[0], 1, 'changed file, recorded')
        assert b'action="failed"' in read(os.path.join(folder, 'ascmhl', manifests(folder)[3]))
        expect(judge(folder), history.CHANGED, 'generation 4')
        write(folder + '/S.txt', b'hello')
        expect(judge(folder), history.WHOLE, 'repaired')
        expect(place.verify()[0], 0, 'repaired')
        # A source that was changed since its history was written is told.
        shutil.rmtree(place.path('copy', 'CARD'))
        shutil.rmtree(place.path('other', 'CARD'))
        write(place.card('S.txt'), b'HELLO')
        output = place.duplicate('--manifest', 'mhl', status=1)
        assert 'notAsInHistory' in output and 'S.txt' in output, output


def nested_histories_are_referred_to():
    with Place() as place:
        write(place.card('Roll1', 'A.mov'), b'abcde')
        write(place.card('S.txt'), b'hello')
        run([PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.card(), place.card('Roll1'),
             '--to', place.path('other'), '--manifest', 'mhl'])
        shutil.rmtree(place.card('Roll1'))
        shutil.move(place.path('other', 'Roll1'), place.card('Roll1'))
        time.sleep(1.1)
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        expect(len(manifests(folder + '/Roll1')), 2, 'generations of the roll')
        expect(len(manifests(folder)), 1, 'generations of the card')
        assert b'<hashlistreference>' in read(only_manifest(folder))
        expect(judge(folder), history.WHOLE, 'nested')
        expect(judge_folders(folder), history.WHOLE, 'nested, folders')
        check_schema(folder)
        expect(place.verify()[0], 0, 'nested')
        write(folder + '/Roll1/A.mov', b'abcdX')
        expect(judge(folder), history.CHANGED, 'changed in the nested history')
        status, disk = place.verify()
        expect((status, disk['changed']), (1, 1), 'changed in the nested history')
        # Taken away with its folder of manifests, it is missed.
        shutil.rmtree(folder + '/Roll1')
        expect(place.verify()[0], 1, 'nested history missing')


def foreign_history_is_kept():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        before = {name: read(os.path.join(folder, 'ascmhl', name)) for name in os.listdir(folder + '/ascmhl')}
        output = place.duplicate('--manifest', 'mhl', status=1)
        assert 'noManifest' in output, output
        after = {name: read(os.path.join(folder, 'ascmhl', name)) for name in os.listdir(folder + '/ascmhl')}
        expect(after, before, 'the history of the first run')
        # The same when the source brings another history.
        run([PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.path('source'), place.card(), '--to',
             place.path(), '--manifest', 'mhl', '--digest', 'md5'])
        shutil.rmtree(place.card())
        shutil.move(place.path('CARD'), place.card())
        output = place.duplicate('--manifest', 'mhl', status=1)
        assert 'noManifest' in output, output
        after = {name: read(os.path.join(folder, 'ascmhl', name)) for name in os.listdir(folder + '/ascmhl')}
        expect(after, before, 'the history of the copy')


def names_that_no_manifest_can_carry_are_told():
    with Place() as place:
        place.small_card()
        write(place.card('tab\tand\nline'), b'1')
        write(os.path.join(os.fsencode(place.card()), b'not \xff UTF-8'), b'2')
        output = place.duplicate('--manifest', 'mhl')
        expect(output.count('notInManifest'), 4, output)
        folder = place.path('copy', 'CARD')
        expect(judge(folder) if not REFERENCE else history.check(folder), history.NEW, 'files beside the history')
        expect(place.verify()[1]['new'], 2, 'files beside the history')
    with Place() as place:
        place.small_card()
        write(place.card('back\\slash and\nline'), b'1')
        write(os.path.join(os.fsencode(place.card()), b'not \xff UTF-8'), b'2')
        assert 'notInManifest' not in place.duplicate('--manifest', 'sums', '--digest', 'sha256')
        output = place.duplicate('--manifest', 'sums', '--digest', 'xxh128')
        expect(output.count('notInManifest'), 2, output)


def only_files_that_count_as_done_are_listed():
    with Place() as place:
        place.small_card()
        # An older, longer file keeps its end behind the copy, and a folder is in the way of another.
        write(place.path('copy', 'CARD', 'S.txt'), b'a much longer file')
        os.makedirs(place.path('copy', 'CARD', 'Clips', 'A.mov'))
        output = place.duplicate('--manifest', 'mhl', status=1)
        assert 'keptTail' in output and 'failed' in output, output
        folder = place.path('copy', 'CARD')
        listed = read(only_manifest(folder)).decode()
        assert 'B.mov' in listed and 'A.mov' not in listed and 'S.txt' not in listed, listed
        assert listed.count('<content></content>') == 2, listed  # no digests for the two folders around them
        expect(judge(folder), history.NEW, 'the file with the kept end')
        expect(judge(place.path('other', 'CARD')), history.WHOLE, 'the other copy')
        check_schema(folder)
        report = next(name for name in os.listdir(place.path('logs')) if name.endswith('-Report.json'))
        with open(place.path('logs', report), encoding='utf-8') as file:
            copies = json.load(file)['destinations']
        expect([copy['manifests'][0]['files'] for copy in copies], [1, 3], 'files in the report')
        expect(copies[0]['manifests'][0]['c4'], history.digest_of('c4', read(only_manifest(folder))),
               'the digest of the manifest in the report')
    with Place() as place:
        # A file that was ticked by itself has no folder that a manifest could be about.
        place.small_card()
        output = run([PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.path('source'),
                      place.card('S.txt'), place.card('Clips'), '--to', place.path('copy'), '--manifest', 'mhl'])
        assert 'notInManifest' in output and 'S.txt' in output, output
        expect(judge(place.path('copy', 'CARD', 'Clips')), history.WHOLE, 'the ticked folder')


def options_that_do_not_go_together_are_refused():
    with Place() as place:
        place.small_card()
        for options in (['--manifest', 'mhl', '--digest', 'sha256'], ['--manifest', 'sums', '--digest', 'c4'],
                        ['--manifest', 'other'], ['--digest', 'crc32']):
            place.duplicate(*options, status=2)
        expect(os.listdir(place.path('copy')), [], 'nothing was copied')
        place.duplicate('--digest', 'md5', '--verify')  # digests alone leave nothing on the copy
        expect(sorted(os.listdir(place.path('copy', 'CARD'))), ['Clips', 'Empty', 'S.txt'], 'digests alone')
        run([PROGRAM, 'verify'], 2)
        run([PROGRAM, 'verify', place.path('copy'), '--enclosure', '1'], 2)
        run([PROGRAM, 'verify', place.path('copy'), '--manifest', place.path('x.mhl'), '--record'], 2)
        run([PROGRAM, 'verify', place.path('nowhere')], 4)
        output = run([PROGRAM, 'verify', place.path('copy'), '--manifest', place.path('x.mhl')], 1)
        assert 'x.mhl: cannot be opened' in output, output


def bad_manifests_are_told_with_their_line():
    hash_of_a = '<hash><path size="{}">{}</path><xxh128 action="{}">3043c78169f25c3f97d5a48ef320eec2</xxh128></hash>'
    start = '<hashlist version="2.0" xmlns="urn:ASC:MHL:v2.0">\n<hashes>\n'
    cases = {
        'nothing': ('', 'line 1'), 'no XML': ('hello\n', 'line 1'), 'cut': (start + '<hash>', 'line 3'),
        'other version': (start.replace('2.0"', '1.0"', 1), 'line 1'),
        'document type': ('<!DOCTYPE hashlist [<!ENTITY a "b">]>\n' + start, 'line 1'),
        'path above': (start + hash_of_a.format(5, '../A.mov', 'original'), 'line 3'),
        'absolute path': (start + hash_of_a.format(5, '/etc/passwd', 'original'), 'line 3'),
        'no path': (start + hash_of_a.format(5, '', 'original'), 'line 3'),
        'size': (start + hash_of_a.format('many', 'A.mov', 'original'), 'line 3'),
        'action': (start + hash_of_a.format(5, 'A.mov', 'guessed'), 'line 3'),
        'digest': (start + hash_of_a.format(5, 'A.mov', 'original').replace('3043', 'zzzz'), 'line 3'),
        'deep': (start + '<x>' * 100, 'line 3'),
    }
    with Place() as place:
        write(place.card('A.mov'), b'abcde')
        manifest = place.path('list.mhl')
        for name, (text, where) in cases.items():
            write(manifest, text.encode())
            status, disk = place.verify('--manifest', manifest, folder=place.card())
            error = disk['lists'][0]['error']
            expect(status, 1, name)
            assert where in error and 'list.mhl' in error, f'{name}: {error}'
        write(manifest, (start + hash_of_a.format(5, 'A.mov', 'original') + '</hashes></hashlist>').encode())
        expect(place.verify('--manifest', manifest, folder=place.card())[0], 0, 'a good one')
        sums = place.path('list.md5')
        write(sums, b'# a comment\n\nab56b4d92b40713acc5af89985d4b786  A.mov\nno digest  A.mov\n')
        error = place.verify('--manifest', sums, folder=place.card())[1]['lists'][0]['error']
        assert 'list.md5: line 4' in error, error
        # Two lists that could both be meant are not guessed at.
        write(place.card('one.md5'), b'')
        write(place.card('two.md5'), b'')
        status, disk = place.verify(folder=place.card())
        assert status == 1 and 'two.md5' in disk['error'], disk


CHECKERS = {'md5': 'md5sum', 'sha1': 'sha1sum', 'sha256': 'sha256sum', 'xxh128': 'xxh128sum', 'xxh64': 'xxh64sum'}


def checksum_files_go_both_ways():
    for form, checker in CHECKERS.items():
        with Place() as place:
            place.small_card()
            place.duplicate('--manifest', 'sums', '--digest', form)
            folder = place.path('copy', 'CARD')
            name = next(name for name in os.listdir(folder) if name.endswith('.' + form))
            run([checker, '-c', name], cwd=folder)
            expect(place.verify()[0], 0, checker)
            write(folder + '/Clips/A.mov', b'abcdX')
            run([checker, '-c', name], 1, cwd=folder)
            expect((place.verify()[0], place.verify()[1]['changed']), (1, 1), checker)
            # Theirs, by us.
            os.unlink(os.path.join(folder, name))
            lines = run(['sh', '-c', f'find . -type f | sort | xargs -d "\\n" {checker} 2>/dev/null'], cwd=folder)
            write(os.path.join(folder, form.upper() + 'SUMS'), lines.encode())
            expect(place.verify()[0], 0, f'a list by {checker}')
            os.unlink(folder + '/S.txt')
            run([checker, '-c', form.upper() + 'SUMS'], 1, cwd=folder)
            status, disk = place.verify()
            expect((status, disk['missing']), (1, 1), f'a list by {checker}')
            print(f'  {checker}: both ways')


def list_from_elsewhere_and_stations_copy():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        expect(place.verify()[1]['lists'][0]['stationCopy'], 'agrees', 'the station knows the list')
        runs = [name for name in os.listdir(place.path('logs')) if name.endswith('-Manifests')]
        copies = place.path('logs', runs[0], '1')
        manifest = os.path.join(copies, os.listdir(copies)[0])
        expect(read(manifest), read(only_manifest(folder)), 'the copy beside the log')
        expect(place.verify('--manifest', manifest)[0], 0, 'by the list from elsewhere')
        shutil.rmtree(folder + '/ascmhl')
        expect(place.verify()[0], 4, 'without a list')
        expect(place.verify('--manifest', manifest)[0], 0, 'by the list from elsewhere alone')
        # A forger who makes the whole history anew is found out by the station's copy.
        write(folder + '/S.txt', b'HELLO')
        forged = read(manifest).replace(history.digest_of('xxh128', b'hello').encode(),
                                        history.digest_of('xxh128', b'HELLO').encode())
        write(os.path.join(folder, 'ascmhl', os.path.basename(manifest)), forged)
        write(folder + '/ascmhl/ascmhl_chain.xml', (
            '<?xml version="1.0" encoding="UTF-8"?>\n<ascmhldirectory xmlns="urn:ASC:MHL:DIRECTORY:v2.0">'
            f'<hashlist sequencenr="1"><path>{os.path.basename(manifest)}</path>'
            f'<c4>{history.digest_of("c4", forged)}</c4></hashlist></ascmhldirectory>').encode())
        expect(history.check(folder), history.WHOLE, 'the forged history by itself')
        status, disk = place.verify()
        expect((status, disk['lists'][0]['stationCopy']), (1, 'differs'), 'the forged history')


def others_histories_are_accepted():
    for form in FORMATS:
        with Place() as place:
            place.small_card()
            expect(create(form, place.card()), 0, form)
            expect(place.verify(folder=place.card())[0], 0, form)
            place.duplicate('--manifest', 'mhl')  # in the format of the history
            folder = place.path('copy', 'CARD')
            expect(len(manifests(folder)), 2, form)
            expect(judge(folder), history.WHOLE, form)
            expect(judge_folders(folder), history.WHOLE, form)
            time.sleep(1.1)
            expect(create(form, folder), 0, form)
            last = read(os.path.join(folder, 'ascmhl', manifests(folder)[2]))
            assert last.count(b'action="verified"') == 3 and b'original' not in last, last
            expect(place.verify()[0], 0, form + ', generation 3')
            if not REFERENCE:
                continue  # only the public tool finds out names that were changed
            time.sleep(1.1)
            os.rename(folder + '/S.txt', folder + '/T.txt')
            reference('ascmhl', 'create', '-dr', '-h', form, folder)
            expect(place.verify()[0], 0, form + ', a file that was renamed')


def kills_leave_no_broken_history(count):
    """The program is killed at random moments, most of them while manifest and chain are written."""
    answers = {}
    for begins_with in (0, 1):
        with Place() as place:
            place.small_card()
            if begins_with:
                place.duplicate('--manifest', 'mhl')
                shutil.rmtree(place.card())
                shutil.move(place.path('copy', 'CARD'), place.card())
                shutil.rmtree(place.path('other', 'CARD'))
            begin = time.monotonic()
            place.duplicate('--manifest', 'mhl')
            usual = time.monotonic() - begin
            chance = random.Random(5)
            for _ in range(count // 2):
                for name in ('copy', 'other'):
                    shutil.rmtree(place.path(name, 'CARD'), ignore_errors=True)
                process = subprocess.Popen(place.command('--manifest', 'mhl'), stdout=subprocess.DEVNULL,
                                           stderr=subprocess.DEVNULL)
                time.sleep(usual * chance.random() * 1.1)
                process.send_signal(signal.SIGKILL)
                process.wait()
                for name in ('copy', 'other'):
                    folder = place.path(name, 'CARD')
                    if not os.path.isdir(folder) or (begins_with and not whole_history(place, folder)):
                        continue
                    number = judge(folder)
                    answers[number] = answers.get(number, 0) + 1
                    assert number not in (history.MANIFEST_CHANGED, history.NO_CHAIN, history.MANIFEST_MISSING), number
            # And the next run finds its way through what was left.
            for name in ('copy', 'other'):
                os.makedirs(place.path(name, 'CARD', 'ascmhl.part'), exist_ok=True)
            if not begins_with:
                for name in ('copy', 'other'):
                    shutil.rmtree(place.path(name, 'CARD', 'ascmhl'), ignore_errors=True)
                place.duplicate('--manifest', 'mhl')
                expect(judge(place.path('copy', 'CARD')), history.WHOLE, 'after the kills')
    print('  answers of the judge: ' + ', '.join(f'{count} times {number}' for number, count in sorted(answers.items())))


def nothing_that_is_not_ours_is_removed():
    with Place() as place:
        # A link, a folder and a file of the user's stand where a history would be begun.
        place.small_card()
        os.makedirs(place.path('copy', 'CARD'))
        os.makedirs(place.path('other', 'CARD', 'ascmhl.part'))
        write(place.path('copy', 'Masters', 'film'), b'precious')
        os.symlink('../Masters', place.path('copy', 'CARD', 'ascmhl.part'))
        write(place.path('other', 'CARD', 'ascmhl.part', 'notes.txt'), b'mine')
        output = place.duplicate('--manifest', 'mhl', status=1)
        expect(output.count('noManifest'), 2, output)
        expect(read(place.path('copy', 'Masters', 'film')), b'precious', 'behind the link')
        expect(read(place.path('other', 'CARD', 'ascmhl.part', 'notes.txt')), b'mine', 'in the folder')
    with Place() as place:
        # The source itself holds what a cut run has left: it is copied, and not taken for ours.
        place.small_card()
        write(place.card('ascmhl.part', '0001_CARD_2020-01-01_000000Z.mhl'), b'half')
        output = place.duplicate('--manifest', 'mhl', status=1)
        assert 'noManifest' in output, output
        expect(read(place.path('copy', 'CARD', 'ascmhl.part', '0001_CARD_2020-01-01_000000Z.mhl')), b'half', 'a copy')
    with Place() as place:
        # What is left of ours goes, whatever the time in its name.
        place.small_card()
        write(place.path('copy', 'CARD', 'CARD_2020-01-01_000000Z.md5.part'), b'half')
        write(place.path('copy', 'CARD', 'notes.part'), b'mine')
        place.duplicate('--manifest', 'sums', '--digest', 'md5')
        assert not os.path.exists(place.path('copy', 'CARD', 'CARD_2020-01-01_000000Z.md5.part'))
        assert os.path.exists(place.path('copy', 'CARD', 'notes.part'))


def what_a_pattern_leaves_out_is_not_listed():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        manifest = only_manifest(folder)
        changed = read(manifest).replace(b'<pattern>.DS_Store</pattern>',
                                         b'<pattern>.DS_Store</pattern><pattern>*.tmp</pattern>')
        write(manifest, changed)
        chain = os.path.join(folder, 'ascmhl', 'ascmhl_chain.xml')
        text = read(chain).decode()
        begin = text.index('<c4>') + 4
        write(chain, (text[:begin] + history.digest_of('c4', changed) + text[begin + 90:]).encode())
        shutil.rmtree(place.path('logs'))  # with this machine's copy of the manifest that was changed
        os.mkdir(place.path('logs'))
        shutil.rmtree(place.card())
        shutil.move(folder, place.card())
        shutil.rmtree(place.path('other', 'CARD'))
        write(place.card('Clips', 'x.tmp'), b'1')
        time.sleep(1.1)
        output = place.duplicate('--manifest', 'mhl')
        expect(output.count('a pattern of its history leaves it out'), 2, output)
        newest = os.path.join(folder, 'ascmhl', manifests(folder)[1])
        assert b'x.tmp' not in read(newest) and b'*.tmp' in read(newest)
        # Our own checker knows the usual patterns only.
        if REFERENCE:
            expect((judge(folder), judge_folders(folder)), (history.WHOLE, history.WHOLE), 'with the pattern')
        expect(place.verify()[0], 0, 'with the pattern')


def bad_name_above_the_files_is_told():
    with Place() as place:
        write(os.path.join(os.fsencode(place.path('source')), b'b\xff', b'Clips', b'A.mov'), b'abcde')
        write(place.path('source', 'good', 'B.mov'), b'xyz')
        write(place.path('machine.json'), MACHINE.replace('"path": "Footage", "bytes": 60000, "files": 6',
                                                          '"path": "Footage/x", "bytes": 5').encode())
        machine = ['--simulator', place.path('machine.json'), '--log-dir', place.path('logs')]
        run([PROGRAM, 'devices', *machine])
        volume = place.path('machine.json.volumes', 'Volumes', 'Master')
        write(os.path.join(os.fsencode(volume), b'b\xff', b'Clips', b'A.mov'), b'abcde')
        output = subprocess.run([PROGRAM, 'duplicate', '--erase', '--manifest', 'mhl', '--yes', *machine, '--select',
                                 os.path.join(os.fsencode('.'), b'b\xff', b'Clips'), '--select', 'Footage'],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False).stdout
        expect(output.count(b'notInManifest'), 3, output)
        root = place.path('machine.json.volumes', 'Volumes', 'COPY1')
        expect(history.check(root), history.NEW, 'files that no manifest can hold')
        assert place.verify(folder=root)[1]['new'] == 1


def folder_that_held_something_before_has_no_digest():
    with Place() as place:
        place.small_card()
        write(place.path('copy', 'CARD', 'Clips', 'older'), b'from before')
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        text = read(only_manifest(folder)).decode()
        expect(text.count('<content></content>'), 2, 'Clips and the root')
        expect(judge(folder), history.NEW, 'the older file')
        # The digests that are there are right.
        os.unlink(folder + '/Clips/older')
        expect((judge(folder), history.check_folders(folder)), (history.WHOLE, history.WHOLE), 'without it')
        # A list that lies on the disk is no content of it.
        shutil.move(only_manifest(folder), folder + '/list.mhl')
        shutil.rmtree(folder + '/ascmhl')
        expect(place.verify('--manifest', folder + '/list.mhl')[0], 0, 'a list on the disk')


def every_list_of_a_disk_is_read():
    with Place() as place:
        for name in ('DAY1', 'DAY2'):
            write(place.card(name, 'CLIPS', 'A.mov'), name.encode())
        run([PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.path('source'),
             place.card('DAY1', 'CLIPS'), place.card('DAY2', 'CLIPS'), '--to', place.path('copy'), '--manifest', 'mhl'])
        # Two manifests of one name: each has its copy on this machine.
        status, disk = place.verify()
        expect((status, [entry['stationCopy'] for entry in disk['lists']]), (0, ['agrees', 'agrees']), 'both')
        # One of the lists is broken: the other one is verified, and nothing of it is called missing.
        write(place.path('copy', 'CARD', 'DAY2', 'CLIPS', 'ascmhl', 'ascmhl_chain.xml'), b'<broken')
        status, disk = place.verify()
        expect((status, disk['whole'], disk['missing'], disk['new']), (1, 1, 0, 0), 'one list is broken')
        assert sum('error' in entry for entry in disk['lists']) == 1, disk
    with Place() as place:
        # A line that is wrong makes the whole list useless, not the files before it missing.
        write(place.card('A.mov'), b'abcde')
        for wrong in ('a//b', 'a/', './a/../b', 'a/./b'):
            text = ('<hashlist version="2.0" xmlns="urn:ASC:MHL:v2.0"><hashes>'
                    '<hash><path>A.mov</path><md5>ab56b4d92b40713acc5af89985d4b786</md5></hash>'
                    f'<hash><path>{wrong}</path><md5>ab56b4d92b40713acc5af89985d4b786</md5></hash>'
                    '</hashes></hashlist>')
            write(place.path('list.mhl'), text.encode())
            status, disk = place.verify('--manifest', place.path('list.mhl'), folder=place.card())
            expect((status, disk['missing'], disk['whole']), (1, 0, 0), wrong)
            assert 'does not lie below' in disk['lists'][0]['error'], disk
    with Place() as place:
        # A manifest that the chain does not name hides nothing.
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        write(folder + '/ascmhl/0009_x.mhl', read(only_manifest(folder)).replace(
            b'<pattern>.DS_Store</pattern>', b'<pattern>*</pattern>').replace(b'original', b'failed'))
        write(folder + '/S.txt', b'HELLO')
        status, disk = place.verify()
        expect((status, disk['changed'], disk['whole']), (1, 1, 2), 'hidden by a pattern')
    with Place() as place:
        # An older manifest is held against this machine's copies, too.
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        time.sleep(1.1)
        expect(place.verify('--record')[0], 0, 'recorded')
        expect(place.verify()[1]['lists'][0]['stationCopy'], 'agrees', 'the recorded generation')
        forged = read(only_manifest(folder)).replace(history.digest_of('xxh128', b'hello').encode(),
                                                     history.digest_of('xxh128', b'HELLO').encode())
        write(folder + '/S.txt', b'HELLO')
        chain = os.path.join(folder, 'ascmhl', 'ascmhl_chain.xml')
        write(chain, read(chain).replace(history.digest_of('c4', read(only_manifest(folder))).encode(),
                                         history.digest_of('c4', forged).encode()))
        write(only_manifest(folder), forged)
        status, disk = place.verify()
        expect((status, disk['lists'][0]['stationCopy']), (1, 'differs'), 'a forged first generation')


def checksum_files_and_histories_side_by_side():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        shutil.rmtree(place.card())
        shutil.move(place.path('copy', 'CARD'), place.card())
        shutil.rmtree(place.path('other', 'CARD'))
        time.sleep(1.1)
        # The checksum file lies in a folder that has a history: the history is what counts.
        place.duplicate('--manifest', 'sums', '--digest', 'md5')
        expect(place.verify()[0], 0, 'beside a history')
        folder = place.path('copy', 'CARD')
        run(['md5sum', '-c', next(name for name in os.listdir(folder) if name.endswith('.md5'))], cwd=folder)
    with Place() as place:
        place.small_card()
        run([PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.card(), place.card('Clips'), '--to',
             place.path('other'), '--manifest', 'mhl'])
        shutil.rmtree(place.card('Clips'))
        shutil.move(place.path('other', 'Clips'), place.card('Clips'))
        time.sleep(1.1)
        # The checksum file lists a history that lies deeper, as content.
        place.duplicate('--manifest', 'sums', '--digest', 'md5')
        expect(place.verify()[0], 0, 'above a history')
        os.unlink(place.path('copy', 'CARD', 'Clips', 'ascmhl', 'ascmhl_chain.xml'))
        expect(place.verify()[1]['missing'], 1, 'a chain that is gone')


def run_after_a_cut_goes_on():
    with Place() as place:
        place.small_card()
        place.duplicate('--manifest', 'mhl')
        folder = place.path('copy', 'CARD')
        shutil.rmtree(place.card())
        shutil.move(folder, place.card())
        shutil.rmtree(place.path('other', 'CARD'))
        time.sleep(1.1)
        place.duplicate('--manifest', 'mhl')
        # As if the run had been cut between the manifest and the chain.
        shutil.copy(place.card('ascmhl', 'ascmhl_chain.xml'), folder + '/ascmhl/ascmhl_chain.xml')
        write(folder + '/ascmhl/0002_CARD_2020-01-01_000000Z.mhl.part', b'half')
        expect(judge(folder), history.WHOLE, 'a manifest that the chain does not name')
        expect(place.verify()[0], 0, 'a manifest that the chain does not name')
        shutil.rmtree(place.path('other', 'CARD'))
        time.sleep(1.1)
        place.duplicate('--manifest', 'mhl')
        expect(len(manifests(folder)), 2, 'the unfinished manifest was taken back')
        assert not any(name.endswith('.part') for name in os.listdir(folder + '/ascmhl'))
        expect(judge(folder), history.WHOLE, 'after the next run')


MACHINE = """{"login": "anna", "enclosures": [{"name": "Four Bay", "uid": 1, "bays": [
  {"bay": "A", "model": "Master", "serial": "A-1", "size": 100000000, "volumes": [{"name": "Master",
    "capacity": 90000000, "content": [{"path": "Footage", "bytes": 60000, "files": 6}]}]},
  {"bay": "B", "model": "Copy", "serial": "B-2", "size": 100000000, "volumes": [{"name": "COPY1", "capacity": 90000000}]},
  {"bay": "C", "model": "Copy", "serial": "C-3", "size": 100000000, "volumes": [{"name": "COPY2", "capacity": 90000000}]},
  {"bay": "D", "model": "Copy", "serial": "D-4", "size": 100000000, "volumes": [{"name": "COPY3", "capacity": 90000000}]}
]}]}"""


def disks_in_bays_are_erased_listed_and_verified():
    with Place() as place:
        write(place.path('machine.json'), MACHINE.encode())
        machine = ['--simulator', place.path('machine.json'), '--log-dir', place.path('logs')]
        run([PROGRAM, 'verify', '--enclosure', '1', *machine], 4)
        run([PROGRAM, 'duplicate', '--erase', '--verify', '--manifest', 'mhl', '--yes', *machine])
        output = run([PROGRAM, 'verify', '--enclosure', '1', *machine])
        expect(output.count('whole: 6 file(s)'), 3, output)
        # An erased volume has its history in its root, and the comment says which disk it is.
        roots = [line.split(': whole')[0].split(' ', 1)[1] for line in output.splitlines() if ': whole' in line]
        for root, bay, serial in zip(roots, 'BCD', ('B-2', 'C-3', 'D-4')):
            comment = read(only_manifest(root)).decode()
            assert f'Slot-{bay}' in comment and serial in comment and 'A-1' in comment, comment
            expect(judge(root), history.WHOLE, root)
            expect(judge_folders(root), history.WHOLE, root)
        folder, _, names = next(step for step in os.walk(os.path.join(roots[1], 'Footage')) if step[2])
        append(os.path.join(folder, names[0]), b'x')
        output = run([PROGRAM, 'verify', '--enclosure', '1', *machine], 1)
        expect(output.count('NOT whole'), 1, output)
        run([PROGRAM, 'verify', '--enclosure', '1', '--bay', 'B', '--bay', 'D', *machine])
        run([PROGRAM, 'verify', '--enclosure', '1', '--bay', 'A', *machine], 4)


def flipped_bytes_on_the_medium_are_found():
    if os.geteuid() != 0:
        print('skipped: a volume of its own needs root')
        sys.exit(77)
    with Place() as place:
        write(place.card('large'), os.urandom(3_000_000))
        write(place.card('small'), b'needle in the haystack')
        image = place.path('image')
        with open(image, 'wb') as file:
            file.truncate(64_000_000)
        run(['mkfs.ext4', '-q', '-F', image])
        disk = place.path('disk')
        os.mkdir(disk)

        def mounted(work, *options):
            run(['mount', '-o', ','.join(['loop', *options]), image, disk])
            try:
                return work()
            finally:
                run(['umount', disk])
                # The loop device goes a little later. A mount that found it again would show what it still remembers.
                while run(['losetup', '-j', image]).strip():
                    time.sleep(0.05)

        copy = [PROGRAM, 'copy', '--log-dir', place.path('logs'), '--root', place.path('source'), place.card(), '--to',
                disk, '--manifest', 'mhl']
        mounted(lambda: run(copy))
        content = bytearray(read(image))
        place_of_byte = content.index(b'needle in the haystack')
        content[place_of_byte] ^= 1
        large = content.index(read(place.card('large'))[1_500_000:1_500_512])
        content[large + 100] ^= 0x80
        write(image, content)
        status, account = mounted(lambda: place.verify(folder=disk))
        expect((status, account['changed'], account['whole']), (1, 2, 0), 'two flipped bits')
        expect(mounted(lambda: judge(disk + '/CARD')), history.CHANGED, 'two flipped bits')
        # A read-only disk is read, and is told where the result was to be recorded.
        status, account = mounted(lambda: place.verify('--record', folder=disk), 'ro')
        expect((status, account['lists'][0]['notRecorded']), (1, 'the volume is read-only'), 'read-only')


def whole_history(place, folder):
    """True once the source's own history is on the copy, byte for byte: until then it is a copy cut short."""
    names = os.listdir(place.card('ascmhl'))
    return all(os.path.exists(os.path.join(folder, 'ascmhl', name)) and
               (name == 'ascmhl_chain.xml' or
                read(os.path.join(folder, 'ascmhl', name)) == read(place.card('ascmhl', name)))
               and os.path.getsize(os.path.join(folder, 'ascmhl', name)) >= os.path.getsize(place.card('ascmhl', name))
               for name in names)


SCENARIOS = {function.__name__: function for function in (
    every_format_is_accepted, digests_of_folders_on_random_trees, verdicts_are_the_same, generations_go_on,
    nested_histories_are_referred_to, foreign_history_is_kept, names_that_no_manifest_can_carry_are_told,
    only_files_that_count_as_done_are_listed, options_that_do_not_go_together_are_refused,
    bad_manifests_are_told_with_their_line, checksum_files_go_both_ways, list_from_elsewhere_and_stations_copy, disks_in_bays_are_erased_listed_and_verified,
    nothing_that_is_not_ours_is_removed, what_a_pattern_leaves_out_is_not_listed, bad_name_above_the_files_is_told,
    folder_that_held_something_before_has_no_digest,
    every_list_of_a_disk_is_read, checksum_files_and_histories_side_by_side, run_after_a_cut_goes_on,
    flipped_bytes_on_the_medium_are_found, others_histories_are_accepted)}
SCENARIOS['kills_leave_no_broken_history'] = lambda: kills_leave_no_broken_history(
    int(os.environ.get('KILLS', '60')))

if __name__ == '__main__':
    print('judged by the public tool' if REFERENCE else 'judged by our own checker (no MHL_REFERENCE)')
    SCENARIOS[sys.argv[1]]()
    print(sys.argv[1] + ': passed')
