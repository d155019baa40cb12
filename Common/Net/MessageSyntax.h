/// @file MessageSyntax.h
/// How the command sets and data sets of messages are encoded (PS3.7 6.3.1, PS3.8 E). Pure.
///
/// VDicomNet::GetTS answers with TransferFlags; sending and receiving go by WireSyntax, which knows more.
#pragma once

#include "TransferSyntax.h"

namespace vdicom {

/// Load and save flags by the classical list of transfer syntaxes: 0x16, 0x26 or 0x2A. A command is implicit VR little
/// endian, and so is a data set under a UID that is not in the list. The UID is compared exactly.
unsigned short TransferFlags(bool command, const char* uid);

struct WireSyntax {
    unsigned short flags = 0; ///< as TransferFlags
    bool deflated = false;
    bool encapsulated = false; ///< pixel data are compressed
};

/// The encoding on the wire: TransferFlags, and what is newer than its list (deflated, and encapsulated syntaxes of
/// today).
WireSyntax WireSyntaxOf(bool command, const char* uid);

} // namespace vdicom
