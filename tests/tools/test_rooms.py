# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The rooms of the program link what their sources include, and no more; none includes a room above itself."""

import dataclasses
import pathlib
import re
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
KEYWORDS = ("HEADERS", "INTERNAL", "SOURCES", "LINKS", "PRIVATE_LINKS")
ROOM = re.compile(r"^zamber_room\(\s*(?P<name>\w+)\s+(?P<folder>[\w/]+)(?P<words>[^)]*)\)", re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Room:
    name: str
    folder: str
    lists: dict

    def included(self, *kinds):
        """The headers of ours that the room's files of these kinds include."""
        files = [TREE / self.folder / file for kind in kinds for file in self.lists[kind]]
        return {header for file in files if file.is_file()
                for header in re.findall(r'^#include "([^"]+)"', file.read_text(), re.MULTILINE)}

    def linked(self, *kinds):
        return {word for kind in kinds for word in self.lists[kind] if word.startswith("zamber_")}


def words_of(text):
    lists = {keyword: [] for keyword in KEYWORDS}
    current = None
    for word in re.sub(r"#.*", "", text).split():
        if word in KEYWORDS:
            current = lists[word]
        else:
            current.append(word)
    return lists


def find_rooms():
    tops = re.findall(r"^ *add_subdirectory\((\w+)\)", (TREE / "CMakeLists.txt").read_text(), re.MULTILINE)
    files = (file for top in tops if top != "tests" for file in (TREE / top).rglob("CMakeLists.txt"))
    return [Room(match["name"], match["folder"], words_of(match["words"]))
            for file in files for match in ROOM.finditer(file.read_text())]


class RoomsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rooms = find_rooms()
        cls.owners = {f"{room.folder}/{header}": room.name
                      for room in cls.rooms for kind in ("HEADERS", "INTERNAL") for header in room.lists[kind]}

    def owners_of(self, room, *kinds):
        headers = room.included(*kinds)
        return {self.owners[header] for header in headers if header in self.owners} - {room.name}

    def test_the_house_is_read(self):
        self.assertGreater(len(self.rooms), 20)
        self.assertGreater(len(self.owners), 150)

    def test_a_room_offers_to_others_just_the_rooms_that_its_headers_include(self):
        for room in self.rooms:
            with self.subTest(room.name):
                linked = room.linked("LINKS") - {"zamber_wayland_protocols"}  # which are generated
                self.assertEqual(linked, self.owners_of(room, "HEADERS"))

    def test_a_room_links_no_room_that_it_does_not_include(self):
        for room in self.rooms:
            with self.subTest(room.name):
                used = self.owners_of(room, "HEADERS", "INTERNAL", "SOURCES")
                self.assertEqual(room.linked("PRIVATE_LINKS") - used, set())

    def test_no_room_includes_one_above_itself(self):
        order = re.findall(r"^add_subdirectory\((\w+)\)", (TREE / "CMakeLists.txt").read_text(), re.MULTILINE)
        self.assertEqual(order[0], "text")
        for room in self.rooms:
            own = order.index(room.folder.split("/")[0])
            for header in room.included("HEADERS", "INTERNAL", "SOURCES"):
                top = header.split("/")[0]
                with self.subTest(room=room.name, header=header):
                    self.assertIn(top, order[:own + 1])
