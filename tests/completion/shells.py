"""Completion as the shells do it: shells.py SHELL FOLDER. FOLDER has the scripts that the program made."""

import os
import pty
import select
import shutil
import subprocess
import sys
import tempfile
import time

# What is typed, and the words that must be and must not be among what the shell offers.
CASES = [
    ("plurimoctl er", ["erase"], ["copy"]),
    ("plurimoctl eject --b", ["--bay"], ["--enclosure"]),
    ("plurimoctl copy --manifest ", ["mhl", "sums"], ["--json", "xxh64"]),
    ("plurimoctl verify --manifest l", ["list.mhl"], ["mhl"]),
    ("plurimoctl line ", ["start", "collect"], ["list.mhl"]),
    ("plurimoctl line start l", ["list.mhl"], ["collect"]),
    ("plurimoctl copy --to ", ["folder"], ["list.mhl"]),
    ("plurimoctl erase --bay ", ["A", "D"], ["--yes"]),
]
# Zsh writes every match that it finds to a file, a line each.
ZSH = """
fpath=({folder} $fpath)
autoload -U compinit && compinit -u -d {folder}/dump
zstyle ':completion:*' verbose no
compadd() {{
    [[ ${{@[1,(i)(-|--)]}} == *-(O|A|D)\\ * ]] && {{ builtin compadd "$@"; return }}
    typeset -a found
    builtin compadd -A found "$@"
    local match; for match in $found; do print -r -- "$match" >>{folder}/offered; done
    builtin compadd "$@"
}}
complete-and-tell() {{ zle complete-word; print -r -- "DONE" >>{folder}/offered }}
zle -N complete-and-tell
bindkey '^I' complete-and-tell
print READY
"""


def in_bash(scripts, typed, _place):
    script = f"""source {scripts}/plurimoctl.bash; COMP_WORDS=({typed.rstrip()}{" ''" if typed.endswith(" ") else ""})
        COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); _plurimoctl; printf '%s\\n' "${{COMPREPLY[@]}}" """
    return subprocess.run(["bash", "-c", script], check=True, capture_output=True, text=True).stdout.split()


def in_fish(scripts, typed, place):
    script = f"source {scripts}/plurimoctl.fish; complete -C '{typed}'"
    told = subprocess.run(["fish", "--no-config", "-c", script], check=True, capture_output=True, text=True,
                          env={**os.environ, "HOME": place}).stdout
    return [line.split("\t")[0].rstrip("/") for line in told.splitlines()]


def until(terminal, wanted):
    seen = b""
    end = time.monotonic() + 60
    while wanted not in seen and time.monotonic() < end:
        if select.select([terminal], [], [], 1)[0]:
            seen += os.read(terminal, 4096)
    assert wanted in seen, seen


def in_zsh(scripts, typed, place):
    folder = tempfile.mkdtemp(dir=place, prefix=".")
    shutil.copy(f"{scripts}/plurimoctl.zsh", f"{folder}/_plurimoctl")
    with open(f"{folder}/setup", "w", encoding="utf-8") as setup:
        setup.write(ZSH.format(folder=folder))
    child, terminal = pty.fork()
    if child == 0:
        os.environ.update(HOME=folder, TERM="dumb", PS1="")
        os.execvp("zsh", ["zsh", "-f", "-i"])
    os.write(terminal, f"source {folder}/setup\n".encode())
    until(terminal, b"\nREADY")
    os.write(terminal, typed.encode() + b"\t")
    offered = []
    end = time.monotonic() + 60
    while "DONE" not in offered and time.monotonic() < end:
        time.sleep(0.02)
        if os.path.exists(f"{folder}/offered"):
            with open(f"{folder}/offered", encoding="utf-8") as file:
                offered = [line.strip().rstrip("/") for line in file]
    os.close(terminal)
    os.waitpid(child, 0)
    return offered


def main():
    shell, scripts = sys.argv[1], os.path.abspath(sys.argv[2])
    if not shutil.which(shell):
        print(f"{shell} is missing", file=sys.stderr)
        sys.exit(77)
    with tempfile.TemporaryDirectory(prefix="completion-") as place:
        os.chdir(place)
        os.mkdir("folder")
        with open("list.mhl", "w", encoding="utf-8"):
            pass
        for typed, wanted, unwanted in CASES:
            offered = {"bash": in_bash, "fish": in_fish, "zsh": in_zsh}[shell](scripts, typed, place)
            assert set(wanted) <= set(offered), f"{typed!r} lacks {set(wanted) - set(offered)}: {offered}"
            assert not set(unwanted) & set(offered), f"{typed!r} has {set(unwanted) & set(offered)}"


if __name__ == "__main__":
    main()
