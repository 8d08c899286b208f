# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Starts a program in front of an update service of its own: update_service.py FOLDER COMMAND…

To be run in namespaces of its own for the network and for mounts, with the right to change them. There the name of the
update service is this machine's, and the only authority that is trusted is the one in FOLDER/certificates. The service
shows FOLDER/service.pem, notes each request in FOLDER/requests, and answers with FOLDER/answer; where there is no such
file it is silent. It goes on when the program has ended.
"""

import fcntl
import os
import pathlib
import socket
import ssl
import struct
import subprocess
import sys
import threading

HOST = "zamber.example"
SIOCSIFFLAGS = 0x8914
IFF_UP = 1


def bring_loopback_up():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as any_socket:
        fcntl.ioctl(any_socket, SIOCSIFFLAGS, struct.pack("16sh14x", b"lo", IFF_UP))


def cover(path, with_what):
    subprocess.run(["mount", "--bind", with_what, path], check=True)


def serve(connection, tls, folder):
    with tls.wrap_socket(connection, server_side=True) as client:
        head = b""
        while b"\r\n\r\n" not in head:
            head += client.recv(4096)
        answer = folder / "answer"
        body = answer.read_bytes() if answer.exists() else None
        with open(folder / "requests", "ab") as requests:
            requests.write(head.split(b"\r\n", 1)[0] + b"\n")
        if body is None:
            client.recv(1)  # until the other side has gone
        else:
            client.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n%s" % (len(body), body))


def main(folder, *command):
    folder = pathlib.Path(folder)
    bring_loopback_up()
    hosts = folder / "hosts"
    hosts.write_text(f"127.0.0.1 localhost {HOST}\n")
    cover("/etc/hosts", hosts)
    cover("/etc/ssl/certs", folder / "certificates")
    listener = socket.create_server(("127.0.0.1", 443))
    if os.fork():
        listener.close()
        os.execv(command[0], command)
    tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    tls.load_cert_chain(folder / "service.pem", folder / "service.key")
    while True:
        connection, _ = listener.accept()
        threading.Thread(target=serve, args=(connection, tls, folder), daemon=True).start()


if __name__ == "__main__":
    main(*sys.argv[1:])
