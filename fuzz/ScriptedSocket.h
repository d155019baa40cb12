/// @file ScriptedSocket.h
/// The sockets of the platform layer without a network, for ConnectionFuzz: this takes the place of the library's own.
/// There is one thread and one peer, whose bytes, pauses and ends come from a script.
#pragma once

#include "Socket.h"

namespace scripted {

/// Forgets all sockets. @param refused the first so many connections are refused
void Start(int refused);
/// The peer of the connection that is open sends bytes; they must stay.
void Deliver(const unsigned char* data, std::size_t size);
/// It sends nothing more. @param error 0, or what breaks the connection
void End(int error);
/// So many bytes can be sent before the next call.
void SetRoom(std::size_t bytes);
/// Bytes that were sent.
std::size_t Sent();

} // namespace scripted
