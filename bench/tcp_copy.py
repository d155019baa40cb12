#!/usr/bin/env python3
"""How long a file takes over loopback from one process to a file of another, without DICOM: what the network costs alone.

    bench/tcp_copy.py [BYTES] [BUFFER]

BUFFER is that of the sockets; 29696 as the library sets it."""
import os
import socket
import sys
import tempfile
import time

size = int(sys.argv[1]) if len(sys.argv) > 1 else 1 << 30
buffer = int(sys.argv[2]) if len(sys.argv) > 2 else 29696

with tempfile.TemporaryDirectory() as folder:
    source = os.path.join(folder, "source")
    with open(source, "wb") as file:
        for _ in range(size >> 20):
            file.write(bytes(1 << 20))
    listener = socket.socket()
    listener.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, buffer)
    listener.bind(("127.0.0.1", 0))
    listener.listen()
    if os.fork() == 0:
        peer, _ = listener.accept()
        space = bytearray(65536)
        with open(os.path.join(folder, "target"), "wb", buffering=0) as file:
            while (got := peer.recv_into(space)) > 0:
                file.write(memoryview(space)[:got])
        peer.send(b"k")
        os._exit(0)
    start = time.monotonic()
    client = socket.socket()
    client.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, buffer)
    client.connect(listener.getsockname())
    with open(source, "rb", buffering=0) as file:
        while block := file.read(65536):
            client.sendall(block)
    client.shutdown(socket.SHUT_WR)
    client.recv(1)
    seconds = time.monotonic() - start
    os.wait()
    print(f"{size >> 20} MiB in {seconds:.2f} s: {size / seconds / 2**20:.0f} MiB/s")
