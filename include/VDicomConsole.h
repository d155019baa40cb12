/// @file VDicomConsole.h
/// VDicomConsole: standard streams, terminal and arguments of a command line program.
#pragma once

#include "VDicomTypes.h"

/// Number of a standard stream, as VDicomConsole takes it.
enum DICOMSTDSTREAM : unsigned int { DICOM_STDIN = 0, DICOM_STDOUT = 1, DICOM_STDERR = 2 };

/// What a command line program needs of its platform. All members are static; nothing here is needed by programs that
/// have windows or serve the network.
class VDICOM_API VDicomConsole {
public:
    /// Prepares the standard streams: on Windows bytes go out as they are, the console shows UTF-8 and understands
    /// colours; elsewhere there is nothing to do. Call it once, before the first output.
    static void Prepare();

    /// The program's arguments in UTF-8. On Windows they come from the system's own command line, elsewhere they are
    /// `argv` itself. @param count receives their number
    /// @return `*count` texts and a null behind them; they live until the process ends
    static const char* const* GetArguments(int argc, char** argv, int* count);

    /// Non-zero when the stream is a terminal that a person looks at.
    static unsigned int IsTerminal(unsigned int stream);

    /// Columns of the terminal behind the stream; 0 when it is none or does not say.
    static VDicomULong GetColumns(unsigned int stream);

    /// Writes bytes at once, without a buffer. @return non-zero when all of them were taken
    /// @param error receives the platform's number when they were not; may be null
    static unsigned int Write(unsigned int stream, const void* bytes, std::size_t size, int* error);

    /// The stream's handle for VDicomFile::SetHandle (a descriptor, on Windows a HANDLE).
    static std::intptr_t GetHandle(unsigned int stream);
};
