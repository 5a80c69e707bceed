"""The loop of mutants.sh: one fault after the other into TREE, built in BUILD. A line of the list is FILE, a tab, a text
that stands in it once, a tab, what stands there in its place. FILE is a name without its folder, so that a file may
move."""
import os
import pathlib
import re
import subprocess
import sys

PROGRAMS = "base database handover shell data stock dialogs output bills assembly frame windows acctset fuzz reliability"


def run(command, **more):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
    return subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **more)


def programs_for(build, path):
    """The test programs, that of the file's own floor first."""
    found = [program for name in PROGRAMS.split() for program in build.glob(f"tests/**/test_{name}")]
    own = "windows" if "window" in path.parts else path.parts[-2]
    return sorted(found, key=lambda program: program.name[5:] not in (own, *path.parts))


def fate(tree, build, file, before, after):
    """How the fault fared: the name of the program that caught it, or why there was nothing to catch."""
    found = [path for folder in ("src", "tools") for path in (tree / folder).rglob(file)]
    if len(found) != 1:
        return f"STALE: {len(found)} files of that name"
    path = found[0]
    text = path.read_text(encoding="utf-8")
    if text.count(before) != 1:
        return f"STALE: the text stands there {text.count(before)} times"
    path.write_text(text.replace(before, after), encoding="utf-8")
    try:
        if run(["cmake", "--build", build]).returncode != 0:
            return "STALE: it does not compile"
        for program in programs_for(build, path.relative_to(tree)):
            try:
                if run([program], cwd=build / "tests", timeout=300).returncode != 0:
                    return f"caught by {program.name}"
            except subprocess.TimeoutExpired:
                return f"caught by {program.name}, which hung"
        return "SURVIVED"
    finally:
        path.write_text(text, encoding="utf-8")


def main():
    wanted, tree, build = re.compile(sys.argv[1]), pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]).resolve()
    lines = pathlib.Path("tests/mutants.txt").read_text(encoding="utf-8").splitlines()
    mutants = [line.split("\t") for line in lines if line and not line.startswith("#") and wanted.search(line)]
    if run(["cmake", "--build", build]).returncode != 0:
        sys.exit("the tree does not build as it stands")
    left = []
    caught = 0
    for file, before, after in mutants:
        result = fate(tree, build, file, before, after)
        caught += result.startswith("caught")
        print(f"{result}: {file}: {before} -> {after}", flush=True)
        if not result.startswith("caught"):
            left.append(f"{result}: {file}: {before} -> {after}")
    print(f"\n{caught} of {len(mutants)} caught", *left, sep="\n")


main()
