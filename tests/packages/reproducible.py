# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Builds the program and its package once more, in a folder of another length and without the compiler's cache, and
compares them with those of build/release byte by byte. Ends with 1 when they differ; the other folder is kept then."""

import argparse
import filecmp
import os
import pathlib
import shutil
import subprocess
import sys

SOURCES = pathlib.Path(__file__).resolve().parents[2]
OTHER = SOURCES / "build" / "reproduced" / "in a folder with quite another name" / "zamber"
PROGRAM = pathlib.Path("build", "release", "zamber")


def run(*command, folder, **environment):
    subprocess.run(list(map(str, command)), cwd=folder, env=dict(os.environ, **environment), stdin=subprocess.DEVNULL, check=True)


def copy_sources():
    """All but the builds, every file as if written just now."""
    shutil.rmtree(OTHER.parent.parent, ignore_errors=True)
    shutil.copytree(SOURCES, OTHER, symlinks=True, copy_function=shutil.copyfile,
                    ignore=lambda folder, names: {"build", ".git"} & set(names) if pathlib.Path(folder) == SOURCES else ())


def build(jobs):
    # Warnings are errors here and not in the first build, which is the users', with their compilers.
    # No launcher, and no cache behind the compiler's name either.
    fresh = {"CMAKE_CXX_COMPILER_LAUNCHER": "", "CCACHE_DISABLE": "1"}
    run("cmake", "--preset", "release", "-D", "ZAMBER_TESTS=OFF", "-D", "ZAMBER_WERROR=ON", folder=OTHER, **fresh)
    run("cmake", "--build", "--preset", "release", "--parallel", jobs, "--target", "zamber", folder=OTHER, **fresh)


def pack(folder, into):
    run("cpack", "--config", folder / "build" / "release" / "CPackConfig.cmake", "-B", into, folder=folder)
    (made,) = into.glob("*.deb")
    return made


def is_same(one, other):
    same = filecmp.cmp(one, other, shallow=False)
    print(f"{one.name}: {'the same' if same else 'differs'}, {one.stat().st_size} and {other.stat().st_size} bytes", flush=True)
    return same


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--jobs", default=os.cpu_count())
    jobs = parser.parse_args().jobs
    copy_sources()
    build(jobs)
    same = [is_same(SOURCES / PROGRAM, OTHER / PROGRAM)]
    if shutil.which("dpkg-shlibdeps"):  # else there are no packages here
        same.append(is_same(*(pack(folder, OTHER.parent.parent / name)
                              for folder, name in ((SOURCES, "first"), (OTHER, "second")))))
    if not all(same):
        print(f"To see where: readelf and dpkg-deb on both; the other build is in {OTHER}", file=sys.stderr)
        return 1
    shutil.rmtree(OTHER.parent.parent)
    return 0


if __name__ == "__main__":
    sys.exit(main())
