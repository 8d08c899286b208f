#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A stand-in for Speech Dispatcher that says nothing: it listens at the given Unix socket, speaks as much of the Speech
Synthesis Interface Protocol as screen readers need, and writes down what it is given to speak, a line of JSON each."""

import json
import os
import re
import socketserver
import sys
import threading

MARKUP = re.compile(r"<[^>]*>")
ENTITIES = (("&lt;", "<"), ("&gt;", ">"), ("&quot;", '"'), ("&apos;", "'"), ("&amp;", "&"))
ANSWERS = {"LIST OUTPUT_MODULES": "250-silent\r\n250 OK MODULE LIST SENT",
           "LIST VOICES": "249-MALE1\r\n249 OK VOICE LIST SENT",
           "HISTORY GET CLIENT_ID": "245-1\r\n245 OK CLIENT ID SENT",
           "LIST SYNTHESIS_VOICES": "249-silent\ten\tnone\r\n249 OK VOICE LIST SENT"}
GOTTEN = {"OUTPUT_MODULE": "silent", "LANGUAGE": "en", "VOICE_TYPE": "MALE1", "RATE": "0", "PITCH": "0", "VOLUME": "100",
          "PUNCTUATION": "none"}
output = threading.Lock()
numbers = iter(range(1, 10**9))


def tell(text):
    for entity, character in ENTITIES:
        text = text.replace(entity, character)
    with output:
        print(json.dumps({"spoken": text}, ensure_ascii=False), flush=True)


class Client(socketserver.StreamRequestHandler):
    def answer(self, text):
        self.wfile.write(text.encode() + b"\r\n")
        self.wfile.flush()

    def line(self):
        return self.rfile.readline().decode(errors="replace").rstrip("\r\n")

    def queued(self):
        self.answer(f"225-{next(numbers)}\r\n225 OK MESSAGE QUEUED")

    def data(self):
        lines = []
        while (line := self.line()) != ".":
            lines.append(line.removeprefix("."))
        return MARKUP.sub("", " ".join(lines)).strip()

    def handle(self):
        while command := self.line():
            verb, _, rest = command.partition(" ")
            verb = verb.upper()
            if verb == "SPEAK":
                self.answer("230 OK RECEIVING DATA")
                tell(self.data())
                self.queued()
            elif verb in ("CHAR", "KEY", "SOUND_ICON"):
                tell(rest)
                self.queued()
            elif verb in ("LIST", "HISTORY"):
                self.answer(ANSWERS.get(command.upper(), "300 ERROR NO SUCH LIST"))
            elif verb == "GET":
                self.answer(f"251-{GOTTEN.get(rest.upper(), '0')}\r\n251 OK GET RETURNED")
            elif verb == "QUIT":
                self.answer("231 HAPPY HACKING")
                return
            else:
                self.answer("200 OK")


class Server(socketserver.ThreadingUnixStreamServer):
    daemon_threads = True


path = sys.argv[1]
if os.path.exists(path):
    os.remove(path)
with Server(path, Client) as server:
    print(json.dumps({"spoken": ""}), flush=True)
    server.serve_forever()
