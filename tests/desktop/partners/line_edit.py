#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A Qt program's window with one line to write in; the line is in a file after every change."""

import os
import sys

from PyQt5.QtWidgets import QApplication, QLineEdit


def publish(text):
    with open(sys.argv[1] + ".part", "w", encoding="utf-8") as stream:
        stream.write(text)
    os.replace(sys.argv[1] + ".part", sys.argv[1])


application = QApplication(sys.argv[:1])
line = QLineEdit()
line.setWindowTitle("Line")
line.resize(400, 40)
line.textChanged.connect(publish)
publish("")
line.show()
line.setFocus()
sys.exit(application.exec())
