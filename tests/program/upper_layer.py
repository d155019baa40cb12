"""PDUs and DIMSE messages as bytes (PS3.8 9.3, PS3.7 6.3): what the scripts share that speak them without the library."""
import struct

from support import IMPLICIT, element, equal

VERIFICATION = "1.2.840.10008.1.1"


def pdu(kind, content):
    return struct.pack(">BBI", kind, 0, len(content)) + content


def item(kind, content):
    return struct.pack(">BBH", kind, 0, len(content)) + content


RELEASE, RELEASED, ABORT = pdu(5, bytes(4)), pdu(6, bytes(4)), pdu(7, b"\0\0\2\1")


def receive_bytes(connection):
    """A whole PDU; EOFError: the other side has closed."""
    data, size = b"", 6
    while len(data) < size:
        piece = connection.recv(min(size - len(data), 1 << 20))
        if not piece:
            raise EOFError
        data += piece
        if len(data) == 6:
            size += struct.unpack(">I", data[2:])[0]
    return data


def receive(connection):
    """One PDU: type and content."""
    data = receive_bytes(connection)
    return data[0], data[6:]


def association(kind, contexts=((1, VERIFICATION, IMPLICIT),), called="ARCHIVE", calling="STRANGER", limit=16384, more=b"", head=None):
    """An A-ASSOCIATE-RQ (1) or -AC (2). A context: ID, abstract syntax, transfer syntax, and in an answer the result."""
    items = item(0x10, b"1.2.840.10008.3.1.1.1")
    for number, abstract, syntax, *result in contexts:
        items += item(0x1F + kind, bytes([number, 0, *(result or [0]), 0]) + (item(0x30, abstract.encode()) if kind == 1 else b"") +
                      item(0x40, syntax.encode()))
    head = head or b"\0\1\0\0" + called.encode().ljust(16) + calling.encode().ljust(16) + bytes(32)
    return pdu(kind, head + items + item(0x50, item(0x51, struct.pack(">I", limit)) + more))


def contexts_of(request):
    """The contexts of an A-ASSOCIATE-RQ: ID, abstract syntax, transfer syntaxes."""
    found, at = [], 68
    while at < len(request):
        kind, length = request[at], struct.unpack(">H", request[at + 2:at + 4])[0]
        if kind == 0x20:
            body, texts, inner = request[at + 4:at + 4 + length], [], 4
            while inner < length:
                size = struct.unpack(">H", body[inner + 2:inner + 4])[0]
                texts.append(body[inner + 4:inner + 4 + size].decode())
                inner += 4 + size
            found.append((body[0], texts[0], texts[1:]))
        at += 4 + length
    return found


def accept(connection, takes=lambda abstract, syntaxes: syntaxes[0], limit=16384):
    """Answers an association request; `takes` gives the transfer syntax, or None. Returns what was accepted."""
    kind, request = receive(connection)
    equal(kind, 1)
    answers = [(number, abstract, syntaxes, takes(abstract, syntaxes)) for number, abstract, syntaxes in contexts_of(request)]
    connection.sendall(association(2, [(number, "", syntax or syntaxes[0], 0 if syntax else 4) for number, _, syntaxes, syntax in answers],
                                   limit=limit, head=request[:68]))
    return {number: (abstract, syntax) for number, abstract, _, syntax in answers if syntax}


def dimse(context, command, data=None):
    """A message: the command set as element number and value (a text, a 16-bit number, bytes), then the data set."""
    command = {**command, 0x0800: 0x0101 if data is None else 1}
    content = b"".join(element(name, "UI", struct.pack("<H", value) if isinstance(value, int) else value, implicit=True)
                       for name, value in sorted(command.items()))
    content = element(0, "", struct.pack("<I", len(content)), implicit=True) + content
    return b"".join(pdu(4, struct.pack(">IBB", len(part) + 2, context, control) + part)
                    for control, part in ((3, content), (2, data)) if part is not None)


def number_of(value):
    return struct.unpack("<H", value)[0]


def message(connection):
    """One DIMSE message: context, command as a dictionary, bytes of the data set, largest PDU; None: released."""
    parts, largest = {1: b"", 0: b""}, 0
    wanted = 1
    while True:
        kind, body = receive(connection)
        if kind == 5:
            connection.sendall(RELEASED)
            return None
        equal(kind, 4)
        largest = max(largest, len(body))
        number, control = body[4], body[5]
        parts[control & 1] += body[6:]
        if not control & 2:
            continue
        if control & 1:
            command, at, data = {}, 0, parts[1]
            while at < len(data):
                group, name, size = struct.unpack("<HHI", data[at:at + 8])
                command[name] = data[at + 8:at + 8 + size]
                at += 8 + size
            if number_of(command[0x0800]) != 0x0101:
                wanted = 0
        if control & 1 == wanted:
            return number, command, parts[0], largest


def respond(connection, context, command, status, extra=(), data=None):
    """The response to a request, with `extra` elements."""
    connection.sendall(dimse(context, {0x0100: number_of(command[0x0100]) | 0x8000, 0x0120: number_of(command[0x0110]), 0x0900: status,
                                       **dict(extra)}, data))


def send_store(connection, context, number, class_uid, uid, content):
    connection.sendall(dimse(context, {0x0002: class_uid, 0x0100: 1, 0x0110: number, 0x0700: 0, 0x1000: uid}, content))
