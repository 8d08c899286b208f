#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A session manager (X.Org, X Session Management Protocol), by the library that session managers use.

Writes a line with the addresses for SESSION_MANAGER, and then one for every set of properties that a client gives: a
JSON object from their names to the numbers or texts in them. Each client is asked to save itself as it registers, as
the protocol has it. On standard input, "save" has all of them do so again, and "die" ends the session for them.
"""

import ctypes
import json
import select
import sys
from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_ulong, c_void_p

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")
LIBC = ctypes.CDLL(None)
LOCAL, NO_INTERACTION = 1, 0
PENDING, ACCEPTED = 0, 1


class Value(Structure):
    _fields_ = [("length", c_int), ("data", c_void_p)]


class Property(Structure):
    _fields_ = [("name", c_char_p), ("type", c_char_p), ("count", c_int), ("values", POINTER(Value))]


Register = CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)
One = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
None_ = CFUNCTYPE(None, c_void_p, c_void_p)
Request = CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_int, c_int, c_int, c_int)
Properties = CFUNCTYPE(None, c_void_p, c_void_p, c_int, POINTER(POINTER(Property)))
Texts = CFUNCTYPE(None, c_void_p, c_void_p, c_int, POINTER(c_char_p))


class Callbacks(Structure):
    _fields_ = [field for name, kind in (
        ("register_client", Register), ("interact_request", One), ("interact_done", One), ("save_request", Request),
        ("second_phase", None_), ("save_done", One), ("close_connection", Texts), ("set_properties", Properties),
        ("delete_properties", Texts), ("get_properties", None_),
    ) for field in ((name, kind), (name + "_data", c_void_p))]


NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(Callbacks), POINTER(c_char_p))
HostAllowed = CFUNCTYPE(c_int, c_char_p)

for function in (ICE.IceComposeNetworkIdList, ICE.IceAcceptConnection, SM.SmsGenerateClientID):
    function.restype = c_void_p
clients = []


def save(client):
    SM.SmsSaveYourself(c_void_p(client), LOCAL, 0, NO_INTERACTION, 0)


@Register
def register_client(client, _data, previous):
    SM.SmsRegisterClientReply(c_void_p(client), c_void_p(previous or SM.SmsGenerateClientID(c_void_p(client))))
    clients.append(client)
    save(client)
    return 1


@Properties
def set_properties(_client, _data, count, properties):
    told = {}
    for index in range(count):
        item = properties[index].contents
        data = [ctypes.string_at(item.values[i].data, item.values[i].length) for i in range(item.count)]
        told[item.name.decode()] = data[0][0] if item.type == b"CARD8" else [text.decode() for text in data]
    print(json.dumps(told), flush=True)


@One
def save_done(client, _data, _success):
    SM.SmsSaveComplete(c_void_p(client))


@None_
def second_phase(client, _data):
    SM.SmsSaveYourselfPhase2(c_void_p(client))


@Texts
def close_connection(client, _data, _count, _reasons):
    clients.remove(client)


callbacks = Callbacks(
    register_client=register_client, interact_request=One(lambda *_: None), interact_done=One(lambda *_: None),
    save_request=Request(lambda *_: None), second_phase=second_phase, save_done=save_done,
    close_connection=close_connection, set_properties=set_properties, delete_properties=Texts(lambda *_: None),
    get_properties=None_(lambda *_: None),
)


@NewClient
def new_client(_client, _data, mask, wanted, _reason):
    mask[0] = (1 << 10) - 1
    wanted[0] = callbacks
    return 1


@HostAllowed
def host_allowed(_name):
    return 1


error = ctypes.create_string_buffer(256)
assert SM.SmsInitialize(b"tests", b"1", new_client, None, host_allowed, 256, error), error.value
count, listeners = c_int(), POINTER(c_void_p)()
assert ICE.IceListenForConnections(byref(count), byref(listeners), 256, error), error.value
for index in range(count.value):
    ICE.IceSetHostBasedAuthProc(c_void_p(listeners[index]), host_allowed)
print(ctypes.string_at(ICE.IceComposeNetworkIdList(count, listeners)).decode(), flush=True)

by_descriptor = {ICE.IceGetListenConnectionNumber(c_void_p(listeners[i])): listeners[i] for i in range(count.value)}
connections = {}
while True:
    ready, _, _ = select.select([sys.stdin, *by_descriptor, *connections], [], [])
    for source in ready:
        if source is sys.stdin:
            command = sys.stdin.readline().strip()
            if not command:
                ICE.IceFreeListenObjs(count, listeners)  # takes its sockets away
                sys.exit()
            for client in clients:
                save(client) if command == "save" else SM.SmsDie(c_void_p(client))
        elif source in by_descriptor:
            status = c_int()
            connection = ICE.IceAcceptConnection(c_void_p(by_descriptor[source]), byref(status))
            while ICE.IceConnectionStatus(c_void_p(connection)) == PENDING:
                ICE.IceProcessMessages(c_void_p(connection), None, None)
            if ICE.IceConnectionStatus(c_void_p(connection)) == ACCEPTED:
                connections[ICE.IceConnectionNumber(c_void_p(connection))] = connection
        elif ICE.IceProcessMessages(c_void_p(connections[source]), None, None):
            del connections[source]
