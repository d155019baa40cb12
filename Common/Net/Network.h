/// @file Network.h
/// What the process needs for connections: the socket library and the window class.
#pragma once

namespace vdicom {

/// @return as VDicomNet::StartUp
unsigned int StartNetwork();
/// @return as VDicomNet::ShutDown
unsigned int StopNetwork();
bool IsNetworkStarted();

} // namespace vdicom
