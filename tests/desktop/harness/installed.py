# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What installing leaves on a desktop."""

import pathlib

ENTRIES = pathlib.Path(__file__).resolve().parents[3] / "packaging" / "freedesktop"


def install_entry(desktop, program):
    """The desktop entry, for that user alone, which starts the program where it lies."""
    program = pathlib.Path(program).resolve()
    if program.name != "zamber":
        raise ValueError(f"the entry that is installed starts zamber, not {program.name}")
    desktop.run(["cmake", "-D", f"CMAKE_INSTALL_PREFIX={program.parent.parent}", "-D", f"bin={program.parent.name}",
                 "-D", f"data={desktop.data_home}", "-D", f"templates={ENTRIES}", "-D", f"made={desktop.directory}",
                 "-P", ENTRIES / "Entries.cmake"])
