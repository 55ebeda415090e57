"""A session manager of the X session protocol, on the library that real ones stand on.

Prints the address for SESSION_MANAGER, then a line for each thing that a client does. Takes a word a line: save (and the
session goes on), logout, cancel, die.
"""

import ctypes
import select
import sys
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

sm, ice = ctypes.CDLL("libSM.so.6"), ctypes.CDLL("libICE.so.6")
for function, result in ((sm.SmsGenerateClientID, c_void_p), (ice.IceAcceptConnection, c_void_p),
                         (ice.IceComposeNetworkIdList, c_char_p)):
    function.restype = result

clients, connections = [], {}
GLOBAL_AND_LOCAL, LOCAL, ANY_INTERACTION = 2, 1, 2


def say(*words):
    print(*words, flush=True)


def register(client, *_):
    sm.SmsRegisterClientReply(c_void_p(client), c_void_p(sm.SmsGenerateClientID(c_void_p(client))))
    sm.SmsSaveYourself(c_void_p(client), LOCAL, 0, 0, 0)  # new ones are asked at once, and nobody ends
    clients.append(client)
    say("registered")
    return 1


def closed(client, *_):
    clients.remove(client)
    say("closed")


def saved(_, __, success):
    say("saved" if success else "not saved")


# In the order of the library's table.
HANDLERS = [CFUNCTYPE(kind, c_void_p, c_void_p, *words)(handler) for kind, handler, *words in (
    (c_int, register, c_void_p), (None, lambda *_: say("asks to interact"), c_int), (None, lambda *_: None, c_int),
    (None, lambda *_: say("asks to be saved"), c_int, c_int, c_int, c_int, c_int), (None, lambda *_: say("phase 2")),
    (None, saved, c_int), (None, closed, c_int, c_void_p), (None, lambda *_: None, c_int, c_void_p),
    (None, lambda *_: None, c_int, c_void_p), (None, lambda *_: None))]


@CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(c_void_p), c_void_p)
def new_client(_, __, mask, table, ___):
    mask[0] = (1 << len(HANDLERS)) - 1
    for place, handler in enumerate(HANDLERS):
        table[2 * place], table[2 * place + 1] = ctypes.cast(handler, c_void_p), None
    return 1


@CFUNCTYPE(c_int, c_char_p)
def everybody(_):
    return 1


@CFUNCTYPE(None, c_void_p)
def gone(_):
    """A client without a farewell."""


def act(word):
    for client in map(c_void_p, list(clients)):
        if word in ("save", "logout"):
            sm.SmsSaveYourself(client, GLOBAL_AND_LOCAL, int(word == "logout"), ANY_INTERACTION, 0)
        elif word == "cancel":
            sm.SmsShutdownCancelled(client)
        elif word == "die":
            sm.SmsDie(client)


ice.IceSetIOErrorHandler(gone)
count, listeners, error = c_int(), POINTER(c_void_p)(), ctypes.create_string_buffer(200)
sm.SmsInitialize(b"test", b"1", new_client, None, everybody, 200, error)
ice.IceListenForConnections(byref(count), byref(listeners), 200, error)
say(ice.IceComposeNetworkIdList(count, listeners).decode())
doors = {ice.IceGetListenConnectionNumber(c_void_p(listeners[i])): listeners[i] for i in range(count.value)}
for door in doors.values():
    ice.IceSetHostBasedAuthProc(c_void_p(door), everybody)
while True:
    for ready in select.select([0, *doors, *connections], [], [])[0]:
        if ready == 0:
            line = sys.stdin.readline()
            if not line:
                sys.exit()
            act(line.strip())
        elif ready in doors:
            status = c_int()
            connection = ice.IceAcceptConnection(c_void_p(doors[ready]), byref(status))
            connections[ice.IceConnectionNumber(c_void_p(connection))] = connection
        elif ice.IceProcessMessages(c_void_p(connections[ready]), None, None) != 0:
            del connections[ready]
