#!/usr/bin/env python3
"""Makes small mistakes in the sources, one after the other, and sees whether the tests notice.

    tools/mutate [--most N] [--only TEXT] [--list]

tests/mutation/mutants lists the edits: file, the test programs of which one must fail, the old text and the new one. They are made in a
checkout of HEAD in build/mutate, so that nothing here is touched. An edit that the tests do not notice survives; its
reason stands in the list where it has a good one. Results are kept in build/mutate/results: a sitting that is
stopped is taken up again where it was. The status is 1 when an edit without a reason survived.
"""

import argparse
import collections
import hashlib
import os
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PLACE = f"{ROOT}/build/mutate"
TREE = f"{PLACE}/tree"
PATIENCE = collections.defaultdict(lambda: 300, plurimo_core_tests=60)  # seconds; about ten times the usual duration

Mutant = collections.namedtuple("Mutant", "file programs old new reason key")


def read_list():
    mutants = []
    with open(f"{ROOT}/tests/mutation/mutants", encoding="utf-8") as file:
        blocks = [block for block in file.read().split("\n\n") if block.strip() and not block.startswith("##")]
    for block in blocks:
        lines = block.strip("\n").split("\n")
        path, programs = lines[0].split(" | ")
        text = {mark: "\n".join(line[2:] for line in lines[1:] if line.startswith(mark + " ")) for mark in "-+#"}
        key = hashlib.sha256("\n".join(lines[:1] + [text["-"], text["+"]]).encode()).hexdigest()[:16]
        mutants.append(Mutant(path, programs.split(), text["-"], text["+"], text["#"], key))
    return mutants


def read_results():
    results = {}
    if os.path.exists(f"{PLACE}/results"):
        with open(f"{PLACE}/results", encoding="utf-8") as file:
            for line in file:
                key, outcome = line.split(" ", 1)
                results[key] = outcome.strip()
    return results


def run(command, **options):
    return subprocess.run(command, cwd=TREE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)


def check_out():
    os.makedirs(PLACE, exist_ok=True)
    if not os.path.isdir(TREE):
        subprocess.run(["git", "clone", "-q", "--shared", ROOT, TREE], check=True)
    run(["git", "fetch", "-q", "origin"])
    run(["git", "checkout", "-q", "--force", "--detach", "origin/HEAD"])
    print("Building the tree as it is.", flush=True)
    subprocess.run([f"{TREE}/tools/build", "dev"], check=True)


def fails(program):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", GTEST_FAIL_FAST="1")
    try:
        return run([f"{TREE}/build/dev/tests/{program}"], env=environment, timeout=PATIENCE[program]).returncode != 0
    except subprocess.TimeoutExpired:
        return True  # a mistake that hangs the tests is noticed, too


def outcome_of(mutant):
    path = f"{TREE}/{mutant.file}"
    with open(path, encoding="utf-8") as file:
        text = file.read()
    if text.count(mutant.old) != 1:
        return f"not there: the old text stands {text.count(mutant.old)} times in the file"
    try:
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.replace(mutant.old, mutant.new))
        if run(["cmake", "--build", "--preset", "dev", "--target", *mutant.programs]).returncode != 0:
            return "does not build"
        return "killed" if any(fails(program) for program in mutant.programs) else "survived"
    finally:
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--most", type=int, default=-1, help="at most this many in this sitting")
    parser.add_argument("--only", default="", help="only edits of files with this text in their path")
    parser.add_argument("--list", action="store_true", help="show the results so far, and try nothing")
    arguments = parser.parse_args()
    mutants = [mutant for mutant in read_list() if arguments.only in mutant.file]
    results = read_results()
    waiting = [mutant for mutant in mutants if mutant.key not in results]
    if waiting and not arguments.list and arguments.most != 0:
        check_out()
        for mutant in waiting if arguments.most < 0 else waiting[:arguments.most]:
            results[mutant.key] = outcome_of(mutant)
            with open(f"{PLACE}/results", "a", encoding="utf-8") as file:
                file.write(f"{mutant.key} {results[mutant.key]}\n")
            print(f"{results[mutant.key]}: {mutant.file}: {mutant.old.strip().splitlines()[0]}", flush=True)
    done = [mutant for mutant in mutants if mutant.key in results]
    count = collections.Counter(results[mutant.key].split(":")[0] for mutant in done)
    survivors = [mutant for mutant in done if results[mutant.key] == "survived"]
    for mutant in survivors:
        print(f"\n{mutant.file}\n- {mutant.old}\n+ {mutant.new}\n  {mutant.reason or 'no reason'}")
    print(f"{len(done)} of {len(mutants)} edits tried: " + ", ".join(f"{n} {what}" for what, n in count.items()))
    sys.exit(1 if any(not mutant.reason for mutant in survivors) else 0)


if __name__ == "__main__":
    main()
