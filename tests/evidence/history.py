"""Checks ASC MHL histories without the program under test, so that the program is not its own judge.

check(folder) returns the same numbers as the format's public tool: 0 for a whole folder, 10 when files are missing,
11 when some were changed, 12 when a folder's digest is wrong, 21 for new files, 30 without a history, 31 for a changed
manifest, 32 without a chain, 33 for a missing manifest.
"""

import hashlib
import os
import re
import xml.etree.ElementTree as xml
from xml.sax.saxutils import escape

import xxhash

MHL = '{urn:ASC:MHL:v2.0}'
CHAIN = '{urn:ASC:MHL:DIRECTORY:v2.0}'
BASE58 = '123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz'

WHOLE, MISSING, CHANGED, FOLDER_CHANGED, NEW = 0, 10, 11, 12, 21
NO_HISTORY, MANIFEST_CHANGED, NO_CHAIN, MANIFEST_MISSING = 30, 31, 32, 33
IGNORED = {'.DS_Store', 'ascmhl', 'lost+found'}


class Broken(Exception):
    def __init__(self, number):
        super().__init__(number)
        self.number = number


def digest_of(form, data):
    makers = {'md5': hashlib.md5, 'sha1': hashlib.sha1, 'c4': hashlib.sha512, 'sha256': hashlib.sha256,
              'xxh64': xxhash.xxh64, 'xxh3': xxhash.xxh3_64, 'xxh128': xxhash.xxh3_128}
    raw = makers[form](data).digest()
    if form != 'c4':
        return raw.hex()
    number, text = int.from_bytes(raw, 'big'), ''
    for _ in range(88):
        number, rest = divmod(number, 58)
        text = BASE58[rest] + text
    return 'c4' + text


def bytes_of(form, text):
    if form != 'c4':
        return bytes.fromhex(text)
    number = 0
    for letter in text[2:]:
        number = number * 58 + BASE58.index(letter)
    return number.to_bytes(64, 'big')


def content_of(path):
    with open(path, 'rb') as file:
        return file.read()


def digest_of_all(form, digests):
    return digest_of(form, b''.join(bytes_of(form, digest) for digest in sorted(digests)))


def folder_digests(folder, form):
    """Content and structure of the folder as it is on the disk."""
    content, structure = [], []
    for name in os.listdir(folder):
        if name in IGNORED:
            continue
        path = os.path.join(folder, name)
        if os.path.isdir(path):
            own, named = folder_digests(path, form)
        else:
            own = named = digest_of(form, content_of(path))
        content.append(own)
        structure.append(digest_of(form, os.fsencode(name) + bytes_of(form, named)))
    return digest_of_all(form, content), digest_of_all(form, structure)


def manifests_of(folder):
    """The parsed manifests of the history, the oldest first."""
    history = os.path.join(folder, 'ascmhl')
    if not os.path.isdir(history):
        raise Broken(NO_HISTORY)
    chain = os.path.join(history, 'ascmhl_chain.xml')
    if not os.path.exists(chain):
        raise Broken(NO_CHAIN)
    for number, entry in enumerate(xml.parse(chain).getroot().findall(CHAIN + 'hashlist'), 1):
        assert entry.get('sequencenr') == str(number)
        path = os.path.join(history, entry.find(CHAIN + 'path').text)
        if not os.path.exists(path):
            raise Broken(MANIFEST_MISSING)
        if digest_of('c4', content_of(path)) != entry.find(CHAIN + 'c4').text:
            raise Broken(MANIFEST_CHANGED)
    names = sorted(name for name in os.listdir(history) if re.match(r'\d{4,}(_.*)?\.mhl$', name))
    return [xml.parse(os.path.join(history, name)).getroot() for name in names]


def histories_in(folder):
    return [os.path.dirname(path) for path, _, _ in os.walk(folder)
            if os.path.basename(path) == 'ascmhl' and os.path.dirname(path) != folder]


def known_in(root, folder):
    """What the history of `folder` knows: digests of files, and names of folders, by path below `root`."""
    files, folders = {}, set()
    for manifest in manifests_of(folder):
        for entry in manifest.iter(MHL + 'hash'):
            path = os.path.relpath(os.path.join(folder, entry.find(MHL + 'path').text), root)
            for digest in entry:
                if digest.get('action') == 'original':
                    files.setdefault(path, (digest.tag.removeprefix(MHL), digest.text))
        for entry in manifest.iter(MHL + 'directoryhash'):
            folders.add(os.path.relpath(os.path.join(folder, entry.find(MHL + 'path').text), root))
    return files, folders


def check(root):
    try:
        known, folders = known_in(root, root)
        for nested in histories_in(root):
            more = known_in(root, nested)
            known.update(more[0])
            folders |= more[1]
    except Broken as broken:
        return broken.number
    numbers = set()
    for path, names, files in os.walk(root):
        names[:] = [name for name in names if name not in IGNORED]
        for name in files:
            full = os.path.join(path, name)
            place = os.path.relpath(full, root)
            if name in IGNORED:
                continue
            if place not in known:
                numbers.add(NEW)
            elif digest_of(known[place][0], content_of(full)) != known[place][1]:
                numbers.add(CHANGED)
    for path in [*known, *folders]:
        if not os.path.exists(os.path.join(root, path)):
            numbers.add(MISSING)
    for number in (CHANGED, NEW, MISSING):
        if number in numbers:
            return number
    return WHOLE


def check_folders(root):
    """Compares the folder digests of the newest manifest with the disk."""
    manifest = manifests_of(root)[-1]
    entries = [(root, manifest.find(MHL + 'processinfo').find(MHL + 'roothash'))]
    for entry in manifest.iter(MHL + 'directoryhash'):
        entries.append((os.path.join(root, entry.find(MHL + 'path').text), entry))
    for folder, entry in entries:
        for element in entry.find(MHL + 'content'):
            form = element.tag.removeprefix(MHL)
            structure = entry.find(MHL + 'structure').find(element.tag).text
            if (element.text, structure) != folder_digests(folder, form):
                return FOLDER_CHANGED
    return WHOLE


def create(root, form):
    """Appends a generation, as other programs write it: without sizes and dates, digests before folders."""
    folder = os.path.join(root, 'ascmhl')
    known = known_in(root, root)[0] if os.path.isdir(folder) else {}
    os.makedirs(folder, exist_ok=True)
    entries = []
    for path, names, files in os.walk(root):
        names[:] = sorted(name for name in names if name not in IGNORED)
        for name in sorted(files):
            place = os.path.relpath(os.path.join(path, name), root)
            digest = digest_of(form, content_of(os.path.join(path, name)))
            action = 'original' if place not in known else 'verified' if known[place][1] == digest else 'failed'
            entries.append(f'<hash><path>{escape(place)}</path><{form} action="{action}">{digest}</{form}></hash>')
    old = sorted(name for name in os.listdir(folder) if name.endswith('.mhl'))
    name = f'{len(old) + 1:04}_{os.path.basename(root)}_2026-01-0{len(old) + 1}_000000Z.mhl'
    with open(os.path.join(folder, name), 'w', encoding='utf-8') as file:
        file.write('<?xml version="1.0" encoding="UTF-8"?><hashlist version="2.0" xmlns="urn:ASC:MHL:v2.0"><creatorinfo>'
                   '<creationdate>2026-01-01T00:00:00+00:00</creationdate><hostname>other</hostname>'
                   '<tool version="1">another program</tool></creatorinfo><processinfo><process>in-place</process>'
                   f'</processinfo><hashes>{"".join(entries)}</hashes></hashlist>')
    with open(os.path.join(folder, 'ascmhl_chain.xml'), 'w', encoding='utf-8') as file:
        lists = ''.join(f'<hashlist sequencenr="{number}"><path>{escape(name)}</path>'
                        f'<c4>{digest_of("c4", content_of(os.path.join(folder, name)))}</c4></hashlist>'
                        for number, name in enumerate([*old, name], 1))
        file.write('<?xml version="1.0" encoding="UTF-8"?>'
                   f'<ascmhldirectory xmlns="urn:ASC:MHL:DIRECTORY:v2.0">{lists}</ascmhldirectory>')
    return WHOLE
